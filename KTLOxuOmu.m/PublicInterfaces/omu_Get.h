#pragma once

#include <cls_xp2DArrayDouble.h>
#include <omu_Arguments.h>

/// Reads one argument that is a nested sequence, item by item, so that a fault inside says where it is:
/// "points[1][0]; found string, expecting float". T is int, double or cow_String; of maps
/// cls_xp2DArrayDouble.
///
/// The argument itself is a tuple or list like any other argument: when it is of another type or missing, or
/// when an earlier fault is pending, that is left to End. A fault inside raises at once. The output changes
/// only when all was read. True when this very read delivered.
template <class T>
OXU_EXPORT bool omu_Get(omu_PrimTuple& arguments, cow_List<T>& out);
template <class T>
OXU_EXPORT bool omu_Get(omu_Arguments& arguments, cow_List<T>& out, const cow_String& keyword);

/// Rows of equal length: the first tells how many items the others have.
template <class T>
OXU_EXPORT bool omu_Get(omu_PrimTuple& arguments, cow_2DArray<T>& out);
template <class T>
OXU_EXPORT bool omu_Get(omu_Arguments& arguments, cow_2DArray<T>& out, const cow_String& keyword);

/// A dictionary with text keys whose values are 2D sequences; of another argument the error says expected
/// "Map of string to 2D sequence of Floats".
template <class T>
OXU_EXPORT bool omu_Get(omu_PrimTuple& arguments, cow_Map<cow_String, T>& out);
template <class T>
OXU_EXPORT bool omu_Get(omu_Arguments& arguments, cow_Map<cow_String, T>& out, const cow_String& keyword);
