#pragma once

#include <bas_Export.h>
#include <cls_CollectionType.h>
#include <cow_List.h>
#include <cow_String.h>

#include <span>
#include <variant>

// Runs of primitive values on their way through a visitor. Beneath: std::variant over std::span for
// writing, over a pointer to the list that receives the values for reading. Neither owns anything.

/// The elements of a list of primitives, or the values of a map of primitives (which has no bool).
using cls_PrimSpan =
    std::variant<std::span<const bool>, std::span<const int>, std::span<const unsigned>,
                 std::span<const float>, std::span<const double>, std::span<const cow_String>>;
/// A list of primitives whose body a writer may share.
using cls_PrimList =
    std::variant<const cow_List<bool>*, const cow_List<int>*, const cow_List<unsigned>*,
                 const cow_List<float>*, const cow_List<double>*, const cow_List<cow_String>*>;
/// The keys of a map.
using cls_KeySpan = std::variant<std::span<const int>, std::span<const cow_String>>;

/// The list that a reader replaces with the elements or values that it found.
using cls_PrimSink = std::variant<cow_List<bool>*, cow_List<int>*, cow_List<unsigned>*, cow_List<float>*,
                                  cow_List<double>*, cow_List<cow_String>*>;
/// The list that a reader replaces with the keys that it found.
using cls_KeySink = std::variant<cow_List<int>*, cow_List<cow_String>*>;

/// The collection code of a list of such elements: LIST_BOOL to LIST_UINT.
BAS_EXPORT cls_CollectionType cls_ListCode(const cls_PrimSpan& elements);
BAS_EXPORT cls_CollectionType cls_ListCode(const cls_PrimSink& elements);
/// The collection code of a map from such keys to such values. A map to bool has no code and is an
/// internal error.
BAS_EXPORT cls_CollectionType cls_MapCode(const cls_KeySpan& keys, const cls_PrimSpan& values);
BAS_EXPORT cls_CollectionType cls_MapCode(const cls_KeySink& keys, const cls_PrimSink& values);
/// The collection code of a map from such keys to objects: MAP_INT_OBJ or MAP_STRING_OBJ.
BAS_EXPORT cls_CollectionType cls_ObjectMapCode(const cls_KeySpan& keys);
BAS_EXPORT cls_CollectionType cls_ObjectMapCode(const cls_KeySink& keys);
