#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <gsl_HitRecord.h>
#include <gsl_LineMethod.h>
#include <gsl_ModelAccess.h>
#include <gsl_Plane.h>
#include <gsl_RestoreUnit.h>
#include <gsl_StLine.h>
#include <gsl_StoredMethod.h>
#include <gsl_Util.h>

namespace
{
// Stored order: append only. A retired field keeps its index.
enum Field { OK, POINT, DIR, METHOD, FLIP, PARENT_IDS, OWNER_FEAT_ID };
constexpr cls_FieldHandle FIELDS[] = {{OK, "_ok"},
                                      {POINT, "_point"},
                                      {DIR, "_dir"},
                                      {METHOD, "_method"},
                                      {FLIP, "_flip"},
                                      {PARENT_IDS, "parent_ids"},
                                      {OWNER_FEAT_ID, "owner_feat_id"}};
constexpr unsigned LAYOUT_RELEASE = 800;

/// Defined by points and vectors alone: there is nothing in the model to ask.
bool IsFree(gsl_LineMethod method)
{
    return method == gsl_LineMethod::FROM_PNT_VECTOR || method == gsl_LineMethod::FROM_PNT_PNT;
}
}

void gsl_StLine::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    using enum cls_AttributeType;
    constexpr cls_CollectionType SINGLE = cls_CollectionType::SINGLE;
    cls_ClassMetadata& meta = registrar.Create("gsl_StLine", TypeId(), LAYOUT_RELEASE,
                                               cls_TypeAdapter<gsl_StLine>::Instance(), cls_UniversalRoot);
    meta.AddAttribute(FIELDS[Field::OK], BOOL, cls_UniversalRoot, SINGLE);
    meta.AddAttribute(FIELDS[Field::POINT], OBJECT, gsl_Point::TypeId(), SINGLE);
    meta.AddAttribute(FIELDS[Field::DIR], OBJECT, gsl_PersistentVector::TypeId(), SINGLE);
    meta.AddAttribute(FIELDS[Field::METHOD], ENUM, cls_UniversalRoot, SINGLE);
    meta.AddAttribute(FIELDS[Field::FLIP], BOOL, cls_UniversalRoot, SINGLE);
    meta.AddAttribute(FIELDS[Field::PARENT_IDS], OBJECT, cls_ListTypeId, cls_CollectionType::LIST_INT);
    meta.AddAttribute(FIELDS[Field::OWNER_FEAT_ID], INT, cls_UniversalRoot, SINGLE);
    meta.AddDtor(&gsl_StLine::CowDtor);
}

void gsl_StLine::CowDtor(void* body)
{
    delete static_cast<gsl_StLine*>(body);
}

gsl_StLine::gsl_StLine() : method_(gsl_LineMethod::STLINE_INVALID) {}

gsl_StLine::gsl_StLine(const gsl_Point& point, const gsl_Vector& dir)
    : gsl_StLine(point, dir, gsl_LineMethod::FROM_PNT_VECTOR)
{}

gsl_StLine::gsl_StLine(const gsl_Point& point, const gsl_Vector& dir, gsl_LineMethod method) : method_(method)
{
    Place(point, dir);
}

gsl_StLine::gsl_StLine(const gsl_Point& p1, const gsl_Point& p2)
    : gsl_StLine(p1, p2 - p1, gsl_LineMethod::FROM_PNT_PNT)
{}

gsl_StLine::gsl_StLine(const cls_ReadVisitor& reader)
    : method_(gsl_LineMethod::STLINE_INVALID), uid_(reader.Uid())
{
    reader.ReadBool(FIELDS[OK], ok_);
    reader.ReadObject(FIELDS[POINT], point_);
    reader.ReadObject(FIELDS[DIR], dir_);
    gsl_ReadMethod(reader, FIELDS[METHOD], method_);
    reader.ReadBool(FIELDS[FLIP], flip_);
    reader.ReadList(FIELDS[PARENT_IDS], parentIds_);
    reader.ReadInt(FIELDS[OWNER_FEAT_ID], ownerFeatId_);
    if (!gsl_RestoreUnit(dir_) || !ok_ || method_ == gsl_LineMethod::STLINE_INVALID)
    {
        Invalidate();
    }
}

