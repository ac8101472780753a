#pragma once

#include <gsl_Vector.h>

#include <array>
#include <vector>

struct vwr_Part;

/// The edges of a part that one draws: where fewer or more than two triangles meet, where two meet at more
/// than 30 degrees, and, seen along `towardsEye` or against it, where one of two shows its front and the
/// other its back. Corners with the same coordinates are one, so that meshes without shared corners have
/// edges too; triangles need not be turned alike. Each edge once, as indices of points.
std::vector<std::array<int, 2>> vwr_FeatureEdges(const vwr_Part& part, const gsl_Vector& towardsEye);

/// True for a triangle that can be drawn: its indices are in range, its corners finite.
bool vwr_IsDrawable(const vwr_Part& part, const std::array<int, 3>& triangle);
