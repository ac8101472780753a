#pragma once

#include <cstddef>
#include <cstdint>
#include <oxu_Export.h>

/// Numbers as the scripting language writes them, put into a buffer of the caller's.
///
/// Every operation writes at `out`, at most SIZE bytes and no closing zero, and returns the end of what it
/// wrote. Nothing is allocated, nothing depends on the locale, nothing fails.
class OXU_EXPORT omu_NumberText
{
public:
    /// Room for the longest text, "-1.23456789012345e-308", with some to spare.
    static constexpr std::size_t SIZE = 32;

    /// Fifteen significant digits at most, as printf writes "%.15g" in the "C" locale: 2, 1.5e-07, -inf.
    static char* General(double value, char* out) noexcept;

    /// General's text, with ".0" behind it when it holds neither "." nor "e": 2.0, 1e+15, inf.0, -nan.0.
    static char* Float(double value, char* out) noexcept;

    /// The value as ToInt32 converts it, in decimal.
    static char* Integer(double value, char* out) noexcept;

    /// In decimal, in full.
    static char* Unsigned(std::uint64_t value, char* out) noexcept;

    /// Truncates toward zero to 64 bits and keeps the low 32: 4294967295.0 gives -1. What 64 bits cannot
    /// hold, NaN and the infinities included, gives 0.
    static std::int32_t ToInt32(double value) noexcept;

    /// Truncates toward zero; what an unsigned 64-bit integer cannot hold, negative values included, gives 0.
    static std::uint64_t ToUnsigned(double value) noexcept;
};
