#pragma once

#include <cls_DeclaredAdapter.h>
#include <cls_ObjectSink.h>

#include <type_traits>
#include <utility>

/// An array that owns polymorphic objects in slots which copies of the array share (cow_ArrayCOW).
template <class A>
concept cls_SlotArray = requires(A& array, const A& other)
{
    array.AppendFrom(other, 0);
    *other.Get(0);
};

/// A sink that appends to such an array. References to one stored body become slots that share it.
template <cls_SlotArray A>
class cls_SlotSink final : public cls_ObjectSink
{
public:
    using T = std::remove_cvref_t<decltype(*std::declval<const A&>().Get(0))>;

    explicit cls_SlotSink(A& array) : array_(array) {}

    unsigned DeclaredTypeId() const override { return T::TypeId(); }
    const cls_AdapterBase* DeclaredAdapter() const override { return cls_DeclaredAdapter<T>(); }

    bool TakeNull() override
    {
        array_.Append(nullptr);
        return true;
    }
    bool TakeNew(std::unique_ptr<cls_Persistent> object, std::any& shared) override
    {
        if (dynamic_cast<T*>(object.get()) == nullptr)
            return false;
        A single;
        single.Append(dynamic_cast<T*>(object.release()));
        array_.AppendFrom(single, 0);
        shared = std::move(single);
        return true;
    }
    bool TakeShared(const std::any& shared) override
    {
        const A* single = std::any_cast<A>(&shared);
        if (single == nullptr)
            return false;
        array_.AppendFrom(*single, 0);
        return true;
    }

private:
    A& array_;
};
