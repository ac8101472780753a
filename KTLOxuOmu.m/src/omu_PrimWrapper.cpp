#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <omu_ObjectText.h>
#include <omu_PrimVisitor.h>
#include <omu_PrimWrapper.h>

namespace
{
constexpr char KIND = '<';
// Stored order: append only. A retired field keeps its index.
enum Field { OBJECT_TYPE, MEMBERS };
constexpr cls_FieldHandle FIELDS[] = {{OBJECT_TYPE, "objectType"}, {MEMBERS, "members"}};
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_PrimWrapper::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("omu_PrimWrapper", TypeId(), LAYOUT_RELEASE,
                         cls_TypeAdapter<omu_PrimWrapper>::Instance(), omu_Primitive::TypeId());
    meta.AddAttribute(FIELDS[OBJECT_TYPE], cls_AttributeType::INT, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
    meta.AddAttribute(FIELDS[MEMBERS], cls_AttributeType::OBJECT, Members::TypeId(),
                      cls_CollectionType::SINGLE);
}

omu_PrimWrapper::omu_PrimWrapper(int objectType, const omu_Primitive* object, const Members& members)
    : omu_Primitive(KIND), m_ObjectType(objectType), m_Object(object), m_Members(members)
{}

omu_PrimWrapper::omu_PrimWrapper(const cls_ReadVisitor& reader)
    : omu_Primitive(reader.BaseReader()), m_Members(Members())
{
    SetType(KIND);
    reader.ReadInt(FIELDS[OBJECT_TYPE], m_ObjectType);
    reader.ReadShared(FIELDS[MEMBERS], m_Members);
    if (m_Members.IsNull())
        m_Members = Members();
}

atr_String omu_PrimWrapper::TypeString() const
{
    return m_Object == nullptr ? atr_String("wrapper") : m_Object->TypeString();
}

cow_String omu_PrimWrapper::AsString(int) const
{
    return omu_ObjectText(TypeString(), MemberDictionary().Get("name"));
}

bool omu_PrimWrapper::operator==(const omu_Primitive& other) const
{
    const auto* wrapper = dynamic_cast<const omu_PrimWrapper*>(&other);
    if (wrapper == nullptr || m_ObjectType != wrapper->m_ObjectType || !(m_Members == wrapper->m_Members))
        return false;
    return m_Object == nullptr || wrapper->m_Object == nullptr || m_Object == wrapper->m_Object;
}

void omu_PrimWrapper::Accept(omu_PrimVisitor* visitor)
{
    visitor->VisitWrapper(*this);
}

omu_PrimWrapper* omu_PrimWrapper::Copy() const
{
    return new omu_PrimWrapper(*this);
}

unsigned omu_PrimWrapper::DynTypeId() const
{
    return TypeId();
}

void omu_PrimWrapper::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    omu_Primitive::DBWrite(writer.BaseWriter());
    writer.WriteInt(FIELDS[OBJECT_TYPE], m_ObjectType);
    writer.WriteShared(FIELDS[MEMBERS], m_Members);
}
