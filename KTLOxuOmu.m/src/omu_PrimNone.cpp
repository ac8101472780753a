#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <omu_PrimNone.h>
#include <omu_PrimVisitor.h>

namespace
{
constexpr char KIND = 'n';
constexpr unsigned LAYOUT_RELEASE = 800;
}

constexpr auto omu_PrimNone::Fields()
{
    return cls_Fields(cls_Field{"isSet", &omu_PrimNone::m_IsSet});
}

void omu_PrimNone::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    Fields().Declare(registrar.Create("omu_PrimNone", TypeId(), LAYOUT_RELEASE,
                                      cls_TypeAdapter<omu_PrimNone>::Instance(), omu_Primitive::TypeId()));
}

omu_PrimNone::omu_PrimNone(bool isSet) : omu_Primitive(KIND), m_IsSet(isSet) {}

omu_PrimNone::omu_PrimNone(const cls_ReadVisitor& reader) : omu_Primitive(reader.BaseReader())
{
    SetType(KIND);
    Fields().Read(reader, *this);
}

atr_String omu_PrimNone::TypeString() const
{
    return "None";
}

cow_String omu_PrimNone::AsString(int) const
{
    return "None";
}

bool omu_PrimNone::operator==(const omu_Primitive& other) const
{
    const auto* none = dynamic_cast<const omu_PrimNone*>(&other);
    return none != nullptr && m_IsSet == none->m_IsSet;
}

void omu_PrimNone::Accept(omu_PrimVisitor* visitor)
{
    visitor->VisitNone(*this);
}

omu_PrimNone* omu_PrimNone::Copy() const
{
    return new omu_PrimNone(*this);
}

unsigned omu_PrimNone::DynTypeId() const
{
    return TypeId();
}

void omu_PrimNone::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    omu_Primitive::DBWrite(writer.BaseWriter());
    Fields().Write(writer, *this);
}
