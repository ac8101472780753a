#pragma once

#include <bat_Part.h>
#include <cstdint>
#include <optional>
#include <pybind11/pybind11.h>
#include <scr_Buffer.h>
#include <string>
#include <vector>

/// A part as Python gives it: the name of a file, or a pair of buffers, vertices (N x 3
/// float64) and triangles (M x 3 integers).
///
/// Made and destroyed with the interpreter lock held; the part is built without. Vertices are used in place;
/// triangles are copied, so that nobody can change what was checked.
class scr_Mesh
{
public:
    /// role, "fixed", stands for a file name in messages; checking, "checking the fixed part", is what is
    /// done with arrays. Raises TypeError or ValueError.
    scr_Mesh(pybind11::handle object, const std::string& role, const char* checking);

    /// Reads the file, or checks the arrays; the mesh must outlive the part. Raises bat_MeshError,
    /// bat_Interrupted.
    bat_Part Build(bat_Watcher& watcher, float share);

private:
    template <typename Integer>
    void CopyTriangles(bat_Watcher& watcher);

    std::string name_;
    const char* checking_;
    std::optional<scr_Buffer> vertices_;
    std::optional<scr_Buffer> triangles_;
    std::vector<std::uint32_t> indices_;
};
