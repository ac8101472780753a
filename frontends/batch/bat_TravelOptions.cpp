#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <CLI/Validators.hpp>
#include <bat_Direction.h>
#include <bat_Number.h>
#include <bat_TravelOptions.h>
#include <bat_UsageError.h>
#include <bat_Words.h>

namespace
{
constexpr const char* OCT = "oct";
constexpr const char* MOD = "mod";
}

void bat_TravelOptions::Declare(CLI::App& app)
{
    app.add_option("FIXED", fixed_, "the part that stands still: an STL, OBJ or OFF file")
        ->required()
        ->type_name(bat_Words::FILE)
        ->option_text(" ");
    app.add_option("MOVABLE", movable_, "the part that travels, in the same units")
        ->required()
        ->type_name(bat_Words::FILE)
        ->option_text(" ");
    app.add_option(
           "--dir", direction_,
           "direction of travel: three numbers, or an axis, +x -x +y -y +z -z; its length does not matter; "
           "must be given")
        ->required()
        ->option_text("X,Y,Z");
    app.add_option("--bound", bound_,
                   "look no further than this travel, in the files' units, above 0 (no bound)")
        ->each([this](const std::string&) { hasBound_ = true; })
        ->option_text("LENGTH");
    app.add_option("--depth", depth_,
                   "depth of the trees, 1 to " + std::to_string(bat_TravelQuestion::GREATEST_DEPTH) + " (" +
                       std::to_string(bat_TravelQuestion::DEFAULT_DEPTH) + ")")
        ->check(CLI::Range(1, bat_TravelQuestion::GREATEST_DEPTH))
        ->option_text("N");
    app.add_option("--tree", tree_, "kind of the trees, 8 or 14 boxes below each (oct)")
        ->check(CLI::IsMember({OCT, MOD}))
        ->option_text(std::string(OCT) + "|" + MOD);
    app.add_option("--picture", picture_, "draw parts, travel and contact into this file, .svg or .png")
        ->type_name(bat_Words::FILE)
        ->option_text(bat_Words::FILE);
    app.add_flag("--json", json_, "print the result as one line of JSON");
    app.add_flag("--check", check_, "compare with the answer of brute force, where that is feasible");
    app.add_flag("--quiet", quiet_, "print the result and errors, nothing else");
    app.add_flag("--no-progress", noProgress_, "show no progress");
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
    if (hasBound_ && !bat_ParseNumber(bound_, bound))
        throw bat_UsageError("--bound " + bound_ + ": not a number that can be a length");
    if (!(bound > 0.0))
        throw bat_UsageError("--bound " + bound_ + ": must be above 0; leave it out for no bound");
    return bound;
}
