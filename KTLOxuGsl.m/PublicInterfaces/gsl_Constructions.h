#pragma once

#include <gsl_Point.h>
#include <gsl_Vector.h>
#include <oxu_Export.h>

class omu_PrimTuple;

// Frames, circles and planes from three points or from numbers. What answers false leaves its results as they
// were. Three points are collinear as gsl_NormalToThreePoints says.

/// A right-handed frame of unit axes at p1. rectangular: x points to p2, and p3 lies in the plane of x and y
/// on the side of y. Otherwise: z points to p2, and p3 lies in the plane of z and x on the side of x, as for
/// a cylinder about z. false when p1 and p2 are closer than gsl_Util's linear tolerance, or the three are
/// collinear.
[[nodiscard]] OXU_EXPORT bool gsl_Transcribe3PointsIntoOriginAndAxes(bool rectangular, const gsl_Point& p1,
                                                                     const gsl_Point& p2, const gsl_Point& p3,
                                                                     gsl_Point& origin, gsl_Vector& x,
                                                                     gsl_Vector& y, gsl_Vector& z);

/// The centre of the circle through three points and the unit normal of their plane, about which p1, p2, p3
/// run anticlockwise. false when they are collinear.
[[nodiscard]] OXU_EXPORT bool gsl_ComputeCircumCircle(const gsl_Point& p1, const gsl_Point& p2,
                                                      const gsl_Point& p3, gsl_Point& centre,
                                                      gsl_Vector& normal);

/// Scales the plane a x + b y + c z + d = 0 so that (a, b, c) has length 1. false when that is shorter than
/// gsl_Util's linear tolerance.
[[nodiscard]] OXU_EXPORT bool gsl_NormalizeEqn(double& a, double& b, double& c, double& d);

/// A vector, or a point, from a sequence of numbers that a script gave: three with threeD, two or three
/// without, z being 0 when it is not given. Reads the tuple from its beginning to its end; a fault raises
/// omu_ArgTypeErrorException or omu_ArgNumberErrorException.
OXU_EXPORT gsl_Vector gsl_GetVector(omu_PrimTuple& numbers, bool threeD);
OXU_EXPORT gsl_Point gsl_GetPoint(omu_PrimTuple& numbers, bool threeD);
