// Planes: construction, distances and relations, and the centroid.
#include <testing/GeometryTesting.h>

#include <gsl_DirMethod.h>
#include <gsl_Plane.h>
#include <memory>
#include <nex_RangeException.h>

namespace
{
const gsl_Point ORIGIN(0, 0, 0);
const gsl_Vector X(1, 0, 0);
const gsl_Vector Z(0, 0, 1);

TEST(Plane, KeepsAUnitNormalAndItsMethod)
{
    const gsl_Plane plane(gsl_Point(1, 2, 3), gsl_Vector(0, 0, 5));
    EXPECT_TRUE(plane.IsValid());
    EXPECT_TRUE(Same(plane.Direction(), Z));
    EXPECT_EQ(plane.Direction().CachedMagnitude(), 1.0);
    EXPECT_TRUE(Same(plane.PointOn(), gsl_Point(1, 2, 3)));
    EXPECT_EQ(plane.Method(), gsl_DirMethod::FROM_POINT_VECTOR);
    EXPECT_FALSE(plane.IsFlipped());
    EXPECT_EQ(plane.OwnerFeatID(), 0);
    EXPECT_THROW((void)plane.GetParentInstId(0), nex_RangeException);
    const gsl_Plane through(gsl_Point(0, 0, 4), gsl_Point(2, 0, 4), gsl_Point(2, 3, 4));
    EXPECT_TRUE(Same(through.Direction(), Z));
    EXPECT_TRUE(Same(through.PointOn(), gsl_Point(0, 0, 4)));
    EXPECT_EQ(through.Method(), gsl_DirMethod::FROM_POINT_VECTOR);
}

TEST(Plane, WithoutANormalIsOnlyItsPoint)
{
    const gsl_Plane none[] = {gsl_Plane(), gsl_Plane(ORIGIN, gsl_Vector(0, 0, 0)),
                              gsl_Plane(ORIGIN, gsl_Vector(0, 0, 0.9e-6)),
                              gsl_Plane(ORIGIN, gsl_Point(1, 1, 1), gsl_Point(2, 2, 2))};
    const gsl_Plane plane(gsl_Point(0, 0, 2), Z);
    for (const gsl_Plane& bad : none)
    {
        EXPECT_FALSE(bad.IsValid());
        EXPECT_FALSE(bad.HasNormal());
        EXPECT_EQ(bad.Method(), gsl_DirMethod::PLANE_INVALID);
        EXPECT_TRUE(Same(bad.Direction(), gsl_Vector()));
        EXPECT_EQ(bad.GetDistance(gsl_Point(3, 4, 0)), 5.0);
        EXPECT_EQ(bad.GetDistance(plane), 0.0);
        EXPECT_EQ(plane.GetDistance(bad), 0.0);
        EXPECT_FALSE(bad.IsOn(ORIGIN) || bad.IsOn(bad) || bad.IsOn(plane) || plane.IsOn(bad));
        EXPECT_FALSE(bad.IsParallel(bad) || bad.IsParallel(plane) || plane.IsParallel(bad));
    }
}

TEST(Plane, RelationsAroundTheirBounds)
{
    struct Row
    {
        const char* what;
        double offset, tilt;
        bool parallel, on;
    };
    const Row rows[] = {{"the same", 0, 0, true, true},
                        {"offset inside", 0.9e-6, 0, true, true},
                        {"offset on the bound: inclusive", 1e-6, 0, true, true},
                        {"offset outside", 1.1e-6, 0, true, false},
                        {"tilt inside", 0, 0.9e-9, true, true},
                        {"tilt outside", 0, 1.1e-9, false, false}};
    const gsl_Plane a(ORIGIN, Z);
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.what);
        for (const double side : {1.0, -1.0})
        {
            const gsl_Plane b(gsl_Point(0, 0, side * row.offset), gsl_Vector(row.tilt, 0, 1) * side);
            EXPECT_EQ(a.IsParallel(b), row.parallel);
            EXPECT_EQ(b.IsParallel(a), row.parallel);
            EXPECT_EQ(a.IsOn(b), row.on);
            EXPECT_EQ(b.IsOn(a), row.on);
            EXPECT_NEAR(a.GetDistance(b), row.parallel ? row.offset : 0.0, 1e-20);
        }
    }
}

