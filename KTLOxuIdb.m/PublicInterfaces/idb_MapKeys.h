#pragma once

#include <cow_List.h>
#include <cow_String.h>
#include <oxu_Export.h>

#include <cstdint>

/// The keys of a stored map differ: a key that stands twice raises idb_MementoException, on reading (the map
/// begins at byte `at`) and on writing.
namespace idb_MapKeys
{
/// Keys that were read.
OXU_EXPORT void RequireDistinctRead(const cow_List<int>& keys, std::uint64_t at);
OXU_EXPORT void RequireDistinctRead(const cow_List<cow_String>& keys, std::uint64_t at);
/// Keys that are to be written.
OXU_EXPORT void RequireDistinctWritten(const cow_List<int>& keys);
OXU_EXPORT void RequireDistinctWritten(const cow_List<cow_String>& keys);
}
