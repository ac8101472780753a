// Numbers as text, against printf. What that does not settle is in the table of values.

#include <bit>
#include <cmath>
#include <cstdio>
#include <omu_NumberText.h>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace
{
std::string Printed(double value)
{
    char text[64];
    return std::string(text, static_cast<std::size_t>(std::snprintf(text, sizeof text, "%.15lg", value)));
}

// The text before ".0" is printf's, and stays inside its buffer. Drawn where the two ways might part: any
// bits, few digits, subnormal numbers, and digits 16 and 17 around one half.
TEST(NumberText, AgreesWithPrintf)
{
    std::mt19937_64 random{20240131};
    const auto hold = [&](double value) {
        char text[omu_NumberText::SIZE + 8];
        std::fill(std::begin(text), std::end(text), '#');
        const std::string printed = Printed(value);
        EXPECT_EQ(std::string(text, omu_NumberText::General(value, text)), printed) << std::hexfloat << value;
        const bool isBare = printed.find_first_of(".e") == std::string::npos;
        const std::string written(text, omu_NumberText::Float(value, text));
        EXPECT_EQ(written, isBare ? printed + ".0" : printed) << std::hexfloat << value;
        EXPECT_EQ(std::string(text + omu_NumberText::SIZE, 8), "########") << value;
    };
    for (int i = 0; i < 50'000 && !HasFailure(); ++i)
    {
        hold(std::bit_cast<double>(random()));
        hold(std::bit_cast<double>(random() >> (12 + random() % 50)));
        const double digits = static_cast<double>(random() % 2'000'000'000'000'000u);
        const double value = digits / std::pow(10.0, static_cast<double>(random() % 20));
        for (const double near : {value, std::nextafter(value, 1e300), -std::nextafter(value, 0.0)})
            hold(near);
        // Fifteen digits and a five, which a double can only meet nearly, or exactly as a dyadic fraction.
        const double fifteen = static_cast<double>(100'000'000'000'000u + random() % 800'000'000'000'000u);
        hold(fifteen + 0.5);
        hold((fifteen * 10.0 + 5.0) * std::pow(10.0, static_cast<double>(random() % 40) - 20.0));
    }
    for (double power = 1e-6; power < 1e18; power *= 10.0) // every place of the point
        hold(-1.23456789012345678 * power);
}
}
