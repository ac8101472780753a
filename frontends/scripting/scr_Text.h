#pragma once

#include <cow_String.h>
#include <pybind11/pybind11.h>

/// Text between Python and the library: UTF-8, where a byte that is none travels as a lone surrogate
/// ("surrogateescape"). Zero bytes are kept.
class scr_Text
{
public:
    scr_Text() = delete;

    static pybind11::str ToPython(const cow_String& text);
    /// REQUIRES: a str. A surrogate that stands for no byte raises UnicodeEncodeError, more than 2147483647
    /// bytes OverflowError.
    static cow_String FromPython(PyObject* text);
};
