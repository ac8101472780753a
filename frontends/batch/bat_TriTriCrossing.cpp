#include <algorithm>
#include <bat_SeparatingAxes.h>
#include <bat_TriTriCrossing.h>
#include <limits>

namespace
{
using Vec = std::array<double, 3>;

Vec Corner(const bat_Corners& triangle, std::size_t i)
{
    return {triangle[3 * i], triangle[3 * i + 1], triangle[3 * i + 2]};
}

Vec Minus(const Vec& a, const Vec& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Vec Cross(const Vec& a, const Vec& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double Dot(const Vec& a, const Vec& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

// The shifts under which the triangles meet form a convex body (their Minkowski difference) whose faces are
// normal to the separating axes: the way out is the shortest of the ways through a face.
double WayOut(const bat_SeparatingAxes::Axis& axis)
{
    return static_cast<double>(std::min(axis.aHigh - axis.bLow, axis.bHigh - axis.aLow));
}

Vec Between(const Vec& a, const Vec& b, double t)
{
    return {a[0] + t * (b[0] - a[0]), a[1] + t * (b[1] - a[1]), a[2] + t * (b[2] - a[2])};
}
}

double bat_TriTriCrossing::Depth() const
{
    double depth = std::numeric_limits<double>::max();
    bat_SeparatingAxes(a_, b_).Each([&](const bat_SeparatingAxes::Axis& axis) {
        depth = std::min(depth, WayOut(axis));
        return true;
    });
    return depth;
}

bool bat_TriTriCrossing::IsBeyond(double tolerance) const
{
    return bat_SeparatingAxes(a_, b_).Each(
        [tolerance](const bat_SeparatingAxes::Axis& axis) { return WayOut(axis) > tolerance; });
}

std::array<double, 3> bat_TriTriCrossing::Middle() const
{
    const Vec origin = Corner(b_, 0);
    const Vec normal = Cross(Minus(Corner(b_, 1), origin), Minus(Corner(b_, 2), origin));

    // Where a's edges pass through b's plane: the two ends of a's part of the line.
    std::array<Vec, 2> ends = {Corner(a_, 0), Corner(a_, 0)};
    std::size_t found = 0;
    for (std::size_t i = 0; i < 3 && found < 2; ++i)
    {
        const Vec from = Corner(a_, i);
        const Vec to = Corner(a_, (i + 1) % 3);
        const double below = Dot(Minus(from, origin), normal);
        const double above = Dot(Minus(to, origin), normal);
        if ((below < 0.0) != (above < 0.0))
            ends[found++] = Between(from, to, below / (below - above));
    }

    // Cut to the part inside b, side by side.
    double low = 0.0;
    double high = 1.0;
    for (std::size_t i = 0; i < 3; ++i)
    {
        const Vec from = Corner(b_, i);
        const Vec inward = Cross(normal, Minus(Corner(b_, (i + 1) % 3), from));
        const double first = Dot(Minus(ends[0], from), inward);
        const double second = Dot(Minus(ends[1], from), inward);
        if (first < 0.0 && second > first)
            low = std::max(low, first / (first - second));
        else if (second < 0.0 && first > second)
            high = std::min(high, first / (first - second));
    }
    return Between(ends[0], ends[1], 0.5 * (low + high));
}
