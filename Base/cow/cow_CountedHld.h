#pragma once

#include <nex_Raise.h>

#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

/// Counted holder of one object that all its copies share and that is never cloned; null at first.
///
/// Over std::shared_ptr: the count is atomic, the object itself is not guarded. Equality is identity.
/// Reading through a null holder raises nex_InternalException.
template <class T>
class cow_CountedHld
{
public:
    cow_CountedHld() noexcept = default;
    /// Takes the object over; the last holder deletes it.
    explicit cow_CountedHld(T* owned) : object_(owned) {}
    cow_CountedHld(std::unique_ptr<T> owned) : object_(std::move(owned)) {}
    /// A holder of a derived class.
    template <class U>
    requires std::is_convertible_v<U*, T*> cow_CountedHld(const cow_CountedHld<U>& other)
    noexcept : object_(other.object_) {}

    /// The same object seen as a U, shared with this holder; null when it is not one.
    template <class U>
    cow_CountedHld<U> CastTo() const noexcept
    {
        cow_CountedHld<U> other;
        other.object_ = std::dynamic_pointer_cast<U>(object_);
        return other;
    }

    bool IsNull() const noexcept { return object_ == nullptr; }
    explicit operator bool() const noexcept { return object_ != nullptr; }
    T* Get() const noexcept { return object_.get(); }
    T* operator->() const { return &**this; }
    T& operator*() const
    {
        if (!object_)
            nex_RaiseInternal("null holder", "Base/cow/cow_CountedHld", __LINE__);
        return *object_;
    }
    /// How many holders share the object; for tests and traces, other threads may change it at once.
    int Holders() const noexcept { return static_cast<int>(object_.use_count()); }

    friend bool operator==(const cow_CountedHld& a, const cow_CountedHld& b) noexcept
    {
        return a.object_ == b.object_;
    }

private:
    template <class U>
    friend class cow_CountedHld;

    std::shared_ptr<T> object_;
};

template <class T>
struct std::hash<cow_CountedHld<T>>
{
    std::size_t operator()(const cow_CountedHld<T>& holder) const noexcept
    {
        return std::hash<T*>()(holder.Get());
    }
};
