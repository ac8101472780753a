#include <algorithm>
#include <cmath>
#include <gsl_CornerSource.h>
#include <gsl_TriTriDirDist.h>
#include <gsl_Util.h>

void gsl_CornerSource::Begin() noexcept
{
    leastSine_ = gsl_Util::Instance().ParallelTolerance();
}

void gsl_CornerSource::SetTransform(const gsl_Matrix& transform) noexcept
{
    double all[16];
    transform_ = transform;
    isMoved_ = !transform.IsIdentity();
    transform.AsArray(all);
    std::copy_n(all, 12, row_[0]);
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
        corners[i] = {work_[i].X(), work_[i].Y(), work_[i].Z()};
    }
}

gsl_Triple gsl_CornerSource::Moved(const gsl_Triple& p) const noexcept
{
    const auto on = [&](const double row[4]) { return row[0] * p.x + row[1] * p.y + row[2] * p.z + row[3]; };
    return {on(row_[0]), on(row_[1]), on(row_[2])};
}

bool gsl_CornerSource::Normal(const gsl_Triple corners[3], gsl_Triple& normal) const noexcept
{
    return gsl_UnitNormal3(corners[1] - corners[0], corners[2] - corners[1], leastSine_, normal);
}

double gsl_CornerSource::LargestTerm(double reach) const noexcept
{
    double largest = reach;
    for (int row = 0; isMoved_ && row < 3; ++row)
    {
        largest = std::max(
            largest, (std::abs(row_[row][0]) + std::abs(row_[row][1]) + std::abs(row_[row][2])) * reach +
                         std::abs(row_[row][3]));
    }
    return largest;
}
