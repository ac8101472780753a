#include <bat_MeshError.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>
#include <scr_Exceptions.h>
#include <scr_MeshFailure.h>
#include <scr_Text.h>

namespace py = pybind11;

void scr_RaiseMeshError(const bat_MeshError& error)
{
    if (const auto number = error.SystemNumber())
        scr_Exceptions::ThrowSystem(*number, error.File());
    const py::object type = py::module_::import("orvex._travel").attr("MeshError");
    const py::object value = type(scr_Text::FromFileSystem(error.File()),
                                  scr_Text::FromFileSystem(error.Reason()), error.Line(), error.Byte());
    PyErr_SetObject(type.ptr(), value.ptr());
    throw py::error_already_set();
}
