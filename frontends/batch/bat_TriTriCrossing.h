#pragma once

#include <array>
#include <bat_Corners.h>

/// Whether two triangles cross each other, or merely touch.
///
/// They cross beyond a tolerance when no shift of either by that length or less parts them. Triangles that
/// share a corner, an edge or a piece of a plane, or of which one only stands on the other, have depth 0:
/// they touch. Both must have a normal.
class bat_TriTriCrossing
{
public:
    bat_TriTriCrossing(const bat_Corners& a, const bat_Corners& b) : a_(a), b_(b) {}

    /// The length of the shortest shift that parts them; 0 or below when they do not cross.
    double Depth() const;
    /// Depth() > tolerance, and mostly told sooner.
    bool IsBeyond(double tolerance) const;

    /// The middle of the line in which they cross; only for triangles that do.
    std::array<double, 3> Middle() const;

private:
    bat_Corners a_;
    bat_Corners b_;
};
