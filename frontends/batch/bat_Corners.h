#pragma once

#include <array>

/// The corners of a triangle, x, y, z of each.
using bat_Corners = std::array<double, 9>;
