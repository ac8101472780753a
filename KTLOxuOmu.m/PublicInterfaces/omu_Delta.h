#pragma once

#include <cls_Uid.h>
#include <cow_String.h>
#include <omu_PrimTuple.h>
#include <oxu_Export.h>

/// One change of an ordered collection of named objects, in short: the change history keeps it so, at a
/// fraction of what the tuple costs that everybody sees.
struct OXU_EXPORT omu_Delta
{
    enum class KindEnm { MODIFY, INSERT, REMOVE, RENAME };

    /// ("Modify", name), ("Insert", name, index), ("Remove", name), ("Rename", name, newName, index).
    omu_PrimTuple AsTuple() const;

    cow_String name;
    cow_String newName;
    KindEnm kind = KindEnm::MODIFY;
    int index = 0;
    // Whose change it is, and which of its changes, from 1: see omu_DeltaSource. Not in the tuple.
    cls_Uid source = cls_Uid::Null();
    long long serial = 0;
};
