#pragma once

#include <gsl_Util.h>
#include <gsl_utils.h>

/// Closed interval of numbers: every t with low <= t <= high.
///
/// The default one is empty, stored as [0, -1]; it contains nothing and has length 0. Ends given the wrong
/// way round are swapped, so no other interval is empty. operator== compares both ends within gsl_Util's
/// linear tolerance and is not transitive.
class gsl_Interval
{
public:
    constexpr gsl_Interval() noexcept = default;
    constexpr gsl_Interval(double low, double high) noexcept
        : low_(low > high ? high : low), high_(low > high ? low : high)
    {}

    constexpr double Low() const noexcept { return low_; }
    constexpr double High() const noexcept { return high_; }
    constexpr bool IsEmpty() const noexcept { return low_ > high_; }
    constexpr double Length() const noexcept { return IsEmpty() ? 0.0 : high_ - low_; }
    /// low + t (high - low); t is not limited to 0..1.
    constexpr double Interpolate(double t) const noexcept { return low_ + t * (high_ - low_); }
    /// Ends included, without tolerance.
    constexpr bool Contains(double t) const noexcept { return low_ <= t && t <= high_; }

    friend bool operator==(const gsl_Interval& a, const gsl_Interval& b)
    {
        const double tolerance = gsl_Util::Instance().LinearTolerance();
        return gsl_RealEqual(a.low_, b.low_, tolerance) && gsl_RealEqual(a.high_, b.high_, tolerance);
    }

private:
    double low_ = 0.0;
    double high_ = -1.0;
};
