#include <bat_Direction.h>
#include <bat_UsageError.h>
#include <cmath>
#include <gtest/gtest.h>

namespace
{
struct DirectionRow
{
    const char* text;
    double x, y, z;
};

class Direction : public testing::TestWithParam<DirectionRow>
{};

TEST_P(Direction, HasLengthOneWhateverWasWritten)
{
    const DirectionRow& row = GetParam();
    const gsl_Vector unit = bat_Direction(row.text).Unit();
    const double length = std::sqrt(row.x * row.x + row.y * row.y + row.z * row.z);
    EXPECT_NEAR(unit.X(), row.x / length, 2e-16) << row.text;
    EXPECT_NEAR(unit.Y(), row.y / length, 2e-16) << row.text;
    EXPECT_NEAR(unit.Z(), row.z / length, 2e-16) << row.text;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Direction,
    testing::Values(DirectionRow{"+x", 1, 0, 0}, DirectionRow{"-x", -1, 0, 0}, DirectionRow{"+y", 0, 1, 0},
                    DirectionRow{"-y", 0, -1, 0}, DirectionRow{"+z", 0, 0, 1}, DirectionRow{"-z", 0, 0, -1},
                    DirectionRow{"0,0,7", 0, 0, 1}, DirectionRow{"1,2,3", 1, 2, 3},
                    DirectionRow{"-1,-2,-3", -1, -2, -3}, DirectionRow{"+1,0,0", 1, 0, 0},
                    DirectionRow{"1e300,1e300,0", 1, 1, 0}, DirectionRow{"3e-300,0,-4e-300", 3, 0, -4},
                    DirectionRow{"0,5e-324,0", 0, 1, 0}, DirectionRow{"1e-320,0,0", 1, 0, 0},
                    DirectionRow{"1.7e308,-1.7e308,1.7e308", 1, -1, 1}, DirectionRow{"1e-300,1,0", 0, 1, 0},
                    DirectionRow{".5,0,.5", 1, 0, 1}));

TEST(DirectionText, EverythingElseIsRefusedWithAReason)
{
    for (const char* text :
         {"", "x", "+w", "z+", "+xy", "1", "1,2", "1,2,3,4", "1,2,", ",1,2", "1,,2", "1 2 3", "1, 2, 3",
          "a,b,c", "nan,0,1", "inf,0,0", "1e400,0,0", "1;2;3", "0,0,1x"})
    {
        try
        {
            const bat_Direction direction(text);
            ADD_FAILURE() << "'" << text << "' was accepted";
        }
        catch (const bat_UsageError& error)
        {
            EXPECT_EQ(std::string(error.what()),
                      std::string("--dir ") + text +
                          ": write three numbers, X,Y,Z, or an axis: +x -x +y -y +z -z");
        }
    }
    for (const char* text : {"0,0,0", "-0,0,0"})
        try
        {
            const bat_Direction direction(text);
            ADD_FAILURE() << "'" << text << "' was accepted";
        }
        catch (const bat_UsageError& error)
        {
            EXPECT_EQ(std::string(error.what()),
                      std::string("--dir ") + text + ": a direction needs a length above zero");
        }
}
}
