#pragma once

#include <cmath>

/// Three doubles, without identity or cached length: what the search computes with where a gsl_Point would
/// cost.
///
/// Stands for a place and for a difference of places alike.
struct gsl_Triple
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    friend constexpr gsl_Triple operator+(const gsl_Triple& a, const gsl_Triple& b) noexcept
    {
        return {a.x + b.x, a.y + b.y, a.z + b.z};
    }
    friend constexpr gsl_Triple operator-(const gsl_Triple& a, const gsl_Triple& b) noexcept
    {
        return {a.x - b.x, a.y - b.y, a.z - b.z};
    }
    friend constexpr gsl_Triple operator-(const gsl_Triple& a) noexcept { return {-a.x, -a.y, -a.z}; }
    friend constexpr gsl_Triple operator*(const gsl_Triple& a, double factor) noexcept
    {
        return {a.x * factor, a.y * factor, a.z * factor};
    }
};

constexpr double gsl_Dot3(const gsl_Triple& a, const gsl_Triple& b) noexcept
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

constexpr gsl_Triple gsl_Cross3(const gsl_Triple& a, const gsl_Triple& b) noexcept
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline double gsl_Length3(const gsl_Triple& a) noexcept
{
    return std::sqrt(gsl_Dot3(a, a));
}

/// From a (s = 0) to b (s = 1); both ends exact.
constexpr gsl_Triple gsl_Between3(const gsl_Triple& a, const gsl_Triple& b, double s) noexcept
{
    return a * (1.0 - s) + b * s;
}
