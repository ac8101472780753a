#include <algorithm>
#include <gsl_PairSearch.h>
#include <gsl_ProceedClock.h>
#include <limits>
#include <utility>

namespace
{
// What looking at a pair may cost, in the clock's units.
constexpr int PAIR_UNITS = 2;

// How many pairs a walk off the queue may take, and how many may wait in the queue.
constexpr int LONGEST_WALK = 4096;
constexpr std::size_t LONGEST_QUEUE = std::size_t{1} << 18;
// From so many waiting pairs on a walk is tried before some contact is known: boxes overlap long before what
// is in them touches, and any contact lets most of them go.
constexpr std::size_t SHORT_QUEUE = 768;

// Parts of this many triangles and fewer are walked to the end at once.
constexpr int DESCEND_FROM = 128;

// From how many slacks below the limit on a pair of boxes is looked at more closely, whatever its size.
constexpr double CLOSE = 4.0;

// Tolerances, and roundings in units in the last place of the largest coordinate, that a contact may be off.
constexpr double TOLERANCES_OFF = 8.0;
constexpr double ROUNDINGS_OFF = 4096.0 * std::numeric_limits<double>::epsilon();
}

struct gsl_PairSearch::Walk
{
    gsl_PairSearch& search;
    gsl_SearchTree& fixed;
    gsl_SearchTree& movable;
    const gsl_PairStage& stage;
    gsl_ProceedClock& clock;
    gsl_BestPair& best;
    double slack;
    double margin;
    double done = 0.0;

    static bool AreParts(int m, int f) { return !gsl_SearchTree::IsCell(m) && !gsl_SearchTree::IsCell(f); }
    // Whether two boxes can meet before the best pair, and when at the soonest.
    bool Soonest(const gsl_Extent& m, const gsl_Extent& f, double& soonest) const
    {
        return stage.Sweep().Meet(m, f, slack, soonest) && soonest < best.Travel();
    }
    bool PartsCanMeet(int m, int f, double& soonest);
    // Whether two nodes can meet in time to matter, and when at the soonest.
    bool CanMeet(int m, int f, double& soonest)
    {
        return AreParts(m, f) ? PartsCanMeet(m, f, soonest) : Soonest(movable.Box(m), fixed.Box(f), soonest);
    }
    void Retire(double share)
    {
        done += share;
        clock.SetDone(done);
    }
    bool IsOver() const { return clock.Stopped() || best.Travel() <= 0.0; }

    bool IsFollowing() const { return best.Found() || search.queue_.Size() > SHORT_QUEUE; }

    void LookAt(gsl_PairQueue::Item item);
    void Wait(const gsl_PairQueue::Item& item);
    void Follow();
    void Open(const gsl_PairQueue::Item& item);
    void Descend(int m, int f);
    void TestTriangles(int m, int f);
    void TestTriangle(int fixedOne, const int* movableOnes, int count);
};

gsl_PairSearch::gsl_PairSearch(gsl_CornerSource& fixed, const gsl_SearchTree::Limits& fixedLimits,
                               gsl_CornerSource& movable, const gsl_SearchTree::Limits& movableLimits)
    : fixed_(fixed, fixedLimits), movable_(movable, movableLimits)
{}

void gsl_PairSearch::Run(const gsl_TriOctreeNode& fixed, const gsl_TriOctreeNode& movable,
                         const gsl_PairStage& stage, gsl_ProceedClock& clock, gsl_BestPair& best)
{
    fixedHanded_ = movableHanded_ = 0;
    queue_.Clear();
    stack_.clear();
    views_.Reset();
    fixed_.Begin(fixed);
    movable_.Begin(movable);
    const double largest = std::max(fixed_.Source().LargestTerm(gsl_Extent(fixed.Box()).Reach()),
                                    gsl_Extent(movable.Box()).Reach());
    Walk walk{*this,
              fixed_,
              movable_,
              stage,
              clock,
              best,
              gsl_SweptBox::Slack(largest, stage.Tolerance()),
              TOLERANCES_OFF * stage.Tolerance() + ROUNDINGS_OFF * largest};
    constexpr int ROOT = gsl_SearchTree::Root();
    double soonest = 0.0;
    if (walk.CanMeet(ROOT, ROOT, soonest))
    {
        queue_.Push({soonest, ROOT, ROOT, 0, 1.0F});
    }
    while (!queue_.IsEmpty() && queue_.Top().soonest < best.Travel() && clock.Spend(PAIR_UNITS))
    {
        walk.LookAt(queue_.Pop());
        walk.Follow();
    }
}

