#pragma once

#include <cls_TypeId.h>
#include <gsl_Plane.h>
#include <omu_xoObjVarray.h>

template <>
struct omu_xoObjVarrayTraits<gsl_Plane>
{
    static constexpr unsigned TYPE_ID = cls_MakeTypeId(0x30A, 13);
    static constexpr const char* NAME = "gsl_PlaneArray";
    /// A point on the plane and its normal: "((0.0, 0.0, 0.0), (0.0, 0.0, 1.0))".
    OXU_EXPORT static cow_String Text(const gsl_Plane& item);
};

/// An array of planes.
using gsl_PlaneArray = omu_xoObjVarray<gsl_Plane>;

extern template class omu_xoObjVarray<gsl_Plane>;
