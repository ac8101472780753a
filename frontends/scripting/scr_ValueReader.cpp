#include <algorithm>
#include <climits>
#include <cstdint>
#include <omu_InterfaceObj.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimComplex.h>
#include <omu_PrimDictionary.h>
#include <omu_PrimEnumBase.h>
#include <omu_PrimList.h>
#include <omu_PrimNone.h>
#include <omu_PrimString.h>
#include <omu_PyObjectWrapper.h>
#include <scr_Array.h>
#include <scr_ArrayReader.h>
#include <scr_Constants.h>
#include <scr_Exceptions.h>
#include <scr_Object.h>
#include <scr_Own.h>
#include <scr_PlainValues.h>
#include <scr_ScriptObjects.h>
#include <scr_Text.h>
#include <scr_ValueReader.h>
#include <scr_Values.h>
#include <string>

namespace py = pybind11;

namespace
{
constexpr const char* INT_RANGE = "integer out of range; it must be -2147483648 to 4294967295";
constexpr const char* KEY_RANGE = " is out of range; it must be -2147483648 to 2147483647";

[[noreturn]] void RefuseKey(PyObject* key, const char* what)
{
    scr_Exceptions::Throw("TypeError", "dictionary key " + std::string(py::str(py::repr(key))) +
                                           " is of type " + Py_TYPE(key)->tp_name + "; " + what);
}

// The integer, which lies between the smallest int and the greatest unsigned int.
long long IntegerOf(PyObject* object)
{
    int overflow = 0;
    const long long value = PyLong_AsLongLongAndOverflow(object, &overflow);
    if (overflow != 0 || value < INT_MIN || value > UINT32_MAX)
        scr_Exceptions::Throw("OverflowError", INT_RANGE);
    return value;
}

template <class K>
K KeyOf(PyObject* key)
{
    if constexpr (std::is_same_v<K, int>)
    {
        if (!PyLong_Check(key) || PyBool_Check(key))
            RefuseKey(key, "keys are all str or all int");
        int overflow = 0;
        const long value = PyLong_AsLongAndOverflow(key, &overflow);
        if (overflow != 0 || value < INT_MIN || value > INT_MAX)
            scr_Exceptions::Throw("OverflowError",
                                  "dictionary key " + std::string(py::str(py::repr(key))) + KEY_RANGE);
        return static_cast<int>(value);
    }
    else
    {
        if (!PyUnicode_Check(key))
            RefuseKey(key, "keys are all str or all int");
        return scr_Text::FromPython(key);
    }
}

Py_ssize_t LengthOf(PyObject* sequence)
{
    return PyTuple_Check(sequence) ? PyTuple_GET_SIZE(sequence) : PyList_GET_SIZE(sequence);
}

PyObject* ItemOf(PyObject* sequence, Py_ssize_t index)
{
    return PyTuple_Check(sequence) ? PyTuple_GET_ITEM(sequence, index) : PyList_GET_ITEM(sequence, index);
}
}

std::unique_ptr<omu_Primitive> scr_ValueReader::Read(PyObject* object)
{
    if (object == Py_None)
        return std::make_unique<omu_PrimNone>();
    if (PyFloat_Check(object))
        return std::make_unique<omu_PrimNumber>(PyFloat_AS_DOUBLE(object));
    if (PyBool_Check(object))
        return std::make_unique<omu_PrimBoolean>(object == Py_True);
    if (PyLong_Check(object))
        return ReadInteger(object);
    if (PyUnicode_Check(object))
        return std::make_unique<omu_PrimString>(scr_Text::FromPython(object));
    if (PyTuple_Check(object))
        return ReadSequence<omu_PrimTuple>(object);
    if (PyList_Check(object))
        return ReadSequence<omu_PrimList>(object);
    if (const auto* constant = scr_Constants::Find(object))
        return std::make_unique<omu_PrimEnumBase>(constant->name);
    if (PyDict_Check(object))
        return ReadDictionary(object);
    return ReadOther(object);
}

