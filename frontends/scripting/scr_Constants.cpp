#include <omu_SymbolicConstantTable.h>
#include <scr_Constants.h>
#include <scr_Instance.h>
#include <scr_Text.h>
#include <unordered_map>

namespace py = pybind11;

namespace
{
PyTypeObject* type = nullptr;

// Holds its references for good: destroying them after the interpreter's end would be fatal.
std::unordered_map<cow_String, PyObject*>& Made()
{
    static auto* const made = new std::unordered_map<cow_String, PyObject*>;
    return *made;
}

// Whether the name stands for the constant in the module's names.
bool IsKnown(const cow_String& name)
{
    return omu_SymbolicConstantTable::Exists() && omu_SymbolicConstantTable::Instance().IsMember(name) &&
           omu_SymbolicConstantTable::IsValidSymConstName(name);
}

// So that a text that repr gave evaluates in the module's names.
void Publish(const cow_String& name, const py::object& constant)
{
    const py::object package = py::reinterpret_steal<py::object>(PyImport_GetModule(py::str("orvex").ptr()));
    if (!package)
        PyErr_Clear();
    else if (const py::dict names = package.attr("__dict__"); !names.contains(scr_Text::ToPython(name)))
        names[scr_Text::ToPython(name)] = constant;
}
}

py::object scr_Constants::Make(const cow_String& name)
{
    if (const auto found = Made().find(name); found != Made().end())
        return py::reinterpret_borrow<py::object>(found->second);
    py::object constant = py::cast(Constant{name});
    if (IsKnown(name))
    {
        Made().emplace(name, constant.inc_ref().ptr());
        Publish(name, constant);
    }
    return constant;
}

const scr_Constants::Constant* scr_Constants::Find(PyObject* object)
{
    return Py_TYPE(object) == type ? scr_Instance<Constant>(object) : nullptr;
}

void scr_RegisterConstants(py::module_& module)
{
    using Constant = scr_Constants::Constant;
    py::class_<Constant> constant(module, "SymbolicConstant", py::is_final(), scr_PlainMetaclass(),
                                  "A symbolic constant: an upper-case name that stands for a choice.");
    constant.def_property_readonly("name", [](const Constant& self) { return scr_Text::ToPython(self.name); })
        .def("__str__", [](const Constant& self) { return scr_Text::ToPython(self.name); })
        .def("__repr__",
             [](const Constant& self) -> py::object {
                 py::object name = scr_Text::ToPython(self.name);
                 if (IsKnown(self.name))
                     return name;
                 return py::str("SymbolicConstant({!r})").format(name);
             })
        .def(
            "__eq__", [](const Constant& a, const Constant& b) { return a.name == b.name; },
            py::is_operator())
        .def("__hash__", [](const Constant& self) { return self.name.Hash(); })
        .def("__reduce__", [constant](const Constant& self) {
            return py::make_tuple(constant, py::make_tuple(scr_Text::ToPython(self.name)));
        });
    scr_DefineNew(
        constant,
        [](const py::object&, const py::str& name) {
            return scr_Constants::Make(scr_Text::FromPython(name.ptr()));
        },
        py::arg("name"));
    type = reinterpret_cast<PyTypeObject*>(constant.ptr());
}
