#include <gsl_LineMethod.h>

template <>
const omu_EnumEntry omu_PrimEnum<gsl_LineMethod, 1>::table[] = {
    {"FROM_PNT_VECTOR", int(gsl_LineMethod::FROM_PNT_VECTOR)},
    {"FROM_EDGE", int(gsl_LineMethod::FROM_EDGE)},
    {"FROM_REVFACE", int(gsl_LineMethod::FROM_REVFACE)},
    {"FROM_DATUM_AXIS", int(gsl_LineMethod::FROM_DATUM_AXIS)},
    {"FROM_ELEM_EDGE", int(gsl_LineMethod::FROM_ELEM_EDGE)},
    {"FROM_PNT_PNT", int(gsl_LineMethod::FROM_PNT_PNT)},
    {"STLINE_INVALID", int(gsl_LineMethod::STLINE_INVALID)},
    {"FROM_DATUM_CSYS", int(gsl_LineMethod::FROM_DATUM_CSYS)},
    {nullptr, 0},
};
