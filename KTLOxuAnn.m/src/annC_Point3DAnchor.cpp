#include <annC_Point3DAnchor.h>
#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>

namespace
{
constexpr cls_Fields FIELDS(cls_Field{"positionX", &annC_Point3DAnchor::positionX},
                            cls_Field{"positionY", &annC_Point3DAnchor::positionY},
                            cls_Field{"positionZ", &annC_Point3DAnchor::positionZ});
constexpr unsigned LAYOUT_RELEASE = 437;
}

void annC_Point3DAnchor::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    FIELDS.Declare(registrar.Create("annC_Point3DAnchor", TypeId(), LAYOUT_RELEASE,
                                    cls_TypeAdapter<annC_Point3DAnchor>::Instance(), annC_Anchor::TypeId()));
}

annC_Point3DAnchor::annC_Point3DAnchor(const cls_ReadVisitor& reader)
    : annC_Anchor(reader.BaseReader()), uid_(reader.Uid())
{
    FIELDS.Read(reader, *this);
}

annC_Point3DAnchor* annC_Point3DAnchor::Copy() const
{
    return new annC_Point3DAnchor(*this);
}

unsigned annC_Point3DAnchor::DynTypeId() const
{
    return TypeId();
}

void annC_Point3DAnchor::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), uid_))
        return;
    annC_Anchor::DBWrite(writer.BaseWriter());
    FIELDS.Write(writer, *this);
}
