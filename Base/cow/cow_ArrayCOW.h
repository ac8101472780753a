#pragma once

#include <cow_List.h>
#include <cow_Virtual.h>

#include <memory>
#include <utility>

/// Copy-on-write array of owned polymorphic elements; null slots are legal.
///
/// A copy shares all slots. Write(i) detaches the slots, which costs a count each, and clones element i
/// alone, by the policy (cow_Virtual: T::Copy()), when it is shared; the other elements stay shared. A
/// null slot clones to null. Over cow_List; an index outside raises nex_RangeException.
template <class T, class Policy = cow_Virtual<T>>
class cow_ArrayCOW
{
public:
    cow_ArrayCOW() noexcept = default;
    /// An array of `count` null slots.
    explicit cow_ArrayCOW(int count) : slots_(cow_List<Slot>::Filled(count, Slot())) {}

    /// Takes the object over; null makes a null slot.
    void Append(T* owned) { slots_.Append(MakeSlot(owned)); }
    /// Appends the element of another array, shared until one of the two is written; a null slot stays null.
    void AppendFrom(const cow_ArrayCOW& other, int index)
    {
        Slot slot = other.slots_.Get(index);
        slots_.Append(std::move(slot));
    }
    void Set(int index, T* owned)
    {
        Slot slot = MakeSlot(owned);
        slots_[index] = std::move(slot);
    }
    void Remove(int index) { slots_.Remove(index); }
    void Clear() noexcept { slots_.Clear(); }

    /// The element for writing, null from a null slot; never kept across a copy of the array.
    T* Write(int index)
    {
        if (!slots_.Get(index))
            return nullptr;
        return slots_[index].Write().object.get();
    }

    int Length() const noexcept { return slots_.Length(); }
    bool IsEmpty() const noexcept { return slots_.IsEmpty(); }
    bool IsNull(int index) const { return !slots_.Get(index); }
    const T* Get(int index) const
    {
        const Slot& slot = slots_.Get(index);
        return slot ? slot->object.get() : nullptr;
    }
    const T* operator[](int index) const { return Get(index); }
    bool SharesWith(const cow_ArrayCOW& other) const noexcept { return slots_.SharesWith(other.slots_); }

private:
    struct Element
    {
        Element() = default;
        explicit Element(std::unique_ptr<T> owned) noexcept : object(std::move(owned)) {}
        Element(const Element& other) : object(Policy::Clone(*other.object)) {}
        Element(Element&&) noexcept = default;

        std::unique_ptr<T> object;
    };
    using Slot = cow_Shared<Element>;

    static Slot MakeSlot(T* owned)
    {
        std::unique_ptr<T> guard(owned);
        return guard ? Slot(Element(std::move(guard))) : Slot();
    }

    cow_List<Slot> slots_;
};
