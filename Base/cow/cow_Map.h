#pragma once

#include <cow_HashIndex.h>
#include <cow_List.h>
#include <cow_MissingKey.h>
#include <cow_Shared.h>
#include <nex_Raise.h>

#include <cstddef>
#include <initializer_list>
#include <type_traits>
#include <utility>
#include <vector>

/// Copy-on-write map that keeps the order of insertion: replacing a value keeps its place, removing and
/// inserting again goes last.
///
/// Pairs in a std::vector with a hash index (std::hash<K>, which must not throw, and K's ==). Look-up and
/// insertion take constant time; Remove is linear, since the later pairs move up (the last pair costs the
/// same pass over the index): who removes many at once had better build a new map. A copy shares, the
/// first write detaches, reading never does; a write that throws leaves the map as it was. A reference
/// from FindForWrite ends with the next write or copy.
template <class K, class V>
class cow_Map
{
public:
    using Entry = std::pair<K, V>;
    using value_type = Entry;
    using const_iterator = const Entry*;
    using iterator = const_iterator;

    cow_Map() noexcept = default;
    /// The pairs in this order; of a key given twice the first place and the last value stay.
    cow_Map(std::initializer_list<Entry> entries)
    {
        for (const Entry& entry : entries)
            Insert(entry.first, entry.second);
    }

    /// Adds the pair at the end, or replaces the value of a key that is there, in its place.
    void Insert(const K& key, const V& value)
    {
        const int at = PositionOf(key);
        if (at >= 0)
            store_.template Change<std::is_nothrow_move_assignable_v<V>>([&](Store& store) {
                V copy(value);
                store.entries[static_cast<std::size_t>(at)].second = std::move(copy);
            });
        else
            store_.template Change<true>([&](Store& store) { store.Append(key, value); });
    }

    /// Makes room for `count` pairs; the map's own storage, so a shared map detaches.
    void Reserve(int count)
    {
        if (count > 0)
            store_.Write().entries.reserve(static_cast<std::size_t>(count));
    }

    /// False when the key is not there.
    bool Remove(const K& key)
    {
        const int at = PositionOf(key);
        if (at < 0)
            return false;
        constexpr bool movesQuietly =
            std::is_nothrow_move_assignable_v<K> && std::is_nothrow_move_assignable_v<V>;
        store_.template Change<movesQuietly>([&](Store& store) { store.Remove(at); });
        return true;
    }
    void Clear() noexcept { store_ = cow_Shared<Store>(); }

    /// The value for writing, null (and nothing detached) when the key is not there.
    V* FindForWrite(const K& key)
    {
        const int at = PositionOf(key);
        return at < 0 ? nullptr : &store_.Write().entries[static_cast<std::size_t>(at)].second;
    }

    int Length() const noexcept { return store_ ? static_cast<int>(store_->entries.size()) : 0; }
    bool IsEmpty() const noexcept { return Length() == 0; }
    bool IsMember(const K& key) const { return PositionOf(key) >= 0; }
    /// The place of the key in the order, -1 when it is not there.
    int IndexOf(const K& key) const { return PositionOf(key); }

    /// Null when the key is not there.
    const V* Find(const K& key) const
    {
        const int at = PositionOf(key);
        return at < 0 ? nullptr : &begin()[at].second;
    }
    /// Raises nex_PrimException "key '%s' not found" when the key is not there.
    const V& Get(const K& key) const
    {
        const V* value = Find(key);
        if (!value)
            cow_MissingKey(key);
        return *value;
    }
    const K& KeyAt(int index) const { return EntryAt(index).first; }
    const V& ValueAt(int index) const { return EntryAt(index).second; }
    cow_List<K> Keys() const
    {
        cow_List<K> keys;
        keys.Reserve(Length());
        for (const Entry& entry : *this)
            keys.Append(entry.first);
        return keys;
    }
    const Entry* begin() const noexcept { return store_ ? store_->entries.data() : nullptr; }
    const Entry* end() const noexcept { return begin() + Length(); }
    bool SharesWith(const cow_Map& other) const noexcept { return store_.SharesWith(other.store_); }

    /// The same keys with equal values; the order does not count.
    friend bool operator==(const cow_Map& a, const cow_Map& b)
    {
        if (a.Length() != b.Length())
            return false;
        for (const Entry& entry : a)
        {
            const V* value = b.Find(entry.first);
            if (!value || !(entry.second == *value))
                return false;
        }
        return true;
    }

private:
    // Up to so many pairs, comparing keys one by one beats hashing, and the index is not kept.
    static constexpr int UnindexedLength = 8;

    struct Store
    {
        void Append(const K& key, const V& value)
        {
            const int count = static_cast<int>(entries.size());
            const bool indexed = count >= UnindexedLength;
            if (indexed)
                index.Reserve(count + 1);
            entries.emplace_back(key, value);
            // The pair that makes the index worth while brings the earlier ones with it.
            for (int i = count == UnindexedLength ? 0 : count; indexed && i <= count; ++i)
                index.Add(Hash(entries[static_cast<std::size_t>(i)].first), i);
        }
        void Remove(int at)
        {
            const auto entry = entries.begin() + at;
            const bool indexed = static_cast<int>(entries.size()) > UnindexedLength;
            if (indexed)
                index.Remove(Hash(entry->first), at);
            entries.erase(entry);
            if (indexed && static_cast<int>(entries.size()) == UnindexedLength)
                index = cow_HashIndex();
        }

        std::vector<Entry> entries;
        cow_HashIndex index;
    };

    static std::size_t Hash(const K& key) noexcept { return std::hash<K>()(key); }
    int PositionOf(const K& key) const
    {
        const int count = Length();
        const Entry* entries = begin();
        if (count > UnindexedLength)
            return store_->index.Find(Hash(key), [&](int i) { return entries[i].first == key; });
        for (int i = 0; i < count; ++i)
            if (entries[i].first == key)
                return i;
        return -1;
    }
    const Entry& EntryAt(int index) const
    {
        if (index < 0 || index >= Length())
            nex_RaiseRange(index, Length());
        return begin()[index];
    }

    cow_Shared<Store> store_;
};
