#include <bat_InputError.h>
#include <bat_MeshCheck.h>
#include <bat_MeshCommand.h>
#include <bat_MeshJson.h>
#include <bat_MeshOracle.h>
#include <bat_MeshPicture.h>
#include <bat_MeshText.h>
#include <bat_Number.h>
#include <bat_Part.h>
#include <bat_Phase.h>
#include <bat_PictureFile.h>
#include <bat_UsageError.h>
#include <bat_WipWatcher.h>
#include <wip_Progress.h>
#include <wip_ProgressObj.h>
#include <wip_WIP.h>

namespace
{
// The share of the progress that the oracle takes, beside those of reading and of the check.
constexpr float ORACLE_SHARE = 100.0f;
constexpr float PICTURE_SHARE = 20.0f;
}

const char* bat_MeshCommand::Summary() const
{
    return "tell whether a mesh is fit for use";
}

const char* bat_MeshCommand::Footer() const
{
    return "Triangles are counted from 0, in the order of the file; lengths are in the units of the file.\n"
           "Corners are merged in their order: one that lies on none of the points found before is a new\n"
           "point, any other is the first of those that it lies on. Groups, edges and the volume go by\n"
           "these points; size, area and shape factors go by the corners as they are. Triangles are in one\n"
           "group when they share a point, directly or through others; an edge is open when one triangle\n"
           "has it, non-manifold when more than two have it, misturned when two run the same way along it.\n"
           "A shape factor is 1 for an equilateral triangle, towards 0 for slivers.\n"
           "\n"
           "A mesh is fit for use when it is closed (or --open is given), no triangle is degenerate "
           "(slivers\n"
           "are allowed without --sliver) or there twice, no edge non-manifold or misturned, and it is not\n"
           "inside out.\n"
           "\n"
           "In a picture triangles are red to violet by their shape factor, open edges thick and red,\n"
           "non-manifold ones magenta, misturned ones blue.\n"
           "\n"
           "Exit codes:\n"
           "  0  fit for use             1  not fit for use\n"
           "  2  wrong command line      3  the file cannot be read or written, or is wrong\n"
           "  5  internal fault          130  interrupted\n"
           "\n"
           "Examples, to be run as they stand:\n"
           "  printf 'OFF\\n4 4 0\\n0 0 0\\n1 0 0\\n0 1 0\\n0 0 1\\n3 0 2 1\\n3 0 1 3\\n3 1 2 3\\n3 2 0 "
           "3\\n' "
           "> corner.off\n"
           "  orvex mesh corner.off\n"
           "  orvex mesh corner.off --tolerance 1e-6 --sliver 0.1 --json";
}

bat_JobCommand::Answer bat_MeshCommand::Compute()
{
    // First, so that a wrong option does not cost the reading of the file.
    const bat_MeshQuestion question = options_.Question();
    const bool draws = !options_.Picture().empty();
    if (draws)
        bat_PictureFile::RequirePlace(options_.Picture());

    const float total = bat_MeshCheck::READ_SHARE + bat_MeshCheck::SHARE +
                        (options_.Check() ? ORACLE_SHARE : 0.0f) + (draws ? PICTURE_SHARE : 0.0f);
    bat_WipWatcher watcher;
    wip_ProgressObj job("mesh health");

    const bat_Part part = bat_Part::Read(options_.File(), watcher, bat_MeshCheck::READ_SHARE / total);
    if (options_.Check() && part.Count() > bat_MeshOracle::LIMIT)
        throw bat_UsageError("--check: the quadratic operations take a bearable time up to " +
                             bat_CountText(bat_MeshOracle::LIMIT) + " triangles, the mesh has " +
                             bat_CountText(static_cast<unsigned long long>(part.Count())));
    const bat_MeshHealth health = bat_MeshCheck(part, watcher, total).Find(question);
    if (options_.Check())
    {
        const bat_Phase phase(watcher, ORACLE_SHARE / total, "checking by quadratic operations");
        const std::string difference = bat_MeshOracle(part, watcher).Compare(health);
        differs_ = !difference.empty();
        if (differs_)
            wip_WIP::Instance().Error(atr_String(("check: " + difference).c_str()), wip_ERROR);
        else
            wip_WIP::Instance().Display(atr_String("check: the quadratic operations agree"));
    }
    if (draws)
    {
        const bat_Phase phase(watcher, PICTURE_SHARE / total, "drawing");
        try
        {
            bat_MeshPicture(part, health, watcher).Save(options_.Picture());
        }
        catch (const bat_InputError& error)
        {
            pictureFault_ = error.what();
        }
    }
    (void)wip_Progress::Instance().Update(1.0f, "done");
    return {options_.Json() ? bat_MeshJson(health) + "\n" : bat_MeshText(health),
            health.IsFit() ? bat_ExitCode::FIT : bat_ExitCode::UNFIT};
}
