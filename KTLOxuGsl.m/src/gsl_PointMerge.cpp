#include <algorithm>
#include <gsl_PointMerge.h>

void gsl_MergePointsWithinAcisTol(const cls_xo1DArrayList<gsl_Point>& in, cls_xo1DArrayList<gsl_Point>& out)
{
    cls_xo1DArrayList<gsl_Point> kept;
    for (const gsl_Point& point : in)
        if (std::none_of(kept.begin(), kept.end(),
                         [&](const gsl_Point& former) { return point.IsOn(former); }))
            kept.Append(point);
    out = std::move(kept);
}
