#include <limits>
#include <nex_RaiseWith.h>
#include <omu_RangeChecker.h>
#include <omu_RangeErrorException.h>
#include <type_traits>

namespace
{
using enum omu_RangeErrorException::KeywordType;
using enum omu_RangeErrorException::Qualifier;

// For doubles numeric_limits' min() is the least positive normal number, and it is meant.
template <class T>
constexpr T LOWER_END = std::numeric_limits<T>::min();
template <class T>
constexpr T UPPER_END = std::numeric_limits<T>::max();

template <class T>
int QualifierOf(T limit, bool inclusive, T end)
{
    const bool dropped = limit == end && (std::is_same_v<T, double> || !inclusive);
    if (dropped)
        return NO_LIMIT;
    return inclusive ? INCLUSIVE : EXCLUSIVE;
}

template <class T>
void Check(const cow_String& keyword, T lower, bool lowerInclusive, T value, T upper, bool upperInclusive)
{
    // As what passes, not as what fails: NaN passes no comparison.
    if ((lowerInclusive ? value >= lower : value > lower) &&
        (upperInclusive ? value <= upper : value < upper))
        return;
    omu_RangeErrorException fault;
    fault.m_Keyword = keyword;
    if constexpr (std::is_same_v<T, int>)
    {
        fault.m_KeywordType = INTEGER;
        fault.SetLowerLimitAsInt(lower);
        fault.SetHigherLimitAsInt(upper);
    }
    else
    {
        fault.m_KeywordType = FLOATING_POINT;
        fault.SetLowerLimitAsDouble(lower);
        fault.SetHigherLimitAsDouble(upper);
    }
    fault.m_LowerLimitQualifier = QualifierOf(lower, lowerInclusive, LOWER_END<T>);
    fault.m_HigherLimitQualifier = QualifierOf(upper, upperInclusive, UPPER_END<T>);
    nex_Raise(fault, "KTLOxuOmu.m/src/omu_RangeChecker", __LINE__);
}
}

void omu_RangeChecker::CheckInRange(const cow_String& keyword, int lower, bool lowerInclusive, int value,
                                    int upper, bool upperInclusive)
{
    Check(keyword, lower, lowerInclusive, value, upper, upperInclusive);
}

void omu_RangeChecker::CheckInRange(const cow_String& keyword, double lower, bool lowerInclusive,
                                    double value, double upper, bool upperInclusive)
{
    Check(keyword, lower, lowerInclusive, value, upper, upperInclusive);
}

void omu_RangeChecker::CheckLessThan(const cow_String& keyword, int upper, bool upperInclusive, int value)
{
    Check(keyword, LOWER_END<int>, false, value, upper, upperInclusive);
}

void omu_RangeChecker::CheckLessThan(const cow_String& keyword, double upper, bool upperInclusive,
                                     double value)
{
    Check(keyword, LOWER_END<double>, false, value, upper, upperInclusive);
}

void omu_RangeChecker::CheckGreaterThan(const cow_String& keyword, int lower, bool lowerInclusive, int value)
{
    Check(keyword, lower, lowerInclusive, value, UPPER_END<int>, false);
}

void omu_RangeChecker::CheckGreaterThan(const cow_String& keyword, double lower, bool lowerInclusive,
                                        double value)
{
    Check(keyword, lower, lowerInclusive, value, UPPER_END<double>, false);
}
