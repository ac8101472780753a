#include <gsl_LineArray.h>
#include <gsl_ScriptText.h>
#include <omu_xoObjVarrayBody.h>

template class omu_xoObjVarray<gsl_StLine>;

cow_String omu_xoObjVarrayTraits<gsl_StLine>::Text(const gsl_StLine& item)
{
    return gsl_ScriptText::Of(item.PointOn(), item.Direction());
}
