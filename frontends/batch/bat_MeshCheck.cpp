#include <algorithm>
#include <bat_Groups.h>
#include <bat_MeshCheck.h>
#include <bat_Part.h>
#include <bat_Phase.h>
#include <bat_PointIndex.h>
#include <bat_Task.h>
#include <cmath>
#include <gsl_TriangleQuality.h>

namespace
{
constexpr float MERGE_SHARE = 20.0f;
constexpr float GROUPS_SHARE = 5.0f;
constexpr float EDGES_SHARE = 15.0f;
constexpr float DUPLICATES_SHARE = 5.0f;
constexpr float MEASURE_SHARE = 15.0f;
static_assert(MERGE_SHARE + GROUPS_SHARE + EDGES_SHARE + DUPLICATES_SHARE + MEASURE_SHARE ==
              bat_MeshCheck::SHARE);

using Vec = std::array<double, 3>;

std::uint16_t Bit(bat_MeshHealth::Flaw flaw)
{
    return static_cast<std::uint16_t>(1u << flaw);
}

Vec Minus(const double* a, const double* b)
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

double Area(const double* corners)
{
    const Vec normal = Cross(Minus(corners + 3, corners), Minus(corners + 6, corners));
    return 0.5 * std::sqrt(Dot(normal, normal));
}

/// The shape factor in double precision, of a triangle of any size: 16 A^3 over 3 sqrt(3) / 4 times the
/// square of the product of the sides.
double FactorOfAnySize(const double* corners)
{
    constexpr double SIXTEEN_OVER_EQUILATERAL = 16.0 / 1.299038106;
    Vec u = Minus(corners + 3, corners);
    Vec v = Minus(corners + 6, corners);
    double size = 0.0;
    for (const Vec* side : {&u, &v})
        for (const double component : *side)
            size = std::max(size, std::abs(component));
    if (size == 0.0)
        return 0.0;
    for (Vec* side : {&u, &v})
        for (double& component : *side)
            component /= size;
    const Vec normal = Cross(u, v);
    const double area = 0.5 * std::sqrt(Dot(normal, normal));
    const Vec w = Minus(v.data(), u.data());
    return SIXTEEN_OVER_EQUILATERAL * area * area * area / (Dot(u, u) * Dot(v, v) * Dot(w, w));
}

/// Six times that of the tetrahedra that the triangles make with a point of their group, each with its sign.
/// Every group is closed for itself: what lies far from it takes no digits away.
double SixVolumes(const bat_MeshHealth& health, bat_Task& task)
{
    std::vector<const double*> origins(health.groupSizes.size(), nullptr);
    double sum = 0.0;
    for (std::size_t i = 0; i < health.triangles.size(); ++i, task.Step())
    {
        const auto corner = [&](std::size_t k) { return health.points[health.triangles[i][k]].data(); };
        const double*& origin = origins[health.groups[i]];
        if (!origin)
            origin = corner(0);
        const Vec normal = Cross(Minus(corner(1), corner(0)), Minus(corner(2), corner(0)));
        sum += Dot(Minus(corner(0), origin), normal);
    }
    return sum;
}
}

bat_MeshHealth bat_MeshCheck::Find(const bat_MeshQuestion& question)
{
    bat_MeshHealth health;
    health.file = part_.File();
    health.question = question;
    health.box = part_.Box();
    flaws_.assign(static_cast<std::size_t>(part_.Count()), 0);
    Merge(health);
    FindGroups(health);
    FindEdges(health);
    FindDuplicates(health);
    Measure(health);
    NameTriangles(health);
    return health;
}

void bat_MeshCheck::Merge(bat_MeshHealth& health)
{
    const bat_Phase phase(watcher_, MERGE_SHARE / total_, "merging points");
    const auto count = static_cast<std::size_t>(part_.Count());
    // In a closed mesh a triangle has half a point.
    bat_PointIndex points(health.question.tolerance, count / 2);
    health.triangles.reserve(count);
    bat_Task task(watcher_, count);
    for (int i = 0; i < part_.Count(); ++i, task.Step())
    {
        const bat_Corners c = part_.Corners(i);
        const std::uint32_t first = points.Add({c[0], c[1], c[2]});
        const std::uint32_t second = points.Add({c[3], c[4], c[5]});
        health.triangles.push_back({first, second, points.Add({c[6], c[7], c[8]})});
    }
    health.points.reserve(points.Length());
    for (std::size_t i = 0; i < points.Length(); ++i)
        health.points.push_back(points[i]);
}

