#pragma once

#include <pybind11/pybind11.h>
#include <string>

/// The C++ value in an object of exactly the bound class of T, without pybind11's look-up by type. Raises
/// TypeError for an object whose initialisation was skipped.
template <class T>
T* scr_Instance(PyObject* object)
{
    auto* const instance = reinterpret_cast<pybind11::detail::instance*>(object);
    auto* const value = static_cast<T*>(instance->get_value_and_holder().value_ptr());
    if (value == nullptr)
        throw pybind11::type_error("the object was never initialised");
    return value;
}

/// For bound classes: an ordinary class of Python, whose class is `type`.
inline pybind11::metaclass scr_PlainMetaclass()
{
    return pybind11::metaclass(reinterpret_cast<PyObject*>(&PyType_Type));
}

/// Gives a bound class a `__new__` that makes finished objects, and takes pybind11's two steps away, between
/// which there is an object without a value: whoever met one would bring the process down. `make` takes the
/// class, then what the arguments say.
template <class F, class... Extra>
void scr_DefineNew(const pybind11::object& type, F make, const Extra&... extra)
{
    namespace py = pybind11;
    type.attr("__new__") = py::staticmethod(
        py::cpp_function(make, py::name("__new__"), py::scope(type), py::arg("cls"), extra...));
    type.attr("__init__") = py::module_::import("builtins").attr("object").attr("__init__");
}

/// The same for a class of which only the library makes objects.
inline void scr_RefuseNew(const pybind11::object& type)
{
    const auto refuse = [](const pybind11::object& cls, const pybind11::args&,
                           const pybind11::kwargs&) -> pybind11::object {
        throw pybind11::type_error("cannot create '" + std::string(pybind11::str(cls.attr("__name__"))) +
                                   "' objects");
    };
    scr_DefineNew(type, refuse);
}
