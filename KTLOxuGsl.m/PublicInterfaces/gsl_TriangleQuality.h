#pragma once

#include <gsl_Point.h>
#include <oxu_Export.h>
#include <uti_Coord3D.h>

// How large and how well shaped a triangle is. Corners are three coordinates each, in model units.

/// Area of the triangle a, b, c. With planar half the z component of (b - a) x (c - a): signed, negative for
/// a clockwise triangle; z is not read then. Without it half the length of the cross product.
///
/// In single precision on purpose, widened at the end: edges, products and the root are rounded to float, so
/// that the last 9 digits of the double mean nothing and edges from about 1e19 on overflow.
OXU_EXPORT double gsl_ComputeAreaTri(const double* a, const double* b, const double* c, bool planar);
OXU_EXPORT double gsl_ComputeAreaTriByCoords(uti_Coord3D a, uti_Coord3D b, uti_Coord3D c, bool planar);
OXU_EXPORT double gsl_ComputeAreaTriByPts(const gsl_Point& a, const gsl_Point& b, const gsl_Point& c,
                                          bool planar);

/// Radius of the circle through the corners, the product of the sides over four times the area, in double
/// precision with the area that is given. Infinite or not-a-number for an area of 0.
OXU_EXPORT double gsl_ComputeRadiusTri(const double* a, const double* b, const double* c, double area);

/// The area as a share of that of the equilateral triangle in the same circle: 1 for an equilateral triangle,
/// towards 0 for slivers, never above 1. 0 where the area is below gsl_Util's squared tolerance (so for every
/// clockwise triangle with planar) or the radius below its linear tolerance, both absolute: an equilateral
/// triangle with sides of 1e-6 has 0. 0 also where area or radius is not a number. planar ignores z in the
/// area alone.
OXU_EXPORT double gsl_ComputeShapeFactorTri(const double* a, const double* b, const double* c, bool planar);
OXU_EXPORT double gsl_ComputeShapeFactorTriByCoords(uti_Coord3D a, uti_Coord3D b, uti_Coord3D c, bool planar);
OXU_EXPORT double gsl_ComputeShapeFactorTriByPnts(const gsl_Point& a, const gsl_Point& b, const gsl_Point& c,
                                                  bool planar);
