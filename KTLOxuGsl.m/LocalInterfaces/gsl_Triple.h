#pragma once

#include <algorithm>
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

/// The coordinates of a gsl_Point or the components of a gsl_Vector.
template <class T>
gsl_Triple gsl_TripleOf(const T& t) noexcept
{
    return {t.X(), t.Y(), t.Z()};
}

constexpr double gsl_Dot3(const gsl_Triple& a, const gsl_Triple& b) noexcept
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

constexpr gsl_Triple gsl_Cross3(const gsl_Triple& a, const gsl_Triple& b) noexcept
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

/// a b - c d to about one unit in the last place, however much of the two products cancels (W. Kahan's way
/// with fused multiply-adds; C.-P. Jeannerod, N. Louvet and J.-M. Muller, "Further analysis of Kahan's
/// algorithm for the accurate computation of 2 x 2 determinants", 2013).
inline double gsl_ProductsApart(double a, double b, double c, double d) noexcept
{
    const double second = c * d;
    const double lost = std::fma(-c, d, second);
    return std::fma(a, b, -second) + lost;
}

inline double gsl_Length3(const gsl_Triple& a) noexcept
{
    return std::sqrt(gsl_Dot3(a, a));
}

/// The largest |component|.
inline double gsl_Largest3(const gsl_Triple& a) noexcept
{
    return std::max({std::abs(a.x), std::abs(a.y), std::abs(a.z)});
}

/// Below this sine of two sides what cancels in their plain cross product shows.
constexpr double gsl_NEEDLE_SINE = 1e-3;

/// The unit normal of a triangle with the sides a and then b; false, and normal unchanged, when their sine is
/// not above leastSine.
///
/// Of a needle the plain cross product is as wrong along the needle as across it, and the plane through it
/// would lean by rounding over sine from one end to the other: there each component is computed to the last
/// place.
inline bool gsl_UnitNormal3(const gsl_Triple& a, const gsl_Triple& b, double leastSine,
                            gsl_Triple& normal) noexcept
{
    const double sides = gsl_Length3(a) * gsl_Length3(b);
    gsl_Triple n = gsl_Cross3(a, b);
    double length = gsl_Length3(n);
    if (length < gsl_NEEDLE_SINE * sides)
    {
        n = {gsl_ProductsApart(a.y, b.z, a.z, b.y), gsl_ProductsApart(a.z, b.x, a.x, b.z),
             gsl_ProductsApart(a.x, b.y, a.y, b.x)};
        length = gsl_Length3(n);
    }
    if (!(length > leastSine * sides))
    {
        return false;
    }
    normal = {n.x / length, n.y / length, n.z / length};
    return true;
}

/// From a (s = 0) to b (s = 1); both ends exact.
constexpr gsl_Triple gsl_Between3(const gsl_Triple& a, const gsl_Triple& b, double s) noexcept
{
    return a * (1.0 - s) + b * s;
}
