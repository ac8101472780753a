#include <functional>
#include <omu_Arguments.h>
#include <omu_CommandTable.h>
#include <scr_Call.h>
#include <scr_Instance.h>
#include <scr_Items.h>
#include <scr_Object.h>
#include <scr_Running.h>
#include <scr_Text.h>
#include <scr_Values.h>
#include <string>
#include <string_view>
#include <utility>

namespace py = pybind11;

namespace
{
PyTypeObject* type = nullptr;

// Python's own protocols ask for such names, of stale handles too.
bool IsPythonsOwn(const cow_String& name)
{
    return name.View().starts_with("__") && name.View().ends_with("__");
}

// The library looks members up by C strings: a name with a zero byte is none.
cow_String NameOf(const omu_InterfaceObj& object, const py::str& text)
{
    cow_String name = scr_Text::FromPython(text.ptr());
    if (name.View().find('\0') != std::string_view::npos)
        object.RaiseUnknownMember(name);
    return name;
}

// "mdb.Model" as it is registered, or "Model".
cow_String CommandOf(const omu_InterfaceObj& root, const cow_String& name)
{
    const omu_CommandTable& table = omu_CommandTable::Instance();
    for (const cow_String& command : {root.AsRepr() + "." + name, name})
        if (table.HasCommand(command))
            return command;
    return {};
}

// The names by which the root calls commands: those CommandOf finds.
cow_List<cow_String> CommandsOf(const omu_InterfaceObj& root)
{
    const std::string prefix = std::string(root.AsRepr().View()) + ".";
    cow_List<cow_String> names;
    for (const cow_String& command : omu_CommandTable::Instance().CommandNames())
    {
        std::string_view name = command.View();
        if (name.starts_with(prefix))
            name.remove_prefix(prefix.size());
        else if (omu_CommandTable::Instance().HasCommand(cow_String(prefix + std::string(name))))
            continue; // it hides this one
        if (name.find('.') == name.npos)
            names.Append(cow_String(name));
    }
    return names;
}

py::object GetAttribute(const scr_Object& self, const py::str& text)
{
    const omu_InterfaceObj& object = self.Get();
    const cow_String name = NameOf(object, text);
    if (IsPythonsOwn(name))
        object.RaiseUnknownMember(name);
    const scr_Running running;
    bool found = false;
    std::unique_ptr<omu_Primitive> value(object.GetMember(name.AsCharPtr(), found));
    if (found)
        return scr_Values::ToPython(std::move(value));
    static_cast<void>(object.IsMethod(name.AsCharPtr(), found));
    if (found)
        return scr_Call::OfMethod(self.Share(), name);
    if (self.IsRoot())
        if (const cow_String command = CommandOf(object, name); !command.IsEmpty())
            return scr_Call::OfCommand(command);
    object.RaiseUnknownMember(name);
}

void SetAttribute(const scr_Object& self, const py::str& text, const py::handle& value)
{
    const scr_Running running;
    const cow_String name = NameOf(self.Get(), text);
    omu_Arguments arguments;
    scr_Values::Append(arguments, value.ptr());
    bool found = false;
    self.Get().SetMember(name.AsCharPtr(), arguments, found);
    if (!found)
        self.Get().RaiseUnknownMember(name);
}

void DeleteAttribute(const scr_Object& self, const py::str& text)
{
    const scr_Running running;
    self.Get().RequireLive();
    self.Get().DeleteMember(NameOf(self.Get(), text));
}

py::object Names(const py::object& self)
{
    py::list names(py::module_::import("builtins").attr("object").attr("__dir__")(self));
    const scr_Object& handle = *scr_Object::Find(self.ptr());
    const omu_InterfaceObj& object = handle.Get();
    if (!object.IsStale())
    {
        scr_Text::Append(names, object.MemberList());
        scr_Text::Append(names, object.MethodList());
        if (handle.IsRoot())
            scr_Text::Append(names, CommandsOf(object));
    }
    return names;
}

py::ssize_t Hash(const scr_Object& self)
{
    const omu_Shortcut shortcut = self.Get().BaseShortcut();
    const std::size_t hash =
        shortcut.HasValue() ? shortcut.Path().Hash() : std::hash<const void*>()(&self.Get());
    // -1 is how a hash function says that it failed.
    return hash == static_cast<std::size_t>(-1) ? -2 : static_cast<py::ssize_t>(hash);
}

scr_Object Copy(const scr_Object& self)
{
    return scr_Object(std::shared_ptr<omu_InterfaceObj>(self.Get().Copy()), self.IsRoot());
}

using Operation = omu_Primitive* (omu_InterfaceObj::*)(omu_InterfaceObj*) const;

template <Operation F>
py::object Calculate(const scr_Object& self, const scr_Object& other)
{
    const scr_Running running;
    self.Get().RequireLive();
    return scr_Values::ToPython(std::unique_ptr<omu_Primitive>((self.Get().*F)(&other.Get())));
}

template <omu_Primitive* (omu_InterfaceObj::*F)() const>
py::object Calculate(const scr_Object& self)
{
    const scr_Running running;
    self.Get().RequireLive();
    return scr_Values::ToPython(std::unique_ptr<omu_Primitive>((self.Get().*F)()));
}
}

