#pragma once

#include <mdl_PropagatingAttribute.h>
#include <omu_PrimTuple.h>

/// Reads the next item of a tuple into an attribute, by the rules of mdl_PropAttributeGet; a status that is
/// refused names the item's place ("data[1]"). For double alone.
template <class T>
class OXU_EXPORT mdl_PropAttributeGetFromTuple
{
public:
    mdl_PropAttributeGetFromTuple() = delete;

    static bool Get(omu_PrimTuple& tuple, mdl_PropAttr<T>& attribute, bool restricted, bool noneAllowed);
};
