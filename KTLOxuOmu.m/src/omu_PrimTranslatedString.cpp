#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <omu_PrimString.h>
#include <omu_PrimTranslatedString.h>
#include <omu_PrimVisitor.h>

namespace
{
constexpr char KIND = 'l';
// Stored order: append only. A retired field keeps its index.
enum Field { VALUE };
constexpr cls_FieldHandle FIELDS[] = {{VALUE, "value"}};
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_PrimTranslatedString::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("omu_PrimTranslatedString", TypeId(), LAYOUT_RELEASE,
                         cls_TypeAdapter<omu_PrimTranslatedString>::Instance(), omu_Primitive::TypeId());
    meta.AddAttribute(FIELDS[VALUE], cls_AttributeType::MESSAGE, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
}

omu_PrimTranslatedString::omu_PrimTranslatedString(const atr_String& text)
    : omu_Primitive(KIND), m_Value(text)
{}

omu_PrimTranslatedString::omu_PrimTranslatedString(const cls_ReadVisitor& reader)
    : omu_Primitive(reader.BaseReader())
{
    SetType(KIND);
    reader.ReadMessage(FIELDS[VALUE], m_Value);
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
    writer.WriteMessage(FIELDS[VALUE], m_Value);
}
