#pragma once

#include <gsl_PairTests.h>
#include <gsl_StageView.h>
#include <gsl_TravelSpan.h>
#include <gsl_ViewFrame.h>

/// Pairs of which a triangle stands upright along the direction, exactly or nearly: projecting along the
/// direction onto its plane would magnify rounding and the tolerance by the inverse of its lean.
///
/// Such a triangle, seen along the direction, is a segment or a sliver. Contact within the tolerance alone is
/// looked for only where the two do not overlap in truth: on a wall that leans by 1e-7 a contact accepted the
/// tolerance beside its place would be ten units off along the direction.
class gsl_UprightStage
{
public:
    /// Below this |normal . direction| a triangle is upright exactly: its lean is rounding.
    static constexpr double UPRIGHT = 1e-12;
    /// From this |normal . direction| on projecting along the direction is accurate.
    static constexpr double NEARLY_UPRIGHT = 1e-3;

    gsl_UprightStage(const gsl_ViewFrame& frame, double tolerance) : frame_(frame), tolerance_(tolerance) {}

    /// Any pair: clips the two as they are seen along the direction, with their heights along it.
    void Clip(const gsl_StageView& movable, const gsl_StageView& fixed, const gsl_PairTests& tests,
              gsl_TravelSpan& span) const;

    /// Both upright exactly. In one plane they are clipped in that plane; in crossing planes they can only
    /// meet on the line that the planes share.
    void BothUpright(const gsl_StageView& movable, const gsl_StageView& fixed, const gsl_PairTests& tests,
                     gsl_TravelSpan& span) const;

private:
    struct Seen;

    void ClipWithin(const Seen& movable, const Seen& fixed, const gsl_PairTests& tests, double reach,
                    gsl_TravelSpan& span) const;
    void InOnePlane(const gsl_StageView& movable, const gsl_StageView& fixed, const gsl_PairTests& tests,
                    gsl_TravelSpan& span) const;
    void InCrossingPlanes(const gsl_StageView& movable, const gsl_StageView& fixed,
                          gsl_TravelSpan& span) const;

    gsl_ViewFrame frame_;
    double tolerance_;
};
