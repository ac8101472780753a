#include <climits>
#include <scr_Exceptions.h>
#include <scr_Text.h>

namespace py = pybind11;

namespace
{
constexpr const char* ERRORS = "surrogateescape";

cow_String Checked(const char* bytes, Py_ssize_t length)
{
    if (length > INT_MAX)
        scr_Exceptions::Throw("OverflowError", "text is too long; maximum length is 2147483647 bytes");
    return cow_String(bytes, static_cast<std::size_t>(length));
}
}

py::str scr_Text::ToPython(const cow_String& text)
{
    PyObject* const made = PyUnicode_DecodeUTF8(text.AsCharPtr(), text.Length(), ERRORS);
    if (made == nullptr)
        throw py::error_already_set();
    return py::reinterpret_steal<py::str>(made);
}

cow_String scr_Text::FromPython(PyObject* text)
{
    Py_ssize_t length = 0;
    if (const char* bytes = PyUnicode_AsUTF8AndSize(text, &length))
        return Checked(bytes, length);
    PyErr_Clear();
    const auto encoded = py::reinterpret_steal<py::object>(PyUnicode_AsEncodedString(text, "utf-8", ERRORS));
    if (!encoded)
        throw py::error_already_set();
    return Checked(PyBytes_AS_STRING(encoded.ptr()), PyBytes_GET_SIZE(encoded.ptr()));
}
