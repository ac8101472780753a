#include <bat_Direction.h>
#include <bat_Number.h>
#include <bat_OptionSet.h>
#include <bat_TravelOptions.h>
#include <bat_UsageError.h>

namespace
{
constexpr const char* OCT = "oct";
constexpr const char* MOD = "mod";
}

void bat_TravelOptions::Declare(bat_OptionSet& options)
{
    options.Value("FIXED", fixed_, "the part that stands still: an STL, OBJ or OFF file",
                  {.required = true, .isFile = true});
    options.Value("MOVABLE", movable_, "the part that travels, in the same units",
                  {.required = true, .isFile = true});
    options.Value(
        "--dir", direction_,
        "direction of travel: three numbers, or an axis, +x -x +y -y +z -z; its length does not matter; "
        "must be given",
        {.required = true, .label = "X,Y,Z"});
    options.Value("--bound", bound_,
                  "look no further than this travel, in the files' units, above 0 (no bound)",
                  {.label = "LENGTH"});
    options.Number("--depth", depth_, 1, bat_TravelQuestion::GREATEST_DEPTH,
                   "depth of the trees, 1 to " + std::to_string(bat_TravelQuestion::GREATEST_DEPTH) + " (" +
                       std::to_string(bat_TravelQuestion::DEFAULT_DEPTH) + ")",
                   {.label = "N"});
    options.Value("--tree", tree_, "kind of the trees, 8 or 14 boxes below each (oct)",
                  {.label = std::string(OCT) + "|" + MOD, .values = {OCT, MOD}});
    DeclareJob(options, "draw parts, travel and contact", "compare with the answer of brute force");
}

bat_TravelQuestion bat_TravelOptions::Question() const
{
    bat_TravelQuestion question;
    question.direction = bat_Direction(direction_).Unit();
    question.bound = Bound();
    question.tree = tree_ == MOD ? gsl_TriOctree::gsl_MODOCTREE : gsl_TriOctree::gsl_OCTREE;
    question.depth = depth_;
    return question;
}

double bat_TravelOptions::Bound() const
{
    double bound = bat_TravelQuestion::UNLIMITED;
    if (bound_ && !bat_ParseNumber(*bound_, bound))
        throw bat_UsageError("--bound " + *bound_ + ": not a number that can be a length");
    if (!(bound > 0.0))
        throw bat_UsageError("--bound " + *bound_ + ": must be above 0; leave it out for no bound");
    return bound;
}