py::object scr_Object::Make(std::shared_ptr<omu_InterfaceObj> object)
{
    return py::cast(scr_Object(std::move(object)));
}

py::object scr_Object::MakeRoot(std::shared_ptr<omu_InterfaceObj> root)
{
    return py::cast(scr_Object(std::move(root), true));
}

const scr_Object* scr_Object::Find(PyObject* object)
{
    return Py_TYPE(object) == type ? scr_Instance<scr_Object>(object) : nullptr;
}

void scr_RegisterObject(py::module_& module)
{
    py::class_<scr_Object> object(module, "Object", py::is_final(), scr_PlainMetaclass(),
                                  "A handle on an object of the application, with its members and methods.");
    object.def("__getattr__", &GetAttribute)
        .def("__setattr__", &SetAttribute)
        .def("__delattr__", &DeleteAttribute)
        .def("__dir__", &Names)
        .def("__repr__", [](const scr_Object& self) { return scr_Text::ToPython(self.Get().AsRepr()); })
        .def("__str__", [](const scr_Object& self) { return scr_Text::ToPython(self.Get().AsString(0)); })
        .def(
            "__eq__",
            [](const scr_Object& a, const scr_Object& b) {
                return static_cast<const omu_Primitive&>(a.Get()) == b.Get();
            },
            py::is_operator())
        .def("__hash__", &Hash)
        .def("__bool__", [](const scr_Object& self) { return self.Get().NonZero() != 0; })
        .def("__add__", &Calculate<&omu_InterfaceObj::AddOperation>, py::is_operator())
        .def("__sub__", &Calculate<&omu_InterfaceObj::SubOperation>, py::is_operator())
        .def("__mul__", &Calculate<&omu_InterfaceObj::MulOperation>, py::is_operator())
        .def("__truediv__", &Calculate<&omu_InterfaceObj::DivOperation>, py::is_operator())
        .def("__abs__", &Calculate<&omu_InterfaceObj::Absolute>)
        .def("__neg__", &Calculate<&omu_InterfaceObj::UnaryNegative>)
        .def("__len__", &scr_Items::Length)
        .def("__iter__", &scr_Items::Iterate)
        .def("__reversed__",
             [](const py::object& self) -> py::object { return py::list(self).attr("__reversed__")(); })
        .def("__contains__", &scr_Items::Contains)
        .def("__getitem__", &scr_Items::Get)
        .def("__setitem__", &scr_Items::Set)
        .def("__delitem__", &scr_Items::Delete)
        .def("__copy__", &Copy)
        .def("__deepcopy__", [](const scr_Object& self, const py::object&) { return Copy(self); })
        .def("__reduce__", [](const scr_Object&) -> py::object {
            throw py::type_error("a handle on an object of the application cannot be pickled");
        });
    scr_RefuseNew(object);
    type = reinterpret_cast<PyTypeObject*>(object.ptr());
}
