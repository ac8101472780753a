#pragma once

#include <cow_Clone.h>
#include <cow_Shared.h>
#include <nex_Raise.h>

#include <memory>
#include <utility>

/// Copy-on-write handle to one value, which may be polymorphic; null at first.
///
/// Copies share the value. Reading (->, *, ConstGet) never clones; Get clones when another handle shares
/// the value, by cow_Clone: T::Copy() where T has one, else the copy constructor. What Get returns is
/// never kept across a copy of the handle. Reading or writing through a null handle raises
/// nex_InternalException. Over a counted std::unique_ptr.
template <class T>
class cow_COW
{
public:
    cow_COW() noexcept = default;
    cow_COW(const T& value) : cow_COW(cow_Clone(value)) {}
    /// Takes the object over; null gives the null handle.
    explicit cow_COW(T* owned) : cow_COW(std::unique_ptr<T>(owned)) {}
    cow_COW(std::unique_ptr<T> owned)
    {
        if (owned)
            value_ = cow_Shared<Value>(Value{std::move(owned)});
    }

    /// Writing access: clones a value that is shared.
    T& Get()
    {
        RequireValue();
        return *value_.Write().object;
    }

    bool IsNull() const noexcept { return !value_; }
    const T& ConstGet() const
    {
        RequireValue();
        return *value_->object;
    }
    const T& operator*() const { return ConstGet(); }
    const T* operator->() const { return &ConstGet(); }
    /// The object for reading, null from a null handle.
    const T* AsPtr() const noexcept { return value_ ? value_->object.get() : nullptr; }
    bool SharesWith(const cow_COW& other) const noexcept { return value_.SharesWith(other.value_); }

    /// By value; a null handle equals null handles only.
    friend bool operator==(const cow_COW& a, const cow_COW& b)
    {
        if (a.IsNull() || b.IsNull())
            return a.IsNull() && b.IsNull();
        return *a == *b;
    }

private:
    struct Value
    {
        Value() = default;
        explicit Value(std::unique_ptr<T> owned) noexcept : object(std::move(owned)) {}
        Value(const Value& other) : object(cow_Clone(*other.object)) {}
        Value(Value&&) noexcept = default;

        std::unique_ptr<T> object;
    };

    void RequireValue() const
    {
        if (!value_)
            nex_RaiseInternal("null handle", "Base/cow/cow_COW", __LINE__);
    }

    cow_Shared<Value> value_;
};
