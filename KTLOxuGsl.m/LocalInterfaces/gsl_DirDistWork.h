#pragma once

#include <gsl_BestPair.h>
#include <gsl_CornerSource.h>
#include <gsl_PairSearch.h>
#include <gsl_PairStage.h>
#include <gsl_ProceedClock.h>
#include <gsl_TravelSpan.h>
#include <gsl_TriTriDirDist.h>
#include <gsl_Triangle.h>
#include <optional>

/// What a gsl_TriTriDirDist works with: its two sources of triangles, the pair stage of its direction, the
/// search with what it keeps from one run to the next, and the nearest pair.
struct gsl_TriTriDirDist::Work
{
    struct Pair
    {
        int fixed;
        int movable;
        gsl_TravelSpan::Contact contact;
    };

    /// A triangle of the named stages as the pair stage takes it.
    struct Prepared
    {
        Prepared(const gsl_PairStage& stage, const gsl_Triangle& triangle, const gsl_Vector& normal);
        Prepared(const Prepared&) = delete;
        Prepared& operator=(const Prepared&) = delete;

        gsl_Triple corners[3];
        gsl_Extent box;
        gsl_StageTriangle light;
        gsl_StageView view;
    };

    explicit Work(gsl_TriTriDirDist& owner);

    /// A triangle as the named stages take it.
    static gsl_Triangle FetchTriangle(gsl_CornerSource& source, int index);
    /// The best pair and where it meets. REQUIRES: there is one.
    Pair FindContact();

    gsl_CornerSource fixedSource;
    gsl_CornerSource movableSource;
    gsl_PairStage stage;
    gsl_ProceedClock clock;
    gsl_PairSearch search;
    gsl_BlockStore<gsl_StageView> noViews; // the named stages bring theirs
    gsl_BestPair best;
    std::optional<Pair> last; // of the last search, if it found one
};
