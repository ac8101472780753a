#pragma once

#include <gsl_Extent.h>
#include <gsl_Triple.h>

/// When a box that travels along a direction first meets a box that stands still.
///
/// On each axis the travels at which the two overlap are an interval; the boxes meet where all three
/// intervals do (a ray against the Minkowski sum of the boxes; A. Williams et al., "An efficient and robust
/// ray-box intersection algorithm", 2005). Exact for boxes, and monotone to the last bit: larger boxes or a
/// larger slack never meet later. The search rests on that: what a box is refused, everything inside it would
/// be refused as well.
class gsl_SweptBox
{
public:
    /// REQUIRES: a unit vector.
    explicit gsl_SweptBox(const gsl_Triple& direction);

    /// Smallest travel >= 0 at which the boxes, each grown by half of slack on every side, share a point.
    /// false, and travel unchanged, when they never do or only behind; an empty box meets nothing.
    bool Meet(const gsl_Extent& movable, const gsl_Extent& fixed, double slack, double& travel) const noexcept
    {
        double enter = std::numeric_limits<double>::lowest();
        double leave = std::numeric_limits<double>::max();
        for (int axis = 0; axis < 3; ++axis)
        {
            const double toTouch = fixed.low[axis] - movable.high[axis] - slack;
            const double toPass = fixed.high[axis] - movable.low[axis] + slack;
            if (perUnit_[axis] == 0.0)
            {
                if (toTouch > 0.0 || toPass < 0.0)
                {
                    return false;
                }
                continue;
            }
            const bool forth = perUnit_[axis] > 0.0;
            enter = std::max(enter, (forth ? toTouch : toPass) * perUnit_[axis]);
            leave = std::min(leave, (forth ? toPass : toTouch) * perUnit_[axis]);
        }
        if (!(enter <= leave && leave >= 0.0))
        {
            return false;
        }
        travel = std::max(0.0, enter); // in this order -0 becomes 0
        return true;
    }

    /// The slack for boxes whose coordinates, or the terms that they were added up from, stay within largest:
    /// contact is accepted within tolerance on both sides, and rounding may have put what is in a box beside
    /// it.
    static double Slack(double largest, double tolerance) noexcept;

private:
    double perUnit_[3]; // travel per unit of way on the axis, 0 where the direction does not move along it
};
