#include <bat_ContactTravel.h>
#include <bat_Direction.h>
#include <bat_Interrupted.h>
#include <bat_Part.h>
#include <optional>
#include <scr_Mesh.h>
#include <scr_ProgressReporter.h>
#include <scr_RunJob.h>
#include <scr_Running.h>
#include <scr_Travel.h>
#include <scr_TravelRefusal.h>
#include <scr_TravelWatcher.h>
#include <system_error>
#include <thread>

namespace py = pybind11;

namespace
{
py::object Item(const py::sequence& sequence, std::size_t index, const scr_TravelRefusal& refusal)
{
    try
    {
        return sequence[index];
    }
    catch (py::error_already_set& error)
    {
        // So says a buffer of several dimensions.
        if (!error.matches(PyExc_NotImplementedError))
            throw;
    }
    refusal.Type(scr_TravelRefusal::TypeName(sequence) + " of other things than numbers");
}

gsl_Vector DirectionOf(const py::object& given)
{
    const scr_TravelRefusal refusal("direction",
                                    "three finite numbers, not all 0, or an axis: +x -x +y -y +z -z");
    std::array<double, 3> xyz{};
    if (PyUnicode_Check(given.ptr()))
    {
        const auto parsed = bat_Direction::Parse(scr_TravelRefusal::Text(given));
        if (!parsed)
            refusal.Value(scr_TravelRefusal::Shown(given));
        xyz = *parsed;
    }
    else
    {
        if (!PySequence_Check(given.ptr()))
            refusal.Type(given);
        if (const std::size_t length = py::len(given); length != xyz.size())
            refusal.Value(scr_TravelRefusal::TypeName(given) + " of length " + std::to_string(length));
        const auto items = py::reinterpret_borrow<py::sequence>(given);
        for (std::size_t k = 0; k < xyz.size(); ++k)
            xyz[k] = refusal.Number(Item(items, k, refusal), " as item " + std::to_string(k));
    }
    const std::optional<gsl_Vector> unit = bat_Direction::Unit(xyz);
    if (!unit)
        refusal.Value(scr_TravelRefusal::Shown(py::make_tuple(xyz[0], xyz[1], xyz[2])));
    return *unit;
}

double BoundOf(const py::object& given)
{
    if (given.is_none())
        return bat_TravelQuestion::UNLIMITED;
    const scr_TravelRefusal refusal("bound", "a number above 0, or None");
    const double bound = refusal.Number(given);
    if (!(bound > 0.0))
        refusal.Value(scr_TravelRefusal::Shown(given));
    return std::min(bound, bat_TravelQuestion::UNLIMITED);
}

int DepthOf(const py::object& given)
{
    constexpr int MOST = bat_TravelQuestion::GREATEST_DEPTH;
    const scr_TravelRefusal refusal("depth", "a whole number from 1 to " + std::to_string(MOST));
    return static_cast<int>(refusal.WholeNumber(given, 1, MOST));
}

gsl_TriOctree::OctreeNodeType TreeOf(const py::object& given)
{
    const scr_TravelRefusal refusal("tree", "'oct' or 'mod'");
    if (!PyUnicode_Check(given.ptr()))
        refusal.Type(given);
    if (PyUnicode_CompareWithASCIIString(given.ptr(), "oct") == 0)
        return gsl_TriOctree::gsl_OCTREE;
    if (PyUnicode_CompareWithASCIIString(given.ptr(), "mod") != 0)
        refusal.Value(scr_TravelRefusal::Shown(given));
    return gsl_TriOctree::gsl_MODOCTREE;
}

/// Frees the parts on a thread of its own: large trees would keep whoever pressed Ctrl-C waiting. Nobody
/// waits for that thread: it touches nothing but memory of its own, and may end with the process.
void FreeBeside(std::optional<bat_Part> fixed, std::optional<bat_Part> movable)
{
    try
    {
        std::thread([first = std::move(fixed), second = std::move(movable)] {}).detach();
    }
    catch (const std::system_error&)
    {
        // No thread to be had: they were freed here.
    }
}

/// Without the interpreter lock; nothing when the watcher put an end to it.
std::optional<bat_TravelResult> Compute(scr_Mesh& fixed, scr_Mesh& movable,
                                        const bat_TravelQuestion& question, scr_TravelWatcher& watcher)
{
    constexpr float TOTAL = bat_ContactTravel::READ_SHARE + bat_ContactTravel::SHARE;
    constexpr float EACH = 0.5f * bat_ContactTravel::READ_SHARE / TOTAL;
    std::optional<bat_Part> fixedPart;
    std::optional<bat_Part> movablePart;
    try
    {
        fixedPart.emplace(fixed.Build(watcher, EACH));
        movablePart.emplace(movable.Build(watcher, EACH));
        return bat_ContactTravel(*fixedPart, *movablePart, watcher, TOTAL).Find(question);
    }
    catch (const bat_Interrupted&)
    {
        FreeBeside(std::move(fixedPart), std::move(movablePart));
        return std::nullopt;
    }
}

py::tuple Point(const std::array<double, 3>& point)
{
    return py::make_tuple(point[0], point[1], point[2]);
}

/// In the order in which the package's TravelResult takes them.
py::tuple Fields(const bat_TravelResult& result, const py::tuple& notes)
{
    const bool touches = !result.IsClear();
    const gsl_Vector& u = result.direction;
    py::object travel = py::none();
    py::object pair = py::none();
    py::object points = py::none();
    py::object bound = py::none();
    if (touches)
    {
        travel = py::float_(result.travel);
        pair = py::make_tuple(result.fixed.triangle, result.movable.triangle);
        points = py::make_tuple(Point(result.fixed.point), Point(result.movable.point));
    }
    if (result.bound != bat_TravelResult::UNLIMITED)
        bound = py::float_(result.bound);
    return py::make_tuple(result.StateName(), travel, pair, points, bound, result.tolerance,
                          py::make_tuple(u.X(), u.Y(), u.Z()),
                          py::make_tuple(result.degenerate, result.outside), notes);
}

py::tuple Travel(const py::object& fixed, const py::object& movable, const py::object& direction,
                 const py::object& bound, const py::object& progress, const py::object& depth,
                 const py::object& tree)
{
    // The first to come and the last to go: at the interpreter's end nobody may wait for its lock in here.
    const scr_Running running;
    const bat_TravelQuestion question = {DirectionOf(direction), BoundOf(bound), TreeOf(tree),
                                         DepthOf(depth)};
    const py::object callable = scr_ProgressReporter::CallableOf(progress);
    scr_Mesh fixedMesh(fixed, "fixed", "checking the fixed part");
    scr_Mesh movableMesh(movable, "movable", "checking the movable part");
    scr_TravelWatcher watcher(running);
    return scr_RunJob(
        "contact travel", callable, watcher,
        [&] { return Compute(fixedMesh, movableMesh, question, watcher); },
        [&](const bat_TravelResult& result) { return Fields(result, watcher.NotesTuple()); });
}
}

void scr_RegisterTravel(py::module_& module)
{
    module.def("_travel", &Travel);
}
