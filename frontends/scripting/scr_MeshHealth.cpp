#include <algorithm>
#include <bat_Interrupted.h>
#include <bat_MeshCheck.h>
#include <bat_MeshError.h>
#include <bat_Part.h>
#include <bat_PointIndex.h>
#include <cmath>
#include <limits>
#include <omu_PrimArray.h>
#include <optional>
#include <pybind11/stl.h>
#include <scr_Array.h>
#include <scr_Mesh.h>
#include <scr_MeshHealth.h>
#include <scr_ProgressReporter.h>
#include <scr_RunJob.h>
#include <scr_Running.h>
#include <scr_TravelRefusal.h>
#include <scr_TravelWatcher.h>

namespace py = pybind11;

namespace
{
double ToleranceOf(const py::object& given)
{
    const scr_TravelRefusal refusal("tolerance", "a finite number, 0 or at least 1e-150");
    static_assert(bat_PointIndex::SMALLEST_TOLERANCE == 1e-150);
    const double tolerance = refusal.Number(given);
    if (!std::isfinite(tolerance) || !(tolerance == 0.0 || tolerance >= bat_PointIndex::SMALLEST_TOLERANCE))
        refusal.Value(scr_TravelRefusal::Shown(given));
    return tolerance + 0.0; // minus zero is zero
}

double SliverOf(const py::object& given)
{
    const scr_TravelRefusal refusal("sliver", "a number from 0 to 1, or None");
    const double sliver = refusal.Number(given);
    if (!(sliver >= 0.0 && sliver <= 1.0))
        refusal.Value(scr_TravelRefusal::Shown(given));
    return sliver;
}

std::size_t WorstOf(const py::object& given)
{
    constexpr long MOST = bat_MeshQuestion::MOST_NAMED;
    const scr_TravelRefusal refusal("worst", "a whole number from 0 to " + std::to_string(MOST));
    return static_cast<std::size_t>(refusal.WholeNumber(given, 0, MOST));
}

bat_MeshQuestion QuestionOf(const py::object& tolerance, const py::object& sliver, const py::object& open,
                            const py::object& worst)
{
    bat_MeshQuestion question;
    question.tolerance = ToleranceOf(tolerance);
    question.sliversHinder = !sliver.is_none();
    if (question.sliversHinder)
        question.sliver = SliverOf(sliver);
    question.open = py::bool_(open);
    question.named = WorstOf(worst);
    return question;
}

/// Without the interpreter lock; nothing when the watcher put an end to it.
std::optional<bat_MeshHealth> Compute(scr_Mesh& mesh, const bat_MeshQuestion& question,
                                      scr_TravelWatcher& watcher)
{
    constexpr float TOTAL = bat_MeshCheck::READ_SHARE + bat_MeshCheck::SHARE;
    try
    {
        const bat_Part part = mesh.Build(watcher, bat_MeshCheck::READ_SHARE / TOTAL);
        return bat_MeshCheck(part, watcher, TOTAL).Find(question);
    }
    catch (const bat_Interrupted&)
    {
        return std::nullopt;
    }
}

/// One dimension.
template <class Number, class Source>
py::object ArrayOf(const std::vector<Source>& numbers)
{
    cow_List<Number> list;
    list.Reserve(static_cast<int>(numbers.size()));
    for (const Source number : numbers)
        list.Append(static_cast<Number>(number));
    return scr_MakeArray(omu_PrimArray(list));
}

/// Three a row.
template <class Number, class Source>
py::object TableOf(const std::vector<std::array<Source, 3>>& rows)
{
    cow_List<Number> list;
    list.Reserve(static_cast<int>(3 * rows.size()));
    for (const std::array<Source, 3>& row : rows)
        for (const Source number : row)
            list.Append(static_cast<Number>(number));
    return scr_MakeArray(omu_PrimArray({static_cast<int>(rows.size()), 3}, list));
}

py::tuple Triple(const gsl_Point& p)
{
    return py::make_tuple(p.X(), p.Y(), p.Z());
}

py::tuple Flaws(const bat_MeshHealth& health)
{
    py::tuple flaws(std::size_t{bat_MeshHealth::FLAWS});
    for (std::size_t i = 0; i < flaws.size(); ++i)
        flaws[i] =
            py::make_tuple(bat_MeshHealth::Name(static_cast<bat_MeshHealth::Flaw>(i)),
                           health.findings[i].count, py::tuple(py::cast(health.findings[i].triangles)));
    return flaws;
}

py::tuple Worst(const bat_MeshHealth& health)
{
    py::tuple worst(health.worst.size());
    for (std::size_t i = 0; i < health.worst.size(); ++i)
        worst[i] = py::make_tuple(health.worst[i].triangle, health.worst[i].factor);
    return worst;
}

/// In the order in which the package's MeshResult takes them.
py::tuple Fields(const bat_MeshHealth& health, const scr_TravelWatcher& watcher)
{
    if (std::max(health.triangles.size(), health.points.size()) > std::numeric_limits<int>::max() / 3)
        throw bat_MeshError(health.file, "too many triangles for arrays of three numbers each");
    return py::make_tuple(py::tuple(py::cast(health.Hindrances())), health.question.tolerance,
                          health.triangles.size(), health.points.size(), health.edges,
                          health.groupSizes.size(), py::tuple(py::cast(health.LargestGroups())),
                          py::make_tuple(Triple(health.box.Low()), Triple(health.box.High())), health.closed,
                          health.area, health.volume, health.meanFactor,
                          py::tuple(py::cast(health.histogram)), Worst(health), Flaws(health),
                          watcher.NotesTuple(), ArrayOf<double>(health.factors), ArrayOf<int>(health.groups),
                          TableOf<double>(health.points), TableOf<int>(health.triangles));
}

py::tuple Mesh(const py::object& part, const py::object& tolerance, const py::object& progress,
               const py::object& sliver, const py::object& open, const py::object& worst)
{
    // The first to come and the last to go: at the interpreter's end nobody may wait for its lock in here.
    const scr_Running running;
    const bat_MeshQuestion question = QuestionOf(tolerance, sliver, open, worst);
    const py::object callable = scr_ProgressReporter::CallableOf(progress);
    scr_Mesh mesh(part, "part", "checking the part");
    scr_TravelWatcher watcher(running);
    return scr_RunJob(
        "mesh health", callable, watcher, [&] { return Compute(mesh, question, watcher); },
        [&](const bat_MeshHealth& health) { return Fields(health, watcher); });
}
}

void scr_RegisterMeshHealth(py::module_& module)
{
    module.def("_mesh", &Mesh);
}
