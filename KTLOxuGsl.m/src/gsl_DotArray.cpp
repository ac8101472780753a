#include <gsl_DotArray.h>
#include <gsl_ScriptText.h>
#include <omu_xoObjVarrayBody.h>

template class omu_xoObjVarray<gsl_Dot>;

cow_String omu_xoObjVarrayTraits<gsl_Dot>::Text(const gsl_Dot& item)
{
    return gsl_ScriptText::Of(item.GetPoint());
}
