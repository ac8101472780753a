#include <cmath>
#include <gsl_BBox.h>
#include <gsl_Extent.h>
#include <gsl_Matrix.h>

gsl_Extent::gsl_Extent(const gsl_BBox& box)
{
    if (!box.IsEmpty())
    {
        box.GetExtent(low, high);
    }
}

gsl_Extent::gsl_Extent(const gsl_BBox& box, const gsl_Matrix& transform)
{
    gsl_BBox moved = box;
    moved.Transform(transform);
    *this = gsl_Extent(moved);
}

double gsl_Extent::Reach() const noexcept
{
    double reach = 0.0;
    for (int axis = 0; axis < 3; ++axis)
    {
        reach = std::max({reach, std::abs(low[axis]), std::abs(high[axis])});
    }
    return reach;
}
