#include <algorithm>
#include <bat_SeparatingAxes.h>
#include <cmath>

bat_SeparatingAxes::bat_SeparatingAxes(const bat_Corners& a, const bat_Corners& b)
{
    for (std::size_t i = 0; i < 3; ++i)
    {
        corner_[i] = {Real(a[3 * i]) - a[0], Real(a[3 * i + 1]) - a[1], Real(a[3 * i + 2]) - a[2]};
        corner_[3 + i] = {Real(b[3 * i]) - a[0], Real(b[3 * i + 1]) - a[1], Real(b[3 * i + 2]) - a[2]};
    }
    for (std::size_t i = 0; i < 6; ++i)
    {
        const Vec& from = corner_[i];
        const Vec& to = corner_[i % 3 == 2 ? i - 2 : i + 1];
        edge_[i] = {to.x - from.x, to.y - from.y, to.z - from.z};
    }
}

bool bat_SeparatingAxes::Measure(const Vec& direction, Axis& axis) const
{
    const Real largest = std::max({std::abs(direction.x), std::abs(direction.y), std::abs(direction.z)});
    if (!(largest > 0))
        return false;
    // By the largest component first: squares of small edges' products would vanish.
    const Real x = direction.x / largest;
    const Real y = direction.y / largest;
    const Real z = direction.z / largest;
    const Real length = std::sqrt(x * x + y * y + z * z);
    axis.x = x / length;
    axis.y = y / length;
    axis.z = z / length;
    std::array<Real, 6> at;
    for (std::size_t i = 0; i < 6; ++i)
        at[i] = corner_[i].x * axis.x + corner_[i].y * axis.y + corner_[i].z * axis.z;
    axis.aLow = std::min({at[0], at[1], at[2]});
    axis.aHigh = std::max({at[0], at[1], at[2]});
    axis.bLow = std::min({at[3], at[4], at[5]});
    axis.bHigh = std::max({at[3], at[4], at[5]});
    return true;
}
