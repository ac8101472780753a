#pragma once

#include <cls_TypeId.h>
#include <gsl_StLine.h>
#include <omu_xoObjVarray.h>

template <>
struct omu_xoObjVarrayTraits<gsl_StLine>
{
    static constexpr unsigned TYPE_ID = cls_MakeTypeId(0x30A, 10);
    static constexpr const char* NAME = "gsl_LineArray";
    /// A point on the line and its direction: "((0.0, 0.0, 0.0), (1.0, 0.0, 0.0))".
    OXU_EXPORT static cow_String Text(const gsl_StLine& item);
};

/// An array of lines.
using gsl_LineArray = omu_xoObjVarray<gsl_StLine>;

extern template class omu_xoObjVarray<gsl_StLine>;
