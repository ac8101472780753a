#include <gsl_ArrayPoint.h>
#include <gsl_ScriptText.h>
#include <omu_xoObjVarrayBody.h>

template class omu_xoObjVarray<gsl_Point>;

cow_String omu_xoObjVarrayTraits<gsl_Point>::Text(const gsl_Point& item)
{
    return gsl_ScriptText::Of(item);
}
