#pragma once

#include <bas_Export.h>

#include <string_view>

// Numbers as text in the "C" way, whatever the process's locale; over std::to_chars and std::from_chars.

/// Writes the bytes of printf's "%.15lg" from `first` on and returns their end; no closing zero. Null, and
/// nothing of use written, when they do not fit before `last`: uti_MaxDouble15 bytes always do.
BAS_EXPORT char* uti_FormatDouble15(char* first, char* last, double value) noexcept;

/// Longest text of uti_FormatDouble15: "-1.23456789012345e+100" has 22 bytes.
inline constexpr int uti_MaxDouble15 = 24;

/// Reads as atof does: leading blanks are skipped, the longest number that follows counts ("inf", "nan"
/// and "0x" numbers too), and what stands behind it is ignored; no number gives 0. Too large a number gives
/// an infinity, too small a one gives zero or the nearest subnormal. A null pointer gives 0.
BAS_EXPORT double uti_ReadDouble(const char* text) noexcept;
BAS_EXPORT double uti_ReadDouble(std::string_view text) noexcept;

/// Reads as atoi does; a number beyond int gives the nearest int.
BAS_EXPORT int uti_ReadInt(const char* text) noexcept;
BAS_EXPORT int uti_ReadInt(std::string_view text) noexcept;
