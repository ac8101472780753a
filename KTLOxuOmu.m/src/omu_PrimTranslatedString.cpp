#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <omu_PrimString.h>
#include <omu_PrimTranslatedString.h>
#include <omu_PrimVisitor.h>

namespace
{
constexpr char KIND = 'l';
constexpr unsigned LAYOUT_RELEASE = 800;
}

constexpr auto omu_PrimTranslatedString::Fields()
{
    return cls_Fields(cls_Field{"value", &omu_PrimTranslatedString::m_Value});
}

void omu_PrimTranslatedString::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    Fields().Declare(registrar.Create("omu_PrimTranslatedString", TypeId(), LAYOUT_RELEASE,
                                      cls_TypeAdapter<omu_PrimTranslatedString>::Instance(),
                                      omu_Primitive::TypeId()));
}

omu_PrimTranslatedString::omu_PrimTranslatedString(const atr_String& text)
    : omu_Primitive(KIND), m_Value(text)
{}

omu_PrimTranslatedString::omu_PrimTranslatedString(const cls_ReadVisitor& reader)
    : omu_Primitive(reader.BaseReader())
{
    SetType(KIND);
    Fields().Read(reader, *this);
}

atr_String omu_PrimTranslatedString::TypeString() const
{
    return "tran_string";
}

cow_String omu_PrimTranslatedString::AsString(int) const
{
    return omu_PrimString::Quoted(m_Value.AsString());
}

bool omu_PrimTranslatedString::operator==(const omu_Primitive& other) const
{
    const auto* text = dynamic_cast<const omu_PrimTranslatedString*>(&other);
    return text != nullptr && m_Value == text->m_Value;
}

void omu_PrimTranslatedString::Accept(omu_PrimVisitor* visitor)
{
    visitor->VisitTranslatedString(*this);
}

omu_PrimTranslatedString* omu_PrimTranslatedString::Copy() const
{
    return new omu_PrimTranslatedString(*this);
}

unsigned omu_PrimTranslatedString::DynTypeId() const
{
    return TypeId();
}

void omu_PrimTranslatedString::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    omu_Primitive::DBWrite(writer.BaseWriter());
    Fields().Write(writer, *this);
}
