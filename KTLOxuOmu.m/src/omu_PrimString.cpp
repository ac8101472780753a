#include <algorithm>
#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <cstring>
#include <limits>
#include <nex_RaiseWith.h>
#include <omu_OverflowErrorException.h>
#include <omu_PrimEnumBase.h>
#include <omu_PrimNumber.h>
#include <omu_PrimString.h>
#include <omu_PrimVisitor.h>
#include <oxu_FormatMessage.h>
#include <string>

namespace
{
constexpr char KIND = 's';
constexpr const char* TOO_LONG = "repeated string is too long";
constexpr unsigned LAYOUT_RELEASE = 800;
}

constexpr auto omu_PrimString::Fields()
{
    return cls_Fields(cls_Field{"value", &omu_PrimString::m_Value});
}

void omu_PrimString::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    Fields().Declare(registrar.Create("omu_PrimString", TypeId(), LAYOUT_RELEASE,
                                      cls_TypeAdapter<omu_PrimString>::Instance(), omu_Primitive::TypeId()));
}

omu_PrimString::omu_PrimString(const cow_String& text) : omu_Primitive(KIND), m_Value(text) {}

omu_PrimString::omu_PrimString(int number) : omu_PrimString(omu_PrimNumber(number).AsString(0)) {}

omu_PrimString::omu_PrimString(unsigned int number) : omu_PrimString(omu_PrimNumber(number).AsString(0)) {}

omu_PrimString::omu_PrimString(double number) : omu_PrimString(omu_PrimNumber(number).AsString(0)) {}

omu_PrimString::omu_PrimString(const omu_PrimEnumBase& constant) : omu_PrimString(constant.GetString()) {}

omu_PrimString::omu_PrimString(const cls_ReadVisitor& reader) : omu_Primitive(reader.BaseReader())
{
    SetType(KIND);
    Fields().Read(reader, *this);
}

void omu_PrimString::Concat(const omu_PrimString& other)
{
    m_Value.Append(other.m_Value);
}

omu_PrimString omu_PrimString::Slice(int from, int to) const
{
    const int first = std::clamp(from, 0, Length());
    const int last = std::clamp(to, first, Length());
    return omu_PrimString(m_Value.SubString(first, last - first));
}

omu_PrimString omu_PrimString::Repeat(int count) const
{
    if (count <= 0 || m_Value.IsEmpty())
        return omu_PrimString();
    if (count > std::numeric_limits<int>::max() / Length())
        nex_Raise(omu_OverflowErrorException(oxu_FormatMessage(TOO_LONG)), "KTLOxuOmu.m/src/omu_PrimString",
                  __LINE__);
    std::string text;
    text.reserve(m_Value.View().size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        text += m_Value.View();
    return omu_PrimString(cow_String(text));
}

cow_String omu_PrimString::Quoted(const cow_String& text)
{
    const std::string_view view = text.View();
    const bool inDouble =
        view.find('\'') != std::string_view::npos && view.find('"') == std::string_view::npos;
    const char quote = inDouble ? '"' : '\'';
    std::string quoted;
    quoted.reserve(view.size() + 2);
    quoted += quote;
    for (const char c : view)
    {
        if (c == '\\' || c == quote)
            quoted += '\\';
        if (c == '\n')
            quoted += "\\n";
        else
            quoted += c;
    }
    quoted += quote;
    return cow_String(quoted);
}

atr_String omu_PrimString::TypeString() const
{
    return "string";
}

cow_String omu_PrimString::AsString(int) const
{
    return Quoted(m_Value);
}

bool omu_PrimString::operator==(const omu_Primitive& other) const
{
    const auto* text = dynamic_cast<const omu_PrimString*>(&other);
    return text != nullptr && std::strcmp(AsCharPtr(), text->AsCharPtr()) == 0;
}

void omu_PrimString::Accept(omu_PrimVisitor* visitor)
{
    visitor->VisitString(*this);
}

omu_PrimString* omu_PrimString::Copy() const
{
    return new omu_PrimString(*this);
}

unsigned omu_PrimString::DynTypeId() const
{
    return TypeId();
}

void omu_PrimString::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    omu_Primitive::DBWrite(writer.BaseWriter());
    Fields().Write(writer, *this);
}
