#pragma once

#include <bas_Export.h>
#include <typ_ArchCompEntry.h>

/// The component table of the collections (0x23): 1 the list, 2 the map. Attributes that hold a collection
/// give one of the two as their type id; no object has it.
BAS_EXPORT typ_ArchCompEntry cls_ArchEntry();
