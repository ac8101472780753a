#include <bat_Direction.h>
#include <bat_UsageError.h>
#include <cmath>
#include <testing/GeometryTesting.h>

namespace
{
TEST(Direction, HasLengthOneWhateverWasWritten)
{
    const auto expect = [](const char* text, double x, double y, double z) {
        const double length = std::hypot(x, y, z);
        const gsl_Vector unit = bat_Direction(text).Unit();
        EXPECT_TRUE(Near(unit, gsl_Vector(x / length, y / length, z / length), 3e-16)) << text;
    };
    expect("+x", 1, 0, 0);
    expect("-y", 0, -1, 0);
    expect("+z", 0, 0, 1);
    expect("-1,+2.5,.3", -1, 2.5, 0.3);
    expect("3e-300,0,-4e-300", 3, 0, -4);
    expect("0,5e-324,0", 0, 1, 0);
    expect("1.7e308,-1.7e308,1.7e308", 1, -1, 1);
    expect("1e-300,1,0", 0, 1, 0);
}

TEST(DirectionText, EverythingElseIsRefusedWithAReason)
{
    const std::string form = ": write three numbers, X,Y,Z, or an axis: +x -x +y -y +z -z";
    for (const char* text : {"", "x", "+w", "+xy", "1,2", "1,2,3,4", "1,2,", ",1,2", "1, 2, 3", "nan,0,1",
                             "inf,0,0", "1e400,0,0", "0,0,1x", "-0,0,0"})
        try
        {
            const bat_Direction direction(text);
            ADD_FAILURE() << "'" << text << "' was accepted";
        }
        catch (const bat_UsageError& error)
        {
            EXPECT_EQ(std::string(error.what()),
                      "--dir " + (text + (*text == '-' ? ": a direction needs a length above zero" : form)));
        }
}
}
