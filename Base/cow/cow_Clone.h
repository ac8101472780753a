#pragma once

#include <concepts>
#include <memory>
#include <type_traits>

/// A copy of `object` with its dynamic type: by T::Copy() (a new object that the caller owns) where T has
/// one, else by T's copy constructor.
///
/// A polymorphic T that is neither final nor has Copy() is refused at compile time: copying it would cut a
/// derived object down to T.
template <class T>
std::unique_ptr<T> cow_Clone(const T& object)
{
    if constexpr (requires {
                      {
                          object.Copy()
                          } -> std::convertible_to<T*>;
                  })
        return std::unique_ptr<T>(object.Copy());
    else
    {
        static_assert(!std::is_polymorphic_v<T> || std::is_final_v<T>, "T needs Copy() const");
        return std::make_unique<T>(object);
    }
}
