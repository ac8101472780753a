#pragma once

#include <atomic>
#include <cow_ArrayCOW.h>
#include <nex_Raise.h>
#include <omu_PrimNumber.h>
#include <vector>

/// The items of a tuple: a copy-on-write array of owned values, null slots legal, that keeps a run of nothing
/// but numbers as plain numbers.
///
/// A number as an object of its own costs two allocations and over a hundred bytes, plain 16 bytes: a factor
/// of about 20 in time for the long lists of coordinates that commands take. The objects are made when
/// somebody asks for one by Get, all at once, and from then on live with the numbers, shared by the copies of
/// the vector; threads may ask at the same time. The first item that is no number turns the vector into
/// objects for good.
///
/// A copy shares; a write detaches. Pointers from Get are valid until the vector changes. A position outside
/// raises the out-of-range error.
class OXU_EXPORT omu_PrimVector
{
public:
    using Items = cow_ArrayCOW<omu_Primitive, cow_Virtual<omu_Primitive>>;
    using DataTypeEnm = omu_PrimNumber::DataTypeEnm;

    /// An item of a run of nothing but numbers.
    struct Number
    {
        double value;
        DataTypeEnm dataType;
    };

    omu_PrimVector() noexcept = default;
    explicit omu_PrimVector(const Items& items) : m_Items(items) {}

    /// Makes room for so many numbers, where there are only numbers.
    void Reserve(int count);
    /// Takes the object over, as it is; null makes a null slot.
    void Append(omu_Primitive* owned);
    void AppendNumber(double value, DataTypeEnm dataType);
    /// Appends the items first .. last - 1 of another vector; they are shared.
    void AppendRange(const omu_PrimVector& other, int first, int last);
    /// Takes the object over; null makes a null slot.
    void Set(int index, omu_Primitive* owned);
    void Remove(int index);
    void Clear() noexcept;

    int Length() const noexcept
    {
        return m_Packed ? static_cast<int>(m_Packed->numbers.size()) : m_Items.Length();
    }
    /// The item, which the vector owns; null from a null slot.
    const omu_Primitive* Get(int index) const { return AsItems().Get(index); }
    /// All items as objects.
    const Items& AsItems() const;
    /// The numbers, Length() of them, while the vector holds them as such; else null.
    const Number* Numbers() const noexcept { return m_Packed ? m_Packed->numbers.data() : nullptr; }

    /// Calls look(const omu_Primitive*) with the item, null from a null slot, and gives what it returns.
    /// Makes no lasting object for a plain number: the pointer is good during the call alone.
    template <class F>
    decltype(auto) View(int index, F look) const
    {
        if (!m_Packed)
            return look(m_Items.Get(index));
        if (index < 0 || index >= Length())
            nex_RaiseRange(index, Length());
        const Number& number = m_Packed->numbers[static_cast<std::size_t>(index)];
        const omu_PrimNumber object(number.value, number.dataType);
        return look(static_cast<const omu_Primitive*>(&object));
    }

private:
    struct Packed
    {
        Packed() = default;
        Packed(const Packed& other) : numbers(other.numbers) {}
        Packed(Packed&& other) noexcept
            : numbers(std::move(other.numbers)), objects(other.objects.exchange(nullptr))
        {}
        Packed& operator=(const Packed&) = delete;
        ~Packed() { delete objects.load(); }

        std::vector<Number> numbers;
        mutable std::atomic<const Items*> objects{nullptr}; // of the same numbers, once asked for
    };

    /// For writing numbers; null when the items are objects.
    Packed* WritePacked();
    /// For writing objects.
    Items& WriteItems();

    cow_Shared<Packed> m_Packed; // null when the items are objects
    Items m_Items;
};
