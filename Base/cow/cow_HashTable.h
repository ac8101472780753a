#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// Finds items by hash: the ground of the hashed indexes. Item is a small value, a pointer or a number; None
/// is the one that is never an item.
///
/// An open table with linear probing, at most half full, over a vector. It holds the items and 32 bits of
/// their hash, never the keys: the caller says which of the items offered is the one sought. Add, Remove and
/// Find take constant time on the average.
template <class Item, Item None>
class cow_HashTable
{
public:
    /// Makes room for `count` items, so that Add cannot throw until then.
    void Reserve(std::size_t count)
    {
        const std::size_t wanted = 2 * count;
        if (wanted <= slots_.size())
            return;
        std::size_t size = 16;
        while (size < wanted)
            size *= 2;
        std::vector<Slot> former(size);
        former.swap(slots_);
        mask_ = size - 1;
        for (const Slot& slot : former)
            if (slot.item != None)
                Place(slot);
    }

    /// Notes that the item has this hash. REQUIRES: room.
    void Add(std::size_t hash, Item item) noexcept { Place({Tag(hash), item}); }

    /// Forgets the item. REQUIRES: it was noted with this hash.
    void Remove(std::size_t hash, Item item) noexcept
    {
        std::size_t hole = Tag(hash) & mask_;
        while (slots_[hole].item != item)
            hole = (hole + 1) & mask_;

        // Close the gap: a later slot of the run moves into the hole unless it would then stand before its
        // home.
        for (std::size_t i = (hole + 1) & mask_; slots_[i].item != None; i = (i + 1) & mask_)
        {
            const std::size_t home = slots_[i].tag & mask_;
            if (((i - home) & mask_) >= ((i - hole) & mask_))
            {
                slots_[hole] = slots_[i];
                hole = i;
            }
        }
        slots_[hole] = Slot();
    }

    void Clear() noexcept
    {
        slots_.clear();
        mask_ = 0;
    }

    /// Calls change(Item&) with every item, which stays one; the hashes stay too.
    template <class F>
    void Each(F change) noexcept
    {
        for (Slot& slot : slots_)
            if (slot.item != None)
                change(slot.item);
    }

    /// The first noted item of this hash for which matches(item) holds, None when there is none.
    template <class Matches>
    Item Find(std::size_t hash, Matches matches) const
    {
        if (slots_.empty())
            return None;
        const std::uint32_t tag = Tag(hash);
        for (std::size_t i = tag & mask_; slots_[i].item != None; i = (i + 1) & mask_)
            if (slots_[i].tag == tag && matches(slots_[i].item))
                return slots_[i].item;
        return None;
    }

private:
    struct Slot
    {
        std::uint32_t tag = 0;
        Item item = None;
    };

    // std::hash of an integer is the integer: stir it, so that the low bits differ.
    static std::uint32_t Tag(std::size_t hash) noexcept
    {
        return static_cast<std::uint32_t>((hash * std::size_t{0x9E3779B97F4A7C15}) >> 32);
    }
    void Place(Slot slot) noexcept
    {
        std::size_t i = slot.tag & mask_;
        while (slots_[i].item != None)
            i = (i + 1) & mask_;
        slots_[i] = slot;
    }

    std::vector<Slot> slots_; // a power of two, or none
    std::size_t mask_ = 0;
};
