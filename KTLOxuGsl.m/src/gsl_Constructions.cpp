#include <cmath>
#include <gsl_Constructions.h>
#include <gsl_Predicates.h>
#include <gsl_Triple.h>
#include <gsl_Util.h>
#include <omu_PrimTuple.h>

namespace
{
gsl_Triple Numbers(omu_PrimTuple& numbers, bool threeD)
{
    gsl_Triple read;
    numbers.Begin();
    numbers.Get(read.x);
    numbers.Get(read.y);
    if (!threeD)
        numbers.Optional();
    numbers.Get(read.z);
    numbers.End();
    return read;
}
}

bool gsl_Transcribe3PointsIntoOriginAndAxes(bool rectangular, const gsl_Point& p1, const gsl_Point& p2,
                                            const gsl_Point& p3, gsl_Point& origin, gsl_Vector& x,
                                            gsl_Vector& y, gsl_Vector& z)
{
    // In the plane of the points `along` leads to p2 and `across` to the side of p3.
    gsl_Vector along(p1, p2);
    gsl_Vector normal;
    if (!along.Normalize() || !gsl_NormalToThreePoints(p1, p2, p3, normal))
        return false;
    gsl_Vector across = normal.CrossProduct(along);
    if (!across.Normalize())
        return false;
    origin = p1;
    x = rectangular ? along : across;
    y = rectangular ? across : normal;
    z = rectangular ? normal : along;
    return true;
}

bool gsl_ComputeCircumCircle(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3, gsl_Point& centre,
                             gsl_Vector& normal)
{
    gsl_Vector unit;
    if (!gsl_NormalToThreePoints(p1, p2, p3, unit))
        return false;
    const gsl_Vector b(p1, p2);
    const gsl_Vector c(p1, p3);
    const gsl_Vector n = b.CrossProduct(c);
    const gsl_Vector toCentre = c.DotProduct(c) * n.CrossProduct(b) + b.DotProduct(b) * c.CrossProduct(n);
    centre = p1 + toCentre.ScaledCopy(1.0 / (2.0 * n.DotProduct(n)));
    normal = unit;
    return true;
}

bool gsl_NormalizeEqn(double& a, double& b, double& c, double& d)
{
    const double length = std::hypot(std::hypot(a, b), c); // of three, libstdc++ 12 loses a NaN in the third
    if (!(length >= gsl_Util::Instance().LinearTolerance()))
        return false;
    a /= length;
    b /= length;
    c /= length;
    d /= length;
    return true;
}

gsl_Vector gsl_GetVector(omu_PrimTuple& numbers, bool threeD)
{
    const gsl_Triple v = Numbers(numbers, threeD);
    return {v.x, v.y, v.z};
}

gsl_Point gsl_GetPoint(omu_PrimTuple& numbers, bool threeD)
{
    const gsl_Triple p = Numbers(numbers, threeD);
    return {p.x, p.y, p.z};
}
