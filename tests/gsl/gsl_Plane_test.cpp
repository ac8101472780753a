// Planes: what one without a normal is, and relations around their bounds.
#include <testing/GeometryTesting.h>

#include <gsl_DirMethod.h>
#include <gsl_Plane.h>
#include <gsl_Predicates.h>

namespace
{
using namespace geometry;

TEST(Plane, WithoutANormalIsOnlyItsPoint)
{
    const gsl_Plane plane(gsl_Point(0, 0, 2), Z);
    gsl_Plane picked;
    picked.SetParents(gsl_DirMethod::FROM_FACE, cow_List<int>{4});
    for (const gsl_Plane& bad : {gsl_Plane(), picked, gsl_Plane(ORIGIN, gsl_Vector(0, 0, 0.9e-6)),
                                 gsl_Plane(ORIGIN, gsl_Point(1, 1, 1), gsl_Point(2, 2, 2))})
    {
        EXPECT_TRUE(!bad.IsValid() && !bad.HasNormal() && bad.Method() == gsl_DirMethod::PLANE_INVALID);
        const gsl_Point p(3, 4, 0);
        gsl_Point out = UNTOUCHED;
        EXPECT_TRUE(bad.GetDistance(p) == 5.0 && p.GetSignedDistance(bad) == 5.0 &&
                    Same(p.ProjectOn(bad), ORIGIN) && !p.RayIntersect(X * -1, bad, out));
        EXPECT_EQ(bad.GetDistance(plane) + plane.GetDistance(bad), 0.0);
        EXPECT_FALSE(bad.IsOn(ORIGIN) || bad.IsOn(bad) || bad.IsOn(plane) || plane.IsOn(bad) ||
                     bad.IsParallel(bad) || bad.IsParallel(plane) || plane.IsParallel(bad));
    }
}

TEST(Plane, RelationsAroundTheirBounds)
{
    const struct
    {
        const char* what;
        double away, offset, tilt;
        bool parallel, on, onBack; // the second on the first, the first on the second
    } rows[] = {{"offset on the bound: inclusive", 0, 1e-6, 0, true, true, true},
                {"offset outside", 0, 1.1e-6, 0, true, false, false},
                {"tilt outside", 0, 0, 1.1e-9, false, false, false},
                // Which one's point is asked for decides.
                {"tilt inside, far away", 1e4, 0, 0.9e-9, true, true, false}};
    const gsl_Plane a(ORIGIN, Z);
    for (const auto& row : rows)
        for (const double side : {1.0, -1.0})
        {
            SCOPED_TRACE(row.what);
            const gsl_Plane b(gsl_Point(row.away, 0, side * row.offset), gsl_Vector(row.tilt, 0, 1) * side);
            EXPECT_TRUE(a.IsParallel(b) == row.parallel && b.IsParallel(a) == row.parallel &&
                        gsl_PlanesAreParallel(&a, &b) == row.parallel);
            EXPECT_NEAR(a.GetDistance(b), row.parallel ? row.offset + row.away * row.tilt : 0, 1e-18)
                << "or they meet";
            EXPECT_TRUE(b.IsOn(a) == row.on && a.IsOn(b) == row.onBack);
        }
}
}
