#include <gsl_DotMethod.h>

template <>
const omu_EnumEntry omu_PrimEnum<gsl_DotMethod, 1>::table[] = {
    {"gsl_FROM_POINT", int(gsl_DotMethod::gsl_FROM_POINT)},
    {"gsl_FROM_VERTEX", int(gsl_DotMethod::gsl_FROM_VERTEX)},
    {"gsl_FROM_DATUM_POINT", int(gsl_DotMethod::gsl_FROM_DATUM_POINT)},
    {"gsl_FROM_EDGE_PARAM", int(gsl_DotMethod::gsl_FROM_EDGE_PARAM)},
    {"gsl_FROM_FACE_DIM", int(gsl_DotMethod::gsl_FROM_FACE_DIM)},
    {"gsl_FROM_EDGE_VTX", int(gsl_DotMethod::gsl_FROM_EDGE_VTX)},
    {"gsl_FROM_FACE_VTX", int(gsl_DotMethod::gsl_FROM_FACE_VTX)},
    {"gsl_FROM_IP_VTX_ONTO_EDGE", int(gsl_DotMethod::gsl_FROM_IP_VTX_ONTO_EDGE)},
    {"gsl_FROM_IP_CENTER_OF_EDGE", int(gsl_DotMethod::gsl_FROM_IP_CENTER_OF_EDGE)},
    {"gsl_FROM_IP_MIDPT_OF_EDGE", int(gsl_DotMethod::gsl_FROM_IP_MIDPT_OF_EDGE)},
    {"gsl_FROM_NODE", int(gsl_DotMethod::gsl_FROM_NODE)},
    {"gsl_DOT_INVALID", int(gsl_DotMethod::gsl_DOT_INVALID)},
    {"gsl_FROM_DATUM_CSYS_ORIGIN", int(gsl_DotMethod::gsl_FROM_DATUM_CSYS_ORIGIN)},
    {nullptr, 0},
};
