#pragma once

#include <omi_Singleton.h>
#include <oxu_Export.h>

/// The process's tolerances and display factor, created on first use and living to the end.
///
/// All lengths are in model units, all angles in degrees. Every comparison of the geometry reads its
/// tolerance here when it is called, so a change holds for all primitives at once. There is no lock: change
/// values only before geometry work starts. As with every singleton here, constructing another object of the
/// class replaces the instance.
class OXU_EXPORT gsl_Util : public omi_Singleton<gsl_Util>
{
public:
    gsl_Util();

    /// 15 degrees when old, else 11.25.
    void SetOldDisplayFactor(bool old) noexcept { angleStep3 = old ? 15.0 : 11.25; }

    /// Distance below which two points coincide, and length below which a vector is zero.
    double LinearTolerance() const noexcept { return linearTolerance; }
    /// Compared with a squared distance by operator== of gsl_Point; not derived from LinearTolerance().
    double SquaredTolerance() const noexcept { return squaredTolerance; }
    /// Relative threshold below which three points have no normal.
    double ParallelTolerance() const noexcept { return parallelTolerance; }
    /// A coarser tolerance for callers; nothing in this module reads it.
    double CoarseTolerance() const noexcept { return coarseTolerance; }
    /// Angle of the facets in which curves are drawn; the third step of the ladder.
    double DisplayFactor() const noexcept { return angleStep3; }
    /// The ladder of angles, each step half the one before: 1..5, else nex_RangeException. Step 3 is the
    /// display factor and moves with it.
    double AngleStep(int step) const;
    /// omi_gettimecounter() at construction.
    double CreationTime() const noexcept { return creationTime; }
    /// A field that no one sets; 0.
    double Reserved() const noexcept { return reserved; }

    /// For tests: change one tolerance of the running process.
    void SetLinearTolerance(double value) noexcept { linearTolerance = value; }
    void SetSquaredTolerance(double value) noexcept { squaredTolerance = value; }
    void SetParallelTolerance(double value) noexcept { parallelTolerance = value; }
    void SetCoarseTolerance(double value) noexcept { coarseTolerance = value; }

private:
    double linearTolerance = 1e-06;
    double squaredTolerance = 1e-12;
    double parallelTolerance = 1e-10;
    double coarseTolerance = 0.0001;
    double reserved = 0.0;
    double angleStep1 = 45.0;
    double angleStep2 = 22.5;
    double angleStep3 = 11.25; // the display factor
    double angleStep4 = 5.625;
    double angleStep5 = 2.8125;
    double creationTime;
};
