#pragma once

#include <cow_List.h>
#include <cow_MissingKey.h>
#include <cow_Shared.h>
#include <nex_Raise.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <type_traits>
#include <utility>
#include <vector>

/// Copy-on-write map in the order of its keys (by K's <), with the interface of cow_Map.
///
/// Pairs in sorted blocks of at most 128, over a vector of vectors. Look-up takes logarithmic time,
/// Insert and Remove besides the shifting of one block, positional access a pass over the sizes of the
/// blocks; keys inserted in rising order fill the blocks. A copy shares, the first write detaches, reading
/// never does; a write that throws leaves the map as it was. A reference from FindForWrite ends with the
/// next write or copy.
template <class K, class V>
class cow_Btree
{
    using Block = std::vector<std::pair<K, V>>;

public:
    using Entry = std::pair<K, V>;
    using value_type = Entry;

    /// Goes over the pairs in the order of the keys; reading only.
    class const_iterator
    {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Entry;
        using difference_type = std::ptrdiff_t;
        using pointer = const Entry*;
        using reference = const Entry&;

        const_iterator() noexcept = default;
        reference operator*() const noexcept { return (*block_)[index_]; }
        pointer operator->() const noexcept { return &**this; }
        const_iterator& operator++() noexcept
        {
            if (++index_ == block_->size())
            {
                ++block_;
                index_ = 0;
            }
            return *this;
        }
        const_iterator operator++(int) noexcept
        {
            const const_iterator before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const const_iterator& a, const const_iterator& b) noexcept = default;

    private:
        friend class cow_Btree;
        const_iterator(const Block* block, std::size_t index) noexcept : block_(block), index_(index) {}

        const Block* block_ = nullptr;
        std::size_t index_ = 0;
    };
    using iterator = const_iterator;

    cow_Btree() noexcept = default;
    /// Of a key given twice the last value stays.
    cow_Btree(std::initializer_list<Entry> entries)
    {
        for (const Entry& entry : entries)
            Insert(entry.first, entry.second);
    }

    /// Adds the pair in its place, or replaces the value of a key that is there.
    void Insert(const K& key, const V& value)
    {
        const Place place = PlaceOf(key);
        if (place.found)
            store_.template Change<std::is_nothrow_move_assignable_v<V>>([&](Store& store) {
                V copy(value);
                store.blocks[place.block][place.index].second = std::move(copy);
            });
        else
            store_.template Change<MovesQuietly>([&](Store& store) { store.Insert(place, key, value); });
    }

    /// False when the key is not there.
    bool Remove(const K& key)
    {
        const Place place = PlaceOf(key);
        if (!place.found)
            return false;
        store_.template Change<MovesQuietly>([&](Store& store) { store.Remove(place); });
        return true;
    }
    void Clear() noexcept { store_ = cow_Shared<Store>(); }

    /// The value for writing, null (and nothing detached) when the key is not there.
    V* FindForWrite(const K& key)
    {
        const Place place = PlaceOf(key);
        return place.found ? &store_.Write().blocks[place.block][place.index].second : nullptr;
    }

    int Length() const noexcept { return store_ ? store_->length : 0; }
    bool IsEmpty() const noexcept { return Length() == 0; }
    bool IsMember(const K& key) const { return PlaceOf(key).found; }
    /// The place of the key in the order, -1 when it is not there.
    int IndexOf(const K& key) const
    {
        const Place place = PlaceOf(key);
        if (!place.found)
            return -1;
        std::size_t before = 0;
        for (std::size_t i = 0; i < place.block; ++i)
            before += store_->blocks[i].size();
        return static_cast<int>(before + place.index);
    }

