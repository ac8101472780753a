// Areas in single precision, radii and shape factors, held against long double; merged points.
#include <gsl_PointMerge.h>
#include <gsl_TriangleQuality.h>
#include <numbers>
#include <testing/GeometryTesting.h>

namespace
{
using Real = long double;

struct Corners
{
    double a[3], b[3], c[3];

    // By points: these forms forward to those by arrays.
    double Area(bool planar) const
    {
        return gsl_ComputeAreaTriByPts(gsl_Point(a), gsl_Point(b), gsl_Point(c), planar);
    }
    double Factor(bool planar) const
    {
        return gsl_ComputeShapeFactorTriByPnts(gsl_Point(a), gsl_Point(b), gsl_Point(c), planar);
    }
};

Corners Equilateral(double side)
{
    return {{0, 0, 0}, {side, 0, 0}, {side / 2, side * std::sqrt(3.0) / 2, 0}};
}

Real Distance(const double* p, const double* q)
{
    return std::hypot(Real(p[0]) - q[0], Real(p[1]) - q[1], Real(p[2]) - q[2]);
}

TEST(TriangleQuality, AgreesWithHeronsFormula)
{
    GeometryDraw draw(61);
    for (int i = 0; i < 5000; ++i)
    {
        Corners t;
        for (double* corner : {t.a, t.b, t.c})
            std::generate_n(corner, 3, [&] { return draw.Number(-10, 10); });
        const Real a = Distance(t.b, t.c), b = Distance(t.a, t.c), c = Distance(t.a, t.b);
        const Real s = (a + b + c) / 2;
        const Real area = std::sqrt(s * (s - a) * (s - b) * (s - c)), radius = a * b * c / (4 * area);
        const double factor = double(4 * area / (3 * std::numbers::sqrt3_v<Real> * radius * radius));
        EXPECT_NEAR(t.Area(false), double(area), 5e-7 * double(b * c));
        EXPECT_EQ(gsl_ComputeAreaTri(t.a, t.c, t.b, true), -t.Area(true)) << "clockwise is negative";
        EXPECT_NEAR(gsl_ComputeRadiusTri(t.a, t.b, t.c, double(area)), double(radius),
                    1e-13 * double(radius));
        EXPECT_NEAR(t.Factor(false), factor, factor > 0.01 ? 1e-4 * factor : 1e-5);
        const uti_Coord3D p(t.a[0], t.a[1], t.a[2]), q(t.b[0], t.b[1], t.b[2]), r(t.c[0], t.c[1], t.c[2]);
        EXPECT_EQ(gsl_ComputeAreaTriByCoords(p, q, r, true), t.Area(true));
        EXPECT_EQ(gsl_ComputeShapeFactorTriByCoords(p, q, r, true), t.Factor(true));
    }
}

// Single precision and the signed planar area are kept on purpose, and the thresholds are absolute.
TEST(TriangleQuality, MatchesTable)
{
    const struct
    {
        const char* what;
        Corners t;
        bool planar;
        double factor, within;
    } rows[] = {
        {"equilateral, 1", Equilateral(1), false, 0.99999995, 5e-9},
        {"equilateral, 10, limited to 1", Equilateral(10), false, 1, 0},
        {"clockwise", {{0, 0, 0}, {0, 1, 0}, {1, 0, 0}}, true, 0, 0},
        {"planar, R^2 = 110 / 4", {{0, 0, 0}, {1, 0, 3}, {0, 1, 0}}, true, 1 / 71.44709583, 1e-10},
        {"collinear but for rounding", {{0, 0, 0}, {.1, .2, .3}, {.3, .6, .9}}, false, 1e-22, 9e-23},
        {"equilateral, 1e-6, below the threshold", Equilateral(1e-6), false, 0, 0},
    };
    for (const auto& row : rows)
        EXPECT_NEAR(row.t.Factor(row.planar), row.factor, row.within) << row.what;
}

TEST(PointMerge, KeepsTheFirstOfEachCluster)
{
    cls_xo1DArrayList<gsl_Point> in;
    // Not transitive: 8e-7 is on both its neighbours. The result may take the place of the input.
    for (const double x : {0.0, 5e-7, 1.0, 8e-7, 16e-7, 1.0})
        in.Append(gsl_Point(x, 0, 0));
    gsl_MergePointsWithinAcisTol(in, in);
    EXPECT_TRUE(in.Length() == 3 && in[0].X() == 0.0 && in[1].X() == 1.0 && in[2].X() == 16e-7);
}
}
