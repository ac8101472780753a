// Range checks: what passes, and the message of what does not. The limits that an error keeps as text.

#include <bit>
#include <cmath>
#include <omu_RangeChecker.h>
#include <omu_RangeErrorException.h>
#include <random>
#include <testing/CommaLocale.h>
#include <testing/ValueTesting.h>

namespace
{
constexpr int LEAST = std::numeric_limits<int>::min();
constexpr int MOST = std::numeric_limits<int>::max();
constexpr double SMALL = 2.2250738585072014e-308; // least positive normal number
constexpr double LARGE = 1.7976931348623157e308;
constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

TEST(RangeCheck, PassesOrTellsTheRange)
{
    const auto in = [](auto lower, bool lowerInclusive, auto value, auto upper, bool upperInclusive) {
        return Outcome([=] {
            omu_RangeChecker::CheckInRange("k", lower, lowerInclusive, value, upper, upperInclusive);
            return "";
        });
    };
    const std::string anInt = "RangeError: k must be an Integer ";
    EXPECT_EQ(in(0, true, 0, 10, false), "");
    EXPECT_EQ(in(0, true, 10, 10, false), anInt + "in the range: 0 <= k < 10");
    EXPECT_EQ(in(0, false, 0, 10, true), anInt + "in the range: 0 < k <= 10");
    // Only an exclusive end of the type is no limit.
    EXPECT_EQ(in(LEAST, false, 11, 10, true), anInt + "<= 10");
    EXPECT_EQ(in(LEAST, true, 11, 10, true), anInt + "in the range: -2147483648 <= k <= 10");
    omu_RangeChecker::CheckLessThan("k", 5, true, 5);
    EXPECT_ERROR(omu_RangeChecker::CheckLessThan("k", 5, false, 5), anInt + "< 5");
    EXPECT_ERROR(omu_RangeChecker::CheckLessThan("k", 5, true, LEAST),
                 anInt + "<= 5"); // the least is refused
    const std::string aFloat = "RangeError: k must be a Float ";
    EXPECT_EQ(in(0.1, false, 2.0, 1.0, true), aFloat + "in the range: 0.1 < k <= 1.0");
    EXPECT_EQ(in(0.0, true, NOT_A_NUMBER, 1.0, true), aFloat + "in the range: 0.0 <= k <= 1.0");
    // The ends of the type are no limits in the message, inclusive or not.
    EXPECT_EQ(in(SMALL, true, 0.0, LARGE, true), aFloat);
    // The message looks satisfied, and the check refuses all the same: the lower end is above zero.
    EXPECT_ERROR(omu_RangeChecker::CheckLessThan("k", 1.0, true, 0.0), aFloat + "<= 1.0");
    omu_RangeChecker::CheckLessThan("k", 1.0, true, 0.5);
    omu_RangeChecker::CheckGreaterThan("k", 0.0, false, 1e-300);
    EXPECT_ERROR(omu_RangeChecker::CheckGreaterThan("k", 0.0, false, 0.0), aFloat + "> 0.0");
    EXPECT_ERROR(omu_RangeChecker::CheckGreaterThan("k", 0.0, true, LARGE), aFloat + ">= 0.0");
    EXPECT_ERROR(omu_RangeChecker::CheckGreaterThan("k", 5, true, MOST), anInt + ">= 5");
}

// Of the lower and the higher limit, which are one number.
std::string LimitText(double limit)
{
    omu_RangeErrorException e;
    e.SetLowerLimitAsDouble(limit);
    e.SetHigherLimitAsDouble(limit);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(e.LowerLimitAsDouble()), std::bit_cast<std::uint64_t>(limit));
    EXPECT_EQ(std::bit_cast<std::uint64_t>(e.HigherLimitAsDouble()), std::bit_cast<std::uint64_t>(limit));
    EXPECT_EQ(e.m_LowerLimitAsString, e.m_HigherLimitAsString);
    return std::string(e.m_LowerLimitAsString.View());
}

TEST(RangeLimit, EveryNumberReadsBackFromItsText)
{
    const CommaLocale locale; // or as ever, where there is none
    EXPECT_EQ(LimitText(-0.0), "-0.0");
    // 15 digits would read back as another number, and then 17 are written where 16 would do.
    EXPECT_EQ(LimitText(0.1 + 0.7), "0.79999999999999993");
    EXPECT_EQ(LimitText(-LARGE), "-1.7976931348623157e+308") << "15 digits would read back as infinity";
    EXPECT_EQ(LimitText(-INF), "-inf.0");
    std::mt19937_64 random(20);
    for (int i = 0; i < 20000 && !testing::Test::HasFailure(); ++i)
    {
        const std::uint64_t bits = random();
        if (const auto any = std::bit_cast<double>(bits); !std::isnan(any))
            LimitText(any);
        EXPECT_LT(LimitText(static_cast<double>(bits % 100000) / 1000.0).size(), 8u) << "few digits stay few";
        const auto limit = static_cast<int>(bits);
        omu_RangeErrorException e;
        e.SetLowerLimitAsInt(limit);
        EXPECT_EQ(e.m_LowerLimitAsString, cow_String(std::to_string(limit)));
        EXPECT_EQ(e.LowerLimitAsInt(), limit);
    }
}
}
