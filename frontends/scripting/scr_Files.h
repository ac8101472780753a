#pragma once

#include <pybind11/pybind11.h>

/// What stands behind orvex.save, orvex.open and orvex.picture: the annotations of the root mdb to a memento,
/// from a memento, and drawn.
void scr_RegisterFiles(pybind11::module_& module);
