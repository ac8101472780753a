#include <bat_ContactTravel.h>
#include <bat_Crossing.h>
#include <bat_Interrupted.h>
#include <bat_MeshError.h>
#include <bat_Number.h>
#include <bat_Part.h>
#include <bat_Phase.h>
#include <bat_TravelSearch.h>
#include <gsl_Point.h>
#include <gsl_Util.h>
#include <optional>
#include <stdexcept>

namespace
{
constexpr float PLANT_SHARE = 5.0f;
constexpr float SEARCH_SHARE = 45.0f;
constexpr float CROSSING_SHARE = 5.0f;
static_assert(2.0f * PLANT_SHARE + SEARCH_SHARE + CROSSING_SHARE == bat_ContactTravel::SHARE);

bat_TravelResult::Side SideOf(const bat_Part& part)
{
    return {part.File(), part.Count(), part.Box()};
}
}

bat_TravelResult bat_ContactTravel::Find(const bat_TravelQuestion& question)
{
    bat_TravelResult result;
    result.direction = question.direction;
    result.bound = question.bound;
    result.tolerance = gsl_Util::Instance().LinearTolerance();
    result.fixed = SideOf(fixed_);
    result.movable = SideOf(movable_);

    const int depth = DepthFor(question.depth, result.tolerance);
    Plant(fixed_, question.tree, depth);
    Plant(movable_, question.tree, depth);
    result.degenerate = fixed_.Degenerate() + movable_.Degenerate();
    result.outside = fixed_.Outside() + movable_.Outside();
    Search(depth, result);
    if (!result.IsClear() && result.travel == 0.0)
        FindState(result);
    return result;
}

// The search passes over fixed nodes whose box is smaller than the tolerance, with all that is in them: the
// depth to which halving the box does not lead there.
int bat_ContactTravel::DepthFor(int asked, double tolerance) const
{
    const double size = fixed_.Box().Size();
    if (size < tolerance && fixed_.Degenerate() < fixed_.Count())
        throw bat_MeshError(fixed_.File(), "the part is only " + bat_ReadableText(size) +
                                               " across, less than the tolerance " +
                                               bat_ReadableText(tolerance) +
                                               ": give both parts in a smaller unit");
    int depth = 1;
    for (double next = 0.5 * size; depth < asked && next >= 2.0 * tolerance; next *= 0.5)
        ++depth;
    if (depth < asked)
        watcher_.Note(fixed_.File() + " is so small that the trees stop at depth " + std::to_string(depth) +
                      ", where their boxes come near the tolerance");
    return depth;
}

void bat_ContactTravel::Plant(bat_Part& part, gsl_TriOctree::OctreeNodeType type, int depth) const
{
    const bat_Phase phase(watcher_, PLANT_SHARE / total_, "sorting " + part.File());
    part.Plant(type, depth, watcher_);
}

void bat_ContactTravel::Search(int depth, bat_TravelResult& result) const
{
    const bat_Phase phase(watcher_, SEARCH_SHARE / total_, "searching");
    bat_TravelSearch search(fixed_, movable_, depth, watcher_);
    if (!search.SetDirection(result.direction))
        throw std::logic_error("the search refused a unit direction");
    double distance = result.bound;
    const bool found = search.FindDirectionalDistance(fixed_.Root(), movable_.Root(), distance);
    if (search.WasStopped())
        throw bat_Interrupted();
    if (!found)
        return;
    result.state = bat_TravelResult::State::CONTACT;
    result.travel = distance;
    search.LastPair(result.fixed.triangle, result.movable.triangle);
    gsl_Point onFixed;
    gsl_Point onMovable;
    search.LastContact(onFixed, onMovable);
    result.fixed.point = {onFixed.X(), onFixed.Y(), onFixed.Z()};
    result.movable.point = {onMovable.X(), onMovable.Y(), onMovable.Z()};
}

void bat_ContactTravel::FindState(bat_TravelResult& result) const
{
    const bat_Phase phase(watcher_, CROSSING_SHARE / total_, "looking for crossings");
    result.state = bat_TravelResult::State::TOUCHING;
    const std::optional<bat_Crossing> crossing =
        bat_Crossing::Find(fixed_, movable_, result.tolerance, watcher_);
    if (!crossing)
        return;
    result.state = bat_TravelResult::State::OVERLAPPING;
    result.fixed.triangle = crossing->fixed;
    result.movable.triangle = crossing->movable;
    result.fixed.point = crossing->point;
    result.movable.point = crossing->point;
}
