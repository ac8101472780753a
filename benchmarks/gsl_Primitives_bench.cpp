// The geometry's hot operations, each beside the same arithmetic on plain arrays of three doubles. What the
// points cost on top: 48 bytes instead of 24, and an identity for every point that is made.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <gsl_BBox.h>
#include <gsl_Matrix.h>
#include <gsl_Point.h>
#include <gsl_Util.h>
#include <gsl_Vector.h>
#include <random>
#include <vector>

namespace
{
constexpr int COUNT = 1024;
using Plain = std::array<double, 3>;

std::vector<Plain> PlainPoints()
{
    std::mt19937_64 engine(1);
    std::uniform_real_distribution<double> number(-10, 10);
    std::vector<Plain> points(COUNT);
    for (Plain& p : points)
    {
        p = {number(engine), number(engine), number(engine)};
    }
    return points;
}

std::vector<gsl_Point> Points()
{
    std::vector<gsl_Point> points;
    for (const Plain& p : PlainPoints())
    {
        points.emplace_back(p[0], p[1], p[2]);
    }
    return points;
}

std::array<double, 16> Entries()
{
    gsl_Matrix matrix;
    static_cast<void>(matrix.AxisRotation(gsl_Vector(1, 2, 3), 0.5));
    matrix.SetTranslation(gsl_Vector(4, 5, 6));
    std::array<double, 16> entries;
    matrix.AsArray(entries.data());
    return entries;
}

void CountItems(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * COUNT);
}

void DistanceOfPoints(benchmark::State& state)
{
    const std::vector<gsl_Point> points = Points();
    for (auto _ : state)
    {
        double sum = 0;
        for (int i = 0; i + 1 < COUNT; ++i)
        {
            const auto at = static_cast<std::size_t>(i);
            sum += points[at].GetDistance(points[at + 1]);
        }
        benchmark::DoNotOptimize(sum);
    }
    CountItems(state);
}

void DistanceOfArrays(benchmark::State& state)
{
    const std::vector<Plain> points = PlainPoints();
    for (auto _ : state)
    {
        double sum = 0;
        for (std::size_t i = 0; i + 1 < COUNT; ++i)
        {
            const Plain& p = points[i];
            const Plain& q = points[i + 1];
            const double d[3] = {q[0] - p[0], q[1] - p[1], q[2] - p[2]};
            sum += std::sqrt(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]);
        }
        benchmark::DoNotOptimize(sum);
    }
    CountItems(state);
}

void CoincidenceOfPoints(benchmark::State& state)
{
    const std::vector<gsl_Point> points = Points();
    for (auto _ : state)
    {
        int on = 0;
        for (std::size_t i = 0; i + 1 < COUNT; ++i)
        {
            on += points[i].IsOn(points[i + 1]) ? 1 : 0;
        }
        benchmark::DoNotOptimize(on);
    }
    CountItems(state);
}

void CoincidenceOfArrays(benchmark::State& state)
{
    const std::vector<Plain> points = PlainPoints();
    double tolerance = 1e-6;
    benchmark::DoNotOptimize(tolerance);
    for (auto _ : state)
    {
        int on = 0;
        for (std::size_t i = 0; i + 1 < COUNT; ++i)
        {
            const Plain& p = points[i];
            const Plain& q = points[i + 1];
            const double d[3] = {q[0] - p[0], q[1] - p[1], q[2] - p[2]};
            on += d[0] * d[0] + d[1] * d[1] + d[2] * d[2] < tolerance * tolerance ? 1 : 0;
        }
        benchmark::DoNotOptimize(on);
    }
    CountItems(state);
}

void NormalOfPoints(benchmark::State& state)
{
    const std::vector<gsl_Point> points = Points();
    for (auto _ : state)
    {
        double sum = 0;
        for (std::size_t i = 0; i + 2 < COUNT; ++i)
        {
            const gsl_Vector n(points[i], points[i + 1], points[i + 2]);
            sum += n.X() + n.Y() + n.Z();
        }
        benchmark::DoNotOptimize(sum);
    }
    CountItems(state);
}

