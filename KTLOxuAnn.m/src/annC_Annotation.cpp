#include <annC_Annotation.h>
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
    delete static_cast<annC_Annotation*>(body);
}
}

void annC_Annotation::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    registrar
        .Create("annC_Annotation", TypeId(), LAYOUT_RELEASE, cls_AbsTypeAdapter<annC_Annotation>::Instance(),
                cls_UniversalRoot)
        .AddDtor(&Free);
}

annC_Annotation::annC_Annotation(const cls_ReadVisitor& reader) : uid_(reader.Uid()) {}

void annC_Annotation::NewUid()
{
    uid_ = cls_Uid();
}

unsigned annC_Annotation::DynTypeId() const
{
    return TypeId();
}

void annC_Annotation::DBWrite(const cls_WriteVisitor& writer) const
{
    static_cast<void>(writer.Announce(TypeId(), uid_));
}
