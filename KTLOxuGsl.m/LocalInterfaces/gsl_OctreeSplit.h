#pragma once

#include <gsl_BBox.h>

/// How a node's box is split: the slots of gsl_ModOctreeNode, of which gsl_TriOctreeNode has the first eight.
///
/// Slots 0 to 7 are the octants about the centre m, slot = ix + 2 iy + 4 iz, i = 0 for [low, m] and 1 for [m,
/// high]. Slots 8 to 13 are the half boxes: 8 and 9 below and above m on x, 10 and 11 on y, 12 and 13 on z.
class gsl_OctreeSplit
{
public:
    static constexpr int OCTANTS = 8;
    static constexpr int SLOTS = 14;

    explicit gsl_OctreeSplit(const gsl_BBox& box) noexcept
        : bound_{{box.Low().X(), (box.Low().X() + box.High().X()) * 0.5, box.High().X()},
                 {box.Low().Y(), (box.Low().Y() + box.High().Y()) * 0.5, box.High().Y()},
                 {box.Low().Z(), (box.Low().Z() + box.High().Z()) * 0.5, box.High().Z()}}
    {}

    /// slot 0..13.
    gsl_BBox SlotBox(int slot) const;
    /// Exactly the same corners, unlike the equality of boxes.
    static bool IsSame(const gsl_BBox& a, const gsl_BBox& b);
    /// The first of the first `slots` slots whose box holds everything from low to high, bounds included, or
    /// -1. REQUIRES: the node's own box holds it.
    int FirstSlotHolding(const double low[3], const double high[3], int slots) const noexcept
    {
        // On each axis by itself the lower half comes first, so the octant is the first one that holds all
        // three axes.
        int octant = 0;
        bool inOctant = true;
        int half = SLOTS;
        for (int axis = 2; axis >= 0; --axis)
        {
            const bool below = high[axis] <= bound_[axis][1];
            const bool above = low[axis] >= bound_[axis][1];
            octant |= below ? 0 : 1 << axis;
            inOctant = inOctant && (below || above);
            half = below ? OCTANTS + 2 * axis : above ? OCTANTS + 2 * axis + 1 : half;
        }
        if (inOctant)
        {
            return octant;
        }
        return half < slots ? half : -1;
    }

private:
    double bound_[3][3]; // per axis: low, centre, high
};
