// Range checks: what passes, and the message of what does not. The limits that an error keeps as text.

#include <bit>
#include <cmath>
#include <functional>
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
constexpr const char* PASSES = "";

struct Row : NamedRow
{
    std::function<void()> check;
    std::string outcome;
};
using RangeCheck = testing::TestWithParam<Row>;

TEST_P(RangeCheck, ComesToItsOutcome)
{
    EXPECT_EQ(Outcome([] {
                  GetParam().check();
                  return PASSES;
              }),
              GetParam().outcome);
}

template <class T>
std::function<void()> In(T lower, bool lowerInclusive, T value, T upper, bool upperInclusive)
{
    return [=] { omu_RangeChecker::CheckInRange("k", lower, lowerInclusive, value, upper, upperInclusive); };
}

template <class T>
std::function<void()> Less(T upper, bool inclusive, T value)
{
    return [=] { omu_RangeChecker::CheckLessThan("k", upper, inclusive, value); };
}

template <class T>
std::function<void()> Greater(T lower, bool inclusive, T value)
{
    return [=] { omu_RangeChecker::CheckGreaterThan("k", lower, inclusive, value); };
}

const std::string INT = "RangeError: k must be an Integer ";
const std::string FLOAT = "RangeError: k must be a Float ";
INSTANTIATE_ROWS(
    RangeCheck, Row{"IntOnTheLowerBound", In(0, true, 0, 10, false), PASSES},
    Row{"IntOnTheUpperBound", In(0, true, 10, 10, false), INT + "in the range: 0 <= k < 10"},
    Row{"IntOnTheExclusiveLowerBound", In(0, false, 0, 10, true), INT + "in the range: 0 < k <= 10"},
    Row{"IntOneSided", In(LEAST, false, 11, 10, true), INT + "<= 10"},
    // Only an exclusive end of the type is no limit.
    Row{"IntInclusiveEnd", In(LEAST, true, 11, 10, true), INT + "in the range: -2147483648 <= k <= 10"},
    Row{"IntBothEnds", In(LEAST, false, LEAST, MOST, false), INT}, Row{"IntLess", Less(5, true, 5), PASSES},
    Row{"IntNotLess", Less(5, false, 5), INT + "< 5"},
    Row{"IntLessRefusesTheLeast", Less(5, true, LEAST), INT + "<= 5"},
    Row{"IntGreater", Greater(5, true, 5), PASSES},
    Row{"IntGreaterRefusesTheMost", Greater(5, true, MOST), INT + ">= 5"},
    Row{"FloatAbove", In(0.1, false, 2.0, 1.0, true), FLOAT + "in the range: 0.1 < k <= 1.0"},
    // The ends of the type are no limits in the message, inclusive or not.
    Row{"FloatInclusiveEnds", In(SMALL, true, 0.0, LARGE, true), FLOAT},
    Row{"FloatLess", Less(1.0, true, 0.5), PASSES},
    // The message looks satisfied, and the check refuses all the same: the lower end is above zero.
    Row{"FloatLessRefusesZero", Less(1.0, true, 0.0), FLOAT + "<= 1.0"},
    Row{"FloatLessRefusesTheSmallest", Less(1.0, true, SMALL), FLOAT + "<= 1.0"},
    Row{"FloatGreater", Greater(0.0, false, 1e-300), PASSES},
    Row{"FloatNotGreater", Greater(0.0, false, 0.0), FLOAT + "> 0.0"},
    Row{"FloatGreaterRefusesTheLargest", Greater(0.0, true, LARGE), FLOAT + ">= 0.0"},
    Row{"FloatGreaterRefusesInfinity", Greater(0.0, true, INF), FLOAT + ">= 0.0"},
    Row{"NotANumberInRange", In(0.0, true, NOT_A_NUMBER, 1.0, true), FLOAT + "in the range: 0.0 <= k <= 1.0"},
    Row{"NotANumberAsALimit", In(NOT_A_NUMBER, true, 0.5, 1.0, true),
        FLOAT + "in the range: nan.0 <= k <= 1.0"});

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
    EXPECT_EQ(LimitText(-0.0), "-0.0");
    EXPECT_EQ(LimitText(1e14), "100000000000000.0");
    EXPECT_EQ(LimitText(1.5e-7), "1.5e-07");
    // 15 digits would read back as another number, and then 17 are written where 16 would do.
    EXPECT_EQ(LimitText(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(LimitText(0.1 + 0.7), "0.79999999999999993");
    EXPECT_EQ(LimitText(-LARGE), "-1.7976931348623157e+308") << "15 digits would read back as infinity";
    EXPECT_EQ(LimitText(9007199254740993.0), "9007199254740992.0");
    EXPECT_EQ(LimitText(-INF), "-inf.0");
    std::mt19937_64 random(20);
    for (int i = 0; i < 20000 && !testing::Test::HasFailure(); ++i)
    {
        const std::uint64_t bits = random();
        if (const auto any = std::bit_cast<double>(bits); !std::isnan(any))
            LimitText(any);
        EXPECT_LT(LimitText(static_cast<double>(bits % 100000) / 1000.0).size(), 8u) << "few digits stay few";
    }
    for (const int limit : {0, -1, LEAST, MOST})
    {
        omu_RangeErrorException e;
        e.SetLowerLimitAsInt(limit);
        e.SetHigherLimitAsInt(limit);
        EXPECT_EQ(e.m_LowerLimitAsString, cow_String(std::to_string(limit)));
        EXPECT_EQ(e.LowerLimitAsInt(), limit);
        EXPECT_EQ(e.HigherLimitAsInt(), limit);
    }
    const CommaLocale locale; // where there is none this is a repetition
    EXPECT_EQ(LimitText(1.5), "1.5");
}

// As the C library reads, which never fails.
TEST(RangeLimit, AnyTextIsANumber)
{
    for (const auto& [text, asInt, asDouble] : {std::tuple{"", 0, 0.0},
                                                {"many", 0, 0.0},
                                                {" \t\n +12.5", 12, 12.5},
                                                {"-4.25e1x", -4, -42.5},
                                                {"+-4", 0, 0.0},
                                                {".5", 0, 0.5},
                                                {"2e", 2, 2.0},
                                                {"1,5", 1, 1.0},
                                                {"0x10", 0, 16.0},
                                                {"-infinity", 0, -INF},
                                                {"1e400", 1, INF}})
    {
        omu_RangeErrorException e;
        e.m_LowerLimitAsString = text;
        e.m_HigherLimitAsString = text;
        EXPECT_EQ(e.LowerLimitAsInt(), asInt) << text;
        EXPECT_EQ(e.HigherLimitAsInt(), asInt) << text;
        EXPECT_EQ(e.LowerLimitAsDouble(), asDouble) << text;
        EXPECT_EQ(e.HigherLimitAsDouble(), asDouble) << text;
    }
}
}
