#pragma once

#include <oxu_Export.h>

// Systems of linear equations, by Gaussian elimination with partial pivoting (G. H. Golub and C. F. Van Loan,
// "Matrix Computations", 3.4). A system counts as singular when a pivot is below gsl_Util's squared tolerance
// times the largest |coefficient|, or is no number: rows of very different size are to be scaled before.

/// Solves ai x + bi y + ci z = di for i = 1, 2, 3. false, and x, y, z unchanged, when singular.
[[nodiscard]] OXU_EXPORT bool gsl_SolveLinearSystem(double a1, double b1, double c1, double d1, double a2,
                                                    double b2, double c2, double d2, double a3, double b3,
                                                    double c3, double d3, double& x, double& y, double& z);

/// Solves a x = b for a matrix a of n x n, row by row. a is overwritten by its factors, b by the solution.
/// false when singular; b is then unchanged. n below 1 has nothing to solve, and succeeds.
[[nodiscard]] OXU_EXPORT bool gsl_LinearEqnLUDSolver(int n, double* a, double* b);
