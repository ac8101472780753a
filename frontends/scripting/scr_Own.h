#pragma once

#include <pybind11/pybind11.h>

/// What a function of Python's C interface made, owned from here on; raises the error that it set when it
/// made nothing.
template <class T = pybind11::object>
T scr_Own(PyObject* made)
{
    if (made == nullptr)
        throw pybind11::error_already_set();
    return pybind11::reinterpret_steal<T>(made);
}
