#include <mdl_ArgumentReading.h>
#include <mdl_PropAttributeGet.h>

template <class T>
bool mdl_PropAttributeGet<T>::Get(omu_Arguments& arguments, mdl_PropAttr<T>& attribute, const char* keyword,
                                  bool restricted, bool noneAllowed)
{
    return mdl_ArgumentReading::Read(arguments, attribute, keyword, restricted, noneAllowed,
                                     cow_String(keyword));
}

template class OXU_EXPORT mdl_PropAttributeGet<int>;
template class OXU_EXPORT mdl_PropAttributeGet<bool>;
template class OXU_EXPORT mdl_PropAttributeGet<double>;
template class OXU_EXPORT mdl_PropAttributeGet<cow_String>;
template class OXU_EXPORT mdl_PropAttributeGet<cls_xpListInt>;
template class OXU_EXPORT mdl_PropAttributeGet<cls_xpListString>;
template class OXU_EXPORT mdl_PropAttributeGet<cls_xp1DArrayInt>;
template class OXU_EXPORT mdl_PropAttributeGet<cls_xp1DArrayListFloat>;
