#include <cstddef>
#include <cxxabi.h>
#include <new>
#include <omu_Arguments.h>
#include <omu_CommandTable.h>
#include <scr_Call.h>
#include <scr_Exceptions.h>
#include <scr_Keywords.h>
#include <scr_Own.h>
#include <scr_Running.h>
#include <scr_Text.h>
#include <scr_ValueReader.h>
#include <scr_Values.h>
#include <structmember.h>

namespace py = pybind11;

namespace
{
struct Call
{
    PyObject_HEAD vectorcallfunc vectorcall;
    cow_String name;
    std::shared_ptr<omu_InterfaceObj> object; // null for a command of the table
};

PyTypeObject* commandType = nullptr;
PyTypeObject* methodType = nullptr;

Call& AsCall(PyObject* self)
{
    return *reinterpret_cast<Call*>(self);
}

std::unique_ptr<omu_Primitive> Run(const Call& call, omu_Arguments& arguments)
{
    if (call.object == nullptr)
        return std::unique_ptr<omu_Primitive>(omu_CommandTable::Instance().Call(call.name, arguments));
    bool found = false;
    std::unique_ptr<omu_Primitive> result(
        call.object->CallMethod(call.name.AsCharPtr(), nullptr, arguments, found));
    if (!found)
        call.object->RaiseUnknownMember(call.name);
    return result;
}

PyObject* Invoke(PyObject* self, PyObject* const* values, std::size_t flags, PyObject* keywords)
{
    try
    {
        const scr_Running running;
        omu_Arguments arguments;
        scr_ValueReader reader;
        const Py_ssize_t positional = PyVectorcall_NARGS(flags);
        for (Py_ssize_t i = 0; i < positional; ++i)
            reader.Append(arguments, values[i]);
        const Py_ssize_t named = keywords == nullptr ? 0 : PyTuple_GET_SIZE(keywords);
        for (Py_ssize_t i = 0; i < named; ++i)
        {
            // Before the keyword: reading may run other Python code, which calls with keywords of its own.
            std::unique_ptr<omu_Primitive> value = reader.Read(values[positional + i]);
            arguments.Put(scr_Keywords::Text(PyTuple_GET_ITEM(keywords, i)), value.release());
        }
        // The command may let go of the object on which it is called.
        const py::object kept = py::reinterpret_borrow<py::object>(self);
        return scr_Values::ToPython(Run(AsCall(self), arguments)).release().ptr();
    }
    catch (abi::__forced_unwind&)
    {
        throw; // the thread is ending
    }
    catch (...)
    {
        scr_Exceptions::SetError();
        return nullptr;
    }
}

PyObject* Repr(PyObject* self)
{
    try
    {
        const Call& call = AsCall(self);
        const py::str name = scr_Text::ToPython(call.name);
        if (call.object == nullptr)
            return py::str("<command {}>").format(name).release().ptr();
        return py::str("<method {} of {}>")
            .format(name, scr_Text::ToPython(call.object->AsRepr()))
            .release()
            .ptr();
    }
    catch (...)
    {
        scr_Exceptions::SetError();
        return nullptr;
    }
}

PyObject* Name(PyObject* self, void*)
{
    try
    {
        return scr_Text::ToPython(AsCall(self).name).release().ptr();
    }
    catch (...)
    {
        scr_Exceptions::SetError();
        return nullptr;
    }
}

void Destroy(PyObject* self)
{
    PyTypeObject* const type = Py_TYPE(self);
    Call& call = AsCall(self);
    call.name.~cow_String();
    call.object.~shared_ptr();
    type->tp_free(self);
    Py_DECREF(type);
}

PyTypeObject* NewType(const char* qualifiedName, const char* doc)
{
    static PyMemberDef members[] = {
        {"__vectorcalloffset__", T_PYSSIZET, offsetof(Call, vectorcall), READONLY, nullptr},
        {nullptr, 0, 0, 0, nullptr}};
    static PyGetSetDef properties[] = {{"__name__", &Name, nullptr, nullptr, nullptr},
                                       {nullptr, nullptr, nullptr, nullptr, nullptr}};
    PyType_Slot slots[] = {{Py_tp_doc, const_cast<char*>(doc)},
                           {Py_tp_dealloc, reinterpret_cast<void*>(&Destroy)},
                           {Py_tp_repr, reinterpret_cast<void*>(&Repr)},
                           {Py_tp_call, reinterpret_cast<void*>(&PyVectorcall_Call)},
                           {Py_tp_members, members},
                           {Py_tp_getset, properties},
                           {0, nullptr}};
    PyType_Spec spec = {qualifiedName, sizeof(Call), 0,
                        Py_TPFLAGS_DEFAULT | Py_TPFLAGS_HAVE_VECTORCALL | Py_TPFLAGS_DISALLOW_INSTANTIATION,
                        slots};
    return reinterpret_cast<PyTypeObject*>(scr_Own(PyType_FromSpec(&spec)).release().ptr());
}

py::object New(PyTypeObject* type, const cow_String& name, const std::shared_ptr<omu_InterfaceObj>& object)
{
    py::object made = scr_Own(type->tp_alloc(type, 0));
    Call& call = AsCall(made.ptr());
    call.vectorcall = &Invoke;
    new (&call.name) cow_String(name);
    new (&call.object) std::shared_ptr<omu_InterfaceObj>(object);
    return made;
}
}

py::object scr_Call::OfCommand(const cow_String& name)
{
    return New(commandType, name, nullptr);
}

py::object scr_Call::OfMethod(const std::shared_ptr<omu_InterfaceObj>& object, const cow_String& name)
{
    return New(methodType, name, object);
}

void scr_RegisterCall(py::module_& module)
{
    commandType = NewType("orvex._orvex.Command", "A command of the application.");
    methodType = NewType("orvex._orvex.Method", "A method of an object of the application.");
    module.attr("Command") = py::reinterpret_borrow<py::object>(reinterpret_cast<PyObject*>(commandType));
    module.attr("Method") = py::reinterpret_borrow<py::object>(reinterpret_cast<PyObject*>(methodType));
}
