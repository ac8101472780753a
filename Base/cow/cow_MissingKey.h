#pragma once

#include <bas_Export.h>
#include <cow_String.h>

#include <concepts>
#include <string>

/// Raises nex_PrimException "key '%s' not found" with the key, or "key not found" for a null pointer.
[[noreturn]] BAS_EXPORT void cow_RaiseMissingKey(const cow_String* key);

/// The refusal of a checked look-up: names the key when it is a text or an integer.
template <class K>
[[noreturn]] void cow_MissingKey(const K& key)
{
    if constexpr (std::convertible_to<const K&, cow_String>)
    {
        const cow_String text = key;
        cow_RaiseMissingKey(&text);
    }
    else if constexpr (std::integral<K>)
    {
        const cow_String text(std::to_string(key));
        cow_RaiseMissingKey(&text);
    }
    else
        cow_RaiseMissingKey(nullptr);
}
