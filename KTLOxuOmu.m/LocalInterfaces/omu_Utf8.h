#pragma once

#include <string_view>

/// Text as UTF-8 (The Unicode Standard, table 3-7: well-formed byte sequences).
class omu_Utf8
{
public:
    omu_Utf8() = delete;

    /// The number of code points, -1 for bytes that are not well-formed: overlong forms, surrogates and
    /// values beyond U+10FFFF included.
    static int CountCodePoints(std::string_view text) noexcept;
};