    /// Null when the key is not there.
    const V* Find(const K& key) const
    {
        const Place place = PlaceOf(key);
        return place.found ? &store_->blocks[place.block][place.index].second : nullptr;
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
    const_iterator begin() const noexcept
    {
        return store_ ? const_iterator(store_->blocks.data(), 0) : const_iterator();
    }
    const_iterator end() const noexcept
    {
        return store_ ? const_iterator(store_->blocks.data() + store_->blocks.size(), 0) : const_iterator();
    }
    bool SharesWith(const cow_Btree& other) const noexcept { return store_.SharesWith(other.store_); }

    /// The same keys (none before the other) with equal values.
    friend bool operator==(const cow_Btree& a, const cow_Btree& b)
    {
        return a.Length() == b.Length() &&
               std::equal(a.begin(), a.end(), b.begin(), [](const Entry& x, const Entry& y) {
                   return !(x.first < y.first) && !(y.first < x.first) && x.second == y.second;
               });
    }

private:
    static constexpr std::size_t BlockSize = 128;

    static constexpr bool MovesQuietly =
        std::is_nothrow_move_constructible_v<Entry> && std::is_nothrow_move_assignable_v<Entry>;

    // Where a key stands, or where it would be inserted.
    struct Place
    {
        std::size_t block = 0;
        std::size_t index = 0;
        bool found = false;
    };

    struct Store
    {
        void Insert(Place place, const K& key, const V& value)
        {
            Entry entry(key, value);
            if (blocks.empty())
                blocks.push_back(Block(1, std::move(entry)));
            else
            {
                if (blocks[place.block].size() == BlockSize)
                    place = Split(place);
                Block& block = blocks[place.block];
                if (block.size() == block.capacity())
                    block.reserve(std::min(BlockSize, std::max<std::size_t>(8, 2 * block.size())));
                block.insert(At(block, place.index), std::move(entry));
            }
            ++length;
        }

        // Halves a full block; behind the last key of all a new block begins, so that rising keys fill it.
        Place Split(Place place)
        {
            const bool atEnd = place.block + 1 == blocks.size() && place.index == BlockSize;
            const std::size_t kept = atEnd ? BlockSize : BlockSize / 2;
            Block upper;
            upper.reserve(BlockSize);
            blocks.reserve(blocks.size() + 1);
            Block& full = blocks[place.block];
            std::move(At(full, kept), full.end(), std::back_inserter(upper));
            full.erase(At(full, kept), full.end());
            blocks.insert(blocks.begin() + static_cast<std::ptrdiff_t>(place.block) + 1, std::move(upper));
            if (place.index > kept || atEnd)
                return {place.block + 1, place.index - kept, false};
            return place;
        }

        void Remove(Place place)
        {
            Block& block = blocks[place.block];
            block.erase(At(block, place.index));
            --length;
            if (block.empty())
                blocks.erase(blocks.begin() + static_cast<std::ptrdiff_t>(place.block));
            else if (place.block > 0)
                Join(place.block - 1);
            else if (blocks.size() > 1)
                Join(0);
        }

        // Two thin neighbours become one, so that few pairs do not hold many blocks; only where no memory
        // is needed, since a removal must not fail half-way.
        void Join(std::size_t lower)
        {
            Block& into = blocks[lower];
            Block& from = blocks[lower + 1];
            const std::size_t together = into.size() + from.size();
            if (together > BlockSize / 2 || together > into.capacity())
                return;
            std::move(from.begin(), from.end(), std::back_inserter(into));
            blocks.erase(blocks.begin() + static_cast<std::ptrdiff_t>(lower) + 1);
        }

        static typename Block::iterator At(Block& block, std::size_t index)
        {
            return block.begin() + static_cast<std::ptrdiff_t>(index);
        }

        std::vector<Block> blocks; // none of them empty
        int length = 0;
    };

    Place PlaceOf(const K& key) const
    {
        if (!store_ || store_->blocks.empty())
            return {};
        const std::vector<Block>& blocks = store_->blocks;
        // The last block that begins at or before the key; the first one takes what lies before all.
        auto block = std::upper_bound(blocks.begin(), blocks.end(), key,
                                      [](const K& k, const Block& b) { return k < b.front().first; });
        if (block != blocks.begin())
            --block;
        const auto entry = std::lower_bound(block->begin(), block->end(), key,
                                            [](const Entry& e, const K& k) { return e.first < k; });
        return {static_cast<std::size_t>(block - blocks.begin()),
                static_cast<std::size_t>(entry - block->begin()),
                entry != block->end() && !(key < entry->first)};
    }
    const Entry& EntryAt(int index) const
    {
        if (index < 0 || index >= Length())
            nex_RaiseRange(index, Length());
        std::size_t rest = static_cast<std::size_t>(index);
        const Block* block = store_->blocks.data();
        while (rest >= block->size())
            rest -= block++->size();
        return (*block)[rest];
    }

    cow_Shared<Store> store_;
};
