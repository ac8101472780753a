#pragma once

#include <cow_String.h>
#include <pybind11/pybind11.h>

/// The keywords of calls as texts of the library, made once for each that a script has in its code.
class scr_Keywords
{
public:
    scr_Keywords() = delete;

    /// REQUIRES: a str. The text is good until the next call.
    static const cow_String& Text(PyObject* keyword);
};
