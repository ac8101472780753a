// The health of a mesh of a million triangles, whole and by its steps, beside copying the same corners; and
// merging beside the geometry's quadratic operation.
#include <benchmark/benchmark.h>

#include <bat_MeshCheck.h>
#include <bat_Part.h>
#include <bat_PointIndex.h>
#include <cmath>
#include <cstring>
#include <gsl_PointMerge.h>
#include <numbers>

namespace
{
/// A closed torus of 2 x side x side triangles.
bat_TriangleMesh Torus(int side)
{
    const auto point = [side](int i, int j) {
        const double a = 2.0 * std::numbers::pi * (i % side) / side;
        const double b = 2.0 * std::numbers::pi * (j % side) / side;
        const double r = 10.0 + 4.0 * std::cos(b);
        return std::array{r * std::cos(a), r * std::sin(a), 4.0 * std::sin(b)};
    };
    bat_TriangleMesh mesh;
    mesh.Reserve(2 * static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
    for (int i = 0; i < side; ++i)
        for (int j = 0; j < side; ++j)
        {
            const auto a = point(i, j);
            const auto b = point(i + 1, j);
            const auto c = point(i + 1, j + 1);
            const auto d = point(i, j + 1);
            mesh.Add(std::array{a[0], a[1], a[2], b[0], b[1], b[2], c[0], c[1], c[2]});
            mesh.Add(std::array{a[0], a[1], a[2], c[0], c[1], c[2], d[0], d[1], d[2]});
        }
    return mesh;
}

constexpr int MILLION_SIDE = 707;

const bat_TriangleMesh& Million()
{
    static const bat_TriangleMesh mesh = Torus(MILLION_SIDE);
    return mesh;
}

void Count(benchmark::State& state, std::size_t triangles)
{
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(triangles));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(9 * sizeof(double) * triangles));
}

void WholeCheck(benchmark::State& state)
{
    const bat_Part part("torus", Million());
    bat_MeshQuestion question;
    question.tolerance = static_cast<double>(state.range(0)) * 1e-6;
    for (auto _ : state)
        benchmark::DoNotOptimize(
            bat_MeshCheck(part, bat_Watcher::Nobody(), bat_MeshCheck::SHARE).Find(question).points.size());
    Count(state, Million().Length());
}

std::size_t Merge(const bat_TriangleMesh& mesh, double tolerance)
{
    bat_PointIndex index(tolerance, mesh.Length() / 2);
    for (std::size_t i = 0; i < mesh.Length(); ++i)
        for (std::size_t k = 0; k < 3; ++k)
        {
            const double* p = mesh.Corner(i, k);
            index.Add({p[0], p[1], p[2]});
        }
    return index.Length();
}

void MergeMillion(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(Merge(Million(), static_cast<double>(state.range(0)) * 1e-6));
    Count(state, Million().Length());
}

void MergeSmall(benchmark::State& state)
{
    const bat_TriangleMesh mesh = Torus(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(Merge(mesh, 1e-6));
    Count(state, mesh.Length());
}

void MergeSmallQuadratic(benchmark::State& state)
{
    const bat_TriangleMesh mesh = Torus(static_cast<int>(state.range(0)));
    cls_xo1DArrayList<gsl_Point> corners;
    for (std::size_t i = 0; i < mesh.Length(); ++i)
        for (std::size_t k = 0; k < 3; ++k)
            corners.Append(gsl_Point(mesh.Corner(i, k)));
    for (auto _ : state)
    {
        cls_xo1DArrayList<gsl_Point> merged;
        gsl_MergePointsWithinAcisTol(corners, merged);
        benchmark::DoNotOptimize(merged.Length());
    }
    Count(state, mesh.Length());
}

void CornersCopied(benchmark::State& state)
{
    const std::vector<double>& corners = Million().Coordinates();
    std::vector<double> copy(corners.size());
    for (auto _ : state)
    {
        std::memcpy(copy.data(), corners.data(), sizeof(double) * corners.size());
        benchmark::ClobberMemory();
    }
    Count(state, Million().Length());
}

BENCHMARK(WholeCheck)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(MergeMillion)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(MergeSmall)->Arg(10)->Arg(30)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(MergeSmallQuadratic)->Arg(10)->Arg(30)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(CornersCopied)->Unit(benchmark::kMillisecond);
}
