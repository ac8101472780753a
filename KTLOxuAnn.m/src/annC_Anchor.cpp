#include <annC_Anchor.h>
#include <cls_AbsTypeAdapter.h>
#include <cls_ClassMetadata.h>
#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_WriteVisitor.h>

namespace
{
constexpr unsigned LAYOUT_RELEASE = 437;

void Free(void* body)
{
    delete static_cast<annC_Anchor*>(body);
}
}

void annC_Anchor::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    registrar
        .Create("annC_Anchor", TypeId(), LAYOUT_RELEASE, cls_AbsTypeAdapter<annC_Anchor>::Instance(),
                cls_UniversalRoot)
        .AddDtor(&Free);
}

annC_Anchor::annC_Anchor(const cls_ReadVisitor& reader) : uid_(reader.Uid()) {}

unsigned annC_Anchor::DynTypeId() const
{
    return TypeId();
}

void annC_Anchor::DBWrite(const cls_WriteVisitor& writer) const
{
    static_cast<void>(writer.Announce(TypeId(), uid_));
}
