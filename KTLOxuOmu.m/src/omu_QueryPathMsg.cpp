#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <omu_QueryPathMsg.h>

namespace
{
// Stored order: append only. A retired field keeps its index.
enum Field { VALUE_IS_DELTA };
constexpr cls_FieldHandle FIELDS[] = {{VALUE_IS_DELTA, "valueIsDelta"}};
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_QueryPathMsg::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("omu_QueryPathMsg", TypeId(), LAYOUT_RELEASE,
                         cls_TypeAdapter<omu_QueryPathMsg>::Instance(), cls_UniversalRoot);
    meta.AddAttribute(FIELDS[VALUE_IS_DELTA], cls_AttributeType::BOOL, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
}

omu_QueryPathMsg::omu_QueryPathMsg(const cls_ReadVisitor& reader) : uid_(reader.Uid())
{
    reader.ReadBool(FIELDS[VALUE_IS_DELTA], valueIsDelta_);
}

omu_QueryPathMsg* omu_QueryPathMsg::Copy() const
{
    return new omu_QueryPathMsg(*this);
}

unsigned omu_QueryPathMsg::DynTypeId() const
{
    return TypeId();
}

void omu_QueryPathMsg::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), uid_))
        return;
    writer.WriteBool(FIELDS[VALUE_IS_DELTA], valueIsDelta_);
}
