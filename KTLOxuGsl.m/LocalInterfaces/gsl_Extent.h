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
    /// The largest |coordinate|; meaningless for an empty box.
    double Reach() const noexcept;

private:
    void AddOnAxis(int axis, double value) noexcept
    {
        low[axis] = std::min(low[axis], value);
        high[axis] = std::max(high[axis], value);
    }
};
