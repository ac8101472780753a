#include <bat_MeshOptions.h>
#include <bat_Number.h>
#include <bat_OptionSet.h>
#include <bat_PointIndex.h>
#include <bat_UsageError.h>

void bat_MeshOptions::Declare(bat_OptionSet& options)
{
    options.Value("FILE", file_, "the mesh: an STL, OBJ or OFF file", {.required = true, .isFile = true});
    options.Value("--tolerance", tolerance_,
                  "points closer than this, in the file's units, are one; 0: points with the same "
                  "coordinates (0)",
                  {.label = "LENGTH"});
    options.Value("--sliver", sliver_,
                  "no triangle may have a shape factor below this, 0 to 1 (slivers below " +
                      bat_NumberText(bat_MeshQuestion::DEFAULT_SLIVER) + " are told, and do not hinder)",
                  {.label = "FACTOR"});
    options.Flag("--open", open_, "a sheet is meant, no solid: open edges do not hinder");
    options.Number("--worst", named_, 0, bat_MeshQuestion::MOST_NAMED,
                   "how many triangles are named of each kind, 0 to " +
                       std::to_string(bat_MeshQuestion::MOST_NAMED) + " (" +
                       std::to_string(bat_MeshQuestion::DEFAULT_NAMED) + ")",
                   {.label = "N"});
    DeclareJob(options, "draw the shape factors in colour",
               "compare with the geometry's quadratic operations");
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
    if (sliver_)
    {
        question.sliversHinder = true;
        if (!bat_ParseNumber(*sliver_, question.sliver) || question.sliver < 0.0 || question.sliver > 1.0)
            throw bat_UsageError("--sliver " + *sliver_ + ": must be a number from 0 to 1");
    }
    question.named = static_cast<std::size_t>(named_);
    question.open = open_;
    return question;
}
