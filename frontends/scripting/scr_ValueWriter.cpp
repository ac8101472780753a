#include <nex_CommandException.h>
#include <omu_InterfaceObj.h>
#include <omu_PrimArray.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimComplex.h>
#include <omu_PrimDictionary.h>
#include <omu_PrimEnumBase.h>
#include <omu_PrimException.h>
#include <omu_PrimList.h>
#include <omu_PrimPath.h>
#include <omu_PrimString.h>
#include <omu_PrimTranslatedString.h>
#include <omu_PrimType.h>
#include <scr_Array.h>
#include <scr_Constants.h>
#include <scr_Exceptions.h>
#include <scr_Object.h>
#include <scr_PlainValues.h>
#include <scr_ScriptObjects.h>
#include <scr_Text.h>
#include <scr_ValueWriter.h>

namespace py = pybind11;

namespace
{
using DataTypeEnm = omu_PrimNumber::DataTypeEnm;

PyObject* NewNumber(double value, DataTypeEnm type)
{
    PyObject* const number = type == DataTypeEnm::FLOAT || type == DataTypeEnm::DOUBLE
                                 ? PyFloat_FromDouble(value)
                                 : PyLong_FromDouble(value);
    if (number == nullptr)
        throw py::error_already_set();
    return number;
}
}

py::object scr_ValueWriter::Write(const omu_Primitive* value)
{
    if (value == nullptr)
        return py::none();
    // Visitors are given values that they might change; this one changes none.
    const_cast<omu_Primitive*>(value)->Accept(this);
    return std::move(result_);
}

py::object scr_ValueWriter::Write(std::unique_ptr<omu_Primitive> value)
{
    if (auto* object = dynamic_cast<omu_InterfaceObj*>(value.get()))
    {
        (void)value.release(); // owned by what is made next
        return scr_Object::Make(std::shared_ptr<omu_InterfaceObj>(object));
    }
    return Write(value.get());
}

void scr_ValueWriter::VisitPrimitive(omu_Primitive& value)
{
    result_ = scr_MakePlainValue(value);
}

void scr_ValueWriter::VisitNumber(omu_PrimNumber& value)
{
    PyObject* const number = value.DataType() == DataTypeEnm::UINT
                                 ? PyLong_FromUnsignedLongLong(value.UnsignedValue())
                                 : NewNumber(value.Value(), value.DataType());
    result_ = py::reinterpret_steal<py::object>(number);
}

void scr_ValueWriter::VisitString(omu_PrimString& value)
{
    result_ = scr_Text::ToPython(value.Value());
}

void scr_ValueWriter::VisitTranslatedString(omu_PrimTranslatedString& value)
{
    result_ = scr_Text::ToPython(value.AsTranslatedString().AsString());
}

void scr_ValueWriter::VisitBoolean(omu_PrimBoolean& value)
{
    result_ = py::bool_(value.Value());
}

void scr_ValueWriter::VisitNone(omu_PrimNone&)
{
    result_ = py::none();
}

void scr_ValueWriter::VisitComplex(omu_PrimComplex& value)
{
    result_ =
        py::reinterpret_steal<py::object>(PyComplex_FromDoubles(value.Value().Real(), value.Value().Imag()));
}

void scr_ValueWriter::VisitType(omu_PrimType& value)
{
    result_ = py::cast(value);
}

void scr_ValueWriter::VisitPath(omu_PrimPath& value)
{
    result_ = py::cast(value);
}

void scr_ValueWriter::VisitException(omu_PrimException& value)
{
    if (const nex_CommandException* exception = value.Exception())
        result_ = scr_Exceptions::Make(*exception);
    else
        result_ = py::none();
}

void scr_ValueWriter::VisitEnum(omu_PrimEnumBase& value)
{
    result_ = scr_Constants::Make(value.GetString());
}

template <class Sequence>
Sequence scr_ValueWriter::Items(const omu_PrimTuple& items)
{
    const int length = items.Length();
    Sequence sequence(static_cast<std::size_t>(length));
    const auto set = [&sequence](int place, PyObject* item) {
        if constexpr (std::is_same_v<Sequence, py::tuple>)
            PyTuple_SET_ITEM(sequence.ptr(), place, item);
        else
            PyList_SET_ITEM(sequence.ptr(), place, item);
    };
    if (const omu_PrimVector::Number* numbers = items.Items().Numbers())
        for (int i = 0; i < length; ++i)
            set(i, NewNumber(numbers[i].value, numbers[i].dataType));
    else
        for (int i = 0; i < length; ++i)
            set(i, Write(items[i]).release().ptr());
    return sequence;
}

void scr_ValueWriter::VisitTuple(omu_PrimTuple& value)
{
    result_ = Items<py::tuple>(value);
}

void scr_ValueWriter::VisitList(omu_PrimList& value)
{
    result_ = Items<py::list>(value);
}

void scr_ValueWriter::VisitArray(omu_PrimArray& value)
{
    result_ = scr_MakeArray(value);
}

template <class Dictionary>
py::dict scr_ValueWriter::Entries(const Dictionary& entries)
{
    py::dict dictionary;
    for (int i = 0; i < entries.Length(); ++i)
    {
        py::object value = Write(entries.ValueAt(i));
        if constexpr (std::is_same_v<Dictionary, omu_PrimDictionary<int>>)
            dictionary[py::int_(entries.KeyAt(i))] = value;
        else
            dictionary[scr_Text::ToPython(entries.KeyAt(i))] = value;
    }
    return dictionary;
}

void scr_ValueWriter::VisitDictionary(omu_PrimDictionaryBase& value)
{
    if (const auto* byText = dynamic_cast<const omu_PrimDictionary<cow_String>*>(&value))
        result_ = Entries(*byText);
    else if (const auto* byNumber = dynamic_cast<const omu_PrimDictionary<int>*>(&value))
        result_ = Entries(*byNumber);
    else
        VisitPrimitive(value);
}

void scr_ValueWriter::VisitInterfaceObject(omu_InterfaceObj& value)
{
    result_ = scr_Object::Make(std::shared_ptr<omu_InterfaceObj>(value.Copy()));
}

void scr_ValueWriter::VisitScriptObject(omu_Primitive&, const omu_PyObjectHandle& object)
{
    result_ = scr_ScriptObjects::Unwrap(object);
}
