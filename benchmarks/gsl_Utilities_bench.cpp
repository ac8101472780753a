// Areas and shape factors of a million triangles: the geometry's calls, one for each triangle, beside the
// same arithmetic in a plain loop, and beside reading the corners alone.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <gsl_TriangleQuality.h>
#include <random>
#include <vector>

namespace
{
constexpr int COUNT = 1000000;
using Corners = std::array<double, 9>;

const std::vector<Corners>& Triangles()
{
    static const std::vector<Corners> triangles = [] {
        std::mt19937_64 engine(1);
        std::uniform_real_distribution<double> number(-10, 10);
        std::vector<Corners> drawn(COUNT);
        for (Corners& corners : drawn)
            for (double& coordinate : corners)
                coordinate = number(engine);
        return drawn;
    }();
    return triangles;
}

/// Writes what `of` makes of every triangle.
template <class Of>
void OfEach(benchmark::State& state, Of of)
{
    const std::vector<Corners>& triangles = Triangles();
    std::vector<double> results(COUNT);
    for (auto _ : state)
    {
        std::transform(triangles.begin(), triangles.end(), results.begin(),
                       [&](const Corners& t) { return of(t.data(), t.data() + 3, t.data() + 6); });
        benchmark::DoNotOptimize(results.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * COUNT);
    state.SetBytesProcessed(state.iterations() * COUNT * static_cast<int>(sizeof(Corners) + sizeof(double)));
}

double PlainArea(const double* a, const double* b, const double* c)
{
    const float u[] = {float(b[0] - a[0]), float(b[1] - a[1]), float(b[2] - a[2])};
    const float v[] = {float(c[0] - a[0]), float(c[1] - a[1]), float(c[2] - a[2])};
    const float n[] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
    return 0.5F * std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
}

double PlainSquared(const double* a, const double* b)
{
    const double d[] = {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
    return d[0] * d[0] + d[1] * d[1] + d[2] * d[2];
}

double PlainFactor(const double* a, const double* b, const double* c)
{
    const double area = PlainArea(a, b, c);
    if (area < 1e-12)
        return 0.0;
    const double radius =
        std::sqrt(PlainSquared(a, b) * PlainSquared(b, c) * PlainSquared(c, a)) / (4.0 * area);
    return radius < 1e-6 ? 0.0 : std::min(1.0, area / (1.299038106 * radius * radius));
}

void Areas(benchmark::State& state)
{
    OfEach(state, [](auto... corners) { return gsl_ComputeAreaTri(corners..., false); });
}

void AreasPlain(benchmark::State& state)
{
    OfEach(state, PlainArea);
}

void ShapeFactors(benchmark::State& state)
{
    OfEach(state, [](auto... corners) { return gsl_ComputeShapeFactorTri(corners..., false); });
}

void ShapeFactorsPlain(benchmark::State& state)
{
    OfEach(state, PlainFactor);
}

void CornersRead(benchmark::State& state)
{
    OfEach(state, [](const double* a, const double* b, const double* c) {
        return a[0] + a[1] + a[2] + b[0] + b[1] + b[2] + c[0] + c[1] + c[2];
    });
}

BENCHMARK(Areas)->Unit(benchmark::kMillisecond);
BENCHMARK(AreasPlain)->Unit(benchmark::kMillisecond);
BENCHMARK(ShapeFactors)->Unit(benchmark::kMillisecond);
BENCHMARK(ShapeFactorsPlain)->Unit(benchmark::kMillisecond);
BENCHMARK(CornersRead)->Unit(benchmark::kMillisecond);
}
