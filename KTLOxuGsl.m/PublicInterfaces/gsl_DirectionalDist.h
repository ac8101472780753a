#pragma once

#include <oxu_Export.h>

class gsl_Plane;
class gsl_Point;
class gsl_Vector;

/// How far one primitive can travel along a direction before it touches another, pair by pair: what
/// gsl_TriTriDirDist does for sets of triangles.
///
/// a travels along dir, of any length above zero, towards b, which stands still. The distance is signed along
/// dir: what lies behind by more than the tolerance is no contact, what crosses at the start has distance 0.
/// false, and outputs unchanged, when the two never meet, or dir has no length. contact, which may be null,
/// receives the place on b where they touch.
///
/// flags, null for both: flags[0] tests the corners of a against b, flags[1] the corners of b against a;
/// where edges cross is looked for with both alone.

/// Two triangles; tol in place of gsl_Util's linear tolerance. false too for a triangle whose corners have no
/// normal.
[[nodiscard]] OXU_EXPORT bool gsl_TriTriMinDirectionalDist(const gsl_Vector& dir, const gsl_Point& a1,
                                                           const gsl_Point& a2, const gsl_Point& a3,
                                                           const gsl_Point& b1, const gsl_Point& b2,
                                                           const gsl_Point& b3, const bool* flags, double tol,
                                                           gsl_Point* contact, double& dist);

/// Two segments in a plane that holds dir: the ends of each against the other. What lies off that plane by
/// more than tol does not meet.
[[nodiscard]] OXU_EXPORT bool gsl_InPlaneSegSegMinDirectionalDist(const gsl_Vector& dir, const gsl_Point& a1,
                                                                  const gsl_Point& a2, const gsl_Point& b1,
                                                                  const gsl_Point& b2, const bool* flags,
                                                                  double tol, gsl_Point* contact,
                                                                  double& dist);

/// A segment, two points, against the three sides of a triangle, three points, in the plane given, which
/// holds dir (gsl_Vector::IsOrthogonal; else false); 0 when the segment starts inside. axis is the
/// coordinate, 0 to 2, dropped for the test of inside; with any other value it is the largest component of
/// the plane's normal.
[[nodiscard]] OXU_EXPORT bool gsl_InPlaneLinTriMinDirectionalDist(const gsl_Point* seg, const gsl_Point* tri,
                                                                  const gsl_Plane& plane,
                                                                  const gsl_Vector& dir, int axis,
                                                                  gsl_Point* contact, double& dist);

/// Two triangles, three points each, in one plane that holds dir: every side against every side; 0 when one
/// contains a corner of the other. axis as above, the normal being that of triB, or of triA where triB has
/// none.
[[nodiscard]] OXU_EXPORT bool gsl_InPlaneTriTriMinDirectionalDist(const gsl_Point* triA,
                                                                  const gsl_Point* triB,
                                                                  const gsl_Vector& dir, int axis,
                                                                  gsl_Point* contact, double& dist);
