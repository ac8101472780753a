#pragma once

#include <memory>

/// A deep copy of the object behind a pointer, by its Copy(): of its dynamic type, whichever base Copy() is
/// declared to give. Empty for null.
template <class T>
std::unique_ptr<T> DDB_DeepCopyPtr(const T* object)
{
    return std::unique_ptr<T>(object != nullptr ? static_cast<T*>(object->Copy()) : nullptr);
}
