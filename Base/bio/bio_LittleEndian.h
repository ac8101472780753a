#pragma once

#include <bit>
#include <cstddef>
#include <cstring>

/// An unsigned number whose bytes lie at `at`, least significant first, wherever that is.
template <class U>
U bio_Load(const unsigned char* at) noexcept
{
    U bits = 0;
    if constexpr (std::endian::native == std::endian::little)
        std::memcpy(&bits, at, sizeof bits);
    else
        for (std::size_t i = 0; i < sizeof bits; ++i)
            bits = static_cast<U>(bits | (static_cast<U>(at[i]) << (8 * i)));
    return bits;
}

/// The reverse; what is behind the bytes written.
template <class U>
unsigned char* bio_Store(unsigned char* at, U bits) noexcept
{
    if constexpr (std::endian::native == std::endian::little)
        std::memcpy(at, &bits, sizeof bits);
    else
        for (std::size_t i = 0; i < sizeof bits; ++i)
            at[i] = static_cast<unsigned char>(bits >> (8 * i));
    return at + sizeof bits;
}
