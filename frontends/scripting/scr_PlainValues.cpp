#include <memory>
#include <omu_PrimPath.h>
#include <omu_PrimType.h>
#include <scr_Instance.h>
#include <scr_PlainValues.h>
#include <scr_Text.h>

namespace py = pybind11;

namespace
{
// A value of any kind.
struct Value
{
    std::shared_ptr<const omu_Primitive> held;
};

PyTypeObject* typeClass = nullptr;
PyTypeObject* pathClass = nullptr;
PyTypeObject* valueClass = nullptr;

// "str" for a file, a list of str for the steps to an object.
omu_PrimPath NewPath(const py::object& path)
{
    if (py::isinstance<py::str>(path))
        return omu_PrimPath(scr_Text::FromPython(path.ptr()));
    cow_List<cow_String> steps;
    for (const py::handle step : path)
    {
        if (!py::isinstance<py::str>(step))
            throw py::type_error("the steps of a path are str");
        steps.Append(scr_Text::FromPython(step.ptr()));
    }
    return omu_PrimPath(steps);
}

py::object PathArgument(const omu_PrimPath& path)
{
    if (path.ContextType() == omu_PrimPath::FILE_PATH)
        return scr_Text::ToPython(path.PathText());
    py::list steps;
    scr_Text::Append(steps, path.Context());
    return steps;
}

void RegisterType(py::module_& module)
{
    py::class_<omu_PrimType> type(module, "Type", py::is_final(), scr_PlainMetaclass(),
                                  "The type of a displayable object, by its name.");
    const auto name = [](const omu_PrimType& self) { return scr_Text::ToPython(self.Value()); };
    type.def_property_readonly("name", name)
        .def("__str__", name)
        .def("__repr__",
             [name](const omu_PrimType& self) { return py::str("Type({!r})").format(name(self)); })
        .def(
            "__eq__", [](const omu_PrimType& a, const omu_PrimType& b) { return a == b; }, py::is_operator())
        .def("__hash__", [](const omu_PrimType& self) { return self.Value().Hash(); })
        .def("__reduce__", [type, name](const omu_PrimType& self) {
            return py::make_tuple(type, py::make_tuple(name(self)));
        });
    scr_DefineNew(
        type,
        [](const py::object&, const py::str& text) { return omu_PrimType(scr_Text::FromPython(text.ptr())); },
        py::arg("name"));
    typeClass = reinterpret_cast<PyTypeObject*>(type.ptr());
}

void RegisterPath(py::module_& module)
{
    py::class_<omu_PrimPath> path(module, "Path", py::is_final(), scr_PlainMetaclass(),
                                  "A path: of a file, one text, or of an object, the steps that lead to it.");
    const auto text = [](const omu_PrimPath& self) { return scr_Text::ToPython(self.PathText()); };
    path.def("__str__", text)
        .def("__repr__",
             [](const omu_PrimPath& self) { return py::str("Path({!r})").format(PathArgument(self)); })
        .def(
            "__eq__", [](const omu_PrimPath& a, const omu_PrimPath& b) { return a == b; }, py::is_operator())
        .def("__hash__", [](const omu_PrimPath& self) { return self.PathText().Hash(); })
        .def("__reduce__", [path](const omu_PrimPath& self) {
            return py::make_tuple(path, py::make_tuple(PathArgument(self)));
        });
    scr_DefineNew(
        path, [](const py::object&, const py::object& given) { return NewPath(given); }, py::arg("path"));
    pathClass = reinterpret_cast<PyTypeObject*>(path.ptr());
}
}

void scr_RegisterPlainValues(py::module_& module)
{
    RegisterType(module);
    RegisterPath(module);
    py::class_<Value> value(module, "Value", py::is_final(), scr_PlainMetaclass(),
                            "A value of the scripting language that Python has nothing for.");
    value
        .def_property_readonly(
            "type", [](const Value& self) { return scr_Text::ToPython(self.held->TypeString().AsString()); })
        .def("__repr__", [](const Value& self) { return scr_Text::ToPython(self.held->AsRepr()); })
        .def(
            "__eq__", [](const Value& a, const Value& b) { return *a.held == *b.held; }, py::is_operator())
        // It never changes, so that a copy is the value itself.
        .def("__copy__", [](const py::object& self) { return self; })
        .def("__deepcopy__", [](const py::object& self, const py::dict&) { return self; })
        .def("__reduce__", [](const Value& self) -> py::object {
            throw py::type_error("a value of the type " +
                                 std::string(self.held->TypeString().AsString().View()) +
                                 " cannot be pickled");
        });
    value.attr("__hash__") = py::none();
    scr_RefuseNew(value);
    valueClass = reinterpret_cast<PyTypeObject*>(value.ptr());
}

py::object scr_MakePlainValue(const omu_Primitive& value)
{
    return py::cast(Value{std::shared_ptr<const omu_Primitive>(value.Copy())});
}

const omu_Primitive* scr_FindPlainValue(PyObject* object)
{
    const PyTypeObject* const type = Py_TYPE(object);
    if (type == typeClass)
        return scr_Instance<omu_PrimType>(object);
    if (type == pathClass)
        return scr_Instance<omu_PrimPath>(object);
    return type == valueClass ? scr_Instance<Value>(object)->held.get() : nullptr;
}
