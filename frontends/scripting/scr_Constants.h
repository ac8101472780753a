#pragma once

#include <cow_String.h>
#include <pybind11/pybind11.h>

/// The class orvex.SymbolicConstant: a name. Equal by name among themselves, and to nothing else.
class scr_Constants
{
public:
    /// What stands in the Python object.
    struct Constant
    {
        cow_String name;
    };

    scr_Constants() = delete;

    /// The Python object of that name. For a name of the table it is always the same one, and an attribute of
    /// the module `orvex` from then on, where nothing else has that name.
    static pybind11::object Make(const cow_String& name);
    /// Null for an object of another class; raises TypeError for one that was never initialised.
    static const Constant* Find(PyObject* object);
};

void scr_RegisterConstants(pybind11::module_& module);
