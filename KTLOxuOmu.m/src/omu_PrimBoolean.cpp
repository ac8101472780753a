#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimVisitor.h>

namespace
{
constexpr char KIND = 'b';
constexpr unsigned LAYOUT_RELEASE = 800;

void Free(void* body)
{
    delete static_cast<omu_PrimBoolean*>(body);
}
}

constexpr auto omu_PrimBoolean::Fields()
{
    return cls_Fields(cls_Field{"value", &omu_PrimBoolean::m_Value});
}

void omu_PrimBoolean::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("omu_PrimBoolean", TypeId(), LAYOUT_RELEASE,
                         cls_TypeAdapter<omu_PrimBoolean>::Instance(), omu_Primitive::TypeId());
    Fields().Declare(meta);
    meta.AddDtor(&Free);
}

omu_PrimBoolean::omu_PrimBoolean(bool value) : omu_Primitive(KIND), m_Value(value) {}

omu_PrimBoolean::omu_PrimBoolean(const cls_ReadVisitor& reader) : omu_Primitive(reader.BaseReader())
{
    SetType(KIND);
    Fields().Read(reader, *this);
}

atr_String omu_PrimBoolean::TypeString() const
{
    return "Boolean";
}

cow_String omu_PrimBoolean::AsString(int) const
{
    return m_Value ? "True" : "False";
}

bool omu_PrimBoolean::operator==(const omu_Primitive& other) const
{
    const auto* boolean = dynamic_cast<const omu_PrimBoolean*>(&other);
    return boolean != nullptr && m_Value == boolean->m_Value;
}

void omu_PrimBoolean::Accept(omu_PrimVisitor* visitor)
{
    visitor->VisitBoolean(*this);
}

omu_PrimBoolean* omu_PrimBoolean::Copy() const
{
    return new omu_PrimBoolean(*this);
}

unsigned omu_PrimBoolean::DynTypeId() const
{
    return TypeId();
}

void omu_PrimBoolean::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    omu_Primitive::DBWrite(writer.BaseWriter());
    Fields().Write(writer, *this);
}
