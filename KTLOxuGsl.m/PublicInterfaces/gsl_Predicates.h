#pragma once

#include <oxu_Export.h>

class gsl_Dot;
class gsl_Plane;
class gsl_Point;
class gsl_StLine;
class gsl_Vector;

// Questions about picked geometry. Pointers are looked at and must not be null.

/// gsl_Point::IsOn: closer than the linear tolerance, strict.
OXU_EXPORT bool gsl_PointsAreCoincident(const gsl_Dot* a, const gsl_Dot* b);

/// Parallel in either sense, sine below gsl_Vector::PARALLEL_SINE.
OXU_EXPORT bool gsl_LinesAreParallel(const gsl_StLine* a, const gsl_StLine* b);

/// gsl_StLine::IsSkewed: more than the linear tolerance apart, parallel or not.
OXU_EXPORT bool gsl_LinesAreSkew(const gsl_StLine* a, const gsl_StLine* b);

/// gsl_Plane::IsParallel.
OXU_EXPORT bool gsl_PlanesAreParallel(const gsl_Plane* a, const gsl_Plane* b);

/// normal = gsl_Vector(p1, p2, p3), written in any case. false when it is the zero vector: the points are
/// collinear.
[[nodiscard]] OXU_EXPORT bool gsl_NormalToThreePoints(const gsl_Point& p1, const gsl_Point& p2,
                                                      const gsl_Point& p3, gsl_Vector& normal);

/// The three dots have no normal.
OXU_EXPORT bool gsl_ThreePointsColinear(const gsl_Dot* a, const gsl_Dot* b, const gsl_Dot* c);
