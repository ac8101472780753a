#pragma once

#include <string>
#include <string_view>

/// Text that any renderer and any XML reader takes: valid UTF-8 without control characters. Each byte that is
/// no UTF-8, each control character and each code that is no character becomes U+FFFD, a tab four blanks.
std::string vwr_CleanText(std::string_view text);
