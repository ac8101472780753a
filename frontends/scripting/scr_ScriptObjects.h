#pragma once

#include <omu_PyObjectHandle.h>
#include <pybind11/pybind11.h>

/// Python objects that pass through the library unconverted: bytes, files, instances of a script's classes.
/// The library may let go of one on any thread, with or without the interpreter lock, also after the
/// interpreter's end.
class scr_ScriptObjects
{
public:
    scr_ScriptObjects() = delete;

    /// Holds a reference of its own.
    static omu_PyObjectHandle Wrap(PyObject* object);
    static pybind11::object Unwrap(const omu_PyObjectHandle& handle);

    /// Lets the library ask Python objects for their type's name, text, equality and items.
    static void Install();
    static void Uninstall();
};
