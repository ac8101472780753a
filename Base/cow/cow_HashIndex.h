#pragma once

#include <bas_Export.h>
#include <cow_HashTable.h>

#include <cstddef>

/// Finds the positions of entries in a list by hash: the index of cow_Map. A cow_HashTable of positions.
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
        return table_.Find(hash, matches);
    }

private:
    cow_HashTable<int, -1> table_;
};
