#pragma once

#include <gsl_Triple.h>

struct gsl_StageView;

/// A triangle as the pair stage takes it, for one direction: what decides most pairs, in little room.
struct gsl_StageTriangle
{
    const gsl_Triple* corner = nullptr; ///< three, in the order listed, owned by whoever made this
    gsl_Triple normal;                  ///< unit
    double cosine = 0.0; ///< normal times direction: 0 for a triangle upright along the direction
    gsl_Triple rise; ///< travel from the plane per place: normal / cosine; not for triangles nearly upright
    double level = 0.0;     ///< rise times any place of the plane
    double perCosine = 0.0; ///< 1 / |cosine|, 0 for triangles nearly upright
    double low = 0.0;       ///< lowest and highest corner along the direction, up to rounding
    double high = 0.0;
    double rounding = 0.0;                       ///< how far off rounding may have put them
    mutable const gsl_StageView* view = nullptr; ///< the rest, once it was needed
};
