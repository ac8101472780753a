#pragma once

#include <omu_PrimArray.h>
#include <pybind11/pybind11.h>

/// The class orvex.Array: a numeric array that nobody changes, with the buffer protocol.
void scr_RegisterArray(pybind11::module_& module);

pybind11::object scr_MakeArray(const omu_PrimArray& array);
/// Null for an object of another class.
const omu_PrimArray* scr_FindArray(PyObject* object);