void bat_MeshCheck::FindGroups(bat_MeshHealth& health)
{
    const bat_Phase phase(watcher_, GROUPS_SHARE / total_, "grouping");
    bat_Groups joined(health.points.size());
    bat_Task task(watcher_, 2 * health.triangles.size());
    for (const auto& [a, b, c] : health.triangles)
    {
        joined.Join(a, b);
        joined.Join(b, c);
        task.Step();
    }
    std::vector<std::uint32_t> numbers(health.points.size(), 0); // of roots, from 1
    health.groups.reserve(health.triangles.size());
    for (const std::array<std::uint32_t, 3>& triangle : health.triangles)
    {
        std::uint32_t& number = numbers[joined.Root(triangle[0])];
        if (number == 0)
        {
            health.groupSizes.push_back(0);
            number = static_cast<std::uint32_t>(health.groupSizes.size());
        }
        ++health.groupSizes[number - 1];
        health.groups.push_back(number - 1);
        task.Step();
    }
}

void bat_MeshCheck::FindEdges(bat_MeshHealth& health)
{
    const bat_Phase phase(watcher_, EDGES_SHARE / total_, "looking at edges");
    const std::size_t count = health.triangles.size();
    bat_EdgeTable edges(count + count / 2);
    std::vector<std::uint32_t> numbers;
    numbers.reserve(3 * count);
    bat_Task task(watcher_, 2 * count);
    for (const std::array<std::uint32_t, 3>& triangle : health.triangles)
    {
        if (!HasCoincident(triangle))
            for (std::size_t k = 0; k < 3; ++k)
                numbers.push_back(edges.Add(triangle[k], triangle[(k + 1) % 3]));
        task.Step();
    }
    health.edges = edges.Length();
    balanced_ = true;
    for (std::size_t edge = 0; edge < edges.Length(); ++edge)
    {
        if (edges.IsOpen(edge))
            health.openEdges.push_back(edges[edge]);
        if (edges.IsNonManifold(edge))
            health.crowdedEdges.push_back(edges[edge]);
        if (edges.IsMisturned(edge))
            health.misturnedEdges.push_back(edges[edge]);
        balanced_ = balanced_ && edges.IsBalanced(edge);
    }
    health.closed = health.edges > 0 && health.openEdges.empty();
    health.findings[bat_MeshHealth::OPEN].count = health.openEdges.size();
    health.findings[bat_MeshHealth::NON_MANIFOLD].count = health.crowdedEdges.size();
    health.findings[bat_MeshHealth::MISTURNED].count = health.misturnedEdges.size();
    auto number = numbers.begin();
    for (std::size_t i = 0; i < count; ++i, task.Step())
    {
        if (HasCoincident(health.triangles[i]))
            continue;
        for (int k = 0; k < 3; ++k, ++number)
        {
            if (edges.IsOpen(*number))
                flaws_[i] |= Bit(bat_MeshHealth::OPEN);
            if (edges.IsNonManifold(*number))
                flaws_[i] |= Bit(bat_MeshHealth::NON_MANIFOLD);
            if (edges.IsMisturned(*number))
                flaws_[i] |= Bit(bat_MeshHealth::MISTURNED);
        }
    }
}

void bat_MeshCheck::FindDuplicates(bat_MeshHealth& health)
{
    const bat_Phase phase(watcher_, DUPLICATES_SHARE / total_, "looking for duplicates");
    const std::size_t count = health.triangles.size();
    bat_Numbering<std::array<std::uint32_t, 3>> different(count);
    bat_Task task(watcher_, count);
    for (std::size_t i = 0; i < count; ++i, task.Step())
    {
        std::array<std::uint32_t, 3> points = health.triangles[i];
        if (HasCoincident(points))
            continue;
        std::sort(points.begin(), points.end());
        const std::size_t before = different.Length();
        if (different.Add(points) == before)
            continue;
        flaws_[i] |= Bit(bat_MeshHealth::DUPLICATE);
        ++health.findings[bat_MeshHealth::DUPLICATE].count;
    }
}

