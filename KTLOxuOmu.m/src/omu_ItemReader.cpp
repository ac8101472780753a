#include <limits>
#include <omu_InterfaceObj.h>
#include <omu_ItemReader.h>
#include <omu_NumberText.h>
#include <omu_OrvexName.h>
#include <omu_PrimArray.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimComplex.h>
#include <omu_PrimDictionary.h>
#include <omu_PrimEnumBase.h>
#include <omu_PrimPath.h>
#include <omu_PrimString.h>
#include <omu_PrimTranslatedString.h>
#include <omu_PrimTuple.h>
#include <type_traits>

namespace
{
using DataTypeEnm = omu_PrimNumber::DataTypeEnm;

// The value as a T of that kind; null when it is none.
template <class T>
const T* OfKind(char kind, const omu_Primitive& item)
{
    return item.IsType(kind) ? omu_ItemReader::As<T>(item) : nullptr;
}

const omu_PrimNumber* AsInteger(const omu_Primitive& item)
{
    return OfKind<omu_PrimNumber>('i', item);
}

const omu_PrimNumber* AsNumber(const omu_Primitive& item)
{
    const omu_PrimNumber* real = OfKind<omu_PrimNumber>('f', item);
    return real != nullptr ? real : AsInteger(item);
}

const omu_PrimTuple* AsSequence(const omu_Primitive& item)
{
    return OfKind<omu_PrimTuple>(omu_PrimTuple::KIND, item);
}

const omu_PrimArray* AsArray(const omu_Primitive& item, int rank)
{
    const auto* array = OfKind<omu_PrimArray>('o', item);
    return array != nullptr && (array->Rank() == rank || array->Size() == 0) ? array : nullptr;
}

// SCHAR and SHORT: of that very type, or an INT in its range.
template <class T>
bool ReadSmall(const omu_Primitive& item, DataTypeEnm ownType, T& out)
{
    const omu_PrimNumber* number = AsInteger(item);
    if (number == nullptr || (number->DataType() != ownType && number->DataType() != DataTypeEnm::INT))
        return false;
    const int value = omu_NumberText::ToInt32(number->Value());
    if (value < std::numeric_limits<T>::min() || value > std::numeric_limits<T>::max())
        return false;
    out = static_cast<T>(value);
    return true;
}

// The text of a string of either kind; null for anything else.
const cow_String* AsText(const omu_Primitive& item)
{
    if (const auto* text = OfKind<omu_PrimString>('s', item))
        return &text->Value();
    if (const auto* text = OfKind<omu_PrimTranslatedString>('l', item))
        return &text->AsTranslatedString().AsString();
    return nullptr;
}

// False where nothing was found.
template <class Found, class T>
bool Deliver(const Found* found, T& out)
{
    if (found == nullptr)
        return false;
    out = *found;
    return true;
}

template <class T>
bool ReadItems(const omu_PrimTuple& from, T* to)
{
    const int length = from.Length();
    for (int i = 0; i < length; ++i)
    {
        const bool fits = from.View(i, [&](const omu_Primitive* item) {
            return item != nullptr && omu_ItemReader::Read(*item, to[i]);
        });
        if (!fits)
            return false;
    }
    return true;
}

// The elements of an array by the rule of the scalar: doubles make no ints.
template <class T>
bool ReadElements(const omu_PrimArray& from, T* to)
{
    for (int i = 0; i < from.Size(); ++i)
        if (!omu_ItemReader::Read(from.Element(i), to[i]))
            return false;
    return true;
}

// The length of every row; -1 where they differ, or where a row is no sequence.
int CommonLength(const omu_PrimTuple& rows)
{
    int length = 0;
    for (int r = 0; r < rows.Length(); ++r)
    {
        const int found = rows.View(r, [](const omu_Primitive* row) {
            const omu_PrimTuple* cells = row != nullptr ? AsSequence(*row) : nullptr;
            return cells != nullptr ? cells->Length() : -1;
        });
        if (found < 0 || (r > 0 && found != length))
            return -1;
        length = found;
    }
    return length;
}

bool ReadPair(const omu_Primitive* item, cow_Map<cow_String, float>& out)
{
    const omu_PrimTuple* pair = item != nullptr ? AsSequence(*item) : nullptr;
    if (pair == nullptr || pair->Length() != 2)
        return false;
    const omu_Primitive* key = (*pair)[0];
    const omu_Primitive* value = (*pair)[1];
    cow_String text;
    float number = 0.0F;
    if (key == nullptr || value == nullptr || !omu_ItemReader::Read(*key, text) ||
        !omu_ItemReader::Read(*value, number))
        return false;
    out.Insert(text, number);
    return true;
}
}

