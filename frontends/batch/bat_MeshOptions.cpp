#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <CLI/Validators.hpp>
#include <bat_MeshOptions.h>
#include <bat_Number.h>
#include <bat_PointIndex.h>
#include <bat_UsageError.h>
#include <bat_Words.h>

void bat_MeshOptions::Declare(CLI::App& app)
{
    app.add_option("FILE", file_, "the mesh: an STL, OBJ or OFF file")
        ->required()
        ->type_name(bat_Words::FILE)
        ->option_text(" ");
    app.add_option("--tolerance", tolerance_,
                   "points closer than this, in the file's units, are one; 0: points with the same "
                   "coordinates (0)")
        ->option_text("LENGTH");
    app.add_option("--sliver", sliver_,
                   "no triangle may have a shape factor below this, 0 to 1 (slivers below " +
                       bat_NumberText(bat_MeshQuestion::DEFAULT_SLIVER) + " are told, and do not hinder)")
        ->option_text("FACTOR");
    app.add_flag("--open", open_, "a sheet is meant, no solid: open edges do not hinder");
    app.add_option("--worst", named_,
                   "how many triangles are named of each kind, 0 to " +
                       std::to_string(bat_MeshQuestion::MOST_NAMED) + " (" +
                       std::to_string(bat_MeshQuestion::DEFAULT_NAMED) + ")")
        ->check(CLI::Range(std::size_t{0}, bat_MeshQuestion::MOST_NAMED))
        ->option_text("N");
    app.add_option("--picture", picture_, "draw the shape factors in colour into this file, .svg or .png")
        ->type_name(bat_Words::FILE)
        ->option_text(bat_Words::FILE);
    app.add_flag("--json", json_, "print the result as one line of JSON");
    app.add_flag("--check", check_,
                 "compare with the geometry's quadratic operations, where that is feasible");
    app.add_flag("--quiet", quiet_, "print the result and errors, nothing else");
    app.add_flag("--no-progress", noProgress_, "show no progress");
}

bat_MeshQuestion bat_MeshOptions::Question() const
{
    bat_MeshQuestion question;
    const std::string tolerance = "--tolerance " + tolerance_ + ": ";
    if (!bat_ParseNumber(tolerance_, question.tolerance))
        throw bat_UsageError(tolerance + "not a number that can be a length");
    if (question.tolerance < 0.0)
        throw bat_UsageError(tolerance + "must not be below 0");
    constexpr double LEAST = bat_PointIndex::SMALLEST_TOLERANCE;
    if (question.tolerance > 0.0 && question.tolerance < LEAST)
        throw bat_UsageError(tolerance + "must be 0, or " + bat_NumberText(LEAST) + " at least");
    question.tolerance += 0.0; // minus zero is zero
    if (!sliver_.empty())
    {
        question.sliversHinder = true;
        if (!bat_ParseNumber(sliver_, question.sliver) || question.sliver < 0.0 || question.sliver > 1.0)
            throw bat_UsageError("--sliver " + sliver_ + ": must be a number from 0 to 1");
    }
    question.named = named_;
    question.open = open_;
    return question;
}
