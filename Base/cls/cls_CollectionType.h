#pragma once

#include <bas_Export.h>

/// How a persistent attribute collects its values. The values are stored: never renumber.
///
/// Lists of primitives come in two series that are read alike. Codes 56 and 86 are reserved and have no
/// element type.
enum class cls_CollectionType : unsigned {
    SINGLE = 0,
    LIST_OBJ = 1,
    MAP_STRING_OBJ = 2,
    MAP_INT_OBJ = 3,

    LIST_BOOL = 51,
    LIST_DOUBLE = 52,
    LIST_FLOAT = 53,
    LIST_INT = 54,
    LIST_STRING = 55,
    LIST_UINT = 57,

    MAP_STRING_DOUBLE = 62,
    MAP_STRING_FLOAT = 63,
    MAP_STRING_INT = 64,
    MAP_STRING_STRING = 65,
    MAP_STRING_UINT = 66,

    MAP_INT_DOUBLE = 72,
    MAP_INT_FLOAT = 73,
    MAP_INT_INT = 74,
    MAP_INT_STRING = 75,
    MAP_INT_UINT = 76,

    ARRAY_BOOL = 81,
    ARRAY_DOUBLE = 82,
    ARRAY_FLOAT = 83,
    ARRAY_INT = 84,
    ARRAY_STRING = 85,
    ARRAY_UINT = 87,

    /// Further layouts of a map from text to objects, read like MAP_STRING_OBJ.
    MAP_STRING_OBJ_93 = 93,
    MAP_STRING_OBJ_112 = 112
};

/// True when data of one code can be read as the other: equal codes, the two list series of one element
/// type (51 and 81 to 57 and 87), or both of 2, 93 and 112. Symmetric and transitive.
BAS_EXPORT bool cls_CollectionsMatch(cls_CollectionType a, cls_CollectionType b);
