// Rotations and principal values, each beside Eigen's double. The counters of the principal values are the
// largest error of a value, in halves of a unit in the last place of the tensor's largest one.
#include "../tests/testing/PrincipalError.h"
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <utf_Quaternion.h>
#include <utf_Routines.h>
#include <vector>
#ifdef ORVEX_HAVE_EIGEN
#include <Eigen/Eigenvalues>
#include <Eigen/Geometry>
#endif

namespace
{
constexpr int COUNT = 256; // everything stays in the first cache

using Components = std::array<double, 4>; // x, y, z, w

std::vector<Components> Rotations(unsigned seed)
{
    std::mt19937_64 engine(seed);
    std::normal_distribution<double> number;
    std::vector<Components> rotations(COUNT);
    for (Components& q : rotations)
    {
        double square = 0;
        for (double& c : q)
        {
            c = number(engine);
            square += c * c;
        }
        for (double& c : q)
        {
            c /= std::sqrt(square);
        }
    }
    return rotations;
}

using Quaternion = utf_Quaternion<double>;

std::vector<Quaternion> Quaternions(unsigned seed)
{
    std::vector<Quaternion> quaternions;
    for (const Components& q : Rotations(seed))
    {
        quaternions.emplace_back(res_DataTypeEnm::QUATERNION_3D, q.data());
    }
    return quaternions;
}

struct Matrix
{
    double rows[3][3];
};

std::vector<Matrix> Matrices(unsigned seed)
{
    std::vector<Matrix> matrices;
    for (const Quaternion& q : Quaternions(seed))
    {
        q.cosines(matrices.emplace_back().rows);
    }
    return matrices;
}

/// Six components, 11 22 33 12 13 23: random ones, or all but isotropic, the deviation being of the size
/// given.
using Tensor = std::array<double, 6>;

std::vector<Tensor> Tensors(double apart)
{
    std::mt19937_64 engine(3);
    std::uniform_real_distribution<double> number(-1, 1);
    std::vector<Tensor> tensors(COUNT);
    for (Tensor& s : tensors)
    {
        for (int i = 0; i < 6; ++i)
        {
            s[i] = apart == 0 ? 100 * number(engine) : (i < 3 ? 1 : 0) + apart * number(engine);
        }
    }
    return tensors;
}

/// Runs of `work` over all items, which stay known to nobody between two of them.
template <class Work>
void Each(benchmark::State& state, Work work)
{
    for (auto _ : state)
    {
        for (std::size_t i = 0; i < COUNT; ++i)
        {
            work(i);
        }
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * COUNT);
}

void QuaternionToMatrix(benchmark::State& state)
{
    const auto quaternions = Quaternions(1);
    std::vector<Matrix> out(COUNT);
    benchmark::DoNotOptimize(out.data());
    Each(state, [&](std::size_t i) { quaternions[i].cosines(out[i].rows); });
}

void Product(benchmark::State& state)
{
    const auto a = Quaternions(1);
    const auto b = Quaternions(2);
    auto out = a;
    benchmark::DoNotOptimize(out.data());
    Each(state, [&](std::size_t i) { out[i] = a[i].mult(b[i]); });
}

void MatrixToQuaternion(benchmark::State& state)
{
    const auto matrices = Matrices(1);
    const int scalarLast = 0;
    std::vector<Components> out(COUNT);
    benchmark::DoNotOptimize(out.data());
    Each(state, [&](std::size_t i) { utf_calquat_(out[i].data(), matrices[i].rows[0], &scalarLast); });
}

template <class Values>
void CountErrors(benchmark::State& state, const std::vector<Tensor>& tensors, const Values& values)
{
    double worst = 0;
    double sum = 0;
    for (std::size_t i = 0; i < COUNT; ++i)
    {
        const double error = PrincipalError(tensors[i].data(), values[i].data());
        worst = std::max(worst, error);
        sum += error;
    }
    state.counters["worst_error"] = worst;
    state.counters["mean_error"] = sum / COUNT;
}

void PrincipalValues(benchmark::State& state, double apart)
{
    const auto tensors = Tensors(apart);
    const int mode = 1;
    const int three = 3;
    std::vector<std::array<double, 3>> values(COUNT);
    std::vector<std::array<double, 9>> directions(COUNT);
    benchmark::DoNotOptimize(values.data());
    benchmark::DoNotOptimize(directions.data());
    Each(state, [&](std::size_t i) {
        utf_sprind_(tensors[i].data(), values[i].data(), directions[i].data(), &mode, &three, &three);
    });
    CountErrors(state, tensors, values);
}

BENCHMARK(QuaternionToMatrix);
BENCHMARK(Product);
BENCHMARK(MatrixToQuaternion);
BENCHMARK_CAPTURE(PrincipalValues, random, 0.0);
BENCHMARK_CAPTURE(PrincipalValues, apart_1e3, 1e-3);
BENCHMARK_CAPTURE(PrincipalValues, apart_1e9, 1e-9);

#ifdef ORVEX_HAVE_EIGEN
std::vector<Eigen::Quaterniond> EigenQuaternions(unsigned seed)
{
    std::vector<Eigen::Quaterniond> quaternions;
    for (const Components& q : Rotations(seed))
    {
        quaternions.emplace_back(q[3], q[0], q[1], q[2]);
    }
    return quaternions;
}

void EigenQuaternionToMatrix(benchmark::State& state)
{
    const auto quaternions = EigenQuaternions(1);
    std::vector<Eigen::Matrix3d> out(COUNT);
    benchmark::DoNotOptimize(out.data());
    Each(state, [&](std::size_t i) { out[i] = quaternions[i].toRotationMatrix(); });
}

void EigenProduct(benchmark::State& state)
{
    const auto a = EigenQuaternions(1);
    const auto b = EigenQuaternions(2);
    auto out = a;
    benchmark::DoNotOptimize(out.data());
    Each(state, [&](std::size_t i) { out[i] = a[i] * b[i]; });
}

void EigenMatrixToQuaternion(benchmark::State& state)
{
    std::vector<Eigen::Matrix3d> matrices;
    for (const Eigen::Quaterniond& q : EigenQuaternions(1))
    {
        matrices.push_back(q.toRotationMatrix());
    }
    auto out = EigenQuaternions(1);
    benchmark::DoNotOptimize(out.data());
    Each(state, [&](std::size_t i) { out[i] = matrices[i]; });
}

/// The iterative solver; its direct one is faster and loses half of the digits of close values.
void EigenPrincipalValues(benchmark::State& state, double apart)
{
    const auto tensors = Tensors(apart);
    std::vector<Eigen::Matrix3d> matrices;
    for (const Tensor& s : tensors)
    {
        matrices.emplace_back() << s[0], s[3], s[4], s[3], s[1], s[5], s[4], s[5], s[2];
    }
    std::vector<Eigen::Vector3d> values(COUNT);
    std::vector<Eigen::Matrix3d> directions(COUNT);
    benchmark::DoNotOptimize(values.data());
    benchmark::DoNotOptimize(directions.data());
    Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solver;
    Each(state, [&](std::size_t i) {
        solver.compute(matrices[i]);
        values[i] = solver.eigenvalues();
        directions[i] = solver.eigenvectors();
    });
    CountErrors(state, tensors, values);
}

BENCHMARK(EigenQuaternionToMatrix);
BENCHMARK(EigenProduct);
BENCHMARK(EigenMatrixToQuaternion);
BENCHMARK_CAPTURE(EigenPrincipalValues, random, 0.0);
BENCHMARK_CAPTURE(EigenPrincipalValues, apart_1e3, 1e-3);
BENCHMARK_CAPTURE(EigenPrincipalValues, apart_1e9, 1e-9);
#endif
}
