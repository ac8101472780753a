#include <mdl_ArgumentReading.h>
#include <mdl_PropAttributeGetFromTuple.h>

template <class T>
bool mdl_PropAttributeGetFromTuple<T>::Get(omu_PrimTuple& tuple, mdl_PropAttr<T>& attribute, bool restricted,
                                           bool noneAllowed)
{
    const cow_String place = tuple.NestingOf(tuple.Cursor() + 1);
    return mdl_ArgumentReading::Read(tuple, attribute, place.AsCharPtr(), restricted, noneAllowed);
}

template class OXU_EXPORT mdl_PropAttributeGetFromTuple<double>;
