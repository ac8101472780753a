#pragma once

#include <gsl_Triple.h>

/// Right-handed frame that looks along a direction: two axes of the plane across it, and itself.
struct gsl_ViewFrame
{
    gsl_Triple across1;
    gsl_Triple across2;
    gsl_Triple along;

    /// REQUIRES: a unit direction. Along a coordinate axis the frame's components are exactly 0 and 1.
    explicit gsl_ViewFrame(const gsl_Triple& direction);
};