void NormalOfArrays(benchmark::State& state)
{
    const std::vector<Plain> points = PlainPoints();
    double tolerance = 1e-10;
    benchmark::DoNotOptimize(tolerance);
    for (auto _ : state)
    {
        double sum = 0;
        for (std::size_t i = 0; i + 2 < COUNT; ++i)
        {
            const Plain& p = points[i];
            const Plain& q = points[i + 1];
            const Plain& r = points[i + 2];
            const double a[3] = {q[0] - p[0], q[1] - p[1], q[2] - p[2]};
            const double b[3] = {r[0] - q[0], r[1] - q[1], r[2] - q[2]};
            const double n[3] = {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2],
                                 a[0] * b[1] - a[1] * b[0]};
            const double nn = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
            const double aa = std::sqrt(a[0] * a[0] + a[1] * a[1] + a[2] * a[2]);
            const double bb = std::sqrt(b[0] * b[0] + b[1] * b[1] + b[2] * b[2]);
            sum += nn > tolerance * aa * bb ? n[0] / nn + n[1] / nn + n[2] / nn : 0.0;
        }
        benchmark::DoNotOptimize(sum);
    }
    CountItems(state);
}

void TransformOfPoints(benchmark::State& state)
{
    std::vector<gsl_Point> points = Points();
    gsl_Matrix matrix;
    matrix.FromArray(Entries().data());
    for (auto _ : state)
    {
        for (gsl_Point& p : points)
        {
            p.Transform(matrix);
        }
        benchmark::DoNotOptimize(points.data());
        benchmark::ClobberMemory();
    }
    CountItems(state);
}

void TransformOfArrays(benchmark::State& state)
{
    std::vector<Plain> points = PlainPoints();
    const std::array<double, 16> m = Entries();
    for (auto _ : state)
    {
        for (Plain& p : points)
        {
            p = {m[0] * p[0] + m[1] * p[1] + m[2] * p[2] + m[3],
                 m[4] * p[0] + m[5] * p[1] + m[6] * p[2] + m[7],
                 m[8] * p[0] + m[9] * p[1] + m[10] * p[2] + m[11]};
        }
        benchmark::DoNotOptimize(points.data());
        benchmark::ClobberMemory();
    }
    CountItems(state);
}

// A new point each time, with its identity: what operator+ and the returning Transform cost.
void SumOfPoints(benchmark::State& state)
{
    const std::vector<gsl_Point> points = Points();
    const gsl_Vector step(1, 2, 3);
    for (auto _ : state)
    {
        for (const gsl_Point& p : points)
        {
            gsl_Point moved = p + step;
            benchmark::DoNotOptimize(moved);
        }
    }
    CountItems(state);
}

void SumOfArrays(benchmark::State& state)
{
    const std::vector<Plain> points = PlainPoints();
    for (auto _ : state)
    {
        for (const Plain& p : points)
        {
            Plain moved = {p[0] + 1, p[1] + 2, p[2] + 3};
            benchmark::DoNotOptimize(moved);
        }
    }
    CountItems(state);
}

void BoxOfPoints(benchmark::State& state)
{
    const std::vector<gsl_Point> points = Points();
    for (auto _ : state)
    {
        gsl_BBox box;
        for (const gsl_Point& p : points)
        {
            box.Add(p);
        }
        benchmark::DoNotOptimize(box);
    }
    CountItems(state);
}

void BoxOfArrays(benchmark::State& state)
{
    const std::vector<Plain> points = PlainPoints();
    for (auto _ : state)
    {
        Plain low = points[0];
        Plain high = points[0];
        for (const Plain& p : points)
        {
            for (std::size_t k = 0; k < 3; ++k)
            {
                low[k] = std::min(low[k], p[k]);
                high[k] = std::max(high[k], p[k]);
            }
        }
        benchmark::DoNotOptimize(low);
        benchmark::DoNotOptimize(high);
    }
    CountItems(state);
}

BENCHMARK(DistanceOfPoints);
BENCHMARK(DistanceOfArrays);
BENCHMARK(CoincidenceOfPoints);
BENCHMARK(CoincidenceOfArrays);
BENCHMARK(NormalOfPoints);
BENCHMARK(NormalOfArrays);
BENCHMARK(TransformOfPoints);
BENCHMARK(TransformOfArrays);
BENCHMARK(SumOfPoints);
BENCHMARK(SumOfArrays);
BENCHMARK(BoxOfPoints);
BENCHMARK(BoxOfArrays);
}
