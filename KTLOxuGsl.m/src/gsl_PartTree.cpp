#include <algorithm>
#include <cmath>
#include <gsl_PartTree.h>
#include <gsl_ProceedClock.h>
#include <limits>

namespace
{
// What a look-up may cost, in the clock's units, and how many steps of halving cost one.
constexpr int FETCH_UNITS = 4;
constexpr int STEPS_A_UNIT = 8;
constexpr int BLOCK = 1024;

// How often the place of a cut may be halved without parting anything before the triangles count as one heap.
constexpr int MOST_TRIALS = 32;

// What is no number has no place in an order; its triangle is degenerate wherever it stands.
float Sortable(double value)
{
    return std::isnan(value) ? 0.0F : static_cast<float>(value);
}
}

// Where the centres of some triangles lie.
struct gsl_PartTree::Region
{
    float low[3] = {std::numeric_limits<float>::max(), std::numeric_limits<float>::max(),
                    std::numeric_limits<float>::max()};
    float high[3] = {std::numeric_limits<float>::lowest(), std::numeric_limits<float>::lowest(),
                     std::numeric_limits<float>::lowest()};

    void Add(const Loose& item)
    {
        for (int axis = 0; axis < 3; ++axis)
        {
            low[axis] = std::min(low[axis], item.centre[axis]);
            high[axis] = std::max(high[axis], item.centre[axis]);
        }
    }
    int WidestAxis() const
    {
        int widest = 0;
        for (int axis = 1; axis < 3; ++axis)
        {
            widest = high[axis] - low[axis] > high[widest] - low[widest] ? axis : widest;
        }
        return widest;
    }
};

void gsl_PartTree::Clear(std::size_t room)
{
    // Built aside: a failed allocation leaves no half, and what a larger tree needed is given back.
    gsl_PartTree fresh;
    fresh.index_.reserve(room);
    fresh.corners_.reserve(room);
    fresh.boxes_.reserve(room);
    fresh.preparedAt_.reserve(room);
    *this = std::move(fresh);
}

void gsl_PartTree::BeginSearch()
{
    prepared_.Reset();
    sheets_.Reset();
}

int gsl_PartTree::MakeGroup(const std::vector<std::int32_t>& indices, gsl_CornerSource& source,
                            gsl_ProceedClock& clock)
{
    const int count = static_cast<int>(indices.size());
    const int begin = static_cast<int>(index_.size());
    const int group = static_cast<int>(parts_.size());
    // Written as they come, and left as they are beforehand: clearing much memory would take long between two
    // looks at the clock.
    fetched_.clear();
    fetched_.reserve(indices.size());
    loose_.clear();
    loose_.reserve(indices.size());
    if (asideSize_ < indices.size())
    {
        aside_ = std::make_unique_for_overwrite<Loose[]>(indices.size());
        asideSize_ = indices.size();
    }
    Region region;
    for (int i = 0; i < count; ++i)
    {
        Corners& corners = fetched_.emplace_back();
        source.Fetch(indices[At(i)], corners.at);
        const gsl_Triple sum = corners.at[0] + corners.at[1] + corners.at[2];
        loose_.push_back({{Sortable(sum.x), Sortable(sum.y), Sortable(sum.z)}, i});
        region.Add(loose_.back());
        source.Move(corners.at);
        if (!clock.Spend(FETCH_UNITS))
        {
            return NONE;
        }
    }
    try
    {
        if (!Halve(loose_.data(), count, begin, region, clock))
        {
            CutBack(group, begin);
            return NONE;
        }
        for (const Loose& item : loose_)
        {
            index_.push_back(indices[At(item.at)]);
            corners_.push_back(fetched_[At(item.at)]);
            boxes_.push_back(BoxOf(corners_.back()));
            preparedAt_.push_back(NOT_PREPARED);
            clock.Spend(1); // not given up here: half a group is none
        }
        const int last = static_cast<int>(parts_.size());
        sheetAt_.resize(parts_.size());
        FindLowest(group, last);
        MakeBoxes(group, last, clock);
    }
    catch (...)
    {
        // The clock asks the caller, who may throw. Slots left behind would outgrow the room that keeps
        // corners where they are.
        CutBack(group, begin);
        throw;
    }
    return group;
}

void gsl_PartTree::CutBack(int parts, int slots) noexcept
{
    parts_.resize(At(parts));
    sheetAt_.resize(At(parts));
    index_.resize(At(slots));
    corners_.resize(At(slots));
    boxes_.resize(At(slots));
    preparedAt_.resize(At(slots));
}

bool gsl_PartTree::FetchGroup(int group, gsl_CornerSource& source, gsl_ProceedClock& clock)
{
    const Part& part = parts_[At(group)];
    for (int slot = part.begin; slot < part.begin + part.count; ++slot)
    {
        Corners& corners = corners_[At(slot)];
        source.Fetch(index_[At(slot)], corners.at);
        source.Move(corners.at);
        boxes_[At(slot)] = BoxOf(corners);
        preparedAt_[At(slot)] = NOT_PREPARED;
        if (!clock.Spend(FETCH_UNITS))
        {
            return false;
        }
    }
    // A group's parts end where its last leaf stands: always down the upper side.
    int last = group;
    while (!IsLeaf(last))
    {
        last = Upper(last);
    }
    MakeBoxes(group, last + 1, clock);
    return true;
}

