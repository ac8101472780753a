#include <annC_ViewportAnchor.h>
#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>

namespace
{
constexpr cls_Fields FIELDS(cls_Field{"positionX", &annC_ViewportAnchor::positionX},
                            cls_Field{"positionY", &annC_ViewportAnchor::positionY});
constexpr unsigned LAYOUT_RELEASE = 437;
}

void annC_ViewportAnchor::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    FIELDS.Declare(registrar.Create("annC_ViewportAnchor", TypeId(), LAYOUT_RELEASE,
                                    cls_TypeAdapter<annC_ViewportAnchor>::Instance(), annC_Anchor::TypeId()));
}

annC_ViewportAnchor::annC_ViewportAnchor(const cls_ReadVisitor& reader)
    : annC_Anchor(reader.BaseReader()), uid_(reader.Uid())
{
    FIELDS.Read(reader, *this);
}

annC_ViewportAnchor* annC_ViewportAnchor::Copy() const
{
    return new annC_ViewportAnchor(*this);
}

unsigned annC_ViewportAnchor::DynTypeId() const
{
    return TypeId();
}

void annC_ViewportAnchor::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), uid_))
        return;
    annC_Anchor::DBWrite(writer.BaseWriter());
    FIELDS.Write(writer, *this);
}