TEST(Plane, IsOnIsNotSymmetric)
{
    const gsl_Plane a(ORIGIN, Z);
    const gsl_Plane b(gsl_Point(1e4, 0, 0), gsl_Vector(0.9e-9, 0, 1));
    EXPECT_FALSE(a.IsOn(b));
    EXPECT_TRUE(b.IsOn(a));
}

TEST(Plane, DistanceOfParallelPlanesInAKnownFrame)
{
    GeometryDraw draw(40);
    for (int i = 0; i < 1000; ++i)
    {
        const gsl_Vector n = draw.Unit();
        const gsl_Point p = draw.Point(10);
        const double gap = draw.Number(-5, 5);
        const gsl_Plane a(p, n);
        const gsl_Plane b(p + n * gap + n.AnyOrthogonalUnit() * draw.Number(-9, 9),
                          n * (draw.Coin() ? 3.0 : -3.0));
        ASSERT_NEAR(a.GetDistance(b), std::abs(gap), 1e-13);
        ASSERT_NEAR(b.GetDistance(a), std::abs(gap), 1e-13);
        ASSERT_EQ(a.GetDistance(gsl_Plane(draw.Point(10), draw.Unit())), 0.0);
    }
}

TEST(Plane, CentroidIsThePointUntilSet)
{
    gsl_Plane plane(gsl_Point(1, 2, 3), Z);
    EXPECT_TRUE(Same(plane.Centroid(), gsl_Point(1, 2, 3)));
    plane.SetCentroid(gsl_Point(7, 8, 3));
    EXPECT_TRUE(Same(plane.Centroid(), gsl_Point(7, 8, 3)));
    EXPECT_TRUE(Same(plane.PointOn(), gsl_Point(1, 2, 3)));
    plane.ResetCentroid();
    EXPECT_TRUE(Same(plane.Centroid(), gsl_Point(1, 2, 3)));
}

TEST(Plane, RemembersItsParents)
{
    gsl_Plane plane(ORIGIN, Z);
    plane.SetParents(gsl_DirMethod::FROM_FACE, cow_List<int>{4, 9}, true);
    EXPECT_EQ(plane.Method(), gsl_DirMethod::FROM_FACE);
    EXPECT_TRUE(plane.IsFlipped());
    EXPECT_TRUE(Same(plane.Direction(), Z));
    EXPECT_EQ(plane.GetParentInstId(1), 9);
    EXPECT_THROW((void)plane.GetParentInstId(2), nex_RangeException);
    EXPECT_THROW((void)plane.GetParentInstId(-1), nex_RangeException);
    gsl_Plane none;
    none.SetParents(gsl_DirMethod::FROM_FACE, cow_List<int>{4});
    EXPECT_EQ(none.Method(), gsl_DirMethod::PLANE_INVALID);
    EXPECT_FALSE(none.IsValid());
}

TEST(Plane, CopyIsIndependent)
{
    gsl_Plane plane(ORIGIN, Z);
    plane.SetParents(gsl_DirMethod::FROM_FACE, cow_List<int>{4, 9});
    plane.SetCentroid(gsl_Point(1, 0, 0));
    const std::unique_ptr<gsl_Plane> copy(plane.Copy());
    plane.SetParents(gsl_DirMethod::FROM_DATUM_PLANE, cow_List<int>{});
    plane.ResetCentroid();
    EXPECT_EQ(copy->Method(), gsl_DirMethod::FROM_FACE);
    EXPECT_EQ(copy->ParentIds(), (cow_List<int>{4, 9}));
    EXPECT_TRUE(Same(copy->Centroid(), gsl_Point(1, 0, 0)));
}
}
