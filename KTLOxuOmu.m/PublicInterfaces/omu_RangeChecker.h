#pragma once

#include <cow_String.h>
#include <oxu_Export.h>

/// Checks numeric arguments against limits; what lies outside raises omu_RangeErrorException, which names the
/// keyword and the limits. NaN is outside every range.
///
/// A limit that is exclusive and is the end of the type (-2147483648 below, 2147483647 above) counts as no
/// limit in the message for an int. For a double the ends are the least positive normal
/// number, 2.2250738585072014e-308, below and the largest number above, inclusive or not. They are limits of
/// the check all the same, on purpose: CheckLessThan on doubles refuses 0 and everything negative,
/// CheckGreaterThan refuses the upper end itself.
class OXU_EXPORT omu_RangeChecker
{
public:
    omu_RangeChecker() = delete;

    /// Raises unless lower < value < upper, with <= where the limit is inclusive.
    static void CheckInRange(const cow_String& keyword, int lower, bool lowerInclusive, int value, int upper,
                             bool upperInclusive);
    static void CheckInRange(const cow_String& keyword, double lower, bool lowerInclusive, double value,
                             double upper, bool upperInclusive);

    /// Raises unless value < upper, or <= where inclusive.
    static void CheckLessThan(const cow_String& keyword, int upper, bool upperInclusive, int value);
    static void CheckLessThan(const cow_String& keyword, double upper, bool upperInclusive, double value);

    /// Raises unless value > lower, or >= where inclusive.
    static void CheckGreaterThan(const cow_String& keyword, int lower, bool lowerInclusive, int value);
    static void CheckGreaterThan(const cow_String& keyword, double lower, bool lowerInclusive, double value);
};
