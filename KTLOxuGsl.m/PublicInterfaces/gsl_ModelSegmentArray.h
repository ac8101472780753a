#pragma once

#include <cls_TypeId.h>
#include <gsl_ModelSegment.h>
#include <omu_xoObjVarray.h>

template <>
struct omu_xoObjVarrayTraits<gsl_ModelSegment>
{
    static constexpr unsigned TYPE_ID = cls_MakeTypeId(0x30A, 12);
    static constexpr const char* NAME = "gsl_ModelSegmentArray";
    /// The two points: "((0.0, 0.0, 0.0), (1.0, 0.0, 0.0))".
    OXU_EXPORT static cow_String Text(const gsl_ModelSegment& item);
};

/// An array of segments between picked points.
using gsl_ModelSegmentArray = omu_xoObjVarray<gsl_ModelSegment>;

extern template class omu_xoObjVarray<gsl_ModelSegment>;
