#include <algorithm>
#include <cmath>
#include <gsl_PartTree.h>
#include <gsl_ProceedClock.h>

namespace
{
// What a look-up may cost, in the clock's units, and how many steps of halving cost one.
constexpr int FETCH_UNITS = 4;
constexpr int STEPS_A_UNIT = 8;
// How many triangles are cut between two looks at the clock, and fetched before their boxes are made.
constexpr int STRETCH = 1024;
constexpr int BLOCK = 64;

// How often the place of a cut may be halved without parting anything before the triangles count as one heap.
constexpr int MOST_TRIALS = 32;

// What is no number has no place in an order; its triangle is degenerate wherever it stands.
float Sortable(double value)
{
    return std::isnan(value) ? 0.0F : static_cast<float>(value);
}
}

void gsl_PartTree::Region::Add(const Place& place)
{
    for (int axis = 0; axis < 3; ++axis)
    {
        low[axis] = std::min(low[axis], place.centre[axis]);
        high[axis] = std::max(high[axis], place.centre[axis]);
    }
}

int gsl_PartTree::Region::WidestAxis() const
{
    int widest = 0;
    for (int axis = 1; axis < 3; ++axis)
    {
        widest = high[axis] - low[axis] > high[widest] - low[widest] ? axis : widest;
    }
    return widest;
}

void gsl_PartTree::Clear(std::size_t room)
{
    // Built aside: a failed allocation leaves no half, and what a larger tree needed is given back.
    gsl_PartTree fresh;
    fresh.order_.reserve(room);
    fresh.triangles_.reserve(room);
    *this = std::move(fresh);
}

void gsl_PartTree::BeginSearch(std::uint32_t search)
{
    search_ = search;
    prepared_.Reset();
    sheets_.Reset();
}

int gsl_PartTree::MakeGroup(const std::vector<std::int32_t>& indices, gsl_CornerSource& source,
                            gsl_ProceedClock& clock)
{
    const int begin = static_cast<int>(triangles_.size());
    Part group;
    Range range;
    range.begin = begin;
    // Triangles left behind would outgrow the room that keeps corners where they are.
    const auto giveUp = [&] {
        order_.resize(At(begin));
        triangles_.resize(At(begin));
    };
    try
    {
        for (const std::int32_t index : indices)
        {
            // Made as they are fetched: clearing much memory would take long between two looks at the clock.
            Triangle& triangle = triangles_.emplace_back();
            triangle.index = index;
            order_.push_back({{}, begin + group.count});
            group.lowest = std::min(group.lowest, index);
            ++group.count;
            source.Fetch(index, triangle.corner);
            if (!clock.Spend(FETCH_UNITS))
            {
                giveUp();
                return NONE;
            }
            if (group.count % BLOCK == 0)
            {
                AddBoxes(begin + group.count - BLOCK, BLOCK, group.box);
            }
        }
        AddBoxes(begin + group.count - group.count % BLOCK, group.count % BLOCK, group.box);
        ranges_.resize(parts_.size());
        ranges_.push_back(range);
        parts_.push_back(group);
    }
    catch (...)
    {
        giveUp();
        throw;
    }
    return static_cast<int>(parts_.size()) - 1;
}

bool gsl_PartTree::FetchGroup(int group, gsl_CornerSource& source, gsl_ProceedClock& clock)
{
    gsl_Extent box;
    const int begin = FirstSlot(group);
    const int end = begin + Count(group);
    for (int from = begin; from < end; from += BLOCK)
    {
        const int to = std::min(from + BLOCK, end);
        for (int i = from; i < to; ++i)
        {
            source.Fetch(triangles_[At(i)].index, triangles_[At(i)].corner);
            triangles_[At(i)].prepared = NOT_PREPARED;
            if (!clock.Spend(FETCH_UNITS))
            {
                return false;
            }
        }
        AddBoxes(from, to - from, box);
    }
    parts_[At(group)].box = box;
    ranges_[At(group)].sheet = NOT_PREPARED;
    return true;
}

// The boxes of neighbouring triangles, and a box around them as well. Apart from the look-ups, which would
// have what it computes with out of the registers.
void gsl_PartTree::AddBoxes(int first, int count, gsl_Extent& box)
{
    gsl_Extent whole;
    for (int i = first; i < first + count; ++i)
    {
        Triangle& triangle = triangles_[At(i)];
        gsl_Extent own;
        own.Add(triangle.corner[0]);
        own.Add(triangle.corner[1]);
        own.Add(triangle.corner[2]);
        triangle.box = own;
        whole.Add(own);
    }
    box.Add(whole);
}

bool gsl_PartTree::OpenAnew(int part, gsl_ProceedClock& clock)
{
    if (parts_[At(part)].lower == NONE && !Halve(part, clock))
    {
        return false;
    }
    Refit(part, clock);
    return true;
}

// The boxes of all below a part in this search. All at once: parts that an earlier search has opened are
// mostly opened again, and then this looks at each triangle once instead of once a level.
void gsl_PartTree::Refit(int part, gsl_ProceedClock& clock)
{
    for (const int child : {Lower(part), Upper(part)})
    {
        Part& below = parts_[At(child)];
        if (below.lower == NONE)
        {
            Gather(child, clock);
            continue;
        }
        Refit(child, clock);
        below.box = Box(Lower(child));
        below.box.Add(Box(Upper(child)));
        ranges_[At(child)].sheet = NOT_PREPARED;
    }
    parts_[At(part)].opened = search_;
}

