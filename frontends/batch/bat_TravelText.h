#pragma once

#include <string>

struct bat_TravelResult;

/// The result for people: a labelled line for each of travel, state, the two triangles and points, sizes, and
/// what was passed over.
std::string bat_TravelText(const bat_TravelResult& result);