void gsl_StLine::Place(const gsl_Point& point, const gsl_Vector& dir)
{
    gsl_Vector unit = dir;
    point_ = point;
    if (!unit.Normalize())
    {
        unit = gsl_Vector();
        method_ = gsl_LineMethod::STLINE_INVALID;
    }
    ok_ = method_ != gsl_LineMethod::STLINE_INVALID;
    dir_.SetVector(unit);
}

void gsl_StLine::Invalidate() noexcept
{
    ok_ = false;
    method_ = gsl_LineMethod::STLINE_INVALID;
}

void gsl_StLine::SetParents(gsl_LineMethod method, const cow_List<int>& parentIds, bool flip)
{
    parentIds_ = parentIds;
    flip_ = flip;
    method_ = HasDirection() ? method : gsl_LineMethod::STLINE_INVALID;
    ok_ = method_ != gsl_LineMethod::STLINE_INVALID;
}

void gsl_StLine::FlipDirection()
{
    gsl_Vector opposite = Direction();
    opposite.Negate();
    dir_.SetVector(opposite);
    flip_ = !flip_;
}

bool gsl_StLine::Regenerate()
{
    if (IsFree(method_))
    {
        return true;
    }
    gsl_Point point;
    gsl_Vector direction;
    const gsl_ModelAccess* model = gsl_ModelAccess::Current();
    if (method_ == gsl_LineMethod::STLINE_INVALID || model == nullptr ||
        !model->FindLine(method_, parentIds_, point, direction) || !direction.Normalize())
    {
        Invalidate();
        return false;
    }
    if (flip_)
    {
        direction.Negate();
    }
    Place(point, direction);
    return true;
}

gsl_Vector gsl_StLine::DirectionForDatum() const
{
    gsl_Vector direction = Direction();
    if (flip_)
    {
        direction.Negate();
    }
    return direction;
}

gsl_Vector gsl_StLine::DirFromPtForStraightEdge(const gsl_Point& p) const
{
    gsl_Vector direction = Direction();
    if ((point_ - p).DotProduct(direction) < 0.0)
    {
        direction.Negate();
    }
    return direction;
}

double gsl_StLine::GetSignedDistance(const gsl_StLine& line) const
{
    if (!HasDirection())
    {
        return point_.GetDistance(line);
    }
    if (!line.HasDirection() || IsParallel(line))
    {
        return line.point_.GetDistance(*this);
    }
    gsl_Vector across = Direction().CrossProduct(line.Direction());
    return across.Normalize(0.0) ? (line.point_ - point_).DotProduct(across) : 0.0;
}

bool gsl_StLine::IsOn(const gsl_StLine& line) const
{
    return IsParallel(line) && point_.GetDistance(line) < gsl_Util::Instance().LinearTolerance();
}

bool gsl_StLine::IsOn(const gsl_Plane& plane) const
{
    return IsParallel(plane) && point_.IsOn(plane);
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
    return Intersection(Direction(), point_, line.Direction(), line.point_, out);
}

bool gsl_StLine::Intersect(const gsl_Plane& plane, gsl_Point& out) const
{
    const double slope = Direction().DotProduct(plane.Direction());
    if (std::abs(slope) < gsl_Vector::PARALLEL_SINE)
    {
        return false;
    }
    out = PointAtDistance(-point_.GetSignedDistance(plane) / slope);
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
    out = PointAtDistance((line.point_ - point_).CrossProduct(line.Direction()).DotProduct(across) / squared);
    return true;
}

gsl_StLine* gsl_StLine::Copy() const
{
    return new gsl_StLine(*this);
}

bool gsl_StLine::CreateHitRecord(gsl_HitRecord& out) const
{
    if (!ok_ || IsFree(method_))
    {
        return false;
    }
    out = gsl_HitRecord{DynTypeId(), static_cast<int>(method_), parentIds_, point_, Direction()};
    return true;
}

void gsl_StLine::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), uid_))
    {
        return;
    }
    writer.WriteBool(FIELDS[OK], ok_);
    writer.WriteObject(FIELDS[POINT], point_);
    writer.WriteObject(FIELDS[DIR], dir_);
    gsl_WriteMethod(writer, FIELDS[METHOD], method_);
    writer.WriteBool(FIELDS[FLIP], flip_);
    writer.WriteList(FIELDS[PARENT_IDS], parentIds_);
    writer.WriteInt(FIELDS[OWNER_FEAT_ID], ownerFeatId_);
}
