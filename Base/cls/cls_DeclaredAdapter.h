#pragma once

#include <cls_AbsTypeAdapter.h>
#include <cls_TypeAdapter.h>

#include <type_traits>

/// The adapter that fits a class by its C++ nature alone.
template <class T>
const cls_AdapterBase* cls_DeclaredAdapter()
{
    if constexpr (std::is_abstract_v<T> || !std::is_constructible_v<T, const cls_ReadVisitor&>)
        return cls_AbsTypeAdapter<T>::Instance();
    else
        return cls_TypeAdapter<T>::Instance();
}
