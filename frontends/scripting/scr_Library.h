#pragma once

#include <pybind11/pybind11.h>

/// The library below the module: importing starts it, the interpreter's exit stops it. Calls that are under
/// way at the exit are told to end and waited for; calls that begin later are refused.
class scr_Library
{
public:
    scr_Library() = delete;

    /// Starts the library with the hooks that this front end supplies: the table that makes symbolic
    /// constants in Python, the operations on wrapped objects, the annotation client of pictures, and the
    /// roots "mdb", with annotations, and "session" where nobody gave any.
    static void Start();
    /// Registers the stop with the interpreter's exit.
    static void StopAtExit();
};
