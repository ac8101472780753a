#pragma once

/// A sphere of the 3D view: centre and radius in model units. Neither persistent nor known to scripts.
///
/// A negative or undefined radius makes a sphere that holds no point; radius 0 holds its centre alone.
class g3d_Sphere
{
public:
    constexpr g3d_Sphere(double x, double y, double z, double radius) noexcept
        : x_(x), y_(y), z_(z), radius_(radius)
    {}

    constexpr double X() const noexcept { return x_; }
    constexpr double Y() const noexcept { return y_; }
    constexpr double Z() const noexcept { return z_; }
    constexpr double Radius() const noexcept { return radius_; }

    /// True when the point lies within the radius, the surface included, without tolerance.
    constexpr bool Contains(double x, double y, double z) const noexcept
    {
        const double dx = x - x_;
        const double dy = y - y_;
        const double dz = z - z_;
        return radius_ >= 0.0 && dx * dx + dy * dy + dz * dz <= radius_ * radius_;
    }

private:
    double x_;
    double y_;
    double z_;
    double radius_;
};
