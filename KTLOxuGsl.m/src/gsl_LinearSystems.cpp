#include <algorithm>
#include <cmath>
#include <gsl_LinearSystems.h>
#include <gsl_Util.h>
#include <numeric>
#include <vector>

namespace
{
/// A square matrix in the caller's memory, factored in place: the upper factor on and above the diagonal, the
/// lower one, whose diagonal is 1, below it.
class Factors
{
public:
    Factors(int n, double* a) : n_(static_cast<std::size_t>(n)), a_(a) {}

    /// False when the matrix is singular. order[i] is then the row that came to be row i.
    bool Make(std::size_t* order)
    {
        std::iota(order, order + n_, std::size_t{0});
        double largest = 0.0;
        for (std::size_t i = 0; i < n_ * n_; ++i)
            largest = std::max(largest, std::abs(a_[i]));
        const double least = gsl_Util::Instance().SquaredTolerance() * largest;
        for (std::size_t k = 0; k < n_; ++k)
        {
            const std::size_t pivot = PivotRow(k);
            const double size = std::abs(At(pivot, k));
            if (!(size >= least) || size == 0.0)
                return false;
            if (pivot != k)
            {
                std::swap_ranges(&At(k, 0), &At(k, 0) + n_, &At(pivot, 0));
                std::swap(order[k], order[pivot]);
            }
            for (std::size_t row = k + 1; row < n_; ++row)
            {
                const double factor = At(row, k) /= At(k, k);
                for (std::size_t col = k + 1; col < n_; ++col)
                    At(row, col) -= factor * At(k, col);
            }
        }
        return true;
    }

    void Solve(double* x) const
    {
        for (std::size_t row = 0; row < n_; ++row)
            for (std::size_t col = 0; col < row; ++col)
                x[row] -= At(row, col) * x[col];
        for (std::size_t row = n_; row-- > 0;)
        {
            for (std::size_t col = row + 1; col < n_; ++col)
                x[row] -= At(row, col) * x[col];
            x[row] /= At(row, row);
        }
    }

private:
    double& At(std::size_t row, std::size_t col) const { return a_[row * n_ + col]; }
    std::size_t PivotRow(std::size_t k) const
    {
        std::size_t pivot = k;
        for (std::size_t row = k + 1; row < n_; ++row)
            if (std::abs(At(row, k)) > std::abs(At(pivot, k)))
                pivot = row;
        return pivot;
    }

    std::size_t n_;
    double* a_;
};
}

bool gsl_SolveLinearSystem(double a1, double b1, double c1, double d1, double a2, double b2, double c2,
                           double d2, double a3, double b3, double c3, double d3, double& x, double& y,
                           double& z)
{
    double a[] = {a1, b1, c1, a2, b2, c2, a3, b3, c3};
    const double d[] = {d1, d2, d3};
    std::size_t order[3];
    Factors factors(3, a);
    if (!factors.Make(order))
        return false;
    double solution[] = {d[order[0]], d[order[1]], d[order[2]]};
    factors.Solve(solution);
    x = solution[0];
    y = solution[1];
    z = solution[2];
    return true;
}

bool gsl_LinearEqnLUDSolver(int n, double* a, double* b)
{
    if (n < 1)
        return true;
    std::vector<std::size_t> order(static_cast<std::size_t>(n));
    Factors factors(n, a);
    if (!factors.Make(order.data()))
        return false;
    std::vector<double> solution(order.size());
    std::transform(order.begin(), order.end(), solution.begin(), [b](std::size_t row) { return b[row]; });
    factors.Solve(solution.data());
    std::copy(solution.begin(), solution.end(), b);
    return true;
}
