#pragma once

#include <gsl_Facet.h>
#include <gsl_Triple.h>

/// All that the exact part of the pair stage needs of a triangle; made by gsl_PairStage for one direction.
///
/// The corners stand in lexicographic order, so that the answer of a pair does not depend on the order in
/// which a triangle's corners were listed, and reversing it changes nothing.
struct gsl_StageView
{
    gsl_Triple corner[3];
    gsl_Triple origin;        ///< the corner listed first
    gsl_Triple normal;        ///< unit; its sense has no meaning
    double cosine = 0.0;      ///< normal times direction: 0 for a triangle upright along the direction
    double rounding = 0.0;    ///< how far off rounding may have put a coordinate in across
    double across[3][2] = {}; ///< the corners seen along the direction
    double turn = 1.0;        ///< 1 when they run counter-clockwise there, else -1
    gsl_Facet facet;          ///< corners and sides relative to the origin
};
