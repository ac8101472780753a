#include <bio_DataException.h>
#include <cerrno>
#include <cstring>
#include <idb_MementoException.h>
#include <new>
#include <nex_CommandException.h>
#include <nex_RangeException.h>
#include <scr_ExceptionFields.h>
#include <scr_Exceptions.h>
#include <scr_Text.h>

namespace py = pybind11;

namespace
{
constexpr const char* BASE_CLASS = "Error";

// Name to class; never released, so that nothing happens to it after the interpreter's end.
PyObject* classes = nullptr;

// Where the library's class says nothing of Python.
const char* ClassName(const KTLBasException& failure)
{
    if (const auto* command = dynamic_cast<const nex_CommandException*>(&failure))
        return command->PythonType();
    if (dynamic_cast<const nex_RangeException*>(&failure) != nullptr)
        return "IndexError";
    if (dynamic_cast<const bio_DataException*>(&failure) != nullptr ||
        dynamic_cast<const idb_MementoException*>(&failure) != nullptr)
        return "MementoError";
    return BASE_CLASS;
}

py::object ClassOf(const char* name)
{
    const py::dict all = py::reinterpret_borrow<py::dict>(classes);
    return all.contains(name) ? all[name] : all[BASE_CLASS];
}

void Set(const py::object& made)
{
    PyErr_SetObject(reinterpret_cast<PyObject*>(Py_TYPE(made.ptr())), made.ptr());
}

// The signature is pybind11's. NOLINTNEXTLINE(performance-unnecessary-value-param)
void Translate(std::exception_ptr thrown)
{
    try
    {
        if (thrown)
            std::rethrow_exception(thrown);
    }
    catch (const KTLBasException& failure)
    {
        Set(scr_Exceptions::Make(failure));
    }
}
}

py::object scr_Exceptions::Make(const KTLBasException& failure)
{
    py::object made = ClassOf(ClassName(failure))(scr_Text::ToPython(failure.UserReport()));
    const scr_ExceptionFields fields(made);
    failure.DBWrite(fields);
    if (const auto* memento = dynamic_cast<const idb_MementoException*>(&failure))
    {
        made.attr("byte") =
            memento->ByteOffset() < 0 ? py::object(py::none()) : py::int_(memento->ByteOffset());
        made.attr("object") = memento->ObjectNumber();
        made.attr("className") = scr_Text::ToPython(memento->ClassName());
    }
    return made;
}

void scr_Exceptions::SetError() noexcept
{
    try
    {
        try
        {
            throw;
        }
        catch (const KTLBasException& failure)
        {
            Set(scr_Exceptions::Make(failure));
        }
    }
    catch (py::error_already_set& raised)
    {
        raised.restore();
    }
    catch (const py::builtin_exception& raised)
    {
        raised.set_error();
    }
    catch (const std::bad_alloc&)
    {
        PyErr_NoMemory();
    }
    catch (const std::exception& failure)
    {
        PyErr_SetString(PyExc_RuntimeError, failure.what());
    }
    catch (...)
    {
        PyErr_SetString(PyExc_RuntimeError, "a failure of an unknown kind");
    }
}

void scr_Exceptions::Throw(const char* className, const std::string& message)
{
    Set(ClassOf(className)(message));
    throw py::error_already_set();
}

void scr_Exceptions::ThrowIndex(const py::object& index, const std::string& message)
{
    const py::object made = ClassOf("IndexError")(message);
    made.attr("value") = index;
    Set(made);
    throw py::error_already_set();
}

void scr_Exceptions::ThrowSystem(int number, const std::string& file)
{
    if (number == ENOMEM)
        PyErr_SetObject(PyExc_MemoryError, scr_Text::FromFileSystem(file).ptr());
    else
        PyErr_SetObject(PyExc_OSError,
                        py::make_tuple(number, std::strerror(number), scr_Text::FromFileSystem(file)).ptr());
    throw py::error_already_set();
}

void scr_RegisterExceptions(py::module_&)
{
    classes = py::dict(py::module_::import("orvex._errors").attr("_CLASSES")).release().ptr();
    py::register_exception_translator(&Translate);
}
