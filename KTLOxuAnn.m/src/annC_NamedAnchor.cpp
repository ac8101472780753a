#include <annC_NamedAnchor.h>
#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <omu_PrimEnumCodec.h>

namespace
{
constexpr cls_Fields FIELDS(cls_Field{"position", &annC_NamedAnchor::position});
constexpr unsigned LAYOUT_RELEASE = 437;
}

void annC_NamedAnchor::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    FIELDS.Declare(registrar.Create("annC_NamedAnchor", TypeId(), LAYOUT_RELEASE,
                                    cls_TypeAdapter<annC_NamedAnchor>::Instance(), annC_Anchor::TypeId()));
}

annC_NamedAnchor::annC_NamedAnchor(const cls_ReadVisitor& reader)
    : annC_Anchor(reader.BaseReader()), uid_(reader.Uid())
{
    FIELDS.Read(reader, *this);
}

annC_NamedAnchor* annC_NamedAnchor::Copy() const
{
    return new annC_NamedAnchor(*this);
}

unsigned annC_NamedAnchor::DynTypeId() const
{
    return TypeId();
}

void annC_NamedAnchor::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), uid_))
        return;
    annC_Anchor::DBWrite(writer.BaseWriter());
    FIELDS.Write(writer, *this);
}