bool omu_ItemReader::Read(const omu_Primitive& item, bool& out)
{
    if (const auto* boolean = OfKind<omu_PrimBoolean>('b', item))
    {
        out = boolean->Value();
        return true;
    }
    const omu_PrimNumber* number = AsInteger(item);
    if (number == nullptr || number->DataType() != DataTypeEnm::INT ||
        (number->Value() != 0.0 && number->Value() != 1.0))
        return false;
    out = number->Value() != 0.0;
    return true;
}

bool omu_ItemReader::Read(const omu_Primitive& item, int& out)
{
    const omu_PrimNumber* number = AsInteger(item);
    if (number == nullptr || number->DataType() != DataTypeEnm::INT)
        return false;
    out = omu_NumberText::ToInt32(number->Value());
    return true;
}

bool omu_ItemReader::Read(const omu_Primitive& item, signed char& out)
{
    return ReadSmall(item, DataTypeEnm::SCHAR, out);
}

bool omu_ItemReader::Read(const omu_Primitive& item, short& out)
{
    return ReadSmall(item, DataTypeEnm::SHORT, out);
}

bool omu_ItemReader::Read(const omu_Primitive& item, unsigned int& out)
{
    const omu_PrimNumber* number = AsInteger(item);
    if (number == nullptr)
        return false;
    if (number->DataType() == DataTypeEnm::UINT)
    {
        if (number->UnsignedValue() > std::numeric_limits<unsigned int>::max())
            return false;
        out = static_cast<unsigned int>(number->UnsignedValue());
        return true;
    }
    const int value = omu_NumberText::ToInt32(number->Value());
    if (number->DataType() != DataTypeEnm::INT || value < 0)
        return false;
    out = static_cast<unsigned int>(value);
    return true;
}

bool omu_ItemReader::Read(const omu_Primitive& item, float& out)
{
    double value = 0.0;
    if (!Read(item, value))
        return false;
    out = static_cast<float>(value);
    return true;
}

bool omu_ItemReader::Read(const omu_Primitive& item, double& out)
{
    const omu_PrimNumber* number = AsNumber(item);
    if (number == nullptr)
        return false;
    out = number->AsDouble();
    return true;
}

bool omu_ItemReader::Read(const omu_Primitive& item, cow_String& out)
{
    return Deliver(AsText(item), out);
}

bool omu_ItemReader::Read(const omu_Primitive& item, atr_String& out)
{
    if (const auto* text = OfKind<omu_PrimTranslatedString>('l', item))
        return Deliver(&text->AsTranslatedString(), out);
    const cow_String* text = AsText(item);
    if (text == nullptr)
        return false;
    out = atr_String(*text);
    return true;
}

bool omu_ItemReader::Read(const omu_Primitive& item, omi_complex& out)
{
    if (const auto* complex = OfKind<omu_PrimComplex>('x', item))
        return Deliver(&complex->Value(), out);
    double real = 0.0;
    if (!Read(item, real))
        return false;
    out = omi_complex(real, 0.0);
    return true;
}

bool omu_ItemReader::Read(const omu_Primitive& item, omu_PrimPath& out)
{
    const cow_String* file = AsText(item);
    if (file != nullptr)
    {
        out = omu_PrimPath(*file);
        return true;
    }
    return Deliver(As<omu_PrimPath>(item), out);
}

bool omu_ItemReader::Read(const omu_Primitive& item, omu_PrimTuple& out)
{
    return Deliver(AsSequence(item), out);
}

bool omu_ItemReader::Read(const omu_Primitive& item, omu_PrimEnumBase& out)
{
    const auto* constant = OfKind<omu_PrimEnumBase>('c', item);
    if (constant == nullptr)
        return false;
    const cow_Map<cow_String, unsigned> permissible = out.PermissibleValues();
    if (!permissible.IsEmpty() && !permissible.IsMember(constant->GetString()))
        return false;
    out = *constant;
    return true;
}

