#pragma once

#include <cow_Clone.h>

#include <memory>

/// How cow_ArrayCOW clones its elements: each by its own virtual Copy(), so with its dynamic type.
template <class T>
struct cow_Virtual
{
    static std::unique_ptr<T> Clone(const T& object) { return std::unique_ptr<T>(object.Copy()); }
};
