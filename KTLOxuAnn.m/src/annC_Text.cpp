#include <annC_DefaultAnchor.h>
#include <annC_Text.h>
#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <omu_PrimEnumCodec.h>

namespace
{
constexpr cls_Fields
    FIELDS(cls_Field{"text", &annC_Text::text}, cls_Field{"offsetX", &annC_Text::offsetX},
           cls_Field{"offsetY", &annC_Text::offsetY}, cls_Field{"anchor", &annC_Text::anchor},
           cls_Field{"referencePoint", &annC_Text::referencePoint},
           cls_Field{"rotationAngle", &annC_Text::rotationAngle}, cls_Field{"font", &annC_Text::font},
           cls_Field{"color", &annC_Text::color}, cls_Field{"backgroundStyle", &annC_Text::backgroundStyle},
           cls_Field{"backgroundColor", &annC_Text::backgroundColor}, cls_Field{"box", &annC_Text::box},
           cls_Field{"justification", &annC_Text::justification});
constexpr unsigned LAYOUT_RELEASE = 437;
}

void annC_Text::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    FIELDS.Declare(registrar.Create("annC_Text", TypeId(), LAYOUT_RELEASE,
                                    cls_TypeAdapter<annC_Text>::Instance(), annC_Annotation::TypeId()));
}

annC_Text::annC_Text() : anchor(annC_DefaultAnchor()), referencePoint(annC_DefaultAnchor()) {}

annC_Text::annC_Text(const cls_ReadVisitor& reader) : annC_Annotation(reader.BaseReader()), uid_(reader.Uid())
{
    FIELDS.Read(reader, *this);
    annC_RequireAnchor(anchor);
    annC_RequireAnchor(referencePoint);
}

void annC_Text::NewUid()
{
    uid_ = cls_Uid();
    annC_Annotation::NewUid();
}

annC_Text* annC_Text::Copy() const
{
    return new annC_Text(*this);
}

void annC_Text::Translate(double dx, double dy)
{
    offsetX += dx;
    offsetY += dy;
}

unsigned annC_Text::DynTypeId() const
{
    return TypeId();
}

void annC_Text::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), uid_))
        return;
    annC_Annotation::DBWrite(writer.BaseWriter());
    FIELDS.Write(writer, *this);
}
