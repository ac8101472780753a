// The geometry's hot operations, each beside the same arithmetic on plain arrays of three doubles. What the
// points cost on top: 48 bytes instead of 24, and an identity for every point that is made.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <gsl_BBox.h>
#include <gsl_Matrix.h>
#include <gsl_Point.h>
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

/// Adds up what `of` makes of every point and the `BEYOND` points after it.
template <std::size_t BEYOND, class T, class Of>
void AddUp(benchmark::State& state, const std::vector<T>& points, Of of)
{
    for (auto _ : state)
    {
        decltype(of(points.data())) sum = 0;
        for (std::size_t i = 0; i + BEYOND < COUNT; ++i)
        {
            sum += of(&points[i]);
        }
        benchmark::DoNotOptimize(sum);
    }
    CountItems(state);
}

/// Does `work` to every point.
template <class T, class Work>
void DoToEach(benchmark::State& state, std::vector<T> points, Work work)
{
    for (auto _ : state)
    {
        for (T& p : points)
        {
            work(p);
        }
        benchmark::DoNotOptimize(points.data());
        benchmark::ClobberMemory();
    }
    CountItems(state);
}

Plain Way(const Plain& from, const Plain& to)
{
    return {to[0] - from[0], to[1] - from[1], to[2] - from[2]};
}

double Squared(const Plain& v)
{
    return v[0] * v[0] + v[1] * v[1] + v[2] * v[2];
}

void DistanceOfPoints(benchmark::State& state)
{
    AddUp<1>(state, Points(), [](const gsl_Point* p) { return p[0].GetDistance(p[1]); });
}

void DistanceOfArrays(benchmark::State& state)
{
    AddUp<1>(state, PlainPoints(), [](const Plain* p) { return std::sqrt(Squared(Way(p[0], p[1]))); });
}

void CoincidenceOfPoints(benchmark::State& state)
{
    AddUp<1>(state, Points(), [](const gsl_Point* p) { return p[0].IsOn(p[1]) ? 1 : 0; });
}

void CoincidenceOfArrays(benchmark::State& state)
{
    double tolerance = 1e-6;
    benchmark::DoNotOptimize(tolerance);
    AddUp<1>(state, PlainPoints(),
             [=](const Plain* p) { return Squared(Way(p[0], p[1])) < tolerance * tolerance ? 1 : 0; });
}

void NormalOfPoints(benchmark::State& state)
{
    AddUp<2>(state, Points(), [](const gsl_Point* p) {
        const gsl_Vector n(p[0], p[1], p[2]);
        return n.X() + n.Y() + n.Z();
    });
}

void NormalOfArrays(benchmark::State& state)
{
    double tolerance = 1e-10;
    benchmark::DoNotOptimize(tolerance);
    AddUp<2>(state, PlainPoints(), [=](const Plain* p) {
        const Plain a = Way(p[0], p[1]);
        const Plain b = Way(p[1], p[2]);
        const Plain n = {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
        const double nn = std::sqrt(Squared(n));
        const double aa = std::sqrt(Squared(a));
        const double bb = std::sqrt(Squared(b));
        return nn > tolerance * aa * bb ? n[0] / nn + n[1] / nn + n[2] / nn : 0.0;
    });
}

void TransformOfPoints(benchmark::State& state)
{
    gsl_Matrix matrix;
    matrix.FromArray(Entries().data());
    DoToEach(state, Points(), [&](gsl_Point& p) { p.Transform(matrix); });
}

void TransformOfArrays(benchmark::State& state)
{
    const std::array<double, 16> m = Entries();
    DoToEach(state, PlainPoints(), [&](Plain& p) {
        p = {m[0] * p[0] + m[1] * p[1] + m[2] * p[2] + m[3], m[4] * p[0] + m[5] * p[1] + m[6] * p[2] + m[7],
             m[8] * p[0] + m[9] * p[1] + m[10] * p[2] + m[11]};
    });
}

// A new point each time, with its identity: what operator+ and the returning Transform cost.
void SumOfPoints(benchmark::State& state)
{
    DoToEach(state, Points(), [step = gsl_Vector(1, 2, 3)](const gsl_Point& p) {
        gsl_Point moved = p + step;
        benchmark::DoNotOptimize(moved);
    });
}

void SumOfArrays(benchmark::State& state)
{
    DoToEach(state, PlainPoints(), [](const Plain& p) {
        Plain moved = {p[0] + 1, p[1] + 2, p[2] + 3};
        benchmark::DoNotOptimize(moved);
    });
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
