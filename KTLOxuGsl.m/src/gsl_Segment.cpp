#include <algorithm>
#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <gsl_Segment.h>
#include <gsl_Util.h>

namespace
{
constexpr unsigned LAYOUT_RELEASE = 800;
}

constexpr auto gsl_Segment::Fields()
{
    return cls_Fields(cls_Field{"_point1", &gsl_Segment::point1_},
                      cls_Field{"_point2", &gsl_Segment::point2_});
}

void gsl_Segment::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    Fields().Declare(registrar.Create("gsl_Segment", TypeId(), LAYOUT_RELEASE,
                                      cls_TypeAdapter<gsl_Segment>::Instance(), cls_UniversalRoot));
}

gsl_Segment::gsl_Segment(const cls_ReadVisitor& reader)
{
    Fields().Read(reader, *this);
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
    Fields().Write(writer, *this);
}