gsl_Extent gsl_PartTree::BoxOf(const Corners& corners)
{
    gsl_Extent box;
    for (const gsl_Triple& corner : corners.at)
    {
        box.Add(corner);
    }
    return box;
}

// Appends the part of these triangles and all below it, and puts the triangles in the order of the slots.
bool gsl_PartTree::Halve(Loose* first, int count, int begin, Region region, gsl_ProceedClock& clock)
{
    const int part = static_cast<int>(parts_.size());
    parts_.emplace_back();
    parts_.back().begin = begin;
    parts_.back().count = count;
    if (count <= LEAF_SIZE)
    {
        return true;
    }
    Region upper = region;
    int below = 0;
    for (int trial = 0; trial < MOST_TRIALS && (below == 0 || below == count); ++trial)
    {
        region = below == 0 ? upper : region;
        upper = region;
        const int axis = region.WidestAxis();
        const float cut = 0.5F * region.low[axis] + 0.5F * region.high[axis];
        below = Partition(first, count, axis, cut, clock);
        region.high[axis] = cut;
        upper.low[axis] = cut;
        if (clock.Stopped())
        {
            return false;
        }
    }
    if (below == 0 || below == count)
    {
        below = count / 2;
    }
    if (!Halve(first, below, begin, region, clock))
    {
        return false;
    }
    parts_[At(part)].upper = static_cast<std::int32_t>(parts_.size());
    return Halve(first + below, count - below, begin + below, upper, clock);
}

// Puts the triangles with their centre below the cut first, keeping their order; returns how many they are.
// Both places are written for every triangle: cheaper than a branch that no one can predict.
int gsl_PartTree::Partition(Loose* first, int count, int axis, float cut, gsl_ProceedClock& clock)
{
    int below = 0;
    int above = 0;
    for (int from = 0; from < count; from += BLOCK)
    {
        const int to = std::min(from + BLOCK, count);
        for (int i = from; i < to; ++i)
        {
            const Loose item = first[i];
            const int isBelow = item.centre[axis] < cut ? 1 : 0;
            first[below] = item;
            aside_[At(above)] = item;
            below += isBelow;
            above += 1 - isBelow;
        }
        clock.Spend(1 + (to - from) / STEPS_A_UNIT);
    }
    std::copy_n(aside_.get(), above, first + below);
    return below;
}

// The boxes of the parts from first to before last, children before their parents.
void gsl_PartTree::MakeBoxes(int first, int last, gsl_ProceedClock& clock)
{
    for (int part = last - 1; part >= first; --part)
    {
        gsl_Extent box;
        if (IsLeaf(part))
        {
            const int begin = FirstSlot(part);
            for (int slot = begin; slot < begin + Count(part); ++slot)
            {
                box.Add(boxes_[At(slot)]);
            }
        }
        else
        {
            box = Box(Lower(part));
            box.Add(Box(Upper(part)));
        }
        parts_[At(part)].box = box;
        sheetAt_[At(part)] = NOT_PREPARED;
        clock.Spend(1);
    }
}

// The lowest indices of the parts from first to before last.
void gsl_PartTree::FindLowest(int first, int last)
{
    for (int part = last - 1; part >= first; --part)
    {
        const auto begin = index_.begin() + FirstSlot(part);
        std::int32_t lowest = std::numeric_limits<std::int32_t>::max(); // of an empty group
        if (IsLeaf(part))
        {
            std::for_each(begin, begin + Count(part), [&](std::int32_t i) { lowest = std::min(lowest, i); });
        }
        else
        {
            lowest = std::min(LowestIndex(Lower(part)), LowestIndex(Upper(part)));
        }
        parts_[At(part)].lowest = lowest;
    }
}

const gsl_Sheet& gsl_PartTree::MakeSheet(int part, const gsl_Triple& along, gsl_ProceedClock& clock)
{
    gsl_Sheet sheet;
    if (Count(part) > SHEET_SIZE && !IsLeaf(part))
    {
        sheet.AddHeights(Sheet(Lower(part), along, clock));
        sheet.AddHeights(Sheet(Upper(part), along, clock));
    }
    else
    {
        const auto begin = corners_.begin() + FirstSlot(part);
        std::for_each(begin, begin + Count(part), [&](const Corners& c) { sheet.AddSlope(c.at, along); });
        sheet.Lean(along);
        std::for_each(begin, begin + Count(part), [&](const Corners& c) { sheet.AddPlaces(c.at, along); });
        clock.Spend(Count(part));
    }
    sheetAt_[At(part)] = static_cast<std::int32_t>(sheets_.Count());
    gsl_Sheet& kept = sheets_.Take();
    kept = sheet;
    return kept;
}

const gsl_StageTriangle* gsl_PartTree::Prepare(int slot, const gsl_CornerSource& source,
                                               const gsl_PairStage& stage)
{
    const gsl_Triple* corners = corners_[At(slot)].at;
    gsl_Triple normal;
    if (!source.Normal(corners, normal))
    {
        preparedAt_[At(slot)] = DEGENERATE;
        return nullptr;
    }
    preparedAt_[At(slot)] = static_cast<std::int32_t>(prepared_.Count());
    gsl_StageTriangle& prepared = prepared_.Take();
    prepared = stage.Prepare(corners, normal);
    return &prepared;
}
