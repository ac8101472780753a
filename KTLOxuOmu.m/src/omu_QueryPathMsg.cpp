#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <omu_QueryPathMsg.h>

namespace
{
constexpr unsigned LAYOUT_RELEASE = 800;
}

constexpr auto omu_QueryPathMsg::Fields()
{
    return cls_Fields(cls_Field{"valueIsDelta", &omu_QueryPathMsg::valueIsDelta_});
}

void omu_QueryPathMsg::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    Fields().Declare(registrar.Create("omu_QueryPathMsg", TypeId(), LAYOUT_RELEASE,
                                      cls_TypeAdapter<omu_QueryPathMsg>::Instance(), cls_UniversalRoot));
}

omu_QueryPathMsg::omu_QueryPathMsg(const cls_ReadVisitor& reader) : uid_(reader.Uid())
{
    Fields().Read(reader, *this);
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
    Fields().Write(writer, *this);
}
