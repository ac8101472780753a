#pragma once

#include <string>
#include <string_view>

/// The shortest decimal text that reads back to the same double, "." whatever the locale; the two zeros are
/// "0".
std::string bat_NumberText(double value);

/// At most ten significant digits, for people.
std::string bat_ReadableText(double value);

/// A whole number with blanks between groups of three digits, for people: "1 234 567".
std::string bat_CountText(unsigned long long value);

/// Reads a decimal number that fills the whole text, whatever the locale. false, and value unchanged, for
/// anything else, for what no double can hold (1e400), and for "inf" and "nan".
[[nodiscard]] bool bat_ParseNumber(std::string_view text, double& value);
