#include <cls_AbsTypeAdapter.h>
#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_WriteVisitor.h>
#include <omu_TypeErrorException.h>

namespace
{
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_TypeErrorException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    registrar.Create("omu_TypeErrorException", TypeId(), LAYOUT_RELEASE,
                     cls_AbsTypeAdapter<omu_TypeErrorException>::Instance(), nex_CommandException::TypeId());
}

omu_TypeErrorException::omu_TypeErrorException(const cls_ReadVisitor& reader)
    : nex_CommandException(reader.BaseReader())
{}

void omu_TypeErrorException::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Identifier()))
        return;
    nex_CommandException::DBWrite(writer.BaseWriter());
}