void scr_ValueReader::Append(omu_PrimTuple& sequence, PyObject* object)
{
    if (PyFloat_CheckExact(object))
        sequence.Put(PyFloat_AS_DOUBLE(object));
    else if (PyLong_CheckExact(object))
    {
        const long long value = IntegerOf(object);
        if (value <= INT_MAX)
            sequence.Put(static_cast<int>(value));
        else
            sequence.Put(static_cast<unsigned>(value));
    }
    else
        sequence.Put(Read(object));
}

std::unique_ptr<omu_Primitive> scr_ValueReader::ReadInteger(PyObject* object)
{
    const long long value = IntegerOf(object);
    return value <= INT_MAX ? std::make_unique<omu_PrimNumber>(static_cast<int>(value))
                            : std::make_unique<omu_PrimNumber>(static_cast<unsigned>(value));
}

template <class Sequence>
std::unique_ptr<omu_Primitive> scr_ValueReader::ReadSequence(PyObject* object)
{
    Enter();
    const Py_ssize_t length = LengthOf(object);
    if (length > INT_MAX)
        scr_Exceptions::Throw("OverflowError", "sequence is too long; maximum length is 2147483647");
    auto sequence = std::make_unique<Sequence>(static_cast<int>(length));
    // A list may change while its items are read: those may run code.
    for (Py_ssize_t i = 0; i < LengthOf(object); ++i)
    {
        Count();
        PyObject* const item = ItemOf(object, i);
        if (PyFloat_CheckExact(item))
            sequence->Put(PyFloat_AS_DOUBLE(item));
        else
            Append(*sequence, py::reinterpret_borrow<py::object>(item).ptr());
    }
    --depth_;
    return sequence;
}

std::unique_ptr<omu_Primitive> scr_ValueReader::ReadDictionary(PyObject* object)
{
    Enter();
    // A copy, which nothing that runs in between changes.
    const auto entries = scr_Own(PyDict_Copy(object));
    PyObject* key = nullptr;
    PyObject* value = nullptr;
    Py_ssize_t place = 0;
    const bool hasIntKeys = PyDict_Next(entries.ptr(), &place, &key, &value) != 0 && !PyUnicode_Check(key);
    auto dictionary = hasIntKeys ? ReadEntries<int>(entries.ptr()) : ReadEntries<cow_String>(entries.ptr());
    --depth_;
    return dictionary;
}

template <class K>
std::unique_ptr<omu_Primitive> scr_ValueReader::ReadEntries(PyObject* entries)
{
    auto dictionary = std::make_unique<omu_PrimDictionary<K>>();
    dictionary->Reserve(static_cast<int>(std::min<Py_ssize_t>(PyDict_GET_SIZE(entries), INT_MAX)));
    PyObject* key = nullptr;
    PyObject* value = nullptr;
    Py_ssize_t place = 0;
    while (PyDict_Next(entries, &place, &key, &value) != 0)
    {
        Count();
        dictionary->Put(KeyOf<K>(key), Read(value));
    }
    return dictionary;
}

std::unique_ptr<omu_Primitive> scr_ValueReader::ReadOther(PyObject* object)
{
    if (const scr_Object* handle = scr_Object::Find(object))
        return std::unique_ptr<omu_Primitive>(handle->Get().Copy());
    if (const omu_PrimArray* array = scr_FindArray(object))
        return std::make_unique<omu_PrimArray>(*array);
    if (PyComplex_Check(object))
        return std::make_unique<omu_PrimComplex>(
            omi_complex(PyComplex_RealAsDouble(object), PyComplex_ImagAsDouble(object)));
    if (const omu_Primitive* value = scr_FindPlainValue(object))
        return std::unique_ptr<omu_Primitive>(value->Copy());
    if (auto array = scr_ArrayReader::Read(object))
        return array;
    return std::make_unique<omu_PyObjectWrapper>(scr_ScriptObjects::Wrap(object));
}

void scr_ValueReader::Enter()
{
    if (++depth_ > scr_Values::MAX_DEPTH)
        scr_Exceptions::Throw("OverflowError",
                              "value is nested too deep, or holds itself; maximum depth is " +
                                  std::to_string(scr_Values::MAX_DEPTH));
}

void scr_ValueReader::Count()
{
    if (++items_ > scr_Values::MAX_ITEMS)
        scr_Exceptions::Throw("OverflowError", "value holds too many others; their greatest number is " +
                                                   std::to_string(scr_Values::MAX_ITEMS));
}
