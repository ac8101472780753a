#pragma once

#include <annC_AnnotationIntObj.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimEnum.h>
#include <omu_PrimNumber.h>
#include <omu_PrimString.h>
#include <omu_PrimTuple.h>
#include <type_traits>

// Member readers for the tables of annotation handles; `Get` gives the annotation behind a handle.

/// A value of an annotation as scripts see it; the caller owns it.
template <class V>
omu_Primitive* annC_ValueToPrim(const V& value)
{
    if constexpr (std::is_same_v<V, annC_AnchorCow>)
        return annC_AnnotationIntObj::AnchorToPrim(value.ConstGet());
    else if constexpr (std::is_enum_v<V>)
        return new omu_PrimEnum<V, 1>(value);
    else if constexpr (std::is_same_v<V, bool>)
        return new omu_PrimBoolean(value);
    else if constexpr (std::is_same_v<V, double>)
        return new omu_PrimNumber(value);
    else
        return new omu_PrimString(value);
}

template <auto GET, auto MEMBER>
omu_Primitive* annC_ReadMember(const omu_InterfaceObj& self)
{
    return annC_ValueToPrim(GET(self).*MEMBER);
}

template <auto GET, auto X, auto Y>
omu_Primitive* annC_ReadPoint(const omu_InterfaceObj& self)
{
    const auto& annotation = GET(self);
    return new omu_PrimTuple(cow_List<double>{annotation.*X, annotation.*Y});
}
