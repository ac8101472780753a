#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <omu_PrimExpr.h>
#include <omu_PrimVisitor.h>

namespace
{
constexpr char KIND = 'e';
constexpr unsigned LAYOUT_RELEASE = 800;
}

constexpr auto omu_PrimExpr::Fields()
{
    return cls_Fields(cls_Field{"value", &omu_PrimExpr::m_Value});
}

void omu_PrimExpr::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    Fields().Declare(registrar.Create("omu_PrimExpr", TypeId(), LAYOUT_RELEASE,
                                      cls_TypeAdapter<omu_PrimExpr>::Instance(), omu_Primitive::TypeId()));
}

omu_PrimExpr::omu_PrimExpr(const cow_String& source) : omu_Primitive(KIND), m_Value(source) {}

omu_PrimExpr::omu_PrimExpr(const cls_ReadVisitor& reader) : omu_Primitive(reader.BaseReader())
{
    SetType(KIND);
    Fields().Read(reader, *this);
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
    Fields().Write(writer, *this);
}
