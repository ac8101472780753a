#pragma once

#include <pybind11/pybind11.h>
#include <string>

class KTLBasException;

/// How the library's exceptions reach Python: as the class of orvex._errors that their error type names, with
/// the message as the one argument and the fields as attributes. Everything that decides it stands here.
class scr_Exceptions
{
public:
    scr_Exceptions() = delete;

    /// The Python exception for one of the library's.
    static pybind11::object Make(const KTLBasException& failure);
    /// Turns the exception that is being handled into Python's current error. A Python exception that went
    /// through the library comes back as itself.
    static void SetError() noexcept;
    /// Raises the class of that name in orvex._errors, through C++ as a Python error.
    [[noreturn]] static void Throw(const char* className, const std::string& message);
    /// The same with IndexError, whose value is the index, of whatever size.
    [[noreturn]] static void ThrowIndex(const pybind11::object& index, const std::string& message);
    /// Raises what Python raises when the system refuses a file with that number of errno: OSError, or
    /// MemoryError.
    [[noreturn]] static void ThrowSystem(int number, const std::string& file);
};

/// Looks up the classes and tells pybind11's functions, those of other modules too, how to translate.
void scr_RegisterExceptions(pybind11::module_& module);
