#include <algorithm>
#include <cmath>
#include <gsl_CornerSource.h>
#include <gsl_TriTriDirDist.h>
#include <gsl_Util.h>

void gsl_CornerSource::Begin() noexcept
{
    leastSine_ = gsl_Util::Instance().ParallelTolerance();
}

void gsl_CornerSource::Fetch(int index, gsl_Triple corners[3])
{
    if (role_ == Role::FIXED)
    {
        search_.GetFixedTriangle(index, work_[0], work_[1], work_[2]);
    }
    else
    {
        search_.GetMovableTriangle(index, work_[0], work_[1], work_[2]);
    }
    for (int i = 0; i < 3; ++i)
    {
        corners[i] = gsl_TripleOf(work_[i]);
    }
    for (int i = 0; !transform_.IsIdentity() && i < 3; ++i)
    {
        corners[i] = Moved(corners[i]);
    }
}

gsl_Triple gsl_CornerSource::Moved(const gsl_Triple& p) const noexcept
{
    const double xyz[3] = {p.x, p.y, p.z};
    double moved[3];
    transform_.TransformCoordinates(xyz, moved);
    return {moved[0], moved[1], moved[2]};
}

bool gsl_CornerSource::Normal(const gsl_Triple corners[3], gsl_Triple& normal) const noexcept
{
    return gsl_UnitNormal3(corners[1] - corners[0], corners[2] - corners[1], leastSine_, normal);
}

double gsl_CornerSource::LargestTerm(double reach) const
{
    double largest = reach;
    for (int row = 0; !transform_.IsIdentity() && row < 3; ++row)
    {
        const auto size = [&](int column) { return std::abs(transform_(row, column)); };
        largest = std::max(largest, (size(0) + size(1) + size(2)) * reach + size(3));
    }
    return largest;
}
