#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <omu_PrimExpr.h>
#include <omu_PrimVisitor.h>

namespace
{
constexpr char KIND = 'e';
// Stored order: append only. A retired field keeps its index.
enum Field { VALUE };
constexpr cls_FieldHandle FIELDS[] = {{VALUE, "value"}};
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_PrimExpr::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("omu_PrimExpr", TypeId(), LAYOUT_RELEASE, cls_TypeAdapter<omu_PrimExpr>::Instance(),
                         omu_Primitive::TypeId());
    meta.AddAttribute(FIELDS[VALUE], cls_AttributeType::STRING, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
}

omu_PrimExpr::omu_PrimExpr(const cow_String& source) : omu_Primitive(KIND), m_Value(source) {}

omu_PrimExpr::omu_PrimExpr(const cls_ReadVisitor& reader) : omu_Primitive(reader.BaseReader())
{
    SetType(KIND);
    reader.ReadString(FIELDS[VALUE], m_Value);
}

atr_String omu_PrimExpr::TypeString() const
{
    return "expression";
}

cow_String omu_PrimExpr::AsString(int) const
{
    return m_Value;
}

bool omu_PrimExpr::operator==(const omu_Primitive& other) const
{
    const auto* expression = dynamic_cast<const omu_PrimExpr*>(&other);
    return expression != nullptr && m_Value == expression->m_Value;
}

void omu_PrimExpr::Accept(omu_PrimVisitor* visitor)
{
    visitor->VisitExpr(*this);
}

omu_PrimExpr* omu_PrimExpr::Copy() const
{
    return new omu_PrimExpr(*this);
}

unsigned omu_PrimExpr::DynTypeId() const
{
    return TypeId();
}

void omu_PrimExpr::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    omu_Primitive::DBWrite(writer.BaseWriter());
    writer.WriteString(FIELDS[VALUE], m_Value);
}
