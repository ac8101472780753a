#pragma once

#include <cow_Vector.h>
#include <nex_Raise.h>

#include <cstddef>
#include <initializer_list>
#include <utility>

/// Flat growable array with its own storage: std::vector with checked access and int positions. Copying
/// copies, so writing access costs nothing; for shared sequences take cow_List.
///
/// A position outside raises nex_RangeException. References end with the next Append, Insert, Remove,
/// Resize or Reserve.
template <class T>
class cls_xo1DArrayList
{
public:
    using value_type = T;
    using iterator = T*;
    using const_iterator = const T*;

    cls_xo1DArrayList() noexcept = default;
    cls_xo1DArrayList(std::initializer_list<T> items) : items_(items) {}
    /// The `count` items at `first`; a count below 1 gives the empty array.
    cls_xo1DArrayList(const T* first, int count) : items_(first, first + (count > 0 ? count : 0)) {}

    void Append(const T& item) { items_.push_back(item); }
    void Append(T&& item) { items_.push_back(std::move(item)); }
    /// Puts `item` before position `at`; at == Length() appends.
    void Insert(int at, const T& item)
    {
        if (at < 0 || at > Length())
            nex_RaiseRange(at, Length());
        items_.insert(items_.begin() + at, item);
    }
    void Remove(int at)
    {
        RequireIndex(at);
        items_.erase(items_.begin() + at);
    }
    void Clear() noexcept { items_.clear(); }
    void Reserve(int count)
    {
        if (count > 0)
            items_.reserve(static_cast<std::size_t>(count));
    }
    /// Cuts, or fills up with T().
    void Resize(int count) { items_.resize(count > 0 ? static_cast<std::size_t>(count) : 0); }

    T& operator[](int index)
    {
        RequireIndex(index);
        return items_[static_cast<std::size_t>(index)];
    }
    T* Data() noexcept { return items_.data(); }
    T* begin() noexcept { return Data(); }
    T* end() noexcept { return Data() + Length(); }

    int Length() const noexcept { return static_cast<int>(items_.size()); }
    bool IsEmpty() const noexcept { return items_.empty(); }
    const T& operator[](int index) const { return Get(index); }
    const T& Get(int index) const
    {
        RequireIndex(index);
        return items_[static_cast<std::size_t>(index)];
    }
    const T* Data() const noexcept { return items_.data(); }
    const T* begin() const noexcept { return Data(); }
    const T* end() const noexcept { return Data() + Length(); }

    /// Item by item, with T's own equality.
    friend bool operator==(const cls_xo1DArrayList& a, const cls_xo1DArrayList& b)
    {
        return a.items_ == b.items_;
    }

private:
    void RequireIndex(int index) const
    {
        if (index < 0 || index >= Length())
            nex_RaiseRange(index, Length());
    }

    cow_Vector<T> items_;
};
