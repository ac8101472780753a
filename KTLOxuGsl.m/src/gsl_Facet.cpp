#include <algorithm>
#include <gsl_Facet.h>

gsl_Facet::gsl_Facet(const gsl_Triple corners[3], const gsl_Triple& normal)
{
    std::copy_n(corners, 3, corner_);
    for (int side = 0; side < 3; ++side)
    {
        const gsl_Triple along = Along(side);
        length_[side] = gsl_Length3(along);
        inward_[side] = gsl_Cross3(normal, along);
        if (gsl_Dot3(inward_[side], corner_[OPPOSITE[side]] - corner_[START[side]]) < 0.0)
        {
            inward_[side] = -inward_[side];
        }
    }
}

bool gsl_Facet::IsNearSide(const gsl_Triple& p, const double area[3], double reach) const noexcept
{
    for (int side = 0; side < 3; ++side)
    {
        if (area[side] >= 0.0)
        {
            continue;
        }
        const gsl_Triple away = p - corner_[START[side]];
        const gsl_Triple along = Along(side);
        const double squared = length_[side] * length_[side];
        const double s = squared > 0.0 ? std::clamp(gsl_Dot3(away, along) / squared, 0.0, 1.0) : 0.0;
        const gsl_Triple off = away - along * s;
        if (gsl_Dot3(off, off) <= reach * reach)
        {
            return true;
        }
    }
    return false;
}

bool gsl_Facet::IsDegenerate(double leastSine) const noexcept
{
    const double area = gsl_Length3(gsl_Cross3(Along(0), Along(1)));
    return !(area > leastSine * length_[0] * length_[1]);
}
