#include <cmath>
#include <cstdint>
#include <gsl_utils.h>
#include <nex_Raise.h>

namespace
{
constexpr const char* SOURCE = "KTLOxuGsl.m/src/gsl_utils";
/// Doubles hold 15 digits exactly: from here on a comparison by digits would compare noise.
constexpr int EXACT_DIGITS = 16;

/// The power of ten that moves the first `digits` significant digits of v before the decimal point.
double DigitScale(double v, int digits)
{
    const double e = std::floor(std::log10(std::abs(v)));
    return std::pow(10.0, digits - (1.0 + e));
}

bool Usable(double v, double scale)
{
    return std::isfinite(v) && std::isfinite(scale);
}

std::int64_t Mantissa(double v, double scale)
{
    if (v == 0.0)
    {
        return 0;
    }
    double whole;
    const double fraction = std::modf(std::abs(v) * scale, &whole);
    const std::int64_t mantissa = static_cast<std::int64_t>(fraction >= 0.5 ? whole + 1.0 : whole);
    return v < 0.0 ? -mantissa : mantissa;
}
}

bool gsl_RealArrEqual(int n, const double* a, const double* b, double tol)
{
    for (int i = 0; i < n; ++i)
    {
        if (!gsl_RealEqual(a[i], b[i], tol))
        {
            return false;
        }
    }
    return true;
}

bool gsl_RealArrRelEqual(int n, const double* a, const double* b, double rel)
{
    for (int i = 0; i < n; ++i)
    {
        const double scaled = std::abs(rel * a[i]);
        if (!gsl_RealEqual(a[i], b[i], scaled == 0.0 ? rel : scaled))
        {
            return false;
        }
    }
    return true;
}

bool gsl_RealEqualDig(double a, double b, int digits)
{
    if (a == b)
    {
        return true;
    }
    if (digits >= EXACT_DIGITS)
    {
        return false;
    }
    const double scaleA = a == 0.0 ? 1.0 : DigitScale(a, digits);
    const double scaleB = b == 0.0 ? 1.0 : DigitScale(b, digits);
    return Usable(a, scaleA) && Usable(b, scaleB) && Mantissa(a, scaleA) == Mantissa(b, scaleB);
}

double gsl_RoundFloat(double v, int digits)
{
    if (v == 0.0 || digits >= EXACT_DIGITS)
    {
        return v;
    }
    const double scale = DigitScale(v, digits);
    if (!Usable(v, scale) || scale == 0.0)
    {
        return v;
    }
    double whole;
    const double fraction = std::modf(std::abs(v) * scale, &whole);
    const double rounded = (fraction >= 0.5 ? whole + 1.0 : whole) / scale;
    return v < 0.0 ? -rounded : rounded;
}

double gsl_Truncate(double v, int places)
{
    if (places < 1)
    {
        nex_RaisePrim("places > 0", SOURCE, __LINE__);
    }
    const double power = std::pow(10.0, places);
    if (!std::isfinite(power))
    {
        return v;
    }
    const double w = std::floor(v);
    return gsl_rint((v - w) * power) / power + w;
}

double gsl_Power(double x, int n)
{
    if (x == 0.0)
    {
        return 0.0;
    }
    // Float on purpose: stored results were made with it. No repeated squaring, which rounds elsewhere.
    float product = 1.0F;
    if (n > 0)
    {
        for (int i = 0; i < n; ++i)
        {
            product = static_cast<float>(product * x);
        }
    }
    else if (n < 0)
    {
        product = static_cast<float>(1.0 / x);
        for (int i = -1; i > n; --i)
        {
            product = static_cast<float>(product / x);
        }
    }
    return product;
}