bool omu_ItemReader::Read(const omu_Primitive& item, omu_OrvexName& out)
{
    const cow_String* text = AsText(item);
    if (text == nullptr)
        return false;
    out = omu_OrvexName(*text, out.Form());
    return true;
}

bool omu_ItemReader::Read(const omu_Primitive& item, const omu_InterfaceObj*& out)
{
    const auto* object = OfKind<omu_InterfaceObj>('<', item);
    if (object == nullptr)
        return false;
    out = object;
    return true;
}

bool omu_ItemReader::Read(const omu_Primitive& item, std::unique_ptr<omu_Primitive>& out)
{
    out.reset(item.Copy());
    return true;
}

template <class T>
bool omu_ItemReader::Read(const omu_Primitive& item, cow_List<T>& out)
{
    if constexpr (std::is_arithmetic_v<T> && !std::is_same_v<T, bool>)
        if (const omu_PrimArray* array = AsArray(item, 1))
        {
            auto values = cow_List<T>::Filled(array->Size(), T());
            if (!ReadElements(*array, values.WriteData()))
                return false;
            out = values;
            return true;
        }
    const omu_PrimTuple* tuple = AsSequence(item);
    if (tuple == nullptr)
        return false;
    auto values = cow_List<T>::Filled(tuple->Length(), T());
    if (!ReadItems(*tuple, values.WriteData()))
        return false;
    out = values;
    return true;
}

template <class T>
bool omu_ItemReader::Read(const omu_Primitive& item, cow_2DArray<T>& out)
{
    if constexpr (std::is_arithmetic_v<T>)
        if (const omu_PrimArray* array = AsArray(item, 2))
        {
            const bool empty = array->Size() == 0;
            cow_2DArray<T> values(empty ? 0 : array->Shape().Get(0), empty ? 0 : array->Shape().Get(1));
            if (!ReadElements(*array, values.WriteData()))
                return false;
            out = values;
            return true;
        }
    const omu_PrimTuple* rows = AsSequence(item);
    if (rows == nullptr)
        return false;
    const int cols = CommonLength(*rows);
    if (cols < 0)
        return false;
    cow_2DArray<T> values(rows->Length(), cols);
    T* const first = values.WriteData();
    for (int r = 0; r < rows->Length() && cols > 0; ++r)
        if (!ReadItems(*AsSequence(*(*rows)[r]), first + static_cast<std::ptrdiff_t>(r) * cols))
            return false;
    out = values;
    return true;
}

template bool omu_ItemReader::Read(const omu_Primitive&, cow_List<int>&);
template bool omu_ItemReader::Read(const omu_Primitive&, cow_List<bool>&);
template bool omu_ItemReader::Read(const omu_Primitive&, cow_List<float>&);
template bool omu_ItemReader::Read(const omu_Primitive&, cow_List<double>&);
template bool omu_ItemReader::Read(const omu_Primitive&, cow_List<cow_String>&);
template bool omu_ItemReader::Read(const omu_Primitive&, cow_List<atr_String>&);
template bool omu_ItemReader::Read(const omu_Primitive&, cow_2DArray<double>&);
template bool omu_ItemReader::Read(const omu_Primitive&, cow_2DArray<cow_String>&);

bool omu_ItemReader::Read(const omu_Primitive& item, cow_Map<cow_String, float>& out)
{
    cow_Map<cow_String, float> values;
    if (omu_PrimDictionary<cow_String> dictionary; Read(item, dictionary))
    {
        for (int i = 0; i < dictionary.Length(); ++i)
        {
            const omu_Primitive* value = dictionary.ValueAt(i);
            float number = 0.0F;
            if (value == nullptr || !Read(*value, number))
                return false;
            values.Insert(dictionary.KeyAt(i), number);
        }
        out = values;
        return true;
    }
    const omu_PrimTuple* pairs = AsSequence(item);
    if (pairs == nullptr)
        return false;
    for (int i = 0; i < pairs->Length(); ++i)
        if (!pairs->View(i, [&](const omu_Primitive* pair) { return ReadPair(pair, values); }))
            return false;
    out = values;
    return true;
}
