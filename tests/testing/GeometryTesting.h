#pragma once

#include <cmath>
#include <gsl_Point.h>
#include <gsl_Vector.h>
#include <gtest/gtest.h>
#include <iomanip>
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
    gsl_Vector Unit() ///< evenly over the sphere
    {
        std::normal_distribution<double> normal;
        const double c[] = {normal(engine_), normal(engine_), normal(engine_)};
        const double length = std::hypot(c[0], c[1], c[2]);
        return {c[0] / length, c[1] / length, c[2] / length};
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

template <class T>
testing::AssertionResult Near(const T& a, const T& b, double tolerance)
{
    // Two steps: of three arguments libstdc++ makes 0 when the last is not a number and the others are 0.
    const double apart = std::hypot(std::hypot(a.X() - b.X(), a.Y() - b.Y()), a.Z() - b.Z());
    if (apart <= tolerance)
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << std::setprecision(17) << "(" << a.X() << ", " << a.Y() << ", " << a.Z() << ") and (" << b.X()
           << ", " << b.Y() << ", " << b.Z() << ") are " << apart << " apart, allowed " << tolerance;
}

/// The same bits, zero signs aside.
template <class T>
testing::AssertionResult Same(const T& a, const T& b)
{
    return Near(a, b, 0.0);
}
