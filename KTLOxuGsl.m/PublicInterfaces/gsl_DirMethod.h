#pragma once

#include <omu_PrimEnum.h>
#include <oxu_Export.h>

/// How a plane was defined. Objects hold the value, mementos the name: never renumber, never rename.
enum class gsl_DirMethod {
    FROM_POINT_VECTOR = 0,
    FROM_FACE = 1,
    FROM_DATUM_PLANE = 2,
    FROM_ELEM_FACE = 3,
    PLANE_INVALID = 4,
};

/// The names that scripts and mementos see, in order of their values.
template <>
OXU_EXPORT const omu_EnumEntry omu_PrimEnum<gsl_DirMethod, 1>::table[];
