#pragma once

#include <gsl_BestPair.h>
#include <gsl_BlockStore.h>
#include <gsl_PairQueue.h>
#include <gsl_PairStage.h>
#include <gsl_SearchTree.h>
#include <vector>

class gsl_ProceedClock;

/// The search: walks two octrees at once, the pair of boxes that can meet soonest first, down to pairs of
/// triangles.
///
/// Each pair of triangles is met at most once. A pair of boxes is let go when it cannot meet before the
/// nearest pair of triangles known; boxes that hold all that is below them make that safe, so the answer is
/// the one that testing every pair would give. When no box can meet sooner, the search is over.
class gsl_PairSearch
{
public:
    gsl_PairSearch(gsl_CornerSource& fixed, const gsl_SearchTree::Limits& fixedLimits,
                   gsl_CornerSource& movable, const gsl_SearchTree::Limits& movableLimits);

    /// Lowers best to the nearest pair of the two trees, if any is nearer. When the clock stops the search,
    /// best means nothing.
    void Run(const gsl_TriOctreeNode& fixed, const gsl_TriOctreeNode& movable, const gsl_PairStage& stage,
             gsl_ProceedClock& clock, gsl_BestPair& best);

    /// How many triangles the last Run handed to the pair stage, counted anew for every handful they met.
    long long FixedHanded() const noexcept { return fixedHanded_; }
    long long MovableHanded() const noexcept { return movableHanded_; }

private:
    struct Walk; // what one Run holds on to

    gsl_SearchTree fixed_;
    gsl_SearchTree movable_;
    gsl_PairQueue queue_;
    std::vector<gsl_PairQueue::Item> stack_;
    gsl_BlockStore<gsl_StageView> views_;
    long long fixedHanded_ = 0;
    long long movableHanded_ = 0;
};
