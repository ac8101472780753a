#include <vwr_FeatureEdges.h>
#include <vwr_Part.h>
#include <vwr_Viewport.h>

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace
{
constexpr double CREASE_COSINE = 0.86602540378443865; // 30 degrees

struct Normal
{
    double x, y, z;
};

// A side of a triangle, from the lower to the higher of the two welded corners.
struct Side
{
    std::uint64_t corners;
    std::uint32_t triangle;
    bool forward;
};

std::array<double, 3> Coordinates(const gsl_Point& p)
{
    return {p.X(), p.Y(), p.Z()};
}

// For each point the first one with its coordinates.
std::vector<int> Weld(const std::vector<gsl_Point>& points)
{
    std::vector<int> order;
    order.reserve(points.size());
    for (std::size_t i = 0; i < points.size(); ++i)
        if (vwr_Viewport::IsFinite(points[i]))
            order.push_back(static_cast<int>(i));
    const auto at = [&points](int i) -> const gsl_Point& { return points[static_cast<std::size_t>(i)]; };
    std::sort(order.begin(), order.end(), [&](int a, int b) {
        const auto first = Coordinates(at(a));
        const auto second = Coordinates(at(b));
        return first != second ? first < second : a < b;
    });
    std::vector<int> welded(points.size(), -1);
    int leader = -1;
    for (const int i : order)
    {
        if (leader < 0 || Coordinates(at(leader)) != Coordinates(at(i)))
            leader = i;
        welded[static_cast<std::size_t>(i)] = leader;
    }
    return welded;
}

// Of length one; zero for a triangle without area.
Normal NormalOf(const gsl_Point& a, const gsl_Point& b, const gsl_Point& c)
{
    const gsl_Vector n = (b - a).CrossProduct(c - a);
    const double length = std::hypot(n.X(), n.Y(), n.Z());
    if (!(length > 0.0) || !std::isfinite(length))
        return {0.0, 0.0, 0.0};
    return {n.X() / length, n.Y() / length, n.Z() / length};
}

bool IsFeature(const Side& one, const Side& other, const std::vector<Normal>& normals, const gsl_Vector& eye)
{
    const Normal& a = normals[one.triangle];
    Normal b = normals[other.triangle];
    // Neighbours that are turned alike run along their edge in opposite senses.
    if (one.forward == other.forward)
        b = {-b.x, -b.y, -b.z};
    const bool flat = (a.x == 0.0 && a.y == 0.0 && a.z == 0.0) || (b.x == 0.0 && b.y == 0.0 && b.z == 0.0);
    if (flat)
        return false;
    if (a.x * b.x + a.y * b.y + a.z * b.z < CREASE_COSINE)
        return true;
    const double seenA = a.x * eye.X() + a.y * eye.Y() + a.z * eye.Z();
    const double seenB = b.x * eye.X() + b.y * eye.Y() + b.z * eye.Z();
    return seenA * seenB < 0.0;
}
}

bool vwr_IsDrawable(const vwr_Part& part, const std::array<int, 3>& triangle)
{
    return std::all_of(triangle.begin(), triangle.end(), [&part](int i) {
        return i >= 0 && static_cast<std::size_t>(i) < part.points.size() &&
               vwr_Viewport::IsFinite(part.points[static_cast<std::size_t>(i)]);
    });
}

std::vector<std::array<int, 2>> vwr_FeatureEdges(const vwr_Part& part, const gsl_Vector& towardsEye)
{
    const std::vector<int> welded = Weld(part.points);
    std::vector<Side> sides;
    sides.reserve(3 * part.triangles.size());
    std::vector<Normal> normals(part.triangles.size());
    for (std::size_t t = 0; t < part.triangles.size(); ++t)
    {
        const std::array<int, 3>& triangle = part.triangles[t];
        if (!vwr_IsDrawable(part, triangle))
            continue;
        const auto corner = [&](std::size_t i) -> const gsl_Point& {
            return part.points[static_cast<std::size_t>(triangle[i])];
        };
        normals[t] = NormalOf(corner(0), corner(1), corner(2));
        for (std::size_t i = 0; i < 3; ++i)
        {
            const auto a = static_cast<std::uint64_t>(welded[static_cast<std::size_t>(triangle[i])]);
            const auto b =
                static_cast<std::uint64_t>(welded[static_cast<std::size_t>(triangle[(i + 1) % 3])]);
            if (a != b)
                sides.push_back(
                    {std::min(a, b) << 32 | std::max(a, b), static_cast<std::uint32_t>(t), a < b});
        }
    }
    std::sort(sides.begin(), sides.end(), [](const Side& a, const Side& b) {
        return a.corners != b.corners ? a.corners < b.corners : a.triangle < b.triangle;
    });
    std::vector<std::array<int, 2>> edges;
    for (auto group = sides.begin(); group != sides.end();)
    {
        const auto end = std::find_if(group, sides.end(),
                                      [group](const Side& side) { return side.corners != group->corners; });
        if (end - group != 2 || IsFeature(group[0], group[1], normals, towardsEye))
            edges.push_back(
                {static_cast<int>(group->corners >> 32), static_cast<int>(group->corners & 0xFFFFFFFF)});
        group = end;
    }
    return edges;
}
