#pragma once

#include <cow_String.h>
#include <memory>
#include <omu_InterfaceObj.h>
#include <pybind11/pybind11.h>

/// The classes orvex.Command and orvex.Method: something of the library that is called with positional and
/// keyword arguments. Written against Python's own interface, without pybind11's search for a signature:
/// which arguments there are is the affair of the command that reads them.
class scr_Call
{
public:
    scr_Call() = delete;

    static pybind11::object OfCommand(const cow_String& name);
    static pybind11::object OfMethod(const std::shared_ptr<omu_InterfaceObj>& object, const cow_String& name);
};

void scr_RegisterCall(pybind11::module_& module);
