// Planes: construction, distances and relations, and the centroid.
#include <testing/GeometryTesting.h>

#include <gsl_DirMethod.h>
#include <gsl_Plane.h>
#include <gsl_Predicates.h>
#include <memory>
#include <nex_RangeException.h>

namespace
{
using namespace geometry;

TEST(Plane, KeepsAUnitNormalItsMethodAndItsParents)
{
    gsl_Plane plane(gsl_Point(0, 0, 4), gsl_Point(2, 0, 4), gsl_Point(2, 3, 4));
    EXPECT_TRUE(Same(plane.Direction(), Z) && Same(plane.PointOn(), gsl_Point(0, 0, 4)));
    plane = gsl_Plane(gsl_Point(1, 2, 3), gsl_Vector(0, 0, 5));
    EXPECT_TRUE(Same(plane.Direction(), Z));
    EXPECT_EQ(plane.Direction().CachedMagnitude(), 1.0);
    EXPECT_EQ(plane.Method(), gsl_DirMethod::FROM_POINT_VECTOR);
    EXPECT_TRUE(plane.IsValid() && !plane.IsFlipped() && plane.OwnerFeatID() == 0);
    EXPECT_THROW((void)plane.GetParentInstId(0), nex_RangeException);
    plane.SetParents(gsl_DirMethod::FROM_FACE, cow_List<int>{4, 9}, true);
    plane.SetCentroid(gsl_Point(7, 8, 3));
    const std::unique_ptr<gsl_Plane> copy(plane.Copy());
    plane.SetParents(gsl_DirMethod::PLANE_INVALID, cow_List<int>{});
    plane.ResetCentroid();
    EXPECT_FALSE(plane.IsValid());
    EXPECT_TRUE(Same(plane.Centroid(), gsl_Point(1, 2, 3)));
    EXPECT_TRUE(Same(copy->Centroid(), gsl_Point(7, 8, 3)) && Same(copy->PointOn(), gsl_Point(1, 2, 3)));
    EXPECT_EQ(copy->Method(), gsl_DirMethod::FROM_FACE);
    EXPECT_TRUE(copy->IsFlipped() && Same(copy->Direction(), Z));
    EXPECT_EQ(copy->GetParentInstId(1), 9);
    EXPECT_THROW((void)copy->GetParentInstId(-1), nex_RangeException);
}

TEST(Plane, WithoutANormalIsOnlyItsPoint)
{
    const gsl_Plane plane(gsl_Point(0, 0, 2), Z);
    gsl_Plane picked;
    picked.SetParents(gsl_DirMethod::FROM_FACE, cow_List<int>{4});
    for (const gsl_Plane& bad : {gsl_Plane(), picked, gsl_Plane(ORIGIN, gsl_Vector(0, 0, 0.9e-6)),
                                 gsl_Plane(ORIGIN, gsl_Point(1, 1, 1), gsl_Point(2, 2, 2))})
    {
        EXPECT_FALSE(bad.IsValid() || bad.HasNormal());
        EXPECT_EQ(bad.Method(), gsl_DirMethod::PLANE_INVALID);
        EXPECT_TRUE(Same(bad.Direction(), gsl_Vector()));
        const gsl_Point p(3, 4, 0);
        gsl_Point out = UNTOUCHED;
        EXPECT_TRUE(bad.GetDistance(p) == 5.0 && p.GetSignedDistance(bad) == 5.0 &&
                    Same(p.ProjectOn(bad), ORIGIN) && !p.RayIntersect(X * -1, bad, out) &&
                    Same(out, UNTOUCHED));
        EXPECT_EQ(bad.GetDistance(plane) + plane.GetDistance(bad), 0.0);
        EXPECT_FALSE(bad.IsOn(ORIGIN) || bad.IsOn(bad) || bad.IsOn(plane) || plane.IsOn(bad) ||
                     bad.IsParallel(bad) || bad.IsParallel(plane) || plane.IsParallel(bad));
    }
}

TEST(Plane, RelationsAroundTheirBounds)
{
    struct Row
    {
        const char* what;
        double away, offset, tilt;
        bool parallel, on, onBack; // the second on the first, the first on the second
    };
    const Row rows[] = {{"offset inside", 0, 0.9e-6, 0, true, true, true},
                        {"offset on the bound: inclusive", 0, 1e-6, 0, true, true, true},
                        {"offset outside", 0, 1.1e-6, 0, true, false, false},
                        {"far apart", 9, 4, 0, true, false, false},
                        {"tilt inside", 0, 0, 0.9e-9, true, true, true},
                        {"tilt outside", 0, 0, 1.1e-9, false, false, false},
                        // Which one's point is asked for decides.
                        {"tilt inside, far away", 1e4, 0, 0.9e-9, true, true, false}};
    const gsl_Plane a(ORIGIN, Z);
    for (const Row& row : rows)
        for (const double side : {1.0, -1.0})
        {
            SCOPED_TRACE(row.what);
            const gsl_Plane b(gsl_Point(row.away, 0, side * row.offset), gsl_Vector(row.tilt, 0, 1) * side);
            EXPECT_TRUE(a.IsParallel(b) == row.parallel && b.IsParallel(a) == row.parallel &&
                        gsl_PlanesAreParallel(&a, &b) == row.parallel);
            EXPECT_NEAR(a.GetDistance(b), row.parallel ? row.offset + row.away * row.tilt : 0, 1e-18)
                << "or they meet";
            EXPECT_EQ(b.IsOn(a), row.on);
            EXPECT_EQ(a.IsOn(b), row.onBack);
        }
}
}
