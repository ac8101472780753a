// Range checks: what passes, and the message of what does not.

#include <functional>
#include <limits>
#include <omu_RangeChecker.h>
#include <ostream>
#include <testing/Outcome.h>

#include <gtest/gtest.h>

namespace
{
constexpr int LEAST = std::numeric_limits<int>::min();
constexpr int MOST = std::numeric_limits<int>::max();
constexpr double SMALL = 2.2250738585072014e-308; // least positive normal number
constexpr double LARGE = 1.7976931348623157e308;
constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr const char* PASSES = "";

struct Row
{
    const char* name;
    std::function<void()> check;
    std::string outcome;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

class RangeCheck : public testing::TestWithParam<Row>
{};

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
INSTANTIATE_TEST_SUITE_P(
    Rows, RangeCheck,
    testing::Values(
        Row{"IntOnTheLowerBound", In(0, true, 0, 10, false), PASSES},
        Row{"IntOnTheUpperBound", In(0, true, 10, 10, false), INT + "in the range: 0 <= k < 10"},
        Row{"IntOnTheExclusiveLowerBound", In(0, false, 0, 10, true), INT + "in the range: 0 < k <= 10"},
        Row{"IntOneSided", In(LEAST, false, 11, 10, true), INT + "<= 10"},
        // Only an exclusive end of the type is no limit.
        Row{"IntInclusiveEnd", In(LEAST, true, 11, 10, true), INT + "in the range: -2147483648 <= k <= 10"},
        Row{"IntBothEnds", In(LEAST, false, LEAST, MOST, false), INT},
        Row{"IntLess", Less(5, true, 5), PASSES}, Row{"IntNotLess", Less(5, false, 5), INT + "< 5"},
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
        Row{"NotANumberInRange", In(0.0, true, NOT_A_NUMBER, 1.0, true),
            FLOAT + "in the range: 0.0 <= k <= 1.0"},
        Row{"NotANumberGreater", Greater(0.0, true, NOT_A_NUMBER), FLOAT + ">= 0.0"},
        Row{"NotANumberAsALimit", In(NOT_A_NUMBER, true, 0.5, 1.0, true),
            FLOAT + "in the range: nan.0 <= k <= 1.0"}),
    [](const auto& row) { return row.param.name; });
}
