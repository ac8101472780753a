#pragma once

#include <gsl_Util.h>

/// Restores the tolerances and the display factor of the process at the end of a scope.
class ToleranceGuard
{
public:
    ToleranceGuard() = default;
    ToleranceGuard(const ToleranceGuard&) = delete;
    ToleranceGuard& operator=(const ToleranceGuard&) = delete;
    ~ToleranceGuard()
    {
        gsl_Util& util = gsl_Util::Instance();
        util.SetLinearTolerance(linear_);
        util.SetSquaredTolerance(squared_);
        util.SetParallelTolerance(parallel_);
        util.SetCoarseTolerance(coarse_);
        util.SetOldDisplayFactor(factor_ == 15.0);
    }

private:
    double linear_ = gsl_Util::Instance().LinearTolerance();
    double squared_ = gsl_Util::Instance().SquaredTolerance();
    double parallel_ = gsl_Util::Instance().ParallelTolerance();
    double coarse_ = gsl_Util::Instance().CoarseTolerance();
    double factor_ = gsl_Util::Instance().DisplayFactor();
};
