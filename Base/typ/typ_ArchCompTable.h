#pragma once

#include <bas_Export.h>
#include <typ_ArchCompEntry.h>

#include <string_view>

/// The process-wide table of component tables: component id to rows.
///
/// Filled at start-up on one thread and only read afterwards; entries stay until the end of the
/// process.
class BAS_EXPORT typ_ArchCompTable
{
public:
    typ_ArchCompTable() = delete;

    /// Enters a component's table. The same table again does nothing; another table under an occupied
    /// id, or one without rows, is an internal error and changes nothing.
    static void InsertEntry(unsigned short component, typ_ArchCompEntry entry);

    /// The table of a component; null where none was entered.
    static const typ_ArchCompEntry* FindComponent(unsigned short component);

    /// The row of a class by type id; null for an unknown component, an index past the end, and an
    /// empty slot.
    static const typ_Entry* Find(unsigned typeId);

    /// The type id under which a table lists the name, smallest component first; 0 where none does.
    static unsigned FindByName(std::string_view name);
};
