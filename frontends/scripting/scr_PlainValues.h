#pragma once

#include <omu_Primitive.h>
#include <pybind11/pybind11.h>

/// The classes orvex.Type and orvex.Path, and orvex.Value for every value of the library that Python has
/// nothing for: it can be printed, compared and given back.
void scr_RegisterPlainValues(pybind11::module_& module);

/// An orvex.Value with a copy of the value.
pybind11::object scr_MakePlainValue(const omu_Primitive& value);
/// The value in an object of one of the three classes; null for any other.
const omu_Primitive* scr_FindPlainValue(PyObject* object);
