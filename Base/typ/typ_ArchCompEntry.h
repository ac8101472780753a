#pragma once

#include <typ_Entry.h>

/// Looks at a component's table: the address of its constant rows and their number, index 0 included.
///
/// Two are equal when they look at the same rows.
class typ_ArchCompEntry
{
public:
    constexpr typ_ArchCompEntry(const typ_Entry* entries, unsigned count) : entries_(entries), count_(count)
    {}

    constexpr const typ_Entry* Entries() const { return entries_; }
    constexpr unsigned Count() const { return count_; }

    friend constexpr bool operator==(const typ_ArchCompEntry& a, const typ_ArchCompEntry& b)
    {
        return a.entries_ == b.entries_ && a.count_ == b.count_;
    }

private:
    const typ_Entry* entries_;
    unsigned count_;
};
