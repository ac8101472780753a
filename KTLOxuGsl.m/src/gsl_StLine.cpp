#include <cls_TypeAdapter.h>
#include <gsl_DefinitionBody.h>
#include <gsl_LineMethod.h>
#include <gsl_Plane.h>
#include <gsl_StLine.h>

namespace
{
constexpr unsigned LAYOUT_RELEASE = 800;
}

template <>
struct gsl_DefinitionTraits<gsl_LineMethod>
{
    static constexpr gsl_LineMethod INVALID = gsl_LineMethod::STLINE_INVALID;
    static constexpr const char* DIRECTION = "_dir";
    static bool IsFree(gsl_LineMethod method)
    {
        return method == gsl_LineMethod::FROM_PNT_VECTOR || method == gsl_LineMethod::FROM_PNT_PNT;
    }
};

void gsl_StLine::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta = registrar.Create("gsl_StLine", TypeId(), LAYOUT_RELEASE,
                                               cls_TypeAdapter<gsl_StLine>::Instance(), cls_UniversalRoot);
    gsl_Definition<gsl_LineMethod>::Declare(meta);
    meta.AddDtor(&gsl_StLine::CowDtor);
}

void gsl_StLine::CowDtor(void* body)
{
    delete static_cast<gsl_StLine*>(body);
}

gsl_StLine::gsl_StLine() = default;

gsl_StLine::gsl_StLine(const gsl_Point& point, const gsl_Vector& dir)
    : gsl_StLine(point, dir, gsl_LineMethod::FROM_PNT_VECTOR)
{}

gsl_StLine::gsl_StLine(const gsl_Point& point, const gsl_Vector& dir, gsl_LineMethod method)
    : definition_(point, dir, method)
{}

gsl_StLine::gsl_StLine(const gsl_Point& p1, const gsl_Point& p2)
    : gsl_StLine(p1, p2 - p1, gsl_LineMethod::FROM_PNT_PNT)
{}

gsl_StLine::gsl_StLine(const cls_ReadVisitor& reader) : definition_(reader), uid_(reader.Uid()) {}

void gsl_StLine::SetParents(gsl_LineMethod method, const cow_List<int>& parentIds, bool flip)
{
    definition_.SetParents(method, parentIds, flip);
}

void gsl_StLine::FlipDirection()
{
    gsl_Vector opposite = Direction();
    opposite.Negate();
    definition_.direction.SetVector(opposite);
    definition_.flip = !definition_.flip;
}

bool gsl_StLine::Regenerate()
{
    return definition_.IsFree() || definition_.Regenerate(&gsl_ModelAccess::FindLine);
}

gsl_Vector gsl_StLine::DirectionForDatum() const
{
    gsl_Vector direction = Direction();
    if (IsFlipped())
    {
        direction.Negate();
    }
    return direction;
}

gsl_Vector gsl_StLine::DirFromPtForStraightEdge(const gsl_Point& p) const
{
    gsl_Vector direction = Direction();
    if ((PointOn() - p).DotProduct(direction) < 0.0)
    {
        direction.Negate();
    }
    return direction;
}

double gsl_StLine::GetSignedDistance(const gsl_StLine& line) const
{
    if (!HasDirection())
    {
        return PointOn().GetDistance(line);
    }
    if (!line.HasDirection() || IsParallel(line))
    {
        return line.PointOn().GetDistance(*this);
    }
    gsl_Vector across = Direction().CrossProduct(line.Direction());
    return across.Normalize(0.0) ? (line.PointOn() - PointOn()).DotProduct(across) : 0.0;
}

bool gsl_StLine::IsOn(const gsl_StLine& line) const
{
    return IsParallel(line) && PointOn().GetDistance(line) < gsl_Util::Instance().LinearTolerance();
}

bool gsl_StLine::IsOn(const gsl_Plane& plane) const
{
    return IsParallel(plane) && PointOn().IsOn(plane);
}

bool gsl_StLine::IsParallel(const gsl_StLine& line) const
{
    return Direction().IsOn(line.Direction(), gsl_Vector::PARALLEL_SINE);
}

bool gsl_StLine::IsParallel(const gsl_Plane& plane) const
{
    return Direction().IsOrthogonal(plane.Direction());
}

bool gsl_StLine::IsSkewed(const gsl_StLine& line) const
{
    const double distance = GetSignedDistance(line);
    const double tolerance = gsl_Util::Instance().LinearTolerance();
    return distance > tolerance || distance < -tolerance;
}

bool gsl_StLine::Intersect(const gsl_StLine& line, gsl_Point& out) const
{
    return Intersection(Direction(), PointOn(), line.Direction(), line.PointOn(), out);
}

bool gsl_StLine::Intersect(const gsl_Plane& plane, gsl_Point& out) const
{
    const double slope = Direction().DotProduct(plane.Direction());
    if (std::abs(slope) < gsl_Vector::PARALLEL_SINE)
    {
        return false;
    }
    out = PointAtDistance(-PointOn().GetSignedDistance(plane) / slope);
    return true;
}

bool gsl_StLine::IntersectNonParallel(const gsl_StLine& line, gsl_Point& out) const
{
    const gsl_Vector across = Direction().CrossProduct(line.Direction());
    const double squared = across.DotProduct(across);
    if (squared == 0.0 || IsParallel(line))
    {
        return false;
    }
    // Triple products with the other direction leave this line's parameter; see Intersection().
    out = PointAtDistance((line.PointOn() - PointOn()).CrossProduct(line.Direction()).DotProduct(across) /
                          squared);
    return true;
}

gsl_StLine* gsl_StLine::Copy() const
{
    return new gsl_StLine(*this);
}

bool gsl_StLine::CreateHitRecord(gsl_HitRecord& out) const
{
    return definition_.CreateHitRecord(DynTypeId(), PointOn(), out);
}

void gsl_StLine::DBWrite(const cls_WriteVisitor& writer) const
{
    if (writer.Announce(TypeId(), uid_))
    {
        definition_.DBWrite(writer);
    }
}
