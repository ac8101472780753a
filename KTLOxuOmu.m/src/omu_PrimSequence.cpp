#include <cls_AbsTypeAdapter.h>
#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_WriteVisitor.h>
#include <omu_PrimSequence.h>

namespace
{
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_PrimSequence::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    registrar.Create("omu_PrimSequence", TypeId(), LAYOUT_RELEASE,
                     cls_AbsTypeAdapter<omu_PrimSequence>::Instance(), omu_Primitive::TypeId());
}

omu_PrimSequence::omu_PrimSequence(const cls_ReadVisitor& reader, char kind)
    : omu_Primitive(reader.BaseReader())
{
    SetType(kind);
}

atr_String omu_PrimSequence::TypeString() const
{
    return "sequence";
}

unsigned omu_PrimSequence::DynTypeId() const
{
    return TypeId();
}

void omu_PrimSequence::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    omu_Primitive::DBWrite(writer.BaseWriter());
}