// CanMeet for two parts, which a closer look may keep apart whose boxes meet.
bool gsl_PairSearch::Walk::PartsCanMeet(int m, int f, double& soonest)
{
    gsl_PartTree& movables = movable.Parts();
    gsl_PartTree& fixeds = fixed.Parts();
    const double limit = best.Limit(fixeds.LowestIndex(f), movables.LowestIndex(m));
    const gsl_Extent& movableBox = movables.Box(m);
    const gsl_Extent& fixedBox = fixeds.Box(f);
    if (!stage.Sweep().Meet(movableBox, fixedBox, slack, soonest) || !(soonest <= limit))
    {
        return false;
    }
    const bool isSmall = std::max(movables.Count(m), fixeds.Count(f)) <= gsl_PartTree::SHEET_SIZE;
    if (!best.Found() || (!isSmall && soonest < limit - CLOSE * slack))
    {
        return true;
    }
    const gsl_Triple& along = stage.Direction();
    const auto isClear = [&](double gap) { return gap > stage.ClearGap() && gap > limit; };
    if (isClear(fixedBox.Floor(along) - movableBox.Ceiling(along)))
    {
        return false; // what the sheets' level planes would say, for next to nothing
    }
    const gsl_Sheet& ofMovable = movables.Sheet(m, along, clock);
    const gsl_Sheet& ofFixed = fixeds.Sheet(f, along, clock);
    if (isClear(ofFixed.low - ofMovable.high))
    {
        return false;
    }
    return ofMovable.steepness == 0.0 || ofFixed.steepness == 0.0 ||
           gsl_Sheet::CanMeet(ofMovable, movableBox, ofFixed, fixedBox,
                              {along, soonest, limit, slack, margin});
}

// One pair of nodes: lets it go, puts it back when its boxes have shrunk, walks it to the end, or opens it.
void gsl_PairSearch::Walk::LookAt(gsl_PairQueue::Item item)
{
    const bool settles = movable.IsGroup(item.movable) || fixed.IsGroup(item.fixed);
    if (movable.IsGroup(item.movable))
    {
        item.movable = movable.Settle(item.movable, clock);
    }
    if (fixed.IsGroup(item.fixed))
    {
        item.fixed = fixed.Settle(item.fixed, clock);
    }
    if (clock.Stopped())
    {
        return;
    }
    if (settles)
    {
        if (!CanMeet(item.movable, item.fixed, item.soonest))
        {
            Retire(item.share);
            return;
        }
        if (!IsFollowing() && !search.queue_.IsEmpty() && search.queue_.Top().soonest < item.soonest)
        {
            search.queue_.Push(item);
            return;
        }
    }
    if (AreParts(item.movable, item.fixed) && movable.Count(item.movable) <= DESCEND_FROM &&
        fixed.Count(item.fixed) <= DESCEND_FROM)
    {
        Descend(item.movable, item.fixed);
        Retire(item.share);
        return;
    }
    Open(item);
}

// Where a pair waits. Once some contact is known, most pairs that can still meet before it have to be looked
// at anyhow, whatever their order: a stack is cheaper then, and it stays small where a queue could outgrow
// the memory.
void gsl_PairSearch::Walk::Wait(const gsl_PairQueue::Item& item)
{
    if (IsFollowing())
    {
        search.stack_.push_back(item);
    }
    else
    {
        search.queue_.Push(item);
    }
}

// Looks at what waits on the stack. A walk that gets long goes back to the queue, in case it has begun far
// from the nearest contact.
void gsl_PairSearch::Walk::Follow()
{
    for (int looks = 0; !search.stack_.empty() && !IsOver() && clock.Spend(PAIR_UNITS); ++looks)
    {
        const gsl_PairQueue::Item item = search.stack_.back();
        search.stack_.pop_back();
        if (!(item.soonest < best.Travel()))
        {
            Retire(item.share);
        }
        else if (looks < LONGEST_WALK || search.queue_.Size() > LONGEST_QUEUE)
        {
            LookAt(item);
        }
        else
        {
            search.queue_.Push(item);
        }
    }
}

// Replaces a pair by the pairs that the children of its larger box make with the other.
void gsl_PairSearch::Walk::Open(const gsl_PairQueue::Item& item)
{
    const bool openFixed =
        movable.IsLeaf(item.movable) ||
        (!fixed.IsLeaf(item.fixed) && movable.Box(item.movable).Girth() < fixed.Box(item.fixed).Girth());
    const int children =
        openFixed ? fixed.ChildCount(item.fixed, clock) : movable.ChildCount(item.movable, clock);
    const float share = item.share / static_cast<float>(std::max(children, 1));
    for (int i = 0; i < children; ++i)
    {
        const int f = openFixed ? fixed.Child(item.fixed, i) : item.fixed;
        const int m = openFixed ? item.movable : movable.Child(item.movable, i);
        double soonest = 0.0;
        if (CanMeet(m, f, soonest))
        {
            Wait({soonest, m, f, 0, share});
        }
        else
        {
            Retire(share);
        }
    }
}

