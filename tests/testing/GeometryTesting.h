#pragma once

#include <gsl_Point.h>
#include <gsl_Vector.h>
#include <gtest/gtest.h>
#include <iomanip>
#include <ostream>
#include <random>

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
            const double x = Number(-1, 1);
            const double y = Number(-1, 1);
            const double z = Number(-1, 1);
            const double length = std::sqrt(x * x + y * y + z * z);
            if (length > 0.1 && length <= 1.0)
            {
                return {x / length, y / length, z / length};
            }
        }
    }

private:
    std::mt19937_64 engine_;
};

inline testing::AssertionResult NearComponents(const double a[3], const double b[3], double tolerance)
{
    const double dx = a[0] - b[0];
    const double dy = a[1] - b[1];
    const double dz = a[2] - b[2];
    const double apart = std::sqrt(dx * dx + dy * dy + dz * dz);
    if (apart <= tolerance)
    {
        return testing::AssertionSuccess();
    }
    testing::AssertionResult failure = testing::AssertionFailure();
    return failure << std::setprecision(17) << "(" << a[0] << ", " << a[1] << ", " << a[2] << ") and ("
                   << b[0] << ", " << b[1] << ", " << b[2] << ") are " << apart << " apart, allowed "
                   << tolerance;
}

inline testing::AssertionResult Near(const gsl_Vector& a, const gsl_Vector& b, double tolerance)
{
    const double left[3] = {a.X(), a.Y(), a.Z()};
    const double right[3] = {b.X(), b.Y(), b.Z()};
    return NearComponents(left, right, tolerance);
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

inline void PrintTo(const gsl_Point& p, std::ostream* out)
{
    *out << "(" << p.X() << ", " << p.Y() << ", " << p.Z() << ")";
}

inline void PrintTo(const gsl_Vector& v, std::ostream* out)
{
    *out << "(" << v.X() << ", " << v.Y() << ", " << v.Z() << ")";
}
