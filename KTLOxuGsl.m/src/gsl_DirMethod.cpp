#include <gsl_DirMethod.h>

template <>
const omu_EnumEntry omu_PrimEnum<gsl_DirMethod, 1>::table[] = {
    {"FROM_POINT_VECTOR", int(gsl_DirMethod::FROM_POINT_VECTOR)},
    {"FROM_FACE", int(gsl_DirMethod::FROM_FACE)},
    {"FROM_DATUM_PLANE", int(gsl_DirMethod::FROM_DATUM_PLANE)},
    {"FROM_ELEM_FACE", int(gsl_DirMethod::FROM_ELEM_FACE)},
    {"PLANE_INVALID", int(gsl_DirMethod::PLANE_INVALID)},
    {nullptr, 0},
};
