#pragma once

#include <cmath>

/// A corner of a polygon laid flat.
struct bat_Point2d
{
    double x = 0;
    double y = 0;

    friend bool operator==(const bat_Point2d&, const bat_Point2d&) = default;
};

/// Twice the signed area of the triangle a, b, c: above 0 when it turns left, below when it turns right,
/// exactly 0 when rounding could have made the sign.
inline double bat_Turn(const bat_Point2d& a, const bat_Point2d& b, const bat_Point2d& c)
{
    // Above (3 + 16 u) u with u = 2^-53: the bound of J. R. Shewchuk, "Adaptive Precision Floating-Point
    // Arithmetic and Fast Robust Geometric Predicates", 1997, for this very expression.
    constexpr double ROUNDING = 3.4e-16;
    const double left = (a.x - c.x) * (b.y - c.y);
    const double right = (a.y - c.y) * (b.x - c.x);
    const double area = left - right;
    return std::abs(area) > ROUNDING * (std::abs(left) + std::abs(right)) ? area : 0.0;
}
