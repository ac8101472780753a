#include <gsl_PlaneArray.h>
#include <gsl_ScriptText.h>
#include <omu_xoObjVarrayBody.h>

template class omu_xoObjVarray<gsl_Plane>;

cow_String omu_xoObjVarrayTraits<gsl_Plane>::Text(const gsl_Plane& item)
{
    return gsl_ScriptText::Of(item.PointOn(), item.Direction());
}
