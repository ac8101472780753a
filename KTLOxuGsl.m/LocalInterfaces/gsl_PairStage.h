#pragma once

#include <gsl_BlockStore.h>
#include <gsl_Extent.h>
#include <gsl_PairTests.h>
#include <gsl_StageTriangle.h>
#include <gsl_StageView.h>
#include <gsl_SweptBox.h>
#include <gsl_TravelSpan.h>
#include <gsl_Triple.h>
#include <gsl_UprightStage.h>
#include <gsl_ViewFrame.h>

class gsl_Vector;

/// Triangle against triangle: how far the movable one travels along the direction before it touches the fixed
/// one.
///
/// Both searches decide their pairs here, so they agree to the last bit whatever the order of the pairs: the
/// travel of a pair depends on nothing but its two triangles. Contact is accepted within the tolerance: seen
/// in the plane of the other triangle, a corner may lie that far outside it.
///
/// Laws, for a pair whose travel is t:
///  1. t is not below the travel at which the two boxes, grown by the tolerance, meet.
///  2. t is not below the gap between the two ranges along the direction, less the tolerance, and from
///  ClearGap on not
///     below the gap between their heights.
/// They hold exactly, not up to rounding, so a search that prunes by boxes and ranges loses nothing.
class gsl_PairStage
{
public:
    /// REQUIRES: a unit direction.
    gsl_PairStage(const gsl_Triple& direction, double tolerance);

    /// REQUIRES: a unit normal of the three corners, which must live as long as what is returned.
    gsl_StageTriangle Prepare(const gsl_Triple corners[3], const gsl_Triple& normal) const;
    gsl_StageView View(const gsl_StageTriangle& triangle) const;

    /// When the boxes of a pair, grown by the tolerance, meet; false, and boxes unchanged, when they never
    /// do: then the triangles do not either.
    bool BoxesMeet(const gsl_Extent& movable, const gsl_Extent& fixed, double& boxes) const
    {
        return sweep_.Meet(movable, fixed, 2.0 * tolerance_, boxes);
    }
    /// The travel of a pair whose boxes meet at `boxes`; false, and travel unchanged, when the two do not
    /// meet ahead. Pairs that can only have a travel above limit may be answered false without being looked
    /// at closely; limit changes nothing else. Views that have to be made are taken from the store.
    bool Travel(const gsl_StageTriangle& movable, const gsl_StageTriangle& fixed, double boxes, double limit,
                gsl_BlockStore<gsl_StageView>& store, double& travel) const;
    /// The travels at which the two meet, by the method that their slopes ask for.
    gsl_TravelSpan Span(const gsl_StageView& movable, const gsl_StageView& fixed,
                        const gsl_PairTests& tests = {}) const;

    /// Projects a along dir onto the plane of b and finds where the two overlap there. Nothing when dir is
    /// parallel to b. dir is the direction when a is the movable triangle, its opposite when a is the fixed
    /// one; tests and span take a for the movable one.
    void Project(const gsl_StageView& a, const gsl_StageView& b, const gsl_Triple& dir,
                 const gsl_PairTests& tests, gsl_TravelSpan& span) const;

    /// Closest points of the lines p1 + s1 d1 and p2 + s2 d2. false, and outputs unchanged, when they are
    /// parallel, one has no direction, or they pass each other at more than the tolerance.
    static bool Cross(const gsl_Triple& p1, const gsl_Triple& d1, const gsl_Triple& p2, const gsl_Triple& d2,
                      double tolerance, double& s1, double& s2);

    /// The least gap between the heights of a pair, fixed.low - movable.high, that a contact within the
    /// tolerance does not bridge.
    double ClearGap() const noexcept { return 2.0 * tolerance_; }

    const gsl_UprightStage& Upright() const noexcept { return upright_; }
    const gsl_SweptBox& Sweep() const noexcept { return sweep_; }
    const gsl_Triple& Direction() const noexcept { return frame_.along; }
    double Tolerance() const noexcept { return tolerance_; }

private:
    // In what follows shadow is a projected onto the plane of b, relative to b's origin.

    /// Those corners of b, carried back along dir onto a.
    void CarryBack(const gsl_StageView& a, const gsl_StageView& b, const gsl_Triple& dir,
                   const gsl_Triple shadow[3], unsigned corners, gsl_TravelSpan& span) const;
    /// The places where sides cross, seen along dir.
    void CrossSides(const gsl_StageView& a, const gsl_StageView& b, const gsl_Triple& dir,
                    const gsl_Triple shadow[3], gsl_TravelSpan& span) const;
    /// One side against one; atStart and atEnd are the areas at the ends of a's side, as b's side sees them.
    void CrossSide(const gsl_StageView& a, int sideOfA, const gsl_StageView& b, int sideOfB,
                   const gsl_Triple& dir, const gsl_Triple shadow[3], double atStart, double atEnd,
                   gsl_TravelSpan& span) const;
    /// A place at that share of a side lies on it, or beyond its ends within the tolerance.
    bool IsWithin(double share, double squaredLength) const noexcept;

    /// The two ranges against the direction, measured exactly alike by both searches: whether the movable one
    /// lies wholly behind the fixed one, and the gap between them.
    bool IsBehind(const gsl_StageTriangle& movable, const gsl_StageTriangle& fixed) const;
    double Gap(const gsl_StageTriangle& movable, const gsl_StageTriangle& fixed) const;
    /// A travel that no contact of the pair falls short of, by the two planes; false when they show that all
    /// contact lies behind.
    bool LeastByPlanes(const gsl_StageTriangle& movable, const gsl_StageTriangle& fixed, double& least) const;
    /// Seen along the direction, the two are apart by more than the tolerance could bridge. If not, takes
    /// corners off the tests that are outside the other triangle by as much.
    bool SeenApart(const gsl_StageView& movable, const gsl_StageView& fixed, gsl_PairTests& tests) const;
    const gsl_StageView& ViewOf(const gsl_StageTriangle& triangle,
                                gsl_BlockStore<gsl_StageView>& store) const;

    gsl_ViewFrame frame_;
    double tolerance_;
    gsl_SweptBox sweep_;
    gsl_UprightStage upright_;
};
