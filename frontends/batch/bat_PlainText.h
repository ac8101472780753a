#pragma once

#include <string>

/// Text that may come from a file or a command line, made harmless for a terminal: control characters become
/// "?". Bytes above 126 stay, since names are written in UTF-8.
std::string bat_PlainText(std::string text);

/// Cut to that many columns, with "..." at the end where it was cut; a UTF-8 character is never split and
/// counts as one column.
std::string bat_ShortText(const std::string& text, int columns);