// Makes the two children, without their boxes. false, and none made, when the clock ran out.
bool gsl_PartTree::Halve(int part, gsl_ProceedClock& clock)
{
    const int count = Count(part);
    if (ranges_[At(part)].region.IsEmpty())
    {
        FindCentres(part);
    }
    Range lower = ranges_[At(part)];
    Range upper = lower;
    int below = 0;
    for (int trial = 0; trial < MOST_TRIALS && (below == 0 || below == count); ++trial)
    {
        lower.region = below == 0 ? upper.region : lower.region;
        upper.region = lower.region;
        const int axis = lower.region.WidestAxis();
        const float cut = 0.5F * lower.region.low[axis] + 0.5F * lower.region.high[axis];
        below = Partition(&order_[At(lower.begin)], count, axis, cut, clock);
        lower.region.high[axis] = cut;
        upper.region.low[axis] = cut;
        if (clock.Stopped())
        {
            return false;
        }
    }
    if (below == 0 || below == count)
    {
        below = count / 2;
    }
    upper.begin += below;
    const std::size_t first = parts_.size();
    ranges_.resize(first);
    ranges_.push_back(lower);
    ranges_.push_back(upper);
    parts_.resize(first + 2);
    parts_[first].count = below;
    parts_[first + 1].count = count - below;
    parts_[At(part)].lower = static_cast<std::int32_t>(first);
    return true;
}

// Where the triangles of a group lie: not asked before it is first halved.
void gsl_PartTree::FindCentres(int group)
{
    Region region;
    const auto begin = order_.begin() + FirstSlot(group);
    for (auto place = begin; place != begin + Count(group); ++place)
    {
        const gsl_Triple* corner = triangles_[At(place->triangle)].corner;
        const gsl_Triple sum = corner[0] + corner[1] + corner[2];
        place->centre[0] = Sortable(sum.x);
        place->centre[1] = Sortable(sum.y);
        place->centre[2] = Sortable(sum.z);
        region.Add(*place);
    }
    ranges_[At(group)].region = region;
}

// Puts the triangles with their centre below the cut first, keeping their order; returns how many they are.
// Both places are written for every triangle: cheaper than a branch that no one can predict.
int gsl_PartTree::Partition(Place* first, int count, int axis, float cut, gsl_ProceedClock& clock)
{
    if (asideSize_ < At(count))
    {
        aside_ = std::make_unique_for_overwrite<Place[]>(At(count));
        asideSize_ = At(count);
    }
    int below = 0;
    int above = 0;
    int to = 0;
    try
    {
        while (to < count)
        {
            const int from = to;
            to = std::min(from + STRETCH, count);
            for (int i = from; i < to; ++i)
            {
                const Place item = first[i];
                const int isBelow = item.centre[axis] < cut ? 1 : 0;
                first[below] = item;
                aside_[At(above)] = item;
                below += isBelow;
                above += 1 - isBelow;
            }
            clock.Spend(1 + (to - from) / STEPS_A_UNIT);
        }
    }
    catch (...)
    {
        // The clock asks the caller, who may throw: back to the order of the triangles.
        std::copy_n(aside_.get(), above, first + below);
        std::inplace_merge(first, first + below, first + to,
                           [](const Place& a, const Place& b) { return a.triangle < b.triangle; });
        throw;
    }
    std::copy_n(aside_.get(), above, first + below);
    return below;
}

// Box and lowest index of a part, from its triangles.
void gsl_PartTree::Gather(int part, gsl_ProceedClock& clock)
{
    gsl_Extent box;
    std::int32_t lowest = std::numeric_limits<std::int32_t>::max();
    const auto begin = order_.begin() + FirstSlot(part);
    for (auto place = begin; place != begin + Count(part); ++place)
    {
        const Triangle& triangle = triangles_[At(place->triangle)];
        box.Add(triangle.box);
        lowest = std::min(lowest, triangle.index);
    }
    Part& made = parts_[At(part)];
    made.box = box;
    made.lowest = lowest;
    ranges_[At(part)].sheet = NOT_PREPARED;
    clock.Spend(1 + made.count / STEPS_A_UNIT);
}

const gsl_Sheet& gsl_PartTree::MakeSheet(int part, const gsl_Triple& along, gsl_ProceedClock& clock)
{
    gsl_Sheet sheet;
    const auto begin = order_.begin() + FirstSlot(part);
    const auto each = [&](auto add) {
        std::for_each(begin, begin + Count(part),
                      [&](const Place& place) { add(triangles_[At(place.triangle)].corner); });
    };
    if (Count(part) <= SHEET_SIZE)
    {
        each([&](const gsl_Triple* corners) { sheet.AddSlope(corners, along); });
        sheet.Lean(along);
        each([&](const gsl_Triple* corners) { sheet.AddPlaces(corners, along); });
    }
    else
    {
        each([&](const gsl_Triple* corners) { sheet.AddHeights(corners, along); });
    }
    clock.Spend(Count(part));
    ranges_[At(part)].sheet = static_cast<std::int32_t>(sheets_.Count());
    gsl_Sheet& kept = sheets_.Take();
    kept = sheet;
    return kept;
}

const gsl_StageTriangle* gsl_PartTree::Prepare(Triangle& triangle, const gsl_CornerSource& source,
                                               const gsl_PairStage& stage)
{
    gsl_Triple normal;
    if (!source.Normal(triangle.corner, normal))
    {
        triangle.prepared = DEGENERATE;
        return nullptr;
    }
    triangle.prepared = static_cast<std::int32_t>(prepared_.Count());
    gsl_StageTriangle& prepared = prepared_.Take();
    prepared = stage.Prepare(triangle.corner, normal);
    return &prepared;
}
