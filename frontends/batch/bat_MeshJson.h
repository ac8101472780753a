#pragma once

#include <string>

struct bat_MeshHealth;

/// The health as one line of JSON, schema "orvex.mesh/1", without the line's end.
///
/// The keys stand in a fixed order, so the same health gives the same bytes. Numbers read back to the same
/// double. Bytes of a file name that are not UTF-8 become U+FFFD.
std::string bat_MeshJson(const bat_MeshHealth& health);
