#pragma once

#include <cls_Persistent.h>

#include <type_traits>
#include <utility>

/// Carries a plain value class, one that does not derive from cls_Persistent, out of a type adapter.
template <class T>
class cls_PersistentValue final : public cls_Persistent
{
public:
    explicit cls_PersistentValue(T v) : value(std::move(v)) {}

    T value;
};

/// The T that an adapter created, or null when the object is null or of another class. The pointer looks
/// into `object`, which keeps owning it.
template <class T>
T* cls_PersistentCast(cls_Persistent* object)
{
    if constexpr (std::is_base_of_v<cls_Persistent, T>)
    {
        return dynamic_cast<T*>(object);
    }
    else
    {
        auto* carrier = dynamic_cast<cls_PersistentValue<T>*>(object);
        return carrier != nullptr ? &carrier->value : nullptr;
    }
}
