#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <nex_RaiseWith.h>
#include <omu_PrimEnumBase.h>
#include <omu_PrimVisitor.h>
#include <omu_ValueErrorException.h>
#include <oxu_FormatMessage.h>
#include <string>

namespace
{
constexpr char KIND = 'c';
constexpr unsigned LAYOUT_RELEASE = 514;
constexpr const char* SOURCE = "ProtectedInterfaces/omu_PrimEnum";

void Free(void* body)
{
    delete static_cast<omu_PrimEnumBase*>(body);
}
}

constexpr auto omu_PrimEnumBase::Fields()
{
    return cls_Fields(cls_Field{"stringValue", &omu_PrimEnumBase::m_StringValue});
}

void omu_PrimEnumBase::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("omu_PrimEnum", TypeId(), LAYOUT_RELEASE,
                         cls_TypeAdapter<omu_PrimEnumBase>::Instance(), omu_Primitive::TypeId());
    Fields().Declare(meta);
    meta.AddDtor(&Free);
}

omu_PrimEnumBase::omu_PrimEnumBase(const cow_String& name) : omu_Primitive(KIND), m_StringValue(name) {}

omu_PrimEnumBase::omu_PrimEnumBase(const cls_ReadVisitor& reader) : omu_Primitive(reader.BaseReader())
{
    SetType(KIND);
    Fields().Read(reader, *this);
}

void omu_PrimEnumBase::SetValue(const char* name)
{
    m_StringValue = cow_String(name);
}

cow_String omu_PrimEnumBase::PermissibleValuesAsString() const
{
    std::string text = "{";
    for (const auto& [name, value] : PermissibleValues())
    {
        if (text.size() > 1)
            text += ", ";
        text.append(name.View()).append(": ").append(std::to_string(value));
    }
    text += '}';
    return cow_String(text);
}

atr_String omu_PrimEnumBase::TypeString() const
{
    cow_String text;
    for (const auto& [name, value] : PermissibleValues())
    {
        if (!text.IsEmpty())
            text += " or ";
        text += name;
    }
    return atr_String(text);
}

cow_String omu_PrimEnumBase::AsString(int) const
{
    return m_StringValue;
}

bool omu_PrimEnumBase::operator==(const omu_Primitive& other) const
{
    const auto* constant = dynamic_cast<const omu_PrimEnumBase*>(&other);
    return constant != nullptr && m_StringValue == constant->m_StringValue;
}

void omu_PrimEnumBase::Accept(omu_PrimVisitor* visitor)
{
    visitor->VisitEnum(*this);
}

omu_PrimEnumBase* omu_PrimEnumBase::Copy() const
{
    return new omu_PrimEnumBase(*this);
}

unsigned omu_PrimEnumBase::DynTypeId() const
{
    return TypeId();
}

void omu_PrimEnumBase::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    omu_Primitive::DBWrite(writer.BaseWriter());
    Fields().Write(writer, *this);
}

cow_Map<cow_String, unsigned> omu_PrimEnumBase::PermissibleValues() const
{
    return {};
}

const omu_EnumEntry* omu_PrimEnumBase::FindEntry(const omu_EnumEntry* table, const cow_String& name)
{
    for (; table->name != nullptr; ++table)
        if (name == table->name)
            return table;
    return nullptr;
}

const omu_EnumEntry* omu_PrimEnumBase::FindEntry(const omu_EnumEntry* table, int value)
{
    for (; table->name != nullptr; ++table)
        if (table->value == value)
            return table;
    return nullptr;
}

cow_Map<cow_String, unsigned> omu_PrimEnumBase::MapOf(const omu_EnumEntry* table)
{
    cow_Map<cow_String, unsigned> names;
    for (; table->name != nullptr; ++table)
        names.Insert(cow_String(table->name), static_cast<unsigned>(table->value));
    return names;
}

void omu_PrimEnumBase::RaiseNotAllowed(const char* messageTemplate, const cow_String& given, int line) const
{
    nex_Raise(omu_ValueErrorException(oxu_FormatMessage(messageTemplate, given, PermissibleValuesAsString())),
              SOURCE, line);
}

void omu_PrimEnumBase::RaiseNotAllowed(const char* messageTemplate, int given, int line) const
{
    nex_Raise(omu_ValueErrorException(oxu_FormatMessage(messageTemplate, given, PermissibleValuesAsString())),
              SOURCE, line);
}
