#include <algorithm>
#include <bat_BruteForce.h>
#include <bat_Console.h>
#include <bat_ConsoleReporter.h>
#include <bat_Crossing.h>
#include <bat_Interrupt.h>
#include <bat_MeshError.h>
#include <bat_MeshReader.h>
#include <bat_Number.h>
#include <bat_Part.h>
#include <bat_Session.h>
#include <bat_Task.h>
#include <bat_TravelCommand.h>
#include <bat_TravelJson.h>
#include <bat_TravelSearch.h>
#include <bat_TravelText.h>
#include <bat_UsageError.h>
#include <gsl_Point.h>
#include <gsl_TriOctreeNode.h>
#include <gsl_Util.h>
#include <optional>
#include <ostream>
#include <wip_Progress.h>
#include <wip_ProgressObj.h>
#include <wip_WIP.h>

namespace
{
// Shares of the progress; only their proportions matter.
constexpr float READ_SHARE = 20.0f;
constexpr float PLANT_SHARE = 5.0f;
constexpr float SEARCH_SHARE = 45.0f;
constexpr float CROSSING_SHARE = 5.0f;
constexpr float CHECK_SHARE = 100.0f;

void Note(const std::string& sentence)
{
    wip_WIP::Instance().Warning(atr_String(sentence.c_str()));
}

bat_Part Read(const std::string& file, float share)
{
    const bat_Task::Slice slice(share, "reading " + file);
    bat_TriangleMesh mesh;
    {
        const bat_Interrupt::AtOnce nothingToTidy;
        mesh = bat_ReadMesh(file);
    }
    for (const std::string& sentence : mesh.Notes())
        Note(file + ": " + sentence);
    return bat_Part(file, std::move(mesh));
}

void Plant(bat_Part& part, gsl_TriOctree::OctreeNodeType type, int depth, float share)
{
    const bat_Task::Slice slice(share, "sorting " + part.File());
    part.Plant(type, depth);
}

/// The search passes over fixed nodes whose box is smaller than the tolerance, with all that is in them: the
/// depth to which halving the box does not lead there.
int DepthFor(const bat_Part& fixed, int asked, double tolerance)
{
    const double size = fixed.Box().Size();
    if (size < tolerance && fixed.Degenerate() < fixed.Count())
        throw bat_MeshError(
            fixed.File(), "the part is only " + bat_ReadableText(size) + " across, less than the tolerance " +
                              bat_ReadableText(tolerance) + ": give both parts in a smaller unit");
    int depth = 1;
    for (double next = 0.5 * size; depth < asked && next >= 2.0 * tolerance; next *= 0.5)
        ++depth;
    if (depth < asked)
        Note(fixed.File() + " is so small that the trees stop at depth " + std::to_string(depth) +
             ", where their boxes come near the tolerance");
    return depth;
}

[[noreturn]] void RefuseCheck(const std::string& work, unsigned long long limit)
{
    throw bat_UsageError("--check: brute force would have to " + work + ", more than the " +
                         bat_CountText(limit) + " that take a bearable time: check coarser meshes");
}

bat_TravelResult::Side SideOf(const bat_Part& part)
{
    return {part.File(), part.Count(), part.Box()};
}
}

const char* bat_TravelCommand::Summary() const
{
    return "tell how far a part can go along a direction until it touches another";
}

const char* bat_TravelCommand::Footer() const
{
    return "The points are where the parts touch: on the fixed part, and on the movable part before it "
           "travels.\n"
           "Triangles are counted from 0, in the order of the file. Lengths are in the units of the files.\n"
           "\n"
           "States and exit codes:\n"
           "  0  contact (goes that far, then touches), touching or overlapping (where it stands)\n"
           "  1  clear: no contact, or none before the bound\n"
           "  2  wrong command line      3  a file cannot be read or is wrong\n"
           "  5  internal fault          130  interrupted\n"
           "\n"
           "Examples, to be run as they stand:\n"
           "  printf 'OFF\\n3 1 0\\n0 0 5\\n4 0 5\\n0 4 5\\n3 0 1 2\\n' > wall.off\n"
           "  printf 'OFF\\n3 1 0\\n1 1 0\\n2 1 0\\n1 2 1\\n3 0 1 2\\n' > part.off\n"
           "  orvex travel wall.off part.off --dir +z\n"
           "  orvex travel wall.off part.off --dir 0,-0.2,1 --bound 10 --json";
}

bat_ExitCode bat_TravelCommand::Run(const bat_Console& console)
{
    using Progress = bat_ConsoleReporter::Progress;
    Progress progress = console.errIsTerminal ? Progress::BAR : Progress::LINES;
    if (!options_.ShowsProgress())
        progress = Progress::NONE;
    bat_ConsoleReporter reporter(console, progress, !options_.Quiet());
    const bat_Session session(reporter);
    const bat_TravelResult result = Compute();
    reporter.Close();
    if (options_.Json())
        console.out << bat_TravelJson(result) << '\n';
    else
        console.out << bat_TravelText(result);
    if (differs_)
        return bat_ExitCode::INTERNAL;
    return result.IsClear() ? bat_ExitCode::CLEAR : bat_ExitCode::CONTACT;
}

