#pragma once

#include <pybind11/pybind11.h>

/// Adds `_travel` to the compiled module: the contact travel of two parts, on which the package's `travel`
/// stands. It takes all arguments in that one's order and answers the fields of its `TravelResult`.
void scr_RegisterTravel(pybind11::module_& module);
