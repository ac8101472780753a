#pragma once

#include <cmath>

/// A point on the picture, in pixels from its upper left corner, y downwards.
struct vwr_Spot
{
    /// Beyond this on either axis nothing is drawn: far outside of the largest picture, and within what the
    /// fixed-point coordinates of renderers hold.
    static constexpr double REACH = 1e5;

    double x = 0.0;
    double y = 0.0;

    bool IsFinite() const { return std::isfinite(x) && std::isfinite(y); }
    bool InReach() const { return std::fabs(x) <= REACH && std::fabs(y) <= REACH; }

    friend vwr_Spot operator+(vwr_Spot a, vwr_Spot b) { return {a.x + b.x, a.y + b.y}; }
    friend vwr_Spot operator-(vwr_Spot a, vwr_Spot b) { return {a.x - b.x, a.y - b.y}; }
    friend vwr_Spot operator*(double factor, vwr_Spot a) { return {factor * a.x, factor * a.y}; }
};
