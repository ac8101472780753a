#pragma once

#include <omu_PrimEnum.h>
#include <oxu_Export.h>

/// How a dot was picked. Objects hold the value, mementos the name: never renumber, never rename. The invalid
/// value sits between valid ones on purpose: stored data fix the numbers.
enum class gsl_DotMethod {
    gsl_FROM_POINT = 0,
    gsl_FROM_VERTEX = 1,
    gsl_FROM_DATUM_POINT = 2,
    gsl_FROM_EDGE_PARAM = 3,
    gsl_FROM_FACE_DIM = 4,
    gsl_FROM_EDGE_VTX = 5,
    gsl_FROM_FACE_VTX = 6,
    gsl_FROM_IP_VTX_ONTO_EDGE = 7,
    gsl_FROM_IP_CENTER_OF_EDGE = 8,
    gsl_FROM_IP_MIDPT_OF_EDGE = 9,
    gsl_FROM_NODE = 10,
    gsl_DOT_INVALID = 11,
    gsl_FROM_DATUM_CSYS_ORIGIN = 12,
};

/// The names that scripts and mementos see, in order of their values.
template <>
OXU_EXPORT const omu_EnumEntry omu_PrimEnum<gsl_DotMethod, 1>::table[];
