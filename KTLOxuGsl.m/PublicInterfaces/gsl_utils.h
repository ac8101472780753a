#pragma once

#include <cmath>
#include <oxu_Export.h>

/// The comparisons and roundings through which the geometry compares numbers. Not-a-number is neither below
/// nor above any bound and so equals everything in the tolerance tests, on purpose; infinities of one sign
/// equal each other.
///
/// Laws of gsl_RealEqual(a, b, tol) for finite numbers:
///  1. Symmetric; reflexive when tol >= 0; not transitive.
///  2. The bound is inclusive: a difference of exactly tol is equal. 1.0 and 1.0 + tol are equal only where
///     the sum does not round away from 1.
///  3. Equal for tol implies equal for every larger one.
///
/// Laws of gsl_RealRelEqual(a, b, rel):
///  4. Not symmetric: a alone sets the scale. It is symmetric when neither |a| nor |b| exceeds 1.
///  5. Below |a| = 1 it is gsl_RealEqual(a, b, rel).

/// With d = b - a: true unless d < -tol or d > tol.
constexpr bool gsl_RealEqual(double a, double b, double tol) noexcept
{
    const double d = b - a;
    return !(d < -tol || d > tol);
}

/// gsl_RealEqual with the tolerance rel |a|, but at least rel.
inline bool gsl_RealRelEqual(double a, double b, double rel) noexcept
{
    const double scaled = std::abs(a * rel);
    return gsl_RealEqual(a, b, rel < scaled ? scaled : rel);
}

/// gsl_RealEqual element by element; true for n <= 0.
OXU_EXPORT bool gsl_RealArrEqual(int n, const double* a, const double* b, double tol);

/// Element by element with the tolerance |rel a[i]|, or rel where that product is 0. Unlike the scalar form
/// there is no floor for small a[i], on purpose.
OXU_EXPORT bool gsl_RealArrRelEqual(int n, const double* a, const double* b, double rel);

/// Compares the first significant digits ALONE: each value is reduced to an integer of that many digits by
/// its own exponent, and the exponent is dropped. So 1.0 equals 10.0, 100.0 and 0.1 for every digit count
/// below 16, while 9.99 never equals 10.0. Digit counts of 16 and above, values whose scale is not finite
/// (below about 10^(digits - 309)), infinities and not-a-number compare exactly.
OXU_EXPORT bool gsl_RealEqualDig(double a, double b, int digits);

/// v rounded to that many significant digits, halves away from zero. v itself for 0, for 16 digits and more,
/// and where the scale is infinite or 0. The scaled value is rounded as the machine holds it: (1.005, 3)
/// gives 1.0. Digit counts below 1 follow the formula: (5, 0) gives 10.
OXU_EXPORT double gsl_RoundFloat(double v, int digits);

/// Nearest whole number, halves towards plus infinity, also for negative values.
inline double gsl_rint(double v) noexcept
{
    // Not floor(v + 0.5): the sum rounds 0.49999999999999994 up to 1.
    const double r = std::floor(v);
    return v - r < 0.5 ? r : r + 1.0;
}

/// v with the fraction above floor(v) rounded, not truncated, to that many decimals. places < 1 raises
/// nex_PrimException "places > 0".
OXU_EXPORT double gsl_Truncate(double v, int places);

/// x to the power n in single precision: the running product is rounded to float after every factor, on
/// purpose, and widened at the end. 0 for x == 0, whatever n; 1 for n == 0.
OXU_EXPORT double gsl_Power(double x, int n);
