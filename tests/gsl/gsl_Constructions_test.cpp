// Frames, circles and planes from points, values from scripts, and systems of equations.
#include <gsl_Constructions.h>
#include <gsl_LinearSystems.h>
#include <testing/GeometryTesting.h>
#include <testing/ValueTesting.h>
#include <vector>

namespace
{
using namespace geometry;

TEST(Constructions, FramesAndCirclesOfThreePoints)
{
    GeometryDraw draw(64);
    for (int i = 0; i < 3000; ++i)
    {
        const double scale = std::pow(10.0, i % 7 - 3);
        const gsl_Point p[] = {draw.Point(scale), draw.Point(scale), draw.Point(scale)};
        const gsl_Vector b(p[0], p[1]), c(p[0], p[2]);
        const bool isRectangular = draw.Coin();
        gsl_Point origin, centre;
        gsl_Vector x, y, z, normal;
        ASSERT_TRUE(gsl_Transcribe3PointsIntoOriginAndAxes(isRectangular, p[0], p[1], p[2], origin, x, y, z));
        EXPECT_TRUE(Same(origin, p[0]) && Near(x.CrossProduct(y), z, 1e-12)) << "right-handed";
        EXPECT_NEAR(x.DotProduct(x) + y.DotProduct(y), 2.0, 1e-12);
        EXPECT_TRUE(Near(isRectangular ? x : z, b * (1 / b.Magnitude()), 1e-12));
        EXPECT_GT(c.DotProduct(isRectangular ? y : x), 0.0) << "p3 on that side";
        EXPECT_NEAR(c.DotProduct(isRectangular ? z : y), 0.0, 1e-9 * scale);
        ASSERT_TRUE(gsl_ComputeCircumCircle(p[0], p[1], p[2], centre, normal));
        const double radius = centre.GetDistance(p[0]);
        EXPECT_NEAR(centre.GetDistance(p[1]) + centre.GetDistance(p[2]), 2 * radius, 1e-9 * radius);
        EXPECT_NEAR(gsl_Vector(p[0], centre).DotProduct(normal), 0.0, 1e-9 * radius) << "in the plane";
        EXPECT_NEAR(normal.TripleProduct(b, c), b.CrossProduct(c).Magnitude(), 1e-9 * scale * scale);
    }
}

TEST(Constructions, RefusalsLeaveTheResults)
{
    gsl_Point point = UNTOUCHED;
    gsl_Vector x = X, y = Y, z = Z;
    const gsl_Point small(.1, .2, .3), large(.3, .6, .9); // on a line but for rounding
    EXPECT_FALSE(gsl_Transcribe3PointsIntoOriginAndAxes(true, ORIGIN, small, large, point, x, y, z));
    EXPECT_FALSE(gsl_ComputeCircumCircle(ORIGIN, small, large, point, x));
    // A small triangle has a circle still, but none of its sides is a direction.
    const gsl_Point p2(5e-7, 0, 0), p3(0, 5e-7, 0);
    EXPECT_FALSE(gsl_Transcribe3PointsIntoOriginAndAxes(true, ORIGIN, p2, p3, point, x, y, z));
    EXPECT_TRUE(Same(point, UNTOUCHED) && Same(x, X) && Same(y, Y) && Same(z, Z));
    EXPECT_TRUE(gsl_ComputeCircumCircle(ORIGIN, p2, p3, point, x));

    double a = 0, b = -3, c = 4, d = 10;
    EXPECT_TRUE(gsl_NormalizeEqn(a, b, c, d) && b == -0.6 && c == 0.8 && d == 2.0);
    b = c = 7e-7;
    EXPECT_FALSE(gsl_NormalizeEqn(a, b, c, d) || b != 7e-7 || d != 2.0) << "shorter than the tolerance";
}

TEST(Constructions, PointsAndVectorsOfScripts)
{
    omu_PrimTuple two = TupleOf(1, 2), three = TupleOf(1, 2.5, -3);
    EXPECT_TRUE(Same(gsl_GetVector(three, true), gsl_Vector(1, 2.5, -3)));
    EXPECT_TRUE(Same(gsl_GetPoint(two, false), gsl_Point(1, 2, 0)));
}

TEST(LinearSystems, SolveWhatTheyAreGiven)
{
    GeometryDraw draw(65);
    for (std::size_t i = 0; i < 2000; ++i)
    {
        const std::size_t n = 1 + i % 12;
        const double scale = std::pow(10.0, draw.Whole(-150, 150));
        std::vector<double> a(n * n), x(n), b(n);
        std::generate(a.begin(), a.end(), [&] { return scale * draw.Number(-1, 1); });
        std::generate(x.begin(), x.end(), [&] { return draw.Number(-1, 1); });
        a[0] = n > 1 && draw.Coin() ? 0.0 : a[0];
        for (std::size_t k = 0; k < n * n; ++k)
            b[k / n] += a[k] * x[k % n];
        ASSERT_TRUE(gsl_LinearEqnLUDSolver(static_cast<int>(n), a.data(), b.data()));
        for (std::size_t r = 0; r < n; ++r)
            EXPECT_NEAR(b[r], x[r], 1e-8) << n;
    }
}

TEST(LinearSystems, RefuseWhatIsSingular)
{
    // Of a second and third row below (0, 1, 2): what (5, 8, 0) is answered by, if it is.
    const struct
    {
        double a[6];
        bool isSolved;
    } rows[] = {{{.1, .2, .3, .1, .3, .5}, false},
                {{0.9e-12, 0, 0, 0, 1, 0}, false},
                {{2.1e-12, 0, 0, 0, 1, 0}, true},
                {{1, 0, std::nan(""), 0, 0, 1}, false}};
    for (const auto& [a, isSolved] : rows)
    {
        double x = 7, y = 7, z = 7, b[] = {5, 8, 0}, matrix[] = {0, 1, 2, a[0], a[1], a[2], a[3], a[4], a[5]};
        EXPECT_EQ(gsl_SolveLinearSystem(0, 1, 2, 5, a[0], a[1], a[2], 8, a[3], a[4], a[5], 0, x, y, z),
                  isSolved);
        EXPECT_EQ(gsl_LinearEqnLUDSolver(3, matrix, b), isSolved);
        EXPECT_TRUE(isSolved ? b[0] == x && b[1] == y && b[2] == z
                             : x + y + z == 21 && b[0] + b[1] + b[2] == 13);
    }
}
}
