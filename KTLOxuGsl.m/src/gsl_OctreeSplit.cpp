#include <gsl_OctreeSplit.h>

namespace
{
// Which part of an axis a slot covers.
enum Part { LOWER, UPPER, WHOLE };

Part PartOf(int slot, int axis)
{
    if (slot < gsl_OctreeSplit::OCTANTS)
    {
        return ((slot >> axis) & 1) == 0 ? LOWER : UPPER;
    }
    const int half = slot - gsl_OctreeSplit::OCTANTS;
    if (half / 2 != axis)
    {
        return WHOLE;
    }
    return half % 2 == 0 ? LOWER : UPPER;
}
}

gsl_BBox gsl_OctreeSplit::SlotBox(int slot) const
{
    double low[3];
    double high[3];
    for (int axis = 0; axis < 3; ++axis)
    {
        const Part part = PartOf(slot, axis);
        low[axis] = bound_[axis][part == UPPER ? 1 : 0];
        high[axis] = bound_[axis][part == LOWER ? 1 : 2];
    }
    return {gsl_Point(low), gsl_Point(high)};
}

bool gsl_OctreeSplit::IsSame(const gsl_BBox& a, const gsl_BBox& b)
{
    const auto same = [](const gsl_Point& p, const gsl_Point& q) {
        return p.X() == q.X() && p.Y() == q.Y() && p.Z() == q.Z();
    };
    return same(a.Low(), b.Low()) && same(a.High(), b.High());
}
