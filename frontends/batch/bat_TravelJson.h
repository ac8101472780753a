#pragma once

#include <string>

struct bat_TravelResult;

/// The result as one line of JSON, schema "orvex.travel/1", without the line's end.
///
/// The keys stand in a fixed order and numbers are the shortest that read back to the same double, so the
/// same result gives the same bytes. Bytes of a file name that are not UTF-8 become U+FFFD.
std::string bat_TravelJson(const bat_TravelResult& result);
