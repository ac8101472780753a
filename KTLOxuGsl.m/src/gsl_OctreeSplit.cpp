#include <gsl_BBox.h>
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

gsl_OctreeSplit::gsl_OctreeSplit(const gsl_BBox& box)
{
    double low[3];
    double high[3];
    box.GetExtent(low, high);
    for (int axis = 0; axis < 3; ++axis)
    {
        bound_[axis][0] = low[axis];
        bound_[axis][1] = (low[axis] + high[axis]) * 0.5;
        bound_[axis][2] = high[axis];
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

bool gsl_OctreeSplit::IsSlotBox(int slot, const gsl_BBox& box) const
{
    double low[3];
    double high[3];
    box.GetExtent(low, high);
    for (int axis = 0; axis < 3; ++axis)
    {
        const Part part = PartOf(slot, axis);
        if (low[axis] != bound_[axis][part == UPPER ? 1 : 0] ||
            high[axis] != bound_[axis][part == LOWER ? 1 : 2])
        {
            return false;
        }
    }
    return true;
}

int gsl_OctreeSplit::FirstSlotHolding(const double low[3], const double high[3], int slots) const noexcept
{
    // On each axis by itself the lower half comes first, so the octant is the first one that holds all three
    // axes.
    int octant = 0;
    bool inOctant = true;
    int half = -1;
    for (int axis = 2; axis >= 0; --axis)
    {
        if (high[axis] <= bound_[axis][1])
        {
            half = OCTANTS + 2 * axis;
        }
        else if (low[axis] >= bound_[axis][1])
        {
            half = OCTANTS + 2 * axis + 1;
            octant |= 1 << axis;
        }
        else
        {
            inOctant = false;
        }
    }
    if (inOctant)
    {
        return octant;
    }
    return half < slots ? half : -1;
}
