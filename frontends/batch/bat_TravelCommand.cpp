#include <bat_BruteForce.h>
#include <bat_ContactTravel.h>
#include <bat_InputError.h>
#include <bat_Number.h>
#include <bat_Part.h>
#include <bat_Phase.h>
#include <bat_PictureFile.h>
#include <bat_TravelCommand.h>
#include <bat_TravelJson.h>
#include <bat_TravelPicture.h>
#include <bat_TravelText.h>
#include <bat_UsageError.h>
#include <bat_WipWatcher.h>
#include <gsl_Util.h>
#include <optional>
#include <wip_Progress.h>
#include <wip_ProgressObj.h>
#include <wip_WIP.h>

namespace
{
// The share of the progress that brute force takes, beside those of reading and of the search.
constexpr float CHECK_SHARE = 100.0f;
constexpr float PICTURE_SHARE = 10.0f;

[[noreturn]] void RefuseCheck(const std::string& work, unsigned long long limit)
{
    throw bat_UsageError("--check: brute force would have to " + work + ", more than the " +
                         bat_CountText(limit) + " that take a bearable time: check coarser meshes");
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
           "In a picture the fixed part is grey, the movable one blue, where it starts; the red\n"
           "arrow is the travel, the dot the contact.\n"
           "\n"
           "States and exit codes:\n"
           "  0  contact (goes that far, then touches), touching or overlapping (where it stands)\n"
           "  1  clear: no contact, or none before the bound\n"
           "  2  wrong command line      3  a file cannot be read or written, or is wrong\n"
           "  5  internal fault          130  interrupted\n"
           "\n"
           "Examples, to be run as they stand:\n"
           "  printf 'OFF\\n3 1 0\\n0 0 5\\n4 0 5\\n0 4 5\\n3 0 1 2\\n' > wall.off\n"
           "  printf 'OFF\\n3 1 0\\n1 1 0\\n2 1 0\\n1 2 1\\n3 0 1 2\\n' > part.off\n"
           "  orvex travel wall.off part.off --dir +z\n"
           "  orvex travel wall.off part.off --dir 0,-0.2,1 --bound 10 --json";
}

bat_JobCommand::Answer bat_TravelCommand::Compute()
{
    // First, so that a wrong option does not cost the reading of two files.
    const bat_TravelQuestion question = options_.Question();
    const bool draws = !options_.Picture().empty();
    if (draws)
        bat_PictureFile::RequirePlace(options_.Picture());

    const float total = bat_ContactTravel::READ_SHARE + bat_ContactTravel::SHARE +
                        (options_.Check() ? CHECK_SHARE : 0.0f) + (draws ? PICTURE_SHARE : 0.0f);
    const float readShare = 0.5f * bat_ContactTravel::READ_SHARE / total;
    bat_WipWatcher watcher;
    wip_ProgressObj job("contact travel");

    bat_Part fixed = bat_Part::Read(options_.FixedFile(), watcher, readShare);
    bat_Part movable = bat_Part::Read(options_.MovableFile(), watcher, readShare);

    std::optional<bat_BruteForce> bruteForce;
    if (options_.Check())
    {
        const double tolerance = gsl_Util::Instance().LinearTolerance();
        bruteForce.emplace(fixed, movable, question.direction, question.bound, tolerance);
        if (bruteForce->Pairs() > bat_BruteForce::LIMIT)
            RefuseCheck("look at " + bat_CountText(bruteForce->Pairs()) + " pairs of triangles",
                        bat_BruteForce::LIMIT);
    }

    bat_TravelResult result = bat_ContactTravel(fixed, movable, watcher, total).Find(question);
    if (bruteForce)
    {
        const bat_Phase phase(watcher, CHECK_SHARE / total, "checking by brute force");
        Check(*bruteForce, result, watcher);
    }
    if (draws)
    {
        const bat_Phase phase(watcher, PICTURE_SHARE / total, "drawing");
        Draw(fixed, movable, result, watcher);
    }
    (void)wip_Progress::Instance().Update(1.0f, "done");
    return {options_.Json() ? bat_TravelJson(result) + "\n" : bat_TravelText(result),
            result.IsClear() ? bat_ExitCode::CLEAR : bat_ExitCode::CONTACT};
}

void bat_TravelCommand::Draw(const bat_Part& fixed, const bat_Part& movable, bat_TravelResult& result,
                             bat_Watcher& watcher)
{
    try
    {
        bat_TravelPicture(fixed, movable, result, watcher).Save(options_.Picture());
        result.picture = options_.Picture();
    }
    catch (const bat_InputError& error)
    {
        pictureFault_ = error.what();
    }
}

void bat_TravelCommand::Check(const bat_BruteForce& bruteForce, const bat_TravelResult& result,
                              bat_Watcher& watcher)
{
    const std::optional<bat_BruteForce::Bracket> found =
        bruteForce.Find(bat_BruteForce::COMPUTED_LIMIT, watcher);
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
