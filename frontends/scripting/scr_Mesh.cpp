#include <atomic>
#include <bat_MeshError.h>
#include <bat_Phase.h>
#include <bat_Task.h>
#include <cstring>
#include <limits>
#include <scr_Mesh.h>
#include <scr_Text.h>
#include <scr_TravelRefusal.h>
#include <utility>

namespace py = pybind11;

namespace
{
constexpr std::size_t MOST_VERTICES = std::numeric_limits<std::uint32_t>::max();

bool IsPath(py::handle object)
{
    return PyUnicode_Check(object.ptr()) || py::hasattr(object, "__fspath__");
}
}

scr_Mesh::scr_Mesh(py::handle object, const std::string& role, const char* checking)
    : name_(role), checking_(checking)
{
    if (IsPath(object))
    {
        name_ = scr_Text::PathOf(object.ptr());
        return;
    }
    const scr_TravelRefusal refusal(role, "a file name, or a pair of buffers: vertices and triangles");
    if (!PyTuple_Check(object.ptr()) && !PyList_Check(object.ptr()))
        refusal.Type(object);
    if (const std::size_t length = py::len(object); length != 2)
        refusal.Type(scr_TravelRefusal::TypeName(object) + " of length " + std::to_string(length));
    const auto pair = py::reinterpret_borrow<py::sequence>(object);
    const py::object vertices = pair[0];
    const py::object triangles = pair[1];
    vertices_.emplace(vertices, role + " vertices", true);
    triangles_.emplace(triangles, role + " triangles", false);
}

bat_Part scr_Mesh::Build(bat_Watcher& watcher, float share)
{
    if (!vertices_)
        return bat_Part::Read(name_, watcher, share);
    const bat_Phase phase(watcher, share, checking_);
    if (vertices_->Rows() > MOST_VERTICES)
        throw bat_MeshError(name_, "more than " + std::to_string(MOST_VERTICES) + " vertices");
    if (triangles_->Rows() == 0)
        throw bat_MeshError(name_, "there is no triangle");
    const bool isSigned = triangles_->IsSigned();
    switch (triangles_->ItemBytes())
    {
    case 1:
        isSigned ? CopyTriangles<std::int8_t>(watcher) : CopyTriangles<std::uint8_t>(watcher);
        break;
    case 2:
        isSigned ? CopyTriangles<std::int16_t>(watcher) : CopyTriangles<std::uint16_t>(watcher);
        break;
    case 4:
        isSigned ? CopyTriangles<std::int32_t>(watcher) : CopyTriangles<std::uint32_t>(watcher);
        break;
    default:
        isSigned ? CopyTriangles<std::int64_t>(watcher) : CopyTriangles<std::uint64_t>(watcher);
    }
    return bat_Part(
        name_,
        bat_TriangleView({vertices_->First(), vertices_->RowStride(), vertices_->ColumnStride()}, indices_),
        watcher);
}

template <typename Integer>
void scr_Mesh::CopyTriangles(bat_Watcher& watcher)
{
    const std::size_t rows = triangles_->Rows();
    const std::size_t vertices = vertices_->Rows();
    const std::string expected =
        vertices == 0 ? "none, since there are no vertices" : "0 to " + std::to_string(vertices - 1);
    indices_.reserve(3 * rows);
    bat_Task task(watcher, 0, 4096);
    const std::byte* row = triangles_->First();
    for (std::size_t i = 0; i < rows; ++i, row += triangles_->RowStride(), task.Step())
    {
        Integer read[3];
        for (std::ptrdiff_t c = 0; c < 3; ++c)
            std::memcpy(&read[c], row + c * triangles_->ColumnStride(), sizeof(Integer));
        // What is checked is what is kept, whatever becomes of the original meanwhile.
        std::atomic_signal_fence(std::memory_order_seq_cst);
        for (const Integer index : read)
        {
            if (std::cmp_less(index, 0) || std::cmp_greater_equal(index, vertices))
                throw bat_MeshError(name_, "found vertex " + std::to_string(index) + " in triangle " +
                                               std::to_string(i) + ", expected " + expected);
            indices_.push_back(static_cast<std::uint32_t>(index));
        }
    }
}