bat_TravelResult bat_TravelCommand::Compute()
{
    bat_TravelResult result;
    // First, so that a wrong option does not cost the reading of two files.
    result.direction = options_.Direction();
    result.bound = options_.Bound();
    result.tolerance = gsl_Util::Instance().LinearTolerance();

    const float total = 2.0f * (READ_SHARE + PLANT_SHARE) + SEARCH_SHARE + CROSSING_SHARE +
                        (options_.Check() ? CHECK_SHARE : 0.0f);
    wip_ProgressObj job("contact travel");

    bat_Part fixed = Read(options_.FixedFile(), READ_SHARE / total);
    bat_Part movable = Read(options_.MovableFile(), READ_SHARE / total);
    result.fixed = SideOf(fixed);
    result.movable = SideOf(movable);

    std::optional<bat_BruteForce> bruteForce;
    if (options_.Check())
    {
        bruteForce.emplace(fixed, movable, result.direction, result.bound, result.tolerance);
        if (bruteForce->Pairs() > bat_BruteForce::LIMIT)
            RefuseCheck("look at " + bat_CountText(bruteForce->Pairs()) + " pairs of triangles",
                        bat_BruteForce::LIMIT);
    }

    const int depth = DepthFor(fixed, options_.Depth(), result.tolerance);
    Plant(fixed, options_.Tree(), depth, PLANT_SHARE / total);
    Plant(movable, options_.Tree(), depth, PLANT_SHARE / total);
    result.degenerate = fixed.Degenerate() + movable.Degenerate();
    result.outside = fixed.Outside() + movable.Outside();

    {
        const bat_Task::Slice slice(SEARCH_SHARE / total, "searching");
        Search(fixed, movable, depth, result);
    }
    if (!result.IsClear() && result.travel == 0.0)
    {
        const bat_Task::Slice slice(CROSSING_SHARE / total, "looking for crossings");
        FindState(fixed, movable, result);
    }
    if (bruteForce)
    {
        const bat_Task::Slice slice(CHECK_SHARE / total, "checking by brute force");
        Check(*bruteForce, result);
    }
    (void)wip_Progress::Instance().Update(1.0f, "done");
    return result;
}

void bat_TravelCommand::Search(const bat_Part& fixed, const bat_Part& movable, int depth,
                               bat_TravelResult& result)
{
    bat_TravelSearch search(fixed, movable, depth);
    if (!search.SetDirection(result.direction))
        throw std::logic_error("the search refused a unit direction");
    double distance = result.bound;
    const bool found = search.FindDirectionalDistance(fixed.Root(), movable.Root(), distance);
    wip_WIP::Instance().InterruptedThrow();
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

void bat_TravelCommand::FindState(const bat_Part& fixed, const bat_Part& movable, bat_TravelResult& result)
{
    result.state = bat_TravelResult::State::TOUCHING;
    const std::optional<bat_Crossing> crossing = bat_Crossing::Find(fixed, movable, result.tolerance);
    if (!crossing)
        return;
    result.state = bat_TravelResult::State::OVERLAPPING;
    result.fixed.triangle = crossing->fixed;
    result.movable.triangle = crossing->movable;
    result.fixed.point = crossing->point;
    result.movable.point = crossing->point;
}

void bat_TravelCommand::Check(const bat_BruteForce& bruteForce, const bat_TravelResult& result)
{
    const std::optional<bat_BruteForce::Bracket> found = bruteForce.Find();
    if (!found)
        RefuseCheck("compute the travel of pair after pair", bat_BruteForce::COMPUTED_LIMIT);
    const bat_BruteForce::Bracket& bracket = *found;
    const bool crosses = result.state == bat_TravelResult::State::OVERLAPPING;
    const bool sameState = (!result.IsClear() && result.travel == 0.0) ? crosses == bracket.crossing : true;
    differs_ = !sameState || !bracket.Holds(result.IsClear() ? result.bound : result.travel);
    const std::string how = "check: brute force over " + bat_CountText(bruteForce.Pairs()) + " pairs ";
    if (!differs_)
    {
        wip_WIP::Instance().Display(atr_String((how + "agrees").c_str()));
        return;
    }
    const auto name = [&](double travel) {
        return travel == result.bound ? std::string("no contact") : "contact after " + bat_NumberText(travel);
    };
    std::string there = name(bracket.low);
    if (bracket.high != bracket.low)
        there += " to " + name(bracket.high);
    const std::string here = name(result.IsClear() ? result.bound : result.travel);
    wip_WIP::Instance().Error(atr_String((how + "finds " + there + (bracket.crossing ? ", crossing" : "") +
                                          "; the search finds " + here + ", " + result.StateName())
                                             .c_str()),
                              wip_ERROR);
}
