#pragma once

#include <span>

/// The corners of a triangle, x, y, z of each, as bat_TriangleMesh stores them.
using bat_Corners = std::span<const double, 9>;
