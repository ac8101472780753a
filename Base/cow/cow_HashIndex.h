#pragma once

#include <bas_Export.h>

#include <cstddef>
#include <cstdint>
#include <vector>

/// Finds the positions of entries in a list by hash: the index of cow_Map.
///
/// An open table with linear probing, at most half full, over a vector. It holds positions and 32 bits of
/// hash, never the entries: the caller says which of the positions offered is the one sought.
class BAS_EXPORT cow_HashIndex
{
public:
    /// Makes room for `count` entries, so that Add cannot throw until then.
    void Reserve(int count);

    /// Notes that the entry at `position` has this hash. REQUIRES: room.
    void Add(std::size_t hash, int position) noexcept;

    /// Forgets `position` and moves every later one down by one: a pass over the whole table.
    void Remove(std::size_t hash, int position) noexcept;

    /// The first noted position of this hash for which matches(position) holds, -1 when there is none.
    template <class Matches>
    int Find(std::size_t hash, Matches matches) const
    {
        if (slots_.empty())
            return -1;
        const std::uint32_t tag = Tag(hash);
        for (std::size_t i = tag & mask_; slots_[i].position >= 0; i = (i + 1) & mask_)
            if (slots_[i].tag == tag && matches(slots_[i].position))
                return slots_[i].position;
        return -1;
    }

private:
    struct Slot
    {
        std::uint32_t tag = 0;
        std::int32_t position = -1; // below zero: free
    };

    // std::hash of an integer is the integer: stir it, so that the low bits differ.
    static std::uint32_t Tag(std::size_t hash) noexcept
    {
        return static_cast<std::uint32_t>((hash * std::size_t{0x9E3779B97F4A7C15}) >> 32);
    }
    void Place(Slot slot) noexcept;

    std::vector<Slot> slots_; // a power of two, or none
    std::size_t mask_ = 0;
};
