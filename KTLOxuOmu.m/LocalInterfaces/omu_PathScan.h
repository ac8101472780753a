#pragma once

#include <string_view>

/// Where, in a path, things end that may hold brackets and quoted texts.
class omu_PathScan
{
public:
    omu_PathScan() = delete;

    /// The position of the bracket that closes the "[" or "(" at `open`; -1 when there is none. Only brackets
    /// of that kind count, and none in a quoted text or behind a backslash.
    static int Closing(std::string_view path, int open);
    /// The first position of a "," that stands in no bracket and no quoted text; the length when there is
    /// none.
    static int Comma(std::string_view text);
};
