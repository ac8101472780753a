// The index against the geometry's quadratic merging.

#include <bat_PointIndex.h>
#include <cmath>
#include <gsl_PointMerge.h>
#include <gtest/gtest.h>
#include <random>
#include <testing/ToleranceGuard.h>

namespace
{
using Point = bat_PointIndex::Point;

std::vector<Point> MergedByGeometry(const std::vector<Point>& points, double tolerance)
{
    const ToleranceGuard guard;
    gsl_Util::Instance().SetLinearTolerance(tolerance);
    cls_xo1DArrayList<gsl_Point> in;
    cls_xo1DArrayList<gsl_Point> out;
    for (const Point& p : points)
        in.Append(gsl_Point(p.data()));
    gsl_MergePointsWithinAcisTol(in, out);
    std::vector<Point> merged;
    for (const gsl_Point& p : out)
        merged.push_back({p.X(), p.Y(), p.Z()});
    return merged;
}

std::vector<Point> MergedByIndex(const std::vector<Point>& points, double tolerance)
{
    bat_PointIndex index(tolerance);
    for (const Point& p : points)
        index.Add(p);
    std::vector<Point> merged;
    for (std::size_t i = 0; i < index.Length(); ++i)
        merged.push_back(index[i]);
    return merged;
}

TEST(PointIndex, KeepsWhatTheGeometryKeeps)
{
    std::mt19937_64 random(7);
    const auto draw = [&](auto... limits) {
        return std::uniform_real_distribution<double>(limits...)(random);
    };
    std::size_t some = 0;
    // From tolerances that vanish in the coordinates to those in which everything does.
    for (const double tolerance : {1e-150, 1e-12, 1e-6, 0.01, 0.1, 1.0, 3.0, 1e9, 1e200})
        for (const double shift : {0.0, 1.0, -1e6, 1e9, 1e15, 1e75})
            for (const double spread : {1e-3, 1.0, 1e3})
                for (const bool grid : {false, true})
                {
                    std::vector<Point> points(150);
                    for (Point& p : points)
                        for (double& x : p)
                        {
                            // On the grid many are a tolerance apart, or a bit more or less.
                            const double away = std::round(draw(-3.0, 3.0)) * std::min(tolerance, 1e70);
                            x = shift + (grid ? away : draw(-spread, spread));
                            if (grid && draw(0.0, 1.0) < 0.3)
                                x = std::nextafter(x, draw(-1.0, 1.0) < 0 ? -1e80 : 1e80);
                        }
                    const std::vector<Point> expected = MergedByGeometry(points, tolerance);
                    ASSERT_EQ(MergedByIndex(points, tolerance), expected)
                        << tolerance << ' ' << shift << ' ' << spread << ' ' << grid;
                    some += expected.size() > 1 && expected.size() < points.size();
                }
    EXPECT_GT(some, 60u) << "sets in which some points were merged and others not";
}

TEST(PointIndex, TheFirstKeptPointRepresentsAndZeroMeansTheSameCoordinates)
{
    bat_PointIndex index(1.0);
    EXPECT_EQ(index.Add({0, 0, 0}), 0u);
    EXPECT_EQ(index.Add({1, 0, 0}), 1u) << "at the tolerance, strictly";
    EXPECT_EQ(index.Add({0.75, 0, 0}), 0u) << "the first, not the nearest";
    EXPECT_EQ(index.Add({1.5, 0, 0}), 1u);
    bat_PointIndex exact(0.0);
    EXPECT_EQ(exact.Add({0.0, 1, 2}), exact.Add({-0.0, 1, 2}));
    EXPECT_EQ(exact.Add({5e-324, 1, 2}), 1u);
    for (double i = 0; i < 5000; ++i) // grows on the way
        EXPECT_EQ(exact.Add({i, 1, 2}), i == 0 ? 0u : 1u + static_cast<unsigned>(i));
    EXPECT_EQ(exact.Add({4999, 1, 2}), 5000u);
}
}
