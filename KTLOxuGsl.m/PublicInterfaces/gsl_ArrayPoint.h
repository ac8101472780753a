#pragma once

#include <cls_TypeId.h>
#include <gsl_Point.h>
#include <omu_xoObjVarray.h>

template <>
struct omu_xoObjVarrayTraits<gsl_Point>
{
    static constexpr unsigned TYPE_ID = cls_MakeTypeId(0x30A, 9);
    static constexpr const char* NAME = "gsl_ArrayPoint";
    /// "(1.0, 2.0, 3.0)".
    OXU_EXPORT static cow_String Text(const gsl_Point& item);
};

/// An array of points.
using gsl_ArrayPoint = omu_xoObjVarray<gsl_Point>;

extern template class omu_xoObjVarray<gsl_Point>;
