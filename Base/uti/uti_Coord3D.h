#pragma once

#include <nex_Raise.h>

/// Three model coordinates as plain numbers, without the tolerance of a point: equal when all three are
/// exactly equal.
class uti_Coord3D
{
public:
    constexpr uti_Coord3D() noexcept = default;
    constexpr uti_Coord3D(double x, double y, double z) noexcept : coords_{x, y, z} {}

    constexpr double X() const noexcept { return coords_[0]; }
    constexpr double Y() const noexcept { return coords_[1]; }
    constexpr double Z() const noexcept { return coords_[2]; }
    /// Raises nex_RangeException outside 0 .. 2.
    double operator[](int axis) const
    {
        if (axis < 0 || axis > 2)
            nex_RaiseRange(axis, 3);
        return coords_[axis];
    }
    double& operator[](int axis)
    {
        if (axis < 0 || axis > 2)
            nex_RaiseRange(axis, 3);
        return coords_[axis];
    }
    /// The three in one piece, x first.
    constexpr const double* Data() const noexcept { return coords_; }
    constexpr double* Data() noexcept { return coords_; }

    friend constexpr bool operator==(const uti_Coord3D& a, const uti_Coord3D& b) noexcept = default;

private:
    double coords_[3] = {0.0, 0.0, 0.0};
};
