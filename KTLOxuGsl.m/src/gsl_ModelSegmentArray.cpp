#include <gsl_ModelSegmentArray.h>
#include <gsl_ScriptText.h>
#include <omu_xoObjVarrayBody.h>

template class omu_xoObjVarray<gsl_ModelSegment>;

cow_String omu_xoObjVarrayTraits<gsl_ModelSegment>::Text(const gsl_ModelSegment& item)
{
    return gsl_ScriptText::Of(item.Point1().GetPoint(), item.Point2().GetPoint());
}
