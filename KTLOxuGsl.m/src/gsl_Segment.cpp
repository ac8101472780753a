#include <algorithm>
#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <gsl_Segment.h>
#include <gsl_Util.h>

namespace
{
// Stored order: append only. A retired field keeps its index.
enum Field { POINT1, POINT2 };
constexpr cls_FieldHandle FIELDS[] = {{POINT1, "_point1"}, {POINT2, "_point2"}};
constexpr unsigned LAYOUT_RELEASE = 800;
}

void gsl_Segment::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta = registrar.Create("gsl_Segment", TypeId(), LAYOUT_RELEASE,
                                               cls_TypeAdapter<gsl_Segment>::Instance(), cls_UniversalRoot);
    for (const cls_FieldHandle& field : FIELDS)
    {
        meta.AddAttribute(field, cls_AttributeType::OBJECT, gsl_Point::TypeId(), cls_CollectionType::SINGLE);
    }
}

gsl_Segment::gsl_Segment(const cls_ReadVisitor& reader)
{
    reader.ReadObject(FIELDS[POINT1], point1_);
    reader.ReadObject(FIELDS[POINT2], point2_);
}

gsl_Vector gsl_Segment::Direction() const
{
    gsl_Vector direction = point2_ - point1_;
    return direction.Normalize() ? direction : gsl_Vector();
}

gsl_Point gsl_Segment::ClosestPoint(const gsl_Point& p) const
{
    const gsl_Vector along = point2_ - point1_;
    const double squared = along.DotProduct(along);
    const double t = squared > 0.0 ? std::clamp((p - point1_).DotProduct(along) / squared, 0.0, 1.0) : 0.0;
    return point1_ + along * t;
}

bool gsl_Segment::Spans(const gsl_Point& p) const
{
    const double tolerance = gsl_Util::Instance().LinearTolerance();
    const double place = (p - point1_).DotProduct(Direction());
    return place >= -tolerance && place <= Length() + tolerance;
}

bool gsl_Segment::Intersect(const gsl_Segment& segment, gsl_Point& out) const
{
    gsl_Point crossing;
    if (!Intersection(Direction(), point1_, segment.Direction(), segment.point1_, crossing) ||
        !Spans(crossing) || !segment.Spans(crossing))
    {
        return false;
    }
    out = crossing;
    return true;
}

void gsl_Segment::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.AnnounceValue(TypeId()))
    {
        return;
    }
    writer.WriteObject(FIELDS[POINT1], point1_);
    writer.WriteObject(FIELDS[POINT2], point2_);
}
