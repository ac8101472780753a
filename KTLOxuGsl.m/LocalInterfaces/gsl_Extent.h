#pragma once

#include <algorithm>
#include <gsl_Triple.h>
#include <limits>

class gsl_BBox;
class gsl_Matrix;

/// Axis-aligned box as the search keeps it: six doubles. Made empty: low is the largest double and high the
/// lowest, so that the first Add of anything sets it.
struct gsl_Extent
{
    double low[3] = {std::numeric_limits<double>::max(), std::numeric_limits<double>::max(),
                     std::numeric_limits<double>::max()};
    double high[3] = {std::numeric_limits<double>::lowest(), std::numeric_limits<double>::lowest(),
                      std::numeric_limits<double>::lowest()};

    gsl_Extent() = default;
    explicit gsl_Extent(const gsl_BBox& box);
    /// The box of the eight transformed corners of box.
    gsl_Extent(const gsl_BBox& box, const gsl_Matrix& transform);

    void Add(const gsl_Triple& p) noexcept
    {
        AddOnAxis(0, p.x);
        AddOnAxis(1, p.y);
        AddOnAxis(2, p.z);
    }
    void Add(const gsl_Extent& other) noexcept
    {
        for (int axis = 0; axis < 3; ++axis)
        {
            low[axis] = std::min(low[axis], other.low[axis]);
            high[axis] = std::max(high[axis], other.high[axis]);
        }
    }

    bool IsEmpty() const noexcept { return !(low[0] <= high[0] && low[1] <= high[1] && low[2] <= high[2]); }
    /// Sum of the three edges: what decides which of two boxes is opened first.
    double Girth() const noexcept { return (high[0] - low[0]) + (high[1] - low[1]) + (high[2] - low[2]); }
    /// Bounds on the height along a direction of every place in the box, that hold for heights computed by
    /// gsl_Dot3 to the last bit.
    double Floor(const gsl_Triple& along) const noexcept
    {
        return gsl_Dot3(Farthest(along, high, low), along);
    }
    double Ceiling(const gsl_Triple& along) const noexcept
    {
        return gsl_Dot3(Farthest(along, low, high), along);
    }
    /// The largest |coordinate|; meaningless for an empty box.
    double Reach() const noexcept;

private:
    // The corner that a way along each axis leads to.
    static gsl_Triple Farthest(const gsl_Triple& way, const double back[3], const double forth[3]) noexcept
    {
        return {(way.x < 0.0 ? back : forth)[0], (way.y < 0.0 ? back : forth)[1],
                (way.z < 0.0 ? back : forth)[2]};
    }
    void AddOnAxis(int axis, double value) noexcept
    {
        low[axis] = std::min(low[axis], value);
        high[axis] = std::max(high[axis], value);
    }
};
