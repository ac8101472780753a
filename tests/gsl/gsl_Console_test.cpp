// Lines from a person at a console.
#include <gsl_Console.h>
#include <sstream>

#include <gtest/gtest.h>

namespace
{
TEST(Console, PromptsFromLevelTwoAndReadsOneLineOrToTheEnd)
{
    std::istringstream keys("first\n\nlast, not ended");
    std::ostringstream told;
    gsl_SetDebug(1, &told);
    gsl_WaitForCR(keys);
    EXPECT_EQ(told.str(), "");
    gsl_SetDebug(2, &told);
    gsl_WaitForCR(keys);
    gsl_SetDebug(0, nullptr);
    EXPECT_EQ(told.str(), "Press <Return> to continue...");
    EXPECT_EQ(keys.peek(), 'l');
    gsl_EatToEnd(keys);
    EXPECT_TRUE(keys.eof());
}
}
