#pragma once

#include <omu_PrimEnum.h>
#include <oxu_Export.h>

/// How a straight line was defined. Objects hold the value, mementos the name: never renumber, never rename.
enum class gsl_LineMethod {
    FROM_PNT_VECTOR = 0,
    FROM_EDGE = 1,
    FROM_REVFACE = 2,
    FROM_DATUM_AXIS = 3,
    FROM_ELEM_EDGE = 4,
    FROM_PNT_PNT = 5,
    STLINE_INVALID = 6,
    FROM_DATUM_CSYS = 7,
};

/// The names that scripts and mementos see, in order of their values.
template <>
OXU_EXPORT const omu_EnumEntry omu_PrimEnum<gsl_LineMethod, 1>::table[];
