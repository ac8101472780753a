#pragma once

#include <pybind11/pybind11.h>

/// The names of the module `orvex` that come from the library: roots, commands and symbolic constants.
/// Nothing here knows one by name.
void scr_RegisterNames(pybind11::module_& module);
