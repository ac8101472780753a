#pragma once

#include <gsl_Triple.h>

class gsl_Vector;

/// Right-handed frame that looks along a direction: two axes of the plane across it, and itself.
struct gsl_ViewFrame
{
    gsl_Triple across1;
    gsl_Triple across2;
    gsl_Triple along;

    /// REQUIRES: a unit direction. Along a coordinate axis the frame's components are exactly 0 and 1.
    explicit gsl_ViewFrame(const gsl_Triple& direction);

    /// The unit vector of a direction of any length above zero, however tiny or huge. false, and unit
    /// unchanged, for one that has no length or is not finite.
    static bool Unit(const gsl_Vector& direction, gsl_Vector& unit);
};
