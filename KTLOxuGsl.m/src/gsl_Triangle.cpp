#include <gsl_Plane.h>
#include <gsl_Segment.h>
#include <gsl_Triangle.h>
#include <gsl_Util.h>
#include <nex_Raise.h>
#include <utility>

namespace
{
constexpr int CORNERS = 3;

int Checked(int index)
{
    if (index < 0 || index >= CORNERS)
    {
        nex_RaiseRange(index, CORNERS, "KTLOxuGsl.m/src/gsl_Triangle", __LINE__);
    }
    return index;
}
}

void gsl_Triangle::SetPoints(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3)
{
    *this = gsl_Triangle(p1, p2, p3);
}

void gsl_Triangle::Reverse()
{
    std::swap(corner_[1], corner_[2]);
}

const gsl_Point& gsl_Triangle::Point(int corner) const
{
    return corner_[Checked(corner)];
}

double gsl_Triangle::Area() const
{
    return 0.5 * (corner_[1] - corner_[0]).CrossProduct(corner_[2] - corner_[0]).Magnitude();
}

gsl_BBox gsl_Triangle::GetBBox() const
{
    gsl_BBox box(corner_[0]);
    box.Add(corner_[1]);
    box.Add(corner_[2]);
    return box;
}

void gsl_Triangle::GetExtent(double low[3], double high[3]) const noexcept
{
    GetBBox().GetExtent(low, high);
}

bool gsl_Triangle::Contains(const gsl_Point& p) const
{
    const gsl_Vector normal = Normal();
    return std::abs((p - corner_[0]).DotProduct(normal)) <= gsl_Util::Instance().LinearTolerance() &&
           ContainsProjectedPoint(p);
}

bool gsl_Triangle::ContainsProjectedPoint(const gsl_Point& p) const
{
    gsl_Point foot;
    if (!ProjectPoint(p, foot))
    {
        return false;
    }
    bool inside = true;
    for (int side = 0; side < CORNERS && inside; ++side)
    {
        inside = TestProjectedPointAgainstSide(foot, side) >= 0.0;
    }
    // Near a side means near the side itself, not near the line through it: at the tip of a needle that line
    // runs close to places far outside.
    for (int side = 0; side < CORNERS && !inside; ++side)
    {
        gsl_Point closest;
        inside = ComputeClosestPointOnSide(foot, side, closest) <= gsl_Util::Instance().LinearTolerance();
    }
    return inside;
}

double gsl_Triangle::TestProjectedPointAgainstSide(const gsl_Point& p, int side) const
{
    const gsl_Point& start = corner_[Checked(side)];
    gsl_Vector inward = Normal().CrossProduct(corner_[(side + 1) % CORNERS] - start);
    return inward.Normalize(0.0) ? (p - start).DotProduct(inward) : 0.0;
}

bool gsl_Triangle::Project(const gsl_Plane& plane, const gsl_Vector& dir, gsl_Triangle& out) const
{
    const double slope = plane.Direction().DotProduct(dir);
    const double reach = dir.Magnitude();
    if (!plane.HasNormal() || reach == 0.0 ||
        std::abs(slope) < gsl_Util::Instance().ParallelTolerance() * reach)
    {
        return false;
    }
    const auto onPlane = [&](const gsl_Point& corner) {
        return corner - dir * (corner.GetSignedDistance(plane) / slope);
    };
    out.SetPoints(onPlane(corner_[0]), onPlane(corner_[1]), onPlane(corner_[2]));
    return true;
}

bool gsl_Triangle::ProjectPoint(const gsl_Point& p, gsl_Point& out) const
{
    const gsl_Vector normal = Normal();
    if (normal.Magnitude() == 0.0)
    {
        return false;
    }
    out = p - normal * (p - corner_[0]).DotProduct(normal);
    return true;
}

double gsl_Triangle::ComputeClosestPointOnSide(const gsl_Point& p, int side, gsl_Point& out) const
{
    const gsl_Segment segment(corner_[Checked(side)], corner_[(side + 1) % CORNERS]);
    const gsl_Point closest = segment.ClosestPoint(p);
    const double distance = p.GetDistance(closest);
    out = closest;
    return distance;
}
