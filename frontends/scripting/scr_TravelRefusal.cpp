#include <scr_Exceptions.h>
#include <scr_Own.h>
#include <scr_TravelRefusal.h>

namespace py = pybind11;

void scr_TravelRefusal::Type(const std::string& found) const
{
    scr_Exceptions::Throw("TypeError", Sentence(found));
}

void scr_TravelRefusal::Type(py::handle found) const
{
    Type(TypeName(found));
}

void scr_TravelRefusal::Value(const std::string& found) const
{
    scr_Exceptions::Throw("ValueError", Sentence(found));
}

double scr_TravelRefusal::Number(py::handle object, const std::string& where) const
{
    const double value = PyFloat_AsDouble(object.ptr());
    if (value != -1.0 || !PyErr_Occurred())
        return value;
    if (!PyErr_ExceptionMatches(PyExc_TypeError))
        throw py::error_already_set();
    PyErr_Clear();
    Type(TypeName(object) + where);
}

long scr_TravelRefusal::WholeNumber(py::handle object, long least, long most) const
{
    if (!PyIndex_Check(object.ptr()))
        Type(object);
    const auto number = scr_Own(PyNumber_Index(object.ptr()));
    int overflow = 0;
    const long value = PyLong_AsLongAndOverflow(number.ptr(), &overflow);
    if (overflow != 0 || value < least || value > most)
        Value(Shown(object));
    return value;
}

std::string scr_TravelRefusal::TypeName(py::handle object)
{
    return Py_TYPE(object.ptr())->tp_name;
}

std::string scr_TravelRefusal::Shown(py::handle object)
{
    constexpr std::size_t LONGEST = 60;
    const auto shown = scr_Own(PyObject_ASCII(object.ptr())).cast<std::string>();
    return shown.size() <= LONGEST ? shown : shown.substr(0, LONGEST) + "...";
}

std::string scr_TravelRefusal::Text(py::handle text)
{
    return scr_Own<py::bytes>(PyUnicode_AsEncodedString(text.ptr(), "utf-8", "backslashreplace"));
}

std::string scr_TravelRefusal::Sentence(const std::string& found) const
{
    return what_ + ": found " + found + ", expected " + expected_;
}
