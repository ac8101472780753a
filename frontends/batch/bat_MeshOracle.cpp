#include <algorithm>
#include <bat_MeshHealth.h>
#include <bat_MeshOracle.h>
#include <bat_Number.h>
#include <bat_Part.h>
#include <bat_Task.h>
#include <gsl_ConnectedGroups.h>
#include <gsl_PointMerge.h>
#include <gsl_TriangleQuality.h>
#include <gsl_Util.h>
#include <map>
#include <memory>

namespace
{
/// The geometry's linear tolerance, changed for a scope.
class LinearTolerance
{
public:
    explicit LinearTolerance(double tolerance) : former_(gsl_Util::Instance().LinearTolerance())
    {
        gsl_Util::Instance().SetLinearTolerance(tolerance);
    }
    ~LinearTolerance() { gsl_Util::Instance().SetLinearTolerance(former_); }
    LinearTolerance(const LinearTolerance&) = delete;
    LinearTolerance& operator=(const LinearTolerance&) = delete;

private:
    double former_;
};

bool AreSame(const gsl_Point& a, const gsl_Point& b)
{
    return a.X() == b.X() && a.Y() == b.Y() && a.Z() == b.Z();
}

std::string Difference(const std::string& what, std::size_t there, std::size_t here)
{
    return "the quadratic operations find " + bat_CountText(there) + " " + what + ", the index " +
           bat_CountText(here);
}
}

std::string bat_MeshOracle::Compare(const bat_MeshHealth& health)
{
    const double tolerance = health.question.tolerance;
    const Points points = MergedPoints(tolerance);
    const auto count = static_cast<std::size_t>(points.Length());
    if (count != health.points.size())
        return Difference("points", count, health.points.size());
    for (int i = 0; i < points.Length(); ++i)
        if (!AreSame(points[i], gsl_Point(health.points[static_cast<std::size_t>(i)].data())))
            return "point " + std::to_string(i) + " differs";

    bat_Task task(watcher_, 2 * health.triangles.size(), 16);
    FindTriangles(points, tolerance, task);
    for (std::size_t i = 0; i < triangles_.size(); ++i)
        if (!std::equal(triangles_[i].begin(), triangles_[i].end(), health.triangles[i].begin()))
            return "the points of triangle " + std::to_string(i) + " differ";

    for (std::size_t i = 0; i < triangles_.size(); ++i)
    {
        const bat_Corners corners = part_.Corners(static_cast<int>(i));
        if (gsl_ComputeShapeFactorTri(&corners[0], &corners[3], &corners[6], false) != health.factors[i])
            return "the shape factors of triangle " + std::to_string(i) + " differ";
    }
    const std::vector<int> groups = Groups(task);
    if (!std::equal(groups.begin(), groups.end(), health.groups.begin(), health.groups.end(),
                    [](int a, std::uint32_t b) { return static_cast<std::uint32_t>(a) == b; }))
        return "the groups differ";
    const std::array<std::size_t, 3> edges = CountEdges();
    for (std::size_t k = 0; k < edges.size(); ++k)
        if (const auto flaw = static_cast<bat_MeshHealth::Flaw>(bat_MeshHealth::OPEN + k);
            edges[k] != health.findings[flaw].count)
            return Difference(std::string(bat_MeshHealth::Name(flaw)) + " edges", edges[k],
                              health.findings[flaw].count);
    return {};
}

bat_MeshOracle::Points bat_MeshOracle::MergedPoints(double tolerance) const
{
    Points corners;
    Points merged;
    for (int i = 0; i < part_.Count(); ++i)
    {
        gsl_Point p[3];
        part_.Points(i, p[0], p[1], p[2]);
        for (const gsl_Point& corner : p)
            corners.Append(corner);
    }
    if (tolerance > 0.0)
    {
        const LinearTolerance changed(tolerance);
        gsl_MergePointsWithinAcisTol(corners, merged);
        return merged;
    }
    // With a tolerance of 0 no point is on another one, not even on itself.
    for (const gsl_Point& corner : corners)
        if (std::none_of(merged.begin(), merged.end(),
                         [&](const gsl_Point& kept) { return AreSame(corner, kept); }))
            merged.Append(corner);
    return merged;
}

// Which point each corner is, without the index.
void bat_MeshOracle::FindTriangles(const Points& points, double tolerance, bat_Task& task)
{
    const LinearTolerance changed(tolerance);
    triangles_.assign(static_cast<std::size_t>(part_.Count()), {});
    for (int i = 0; i < part_.Count(); ++i, task.Step())
    {
        gsl_Point p[3];
        part_.Points(i, p[0], p[1], p[2]);
        for (std::size_t k = 0; k < 3; ++k)
        {
            const auto first = std::find_if(points.begin(), points.end(), [&](const gsl_Point& kept) {
                return tolerance > 0.0 ? p[k].IsOn(kept) : AreSame(p[k], kept);
            });
            triangles_[static_cast<std::size_t>(i)][k] = static_cast<std::size_t>(first - points.begin());
        }
    }
}

std::vector<int> bat_MeshOracle::Groups(bat_Task& task) const
{
    const std::size_t n = triangles_.size();
    const auto adjacency = std::make_unique<bool[]>(n * n);
    for (std::size_t i = 0; i < n; ++i, task.Step())
        for (std::size_t j = 0; j < n; ++j)
            adjacency[i * n + j] =
                std::find_first_of(triangles_[i].begin(), triangles_[i].end(), triangles_[j].begin(),
                                   triangles_[j].end()) != triangles_[i].end();
    std::vector<int> groups(n);
    int count = 0;
    gsl_DepthFirstSearch(adjacency.get(), static_cast<int>(n), groups.data(), count);
    return groups;
}

std::array<std::size_t, 3> bat_MeshOracle::CountEdges() const
{
    std::map<std::array<std::size_t, 2>, std::array<int, 2>> edges;
    for (const auto& [a, b, c] : triangles_)
    {
        if (a == b || b == c || c == a)
            continue;
        for (const auto& [from, to] : {std::array{a, b}, {b, c}, {c, a}})
            ++edges[{std::min(from, to), std::max(from, to)}][from < to];
    }
    std::array<std::size_t, 3> counts{};
    for (const auto& [ends, uses] : edges)
    {
        counts[0] += uses[0] + uses[1] == 1;
        counts[1] += uses[0] + uses[1] > 2;
        counts[2] += uses[0] + uses[1] == 2 && uses[0] != uses[1];
    }
    return counts;
}
