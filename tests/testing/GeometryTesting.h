#pragma once

#include <cmath>
#include <gsl_Point.h>
#include <gsl_Vector.h>
#include <gtest/gtest.h>
#include <iomanip>
#include <ostream>
#include <random>

namespace geometry
{
inline const gsl_Point ORIGIN(0, 0, 0);
/// What results are set to before a call that must leave them.
inline const gsl_Point UNTOUCHED(77, 78, 79);
inline const gsl_Vector X(1, 0, 0);
inline const gsl_Vector Y(0, 1, 0);
inline const gsl_Vector Z(0, 0, 1);

inline gsl_Point OnAxis(int axis, double value, double others = 0)
{
    return {axis == 0 ? value : others, axis == 1 ? value : others, axis == 2 ? value : others};
}

/// Right-handed and orthonormal, by the test's own arithmetic.
struct Frame
{
    gsl_Vector n, u, v;
};
}

/// Random geometry with a fixed seed, and comparisons that show both values and their distance.
class GeometryDraw
{
public:
    explicit GeometryDraw(unsigned seed) : engine_(seed) {}

    double Number(double low, double high)
    {
        return std::uniform_real_distribution<double>(low, high)(engine_);
    }
    int Whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }
    bool Coin() { return Whole(0, 1) == 1; }
    gsl_Point Point(double reach)
    {
        return {Number(-reach, reach), Number(-reach, reach), Number(-reach, reach)};
    }
    /// Evenly over the sphere: from a cube, corners thrown away.
    gsl_Vector Unit()
    {
        for (;;)
        {
            const gsl_Point p = Point(1);
            const double length = std::sqrt(p.X() * p.X() + p.Y() * p.Y() + p.Z() * p.Z());
            if (length > 0.1 && length <= 1.0)
                return {p.X() / length, p.Y() / length, p.Z() / length};
        }
    }
    geometry::Frame Frame()
    {
        const gsl_Vector n = Unit();
        const double c[3] = {n.X(), n.Y(), n.Z()};
        const int k = std::abs(c[0]) < 0.6 ? 0 : 1; // the axis k is not along n
        const double s = std::sqrt(1 - c[k] * c[k]);
        const gsl_Vector u((k == 0) / s - c[k] * c[0] / s, (k == 1) / s - c[k] * c[1] / s, -c[k] * c[2] / s);
        return {n, u,
                gsl_Vector(n.Y() * u.Z() - n.Z() * u.Y(), n.Z() * u.X() - n.X() * u.Z(),
                           n.X() * u.Y() - n.Y() * u.X())};
    }

private:
    std::mt19937_64 engine_;
};

inline testing::AssertionResult Near(const gsl_Vector& a, const gsl_Vector& b, double tolerance)
{
    const double apart = std::hypot(a.X() - b.X(), a.Y() - b.Y(), a.Z() - b.Z());
    if (apart <= tolerance)
        return testing::AssertionSuccess();
    testing::AssertionResult failure = testing::AssertionFailure();
    return failure << std::setprecision(17) << "(" << a.X() << ", " << a.Y() << ", " << a.Z() << ") and ("
                   << b.X() << ", " << b.Y() << ", " << b.Z() << ") are " << apart << " apart, allowed "
                   << tolerance;
}

inline testing::AssertionResult Near(const gsl_Point& a, const gsl_Point& b, double tolerance)
{
    return Near(gsl_Vector(a), gsl_Vector(b), tolerance);
}

/// The same bits, zero signs aside.
inline testing::AssertionResult Same(const gsl_Vector& a, const gsl_Vector& b)
{
    return Near(a, b, 0.0);
}
inline testing::AssertionResult Same(const gsl_Point& a, const gsl_Point& b)
{
    return Near(a, b, 0.0);
}
