#pragma once

#include <gsl_Triple.h>

/// A triangle in its own plane, asked whether it holds a place there.
///
/// Side 0 runs from corner 0 to 1, side 1 from 1 to 2, side 2 from 0 to 2. Places are given relative to
/// whatever the corners are.
class gsl_Facet
{
public:
    static constexpr int START[3] = {0, 1, 0};
    static constexpr int END[3] = {1, 2, 2};
    static constexpr int OPPOSITE[3] = {2, 0, 1};

    gsl_Facet() = default;
    /// REQUIRES: the corners lie on a plane with that unit normal.
    gsl_Facet(const gsl_Triple corners[3], const gsl_Triple& normal);

    const gsl_Triple& Corner(int i) const noexcept { return corner_[i]; }
    gsl_Triple Along(int side) const noexcept { return corner_[END[side]] - corner_[START[side]]; }
    double Length(int side) const noexcept { return length_[side]; }

    /// Signed distance from the side's line times the side's length, positive inside.
    double AreaAt(const gsl_Triple& p, int side) const noexcept
    {
        return gsl_Dot3(p - corner_[START[side]], inward_[side]);
    }
    /// p, a point of the plane, lies inside all three sides or within reach of a side. A side ends at its
    /// corners: at the tip of a needle the lines of its sides run close to places far outside.
    bool Holds(const gsl_Triple& p, double reach) const noexcept
    {
        const double area[3] = {AreaAt(p, 0), AreaAt(p, 1), AreaAt(p, 2)};
        return Holds(p, area, reach);
    }
    /// The same with AreaAt for the three sides.
    bool Holds(const gsl_Triple& p, const double area[3], double reach) const noexcept
    {
        if (area[0] >= 0.0 && area[1] >= 0.0 && area[2] >= 0.0)
        {
            return true;
        }
        return area[0] >= -reach * length_[0] && area[1] >= -reach * length_[1] &&
               area[2] >= -reach * length_[2] && IsNearSide(p, area, reach);
    }
    /// Two of the sides meet at a sine of leastSine or less: a segment, for what is asked here.
    bool IsDegenerate(double leastSine) const noexcept;

private:
    bool IsNearSide(const gsl_Triple& p, const double area[3], double reach) const noexcept;

    gsl_Triple corner_[3];
    gsl_Triple inward_[3];
    double length_[3] = {};
};
