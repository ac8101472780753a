// Areas in single precision, radii and shape factors, held against the angles in long double; merged points.
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

    double Area(bool planar) const { return gsl_ComputeAreaTri(a, b, c, planar); }
    double Factor(bool planar) const { return gsl_ComputeShapeFactorTri(a, b, c, planar); }
};

Corners Equilateral(double side)
{
    return {{0, 0, 0}, {side, 0, 0}, {side / 2, side * std::sqrt(3.0) / 2, 0}};
}

Real Distance(const double* p, const double* q)
{
    return std::hypot(Real(p[0]) - q[0], Real(p[1]) - q[1], Real(p[2]) - q[2]);
}

// The sine of the angle at p, by the law of cosines.
Real SineAt(const double* p, const double* q, const double* r)
{
    const Real a = Distance(p, q), b = Distance(p, r), c = Distance(q, r);
    const Real cosine = (a * a + b * b - c * c) / (2 * a * b);
    return std::sqrt((1 - cosine) * (1 + cosine));
}

TEST(TriangleQuality, AgreesWithTheSinesOfTheAngles)
{
    GeometryDraw draw(61);
    for (int i = 0; i < 5000; ++i)
    {
        Corners t;
        for (double* corner : {t.a, t.b, t.c})
            std::generate_n(corner, 3, [&] { return draw.Number(-10, 10); });
        const Real sine = SineAt(t.a, t.b, t.c);
        const double sides = static_cast<double>(Distance(t.a, t.b) * Distance(t.a, t.c));
        const double area = sides * static_cast<double>(sine) / 2;
        EXPECT_EQ(t.Area(false), static_cast<float>(t.Area(false))) << "single precision, widened";
        EXPECT_NEAR(t.Area(false), area, 5e-7 * sides);
        EXPECT_EQ(gsl_ComputeAreaTri(t.a, t.c, t.b, true), -t.Area(true)) << "clockwise is negative";
        const double radius = static_cast<double>(Distance(t.b, t.c) / (2 * sine));
        EXPECT_NEAR(gsl_ComputeRadiusTri(t.a, t.b, t.c, area) / radius, 1.0, 1e-13);
        const Real sines = sine * SineAt(t.b, t.c, t.a) * SineAt(t.c, t.a, t.b);
        const double factor = static_cast<double>(8 * sines / (3 * std::numbers::sqrt3_v<Real>));
        EXPECT_NEAR(t.Factor(false), factor, factor > 0.01 ? 1e-4 * factor : 1e-5);
        const auto c = [](const double* at) { return uti_Coord3D(at[0], at[1], at[2]); };
        const gsl_Point p(t.a), q(t.b), r(t.c);
        EXPECT_TRUE(gsl_ComputeAreaTriByCoords(c(t.a), c(t.b), c(t.c), true) == t.Area(true) &&
                    gsl_ComputeAreaTriByPts(p, q, r, true) == t.Area(true) &&
                    gsl_ComputeShapeFactorTriByCoords(c(t.a), c(t.b), c(t.c), false) == t.Factor(false) &&
                    gsl_ComputeShapeFactorTriByPnts(p, q, r, false) == t.Factor(false));
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
        {"equilateral, 0.01", Equilateral(0.01), true, 0.99999987, 5e-9},
        {"equilateral, 10, limited to 1", Equilateral(10), false, 1, 0},
        {"equilateral, 1e-6, below the threshold", Equilateral(1e-6), false, 0, 0},
        {"clockwise", {{0, 0, 0}, {0, 1, 0}, {1, 0, 0}}, true, 0, 0},
        {"anticlockwise", {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, true, 0.769800358728, 1e-12},
        {"planar, R^2 = 110 / 4", {{0, 0, 0}, {1, 0, 3}, {0, 1, 0}}, true, 1 / 71.44709583, 1e-10},
        {"collinear whole numbers", {{0, 0, 0}, {1, 2, 3}, {3, 6, 9}}, false, 0, 0},
        {"collinear but for rounding", {{0, 0, 0}, {.1, .2, .3}, {.3, .6, .9}}, false, 1e-22, 9e-23},
        {"beyond single precision", {{0, 0, 0}, {1e30, 0, 0}, {0, 1e30, 0}}, false, 0, 0},
        {"not a number", {{0, 0, 0}, {std::nan(""), 0, 0}, {0, 1, 0}}, false, 0, 0},
    };
    for (const auto& row : rows)
        EXPECT_NEAR(row.t.Factor(row.planar), row.factor, row.within) << row.what;
    EXPECT_EQ(rows[4].t.Area(true), -0.5);
}

TEST(PointMerge, KeepsTheFirstOfEachCluster)
{
    cls_xo1DArrayList<gsl_Point> in, out = {gsl_Point()};
    gsl_MergePointsWithinAcisTol(in, out);
    EXPECT_TRUE(out.IsEmpty());
    // Not transitive: 8e-7 is on both its neighbours. The result may take the place of the input.
    for (const double x : {0.0, 5e-7, 1.0, 8e-7, 16e-7, 1.0})
        in.Append(gsl_Point(x, 0, 0));
    gsl_MergePointsWithinAcisTol(in, in);
    EXPECT_TRUE(in.Length() == 3 && in[0].X() == 0.0 && in[1].X() == 1.0 && in[2].X() == 16e-7);
}
}
