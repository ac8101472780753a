#include <annC_Arrow.h>
#include <annC_DefaultAnchor.h>
#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <omu_PrimEnumCodec.h>

namespace
{
constexpr cls_Fields FIELDS(
    cls_Field{"startPointX", &annC_Arrow::startPointX}, cls_Field{"startPointY", &annC_Arrow::startPointY},
    cls_Field{"endPointX", &annC_Arrow::endPointX}, cls_Field{"endPointY", &annC_Arrow::endPointY},
    cls_Field{"startAnchor", &annC_Arrow::startAnchor}, cls_Field{"endAnchor", &annC_Arrow::endAnchor},
    cls_Field{"startHeadStyle", &annC_Arrow::startHeadStyle},
    cls_Field{"endHeadStyle", &annC_Arrow::endHeadStyle}, cls_Field{"startGap", &annC_Arrow::startGap},
    cls_Field{"endGap", &annC_Arrow::endGap}, cls_Field{"color", &annC_Arrow::color},
    cls_Field{"lineStyle", &annC_Arrow::lineStyle}, cls_Field{"lineThickness", &annC_Arrow::lineThickness});
constexpr unsigned LAYOUT_RELEASE = 437;
}

void annC_Arrow::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    FIELDS.Declare(registrar.Create("annC_Arrow", TypeId(), LAYOUT_RELEASE,
                                    cls_TypeAdapter<annC_Arrow>::Instance(), annC_Annotation::TypeId()));
}

annC_Arrow::annC_Arrow() : startAnchor(annC_DefaultAnchor()), endAnchor(annC_DefaultAnchor()) {}

annC_Arrow::annC_Arrow(const cls_ReadVisitor& reader)
    : annC_Annotation(reader.BaseReader()), uid_(reader.Uid())
{
    FIELDS.Read(reader, *this);
    annC_RequireAnchor(startAnchor);
    annC_RequireAnchor(endAnchor);
}

void annC_Arrow::NewUid()
{
    uid_ = cls_Uid();
    annC_Annotation::NewUid();
}

annC_Arrow* annC_Arrow::Copy() const
{
    return new annC_Arrow(*this);
}

void annC_Arrow::Translate(double dx, double dy)
{
    startPointX += dx;
    endPointX += dx;
    startPointY += dy;
    endPointY += dy;
}

unsigned annC_Arrow::DynTypeId() const
{
    return TypeId();
}

void annC_Arrow::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), uid_))
        return;
    annC_Annotation::DBWrite(writer.BaseWriter());
    FIELDS.Write(writer, *this);
}
