#pragma once

#include <cls_xo1DArrayList.h>
#include <gsl_Point.h>
#include <oxu_Export.h>

/// The points of `in` without those that are on an earlier one that was kept (gsl_Point::IsOn), in the order
/// of `in`; the first point of a cluster stands for it. Being on each other is not transitive: of three
/// points in a row the middle one goes, and both others stay. `out` is replaced, and may be `in` itself.
/// Every point is held against all that were kept: quadratic in their number.
OXU_EXPORT void gsl_MergePointsWithinAcisTol(const cls_xo1DArrayList<gsl_Point>& in,
                                             cls_xo1DArrayList<gsl_Point>& out);
