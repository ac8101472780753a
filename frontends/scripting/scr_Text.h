#pragma once

#include <cow_List.h>
#include <cow_String.h>
#include <pybind11/pybind11.h>
#include <string>

/// Text between Python and the library: UTF-8, where a byte that is none travels as a lone surrogate
/// ("surrogateescape"). Zero bytes are kept.
class scr_Text
{
public:
    scr_Text() = delete;

    static pybind11::str ToPython(const cow_String& text);
    static void Append(pybind11::list& list, const cow_List<cow_String>& texts);
    /// Of a text that may hold the name of a file, in the bytes of the file system.
    static pybind11::str FromFileSystem(const std::string& bytes);
    /// The bytes of the file system for a path: str, bytes or os.PathLike; raises TypeError for anything
    /// else, ValueError for a zero byte.
    static std::string PathOf(PyObject* path);
    /// REQUIRES: a str. A surrogate that stands for no byte raises UnicodeEncodeError, more than 2147483647
    /// bytes OverflowError.
    static cow_String FromPython(PyObject* text);
};
