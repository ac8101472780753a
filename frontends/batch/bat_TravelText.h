#pragma once

#include <string>

struct bat_TravelResult;

/// The result for people: a labelled line for each of travel, state, the two triangles and points, sizes, and
/// what was passed over.
std::string bat_TravelText(const bat_TravelResult& result);

/// How far and what then, in two lines without labels: "34.97 along (0, 0, -1)", "contact: ...".
std::string bat_TravelHeadline(const bat_TravelResult& result);
