#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <gsl_ModelSegment.h>
#include <gsl_Segment.h>

namespace
{
// Stored order: append only. A retired field keeps its index. These two names have no underscore, unlike
// those of gsl_Segment.
enum Field { POINT1, POINT2 };
constexpr cls_FieldHandle FIELDS[] = {{POINT1, "point1"}, {POINT2, "point2"}};
constexpr unsigned LAYOUT_RELEASE = 332;
}

void gsl_ModelSegment::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("gsl_ModelSegment", TypeId(), LAYOUT_RELEASE,
                         cls_TypeAdapter<gsl_ModelSegment>::Instance(), cls_UniversalRoot);
    for (const cls_FieldHandle& field : FIELDS)
    {
        meta.AddAttribute(field, cls_AttributeType::OBJECT, gsl_Dot::TypeId(), cls_CollectionType::SINGLE);
    }
    meta.AddDtor(&gsl_ModelSegment::CowDtor);
}

void gsl_ModelSegment::CowDtor(void* body)
{
    delete static_cast<gsl_ModelSegment*>(body);
}

gsl_ModelSegment::gsl_ModelSegment(const cls_ReadVisitor& reader) : uid_(reader.Uid())
{
    reader.ReadObject(FIELDS[POINT1], point1_);
    reader.ReadObject(FIELDS[POINT2], point2_);
}

bool gsl_ModelSegment::Regenerate()
{
    const bool first = point1_.Regenerate();
    const bool second = point2_.Regenerate();
    return first && second;
}

gsl_Vector gsl_ModelSegment::Direction() const
{
    return gsl_Segment(point1_.GetPoint(), point2_.GetPoint()).Direction();
}

void gsl_ModelSegment::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), uid_))
    {
        return;
    }
    writer.WriteObject(FIELDS[POINT1], point1_);
    writer.WriteObject(FIELDS[POINT2], point2_);
}
