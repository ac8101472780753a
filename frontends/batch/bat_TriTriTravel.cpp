#include <algorithm>
#include <bat_TriTriTravel.h>
#include <cmath>
#include <limits>

bat_TriTriTravel::bat_TriTriTravel(const bat_Corners& moving, const bat_Corners& standing,
                                   const gsl_Vector& direction)
    : axes_(moving, standing), direction_(direction)
{}

template <typename Reach>
std::optional<bat_TriTriTravel::Interval> bat_TriTriTravel::Meet(Reach reach) const
{
    using Real = bat_SeparatingAxes::Real;
    Real first = -std::numeric_limits<Real>::infinity();
    Real last = std::numeric_limits<Real>::infinity();
    const bool meets = axes_.Each([&](const bat_SeparatingAxes::Axis& axis) {
        const Real speed = axis.x * direction_.X() + axis.y * direction_.Y() + axis.z * direction_.Z();
        const Real extra = reach(speed);
        const Real toMeet = axis.bLow - axis.aHigh - extra;
        const Real toPass = axis.bHigh - axis.aLow + extra;
        if (speed == 0)
            return toMeet <= 0 && toPass >= 0;
        first = std::max(first, (speed > 0 ? toMeet : toPass) / speed);
        last = std::min(last, (speed > 0 ? toPass : toMeet) / speed);
        return first <= last;
    });
    if (!meets)
        return std::nullopt;
    return Interval{static_cast<double>(first), static_cast<double>(last)};
}

std::optional<bat_TriTriTravel::Interval> bat_TriTriTravel::Grown(double reach) const
{
    return Meet([reach](bat_SeparatingAxes::Real) { return reach; });
}

std::optional<bat_TriTriTravel::Interval> bat_TriTriTravel::Shrunk(double reach) const
{
    // Only the part of an axis that lies across the direction sees a sideways shift.
    return Meet([reach](bat_SeparatingAxes::Real speed) {
        return -reach * std::sqrt(std::max<bat_SeparatingAxes::Real>(0, 1 - speed * speed));
    });
}
