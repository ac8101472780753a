#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <gsl_ModelSegment.h>
#include <gsl_Segment.h>

namespace
{
constexpr unsigned LAYOUT_RELEASE = 332;
}

constexpr auto gsl_ModelSegment::Fields()
{
    // Without an underscore, unlike the names of gsl_Segment.
    return cls_Fields(cls_Field{"point1", &gsl_ModelSegment::point1_},
                      cls_Field{"point2", &gsl_ModelSegment::point2_});
}

void gsl_ModelSegment::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("gsl_ModelSegment", TypeId(), LAYOUT_RELEASE,
                         cls_TypeAdapter<gsl_ModelSegment>::Instance(), cls_UniversalRoot);
    Fields().Declare(meta);
    meta.AddDtor(&gsl_ModelSegment::CowDtor);
}

void gsl_ModelSegment::CowDtor(void* body)
{
    delete static_cast<gsl_ModelSegment*>(body);
}

gsl_ModelSegment::gsl_ModelSegment(const cls_ReadVisitor& reader) : uid_(reader.Uid())
{
    Fields().Read(reader, *this);
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
    Fields().Write(writer, *this);
}