// Walks a pair of small parts to the end, the nearer child first: a queue would cost more than it saves.
void gsl_PairSearch::Walk::Descend(int m, int f)
{
    gsl_PartTree& movables = movable.Parts();
    gsl_PartTree& fixeds = fixed.Parts();
    const bool leafMovable = movables.IsLeaf(m);
    const bool leafFixed = fixeds.IsLeaf(f);
    if (leafMovable && leafFixed)
    {
        TestTriangles(m, f);
        return;
    }
    const bool openFixed = leafMovable || (!leafFixed && movables.Box(m).Girth() < fixeds.Box(f).Girth());
    if (!(openFixed ? fixeds.Open(f, clock) : movables.Open(m, clock)))
    {
        return;
    }
    int near[2] = {m, f};
    int far[2] = {m, f};
    double soonestNear = 0.0;
    double soonestFar = 0.0;
    const int opened = openFixed ? 1 : 0;
    near[opened] = openFixed ? fixeds.Lower(f) : movables.Lower(m);
    far[opened] = openFixed ? fixeds.Upper(f) : movables.Upper(m);
    bool meetsNear = PartsCanMeet(near[0], near[1], soonestNear);
    bool meetsFar = PartsCanMeet(far[0], far[1], soonestFar);
    if (meetsFar && (!meetsNear || soonestFar < soonestNear))
    {
        std::swap(near, far);
        std::swap(soonestNear, soonestFar);
        std::swap(meetsNear, meetsFar);
    }
    const double before = best.Travel();
    if (meetsNear)
    {
        Descend(near[0], near[1]);
    }
    if (meetsFar && !IsOver() && (best.Travel() == before || PartsCanMeet(far[0], far[1], soonestFar)))
    {
        Descend(far[0], far[1]);
    }
}

// Tests the triangles of two leaves. Each triangle must first meet the other leaf as a whole.
void gsl_PairSearch::Walk::TestTriangles(int m, int f)
{
    gsl_PartTree& movables = movable.Parts();
    gsl_PartTree& fixeds = fixed.Parts();
    const int fixedFrom = fixeds.FirstSlot(f);
    const int fixedCount = fixeds.Count(f);
    const int movableFrom = movables.FirstSlot(m);
    const int movableCount = movables.Count(m);
    search.fixedHanded_ += fixedCount;
    search.movableHanded_ += movableCount;
    clock.Spend(fixedCount + movableCount);

    double soonest = 0.0;
    int near[gsl_PartTree::LEAF_SIZE];
    int nearCount = 0;
    for (int slot = movableFrom; slot < movableFrom + movableCount; ++slot)
    {
        const int triangle = movables.TriangleIn(slot);
        if (Soonest(movables.TriangleBox(triangle), fixeds.Box(f), soonest))
        {
            near[nearCount++] = triangle;
        }
    }
    for (int slot = fixedFrom; nearCount > 0 && slot < fixedFrom + fixedCount; ++slot)
    {
        const int triangle = fixeds.TriangleIn(slot);
        if (Soonest(movables.Box(m), fixeds.TriangleBox(triangle), soonest))
        {
            TestTriangle(triangle, near, nearCount);
        }
    }
}

void gsl_PairSearch::Walk::TestTriangle(int fixedOne, const int* movableOnes, int count)
{
    gsl_PartTree& movables = movable.Parts();
    gsl_PartTree& fixeds = fixed.Parts();
    const gsl_StageTriangle* fixedTriangle = nullptr;
    for (int i = 0; i < count; ++i)
    {
        const int movableOne = movableOnes[i];
        double boxes = 0.0;
        const int fixedIndex = fixeds.TriangleIndex(fixedOne);
        const int movableIndex = movables.TriangleIndex(movableOne);
        const double limit = best.Limit(fixedIndex, movableIndex);
        if (!stage.BoxesMeet(movables.TriangleBox(movableOne), fixeds.TriangleBox(fixedOne), boxes) ||
            boxes > limit)
        {
            continue;
        }
        if (fixedTriangle == nullptr)
        {
            fixedTriangle = fixeds.Prepared(fixedOne, fixed.Source(), stage);
            if (fixedTriangle == nullptr)
            {
                return;
            }
        }
        const gsl_StageTriangle* movableTriangle = movables.Prepared(movableOne, movable.Source(), stage);
        double travel = 0.0;
        if (movableTriangle != nullptr &&
            stage.Travel(*movableTriangle, *fixedTriangle, boxes, limit, search.views_, travel))
        {
            best.Offer(travel, fixedIndex, movableIndex);
        }
    }
}
