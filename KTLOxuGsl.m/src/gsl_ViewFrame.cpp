#include <cmath>
#include <gsl_Vector.h>
#include <gsl_ViewFrame.h>

gsl_ViewFrame::gsl_ViewFrame(const gsl_Triple& direction) : along(direction)
{
    // Across the coordinate axis that the direction leans on least the product is longest.
    const double x = std::abs(along.x);
    const double y = std::abs(along.y);
    const double z = std::abs(along.z);
    gsl_Triple axis{0.0, 0.0, 1.0};
    if (x <= y && x <= z)
    {
        axis = {1.0, 0.0, 0.0};
    }
    else if (y <= z)
    {
        axis = {0.0, 1.0, 0.0};
    }
    across1 = gsl_Cross3(along, axis);
    across1 = across1 * (1.0 / gsl_Length3(across1));
    across2 = gsl_Cross3(along, across1);
}

bool gsl_ViewFrame::Unit(const gsl_Vector& direction, gsl_Vector& unit)
{
    // Scaled first, so that the length of a tiny or huge vector neither vanishes nor overflows. A power of
    // two leaves the digits as they are.
    int exponent = 0;
    std::frexp(gsl_Largest3(gsl_TripleOf(direction)), &exponent);
    gsl_Vector scaled(std::ldexp(direction.X(), -exponent), std::ldexp(direction.Y(), -exponent),
                      std::ldexp(direction.Z(), -exponent));
    if (!std::isfinite(scaled.Magnitude()) || !scaled.Normalize(0.0))
    {
        return false;
    }
    unit = scaled;
    return true;
}
