#pragma once

#include <cls_TypeId.h>
#include <gsl_Dot.h>
#include <omu_xoObjVarray.h>

template <>
struct omu_xoObjVarrayTraits<gsl_Dot>
{
    static constexpr unsigned TYPE_ID = cls_MakeTypeId(0x30A, 14);
    static constexpr const char* NAME = "gsl_DotArray";
    /// The place: "(1.0, 2.0, 3.0)".
    OXU_EXPORT static cow_String Text(const gsl_Dot& item);
};

/// An array of picked points.
using gsl_DotArray = omu_xoObjVarray<gsl_Dot>;

extern template class omu_xoObjVarray<gsl_Dot>;
