#pragma once

#include <pybind11/pybind11.h>

/// Adds `_mesh` to the compiled module: the health of a mesh, on which the package's `mesh` stands. It takes
/// all arguments in that one's order and answers the fields of its `MeshResult`.
void scr_RegisterMeshHealth(pybind11::module_& module);
