#include <gsl_Dot.h>
#include <gsl_Plane.h>
#include <gsl_Predicates.h>
#include <gsl_StLine.h>
#include <gsl_Util.h>

bool gsl_PointsAreCoincident(const gsl_Dot* a, const gsl_Dot* b)
{
    return a->GetPoint().IsOn(b->GetPoint());
}

bool gsl_LinesAreParallel(const gsl_StLine* a, const gsl_StLine* b)
{
    return a->Direction().IsOn(b->Direction(), gsl_Vector::PARALLEL_SINE);
}

bool gsl_LinesAreSkew(const gsl_StLine* a, const gsl_StLine* b)
{
    return a->IsSkewed(*b);
}

bool gsl_PlanesAreParallel(const gsl_Plane* a, const gsl_Plane* b)
{
    return a->IsParallel(*b);
}

bool gsl_NormalToThreePoints(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3,
                             gsl_Vector& normal)
{
    normal = gsl_Vector(p1, p2, p3);
    return normal.Magnitude() > gsl_Util::Instance().LinearTolerance();
}

bool gsl_ThreePointsColinear(const gsl_Dot* a, const gsl_Dot* b, const gsl_Dot* c)
{
    gsl_Vector normal(0.0, 0.0, 1.0);
    return !gsl_NormalToThreePoints(a->GetPoint(), b->GetPoint(), c->GetPoint(), normal);
}
