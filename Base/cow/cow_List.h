#pragma once

#include <cow_Shared.h>
#include <cow_Vector.h>
#include <nex_Raise.h>

#include <cstddef>
#include <initializer_list>
#include <limits>
#include <type_traits>
#include <utility>

/// Copy-on-write sequence over a vector (for bool too a real one: references and pointers work).
///
/// A copy shares; the first write detaches. Through a const list and through Get, Data, begin and end one
/// only reads, and that never detaches. A reference or pointer from a writing access ends with the next
/// write or copy of the list. A write that throws leaves the list as it was. Positions are ints from 0;
/// one outside raises nex_RangeException.
template <class T>
class cow_List
{
public:
    using value_type = T;
    using const_iterator = const T*;
    using iterator = const_iterator;

    cow_List() noexcept = default;
    cow_List(std::initializer_list<T> items)
    {
        if (items.size() > 0)
            items_ = cow_Shared<Items>(Items(items));
    }
    /// `count` copies of `item`; a count below 1 gives the empty list.
    static cow_List Filled(int count, const T& item)
    {
        cow_List list;
        if (count > 0)
            list.items_ = cow_Shared<Items>(Items(static_cast<std::size_t>(count), item));
        return list;
    }
    /// The `count` items at `first`; a count below 1 gives the empty list.
    static cow_List FromArray(const T* first, int count)
    {
        cow_List list;
        if (count > 0)
            list.items_ = cow_Shared<Items>(Items(first, first + count));
        return list;
    }

    /// The items from `first` to `last`, forward iterators, whose count fits into an int.
    template <class I>
    static cow_List FromRange(I first, I last)
    {
        cow_List list;
        if (first != last)
            list.items_ = cow_Shared<Items>(Items(first, last));
        return list;
    }

    void Append(const T& item)
    {
        RequireRoom(1);
        items_.template Change<true>([&](Items& items) { items.push_back(item); });
    }
    void Append(T&& item)
    {
        RequireRoom(1);
        items_.template Change<true>([&](Items& items) { items.push_back(std::move(item)); });
    }
    /// Adds the items of `tail`, which may be this list itself.
    void AppendList(const cow_List& tail)
    {
        if (tail.IsEmpty())
            return;
        RequireRoom(tail.Length());
        items_.template Change<true>([&](Items& items) {
            const std::size_t before = items.size();
            const std::size_t after = before + tail.items_->size();
            if (after > items.capacity())
                items.reserve(after > 2 * before ? after : 2 * before);
            try
            {
                // The end is where it was when the loop began, so the list may be its own tail.
                for (const T& item : tail)
                    items.push_back(item);
            }
            catch (...)
            {
                while (items.size() > before)
                    items.pop_back();
                throw;
            }
        });
    }

    /// Puts `item` before position `at`; at == Length() appends.
    void Insert(int at, const T& item)
    {
        if (at < 0 || at > Length())
            nex_RaiseRange(at, Length());
        RequireRoom(1);
        items_.template Change<MovesQuietly>([&](Items& items) {
            T copy(item);
            items.insert(items.begin() + at, std::move(copy));
        });
    }
    void Remove(int at)
    {
        RequireIndex(at);
        items_.template Change<MovesQuietly>([&](Items& items) { items.erase(items.begin() + at); });
    }
    void Clear() noexcept { items_ = cow_Shared<Items>(); }

    /// Makes room for `count` items; the list's own storage, so a shared list detaches.
    void Reserve(int count)
    {
        if (count > 0)
            items_.Write().reserve(static_cast<std::size_t>(count));
    }

    /// Writing access.
    T& operator[](int index)
    {
        RequireIndex(index);
        return items_.Write()[static_cast<std::size_t>(index)];
    }
    /// Writing access to all items, in one piece; null may come for the empty list.
    T* WriteData() { return items_ ? items_.Write().data() : nullptr; }

    int Length() const noexcept { return items_ ? static_cast<int>(items_->size()) : 0; }
    bool IsEmpty() const noexcept { return Length() == 0; }
    const T& operator[](int index) const { return Get(index); }
    const T& Get(int index) const
    {
        RequireIndex(index);
        return (*items_.Get())[static_cast<std::size_t>(index)];
    }
    /// First position from `from` on that holds an item equal to `item`, -1 when there is none.
    int Find(const T& item, int from = 0) const
    {
        for (int i = from < 0 ? 0 : from; i < Length(); ++i)
            if (Data()[i] == item)
                return i;
        return -1;
    }
    const T* begin() const noexcept { return Data(); }
    const T* end() const noexcept { return Data() + Length(); }
    const T* Data() const noexcept { return items_ ? items_->data() : nullptr; }
    bool SharesWith(const cow_List& other) const noexcept { return items_.SharesWith(other.items_); }

    /// Item by item, with T's own equality.
    friend bool operator==(const cow_List& a, const cow_List& b)
    {
        if (a.Length() != b.Length())
            return false;
        for (int i = 0; i < a.Length(); ++i)
            if (!(a.Data()[i] == b.Data()[i]))
                return false;
        return true;
    }

private:
    using Items = cow_Vector<T>;

    // Items may then be shifted in place: nothing can go wrong half-way.
    static constexpr bool MovesQuietly =
        std::is_nothrow_move_constructible_v<T> && std::is_nothrow_move_assignable_v<T>;

    void RequireIndex(int index) const
    {
        if (index < 0 || index >= Length())
            nex_RaiseRange(index, Length());
    }
    void RequireRoom(int more) const
    {
        if (more > std::numeric_limits<int>::max() - Length())
            nex_RaiseInternal("list too long", "Base/cow/cow_List", __LINE__);
    }

    cow_Shared<Items> items_;
};
