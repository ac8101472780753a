#include <climits>
#include <scr_Exceptions.h>
#include <scr_Own.h>
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
    return scr_Own<py::str>(PyUnicode_DecodeUTF8(text.AsCharPtr(), text.Length(), ERRORS));
}

void scr_Text::Append(py::list& list, const cow_List<cow_String>& texts)
{
    for (const cow_String& text : texts)
        list.append(ToPython(text));
}

py::str scr_Text::FromFileSystem(const std::string& bytes)
{
    return scr_Own<py::str>(
        PyUnicode_DecodeFSDefaultAndSize(bytes.data(), static_cast<Py_ssize_t>(bytes.size())));
}

std::string scr_Text::PathOf(PyObject* path)
{
    PyObject* bytes = nullptr;
    if (!PyUnicode_FSConverter(path, &bytes))
        throw py::error_already_set();
    return py::reinterpret_steal<py::bytes>(bytes);
}

cow_String scr_Text::FromPython(PyObject* text)
{
    Py_ssize_t length = 0;
    if (const char* bytes = PyUnicode_AsUTF8AndSize(text, &length))
        return Checked(bytes, length);
    PyErr_Clear();
    const auto encoded = scr_Own(PyUnicode_AsEncodedString(text, "utf-8", ERRORS));
    return Checked(PyBytes_AS_STRING(encoded.ptr()), PyBytes_GET_SIZE(encoded.ptr()));
}
