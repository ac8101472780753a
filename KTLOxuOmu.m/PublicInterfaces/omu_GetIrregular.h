#pragma once

#include <omu_Arguments.h>

/// As omu_Get for rows that may differ in length: shorter ones are filled up with 0 at the end. T is int or
/// double.
template <class T>
OXU_EXPORT bool omu_GetIrregular(omu_PrimTuple& arguments, cow_2DArray<T>& out);
template <class T>
OXU_EXPORT bool omu_GetIrregular(omu_Arguments& arguments, cow_2DArray<T>& out, const cow_String& keyword);