void bat_MeshCheck::Measure(bat_MeshHealth& health)
{
    const bat_Phase phase(watcher_, MEASURE_SHARE / total_, "measuring");
    constexpr std::size_t BLOCK = 128; // what a core holds nearest to it
    const std::size_t count = health.triangles.size();
    const bool volume = health.closed && balanced_;
    health.factors.resize(count);
    std::array<double, 9 * BLOCK> gathered;
    double sum = 0.0;
    bat_Task task(watcher_, volume ? 2 * count : count);
    for (std::size_t first = 0; first < count; first += BLOCK)
    {
        const std::size_t length = std::min(BLOCK, count - first);
        const double* corners = part_.InARow(first);
        if (!corners)
        {
            for (std::size_t i = 0; i < length; ++i)
            {
                const bat_Corners triangle = part_.Corners(static_cast<int>(first + i));
                std::copy(triangle.begin(), triangle.end(), gathered.begin() + static_cast<long>(9 * i));
            }
            corners = gathered.data();
        }
        for (std::size_t i = 0; i < length; ++i, task.Step())
        {
            const double* a = corners + 9 * i;
            const double factor = gsl_ComputeShapeFactorTri(a, a + 3, a + 6, false);
            health.factors[first + i] = factor;
            health.area += Area(a);
            sum += factor;
            ++health.histogram[bat_MeshHealth::ClassOf(factor)];
            flaws_[first + i] |= FlawOf(first + i, factor, a, health);
        }
    }
    health.meanFactor = count == 0 ? 0.0 : sum / static_cast<double>(count);
    if (volume)
        health.volume = SixVolumes(health, task) / 6.0;
}

void bat_MeshCheck::NameTriangles(bat_MeshHealth& health) const
{
    const std::size_t named = health.question.named;
    for (std::size_t i = 0; i < flaws_.size(); ++i)
    {
        for (std::size_t flaw = 0; flaws_[i] >> flaw != 0; ++flaw)
        {
            if ((flaws_[i] >> flaw & 1) == 0)
                continue;
            bat_MeshHealth::Finding& finding = health.findings[flaw];
            finding.count += flaw < bat_MeshHealth::DEGENERATE;
            if (finding.triangles.size() < named)
                finding.triangles.push_back(static_cast<std::uint32_t>(i));
            else
                finding.hasMore = true;
        }
    }
    // The heap's front is the best of the worst.
    const auto better = [](const bat_MeshHealth::Shape& a, const bat_MeshHealth::Shape& b) {
        return a.factor != b.factor ? a.factor < b.factor : a.triangle < b.triangle;
    };
    std::vector<bat_MeshHealth::Shape>& worst = health.worst;
    for (std::size_t i = 0; i < health.factors.size() && named > 0; ++i)
    {
        if (worst.size() == named)
        {
            if (!(health.factors[i] < worst.front().factor))
                continue;
            std::pop_heap(worst.begin(), worst.end(), better);
            worst.pop_back();
        }
        worst.push_back({static_cast<std::uint32_t>(i), health.factors[i]});
        std::push_heap(worst.begin(), worst.end(), better);
    }
    std::sort_heap(worst.begin(), worst.end(), better);
}

bool bat_MeshCheck::HasCoincident(const std::array<std::uint32_t, 3>& points) const
{
    return points[0] == points[1] || points[1] == points[2] || points[2] == points[0];
}

std::uint16_t bat_MeshCheck::FlawOf(std::size_t triangle, double factor, const double* corners,
                                    const bat_MeshHealth& health) const
{
    if (HasCoincident(health.triangles[triangle]))
        return Bit(bat_MeshHealth::COINCIDENT);
    if (!part_.HasNormal(static_cast<int>(triangle)))
        return Bit(bat_MeshHealth::COLLINEAR);
    const double limit = health.question.sliver;
    const double least = limit > 0.0 ? limit : bat_MeshQuestion::DEFAULT_SLIVER; // nothing is below 0
    if (factor == 0.0 && FactorOfAnySize(corners) >= least)
        return Bit(bat_MeshHealth::OUT_OF_SCALE);
    return factor < limit ? Bit(bat_MeshHealth::SLIVER) : std::uint16_t{0};
}
