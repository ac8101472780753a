#include <charconv>
#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <nex_RaiseWith.h>
#include <omu_NumberText.h>
#include <omu_PrimNumber.h>
#include <omu_PrimVisitor.h>
#include <omu_ValueErrorException.h>
#include <oxu_FormatMessage.h>

using DataTypeConst = omu_PrimEnum<omu_PrimNumber::DataTypeEnm, 1>;

template <>
const omu_EnumEntry DataTypeConst::table[] = {
    {"SCHAR", int(omu_PrimNumber::DataTypeEnm::SCHAR)},
    {"SHORT", int(omu_PrimNumber::DataTypeEnm::SHORT)},
    {"INT", int(omu_PrimNumber::DataTypeEnm::INT)},
    {"FLOAT", int(omu_PrimNumber::DataTypeEnm::FLOAT)},
    {"DOUBLE", int(omu_PrimNumber::DataTypeEnm::DOUBLE)},
    {"UINT", int(omu_PrimNumber::DataTypeEnm::UINT)},
    {nullptr, 0},
};

namespace
{
// Stored order: append only. A retired field keeps its index.
enum Field { VALUE, UVALUE, DATA_TYPE };
constexpr cls_FieldHandle FIELDS[] = {{VALUE, "value"}, {UVALUE, "uvalue"}, {DATA_TYPE, "dataType"}};
constexpr unsigned LAYOUT_RELEASE = 835;
constexpr const char* UVALUE_REFUSED = "omu_PrimNumber(const cls_ReadVisitor&) - uvalue not allowed: %s";

char KindOf(omu_PrimNumber::DataTypeEnm dataType)
{
    using enum omu_PrimNumber::DataTypeEnm;
    return dataType == FLOAT || dataType == DOUBLE ? 'f' : 'i';
}

std::uint64_t ParseUnsigned(const cow_String& text)
{
    std::uint64_t value = 0;
    const char* const first = text.AsCharPtr();
    const char* const last = first + text.Length();
    const auto [end, error] = std::from_chars(first, last, value);
    if (error != std::errc() || end != last)
        nex_Raise(omu_ValueErrorException(oxu_FormatMessage(UVALUE_REFUSED, text)),
                  "KTLOxuOmu.m/src/omu_PrimNumber", __LINE__);
    return value;
}
}

void omu_PrimNumber::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("omu_PrimNumber", TypeId(), LAYOUT_RELEASE,
                         cls_TypeAdapter<omu_PrimNumber>::Instance(), omu_Primitive::TypeId());
    meta.AddAttribute(FIELDS[VALUE], cls_AttributeType::DOUBLE, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
    // There is no attribute type for 64-bit unsigned numbers: decimal text is exact.
    meta.AddAttribute(FIELDS[UVALUE], cls_AttributeType::STRING, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
    meta.AddAttribute(FIELDS[DATA_TYPE], cls_AttributeType::ENUM, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
}

omu_PrimNumber::omu_PrimNumber(unsigned int value)
    : omu_Primitive(KindOf(DataTypeEnm::UINT)), m_UValue(value), m_DataType(DataTypeEnm::UINT)
{}

omu_PrimNumber::omu_PrimNumber(double value, DataTypeEnm dataType)
    : omu_Primitive(KindOf(dataType)), m_DataType(dataType)
{
    if (dataType == DataTypeEnm::UINT)
        m_UValue = omu_NumberText::ToUnsigned(value);
    else
        m_Value = value;
}

omu_PrimNumber::omu_PrimNumber(const cls_ReadVisitor& reader)
    : omu_Primitive(reader.BaseReader()), m_DataType(DataTypeEnm::DOUBLE)
{
    cow_String name;
    if (reader.ReadEnum(FIELDS[DATA_TYPE], name))
        m_DataType = DataTypeConst(name);
    SetType(KindOf(m_DataType));
    reader.ReadDouble(FIELDS[VALUE], m_Value);
    if (m_DataType != DataTypeEnm::UINT)
        return;
    cow_String digits;
    if (reader.Version() < LAYOUT_RELEASE)
        m_UValue = omu_NumberText::ToUnsigned(m_Value);
    else if (reader.ReadString(FIELDS[UVALUE], digits))
        m_UValue = ParseUnsigned(digits);
    m_Value = 0.0;
}

double omu_PrimNumber::AsDouble() const
{
    return m_DataType == DataTypeEnm::UINT ? static_cast<double>(m_UValue) : m_Value;
}

char* omu_PrimNumber::WriteText(char* out) const noexcept
{
    if (!IsType('i'))
        return omu_NumberText::Float(m_Value, out);
    return m_DataType == DataTypeEnm::UINT ? omu_NumberText::Unsigned(m_UValue, out)
                                           : omu_NumberText::Integer(m_Value, out);
}

atr_String omu_PrimNumber::TypeString() const
{
    return IsType('i') ? "int" : "float";
}

cow_String omu_PrimNumber::AsString(int) const
{
    char text[omu_NumberText::SIZE];
    return cow_String(text, static_cast<std::size_t>(WriteText(text) - text));
}

bool omu_PrimNumber::operator==(const omu_Primitive& other) const
{
    const auto* number = dynamic_cast<const omu_PrimNumber*>(&other);
    return number != nullptr && m_Value == number->m_Value && m_UValue == number->m_UValue;
}

void omu_PrimNumber::Accept(omu_PrimVisitor* visitor)
{
    visitor->VisitNumber(*this);
}

omu_PrimNumber* omu_PrimNumber::Copy() const
{
    return new omu_PrimNumber(*this);
}

unsigned omu_PrimNumber::DynTypeId() const
{
    return TypeId();
}

void omu_PrimNumber::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    omu_Primitive::DBWrite(writer.BaseWriter());
    char digits[omu_NumberText::SIZE];
    const char* const end = omu_NumberText::Unsigned(m_UValue, digits);
    writer.WriteDouble(FIELDS[VALUE], m_Value);
    writer.WriteString(FIELDS[UVALUE], cow_String(digits, static_cast<std::size_t>(end - digits)));
    writer.WriteEnum(FIELDS[DATA_TYPE], DataTypeConst(m_DataType).GetString());
}
