#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <gsl_DirMethod.h>
#include <gsl_HitRecord.h>
#include <gsl_ModelAccess.h>
#include <gsl_Plane.h>
#include <gsl_RestoreUnit.h>
#include <gsl_StoredMethod.h>

namespace
{
// Stored order: append only. A retired field keeps its index.
enum Field { OK, POINT, NORMAL, METHOD, FLIP, PARENT_IDS, OWNER_FEAT_ID };
constexpr cls_FieldHandle FIELDS[] = {{OK, "_ok"},
                                      {POINT, "_point"},
                                      {NORMAL, "_normal"},
                                      {METHOD, "_method"},
                                      {FLIP, "_flip"},
                                      {PARENT_IDS, "parent_ids"},
                                      {OWNER_FEAT_ID, "owner_feat_id"}};
constexpr unsigned LAYOUT_RELEASE = 800;
}

void gsl_Plane::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    using enum cls_AttributeType;
    constexpr cls_CollectionType SINGLE = cls_CollectionType::SINGLE;
    cls_ClassMetadata& meta = registrar.Create("gsl_Plane", TypeId(), LAYOUT_RELEASE,
                                               cls_TypeAdapter<gsl_Plane>::Instance(), cls_UniversalRoot);
    meta.AddAttribute(FIELDS[Field::OK], BOOL, cls_UniversalRoot, SINGLE);
    meta.AddAttribute(FIELDS[Field::POINT], OBJECT, gsl_Point::TypeId(), SINGLE);
    meta.AddAttribute(FIELDS[Field::NORMAL], OBJECT, gsl_PersistentVector::TypeId(), SINGLE);
    meta.AddAttribute(FIELDS[Field::METHOD], ENUM, cls_UniversalRoot, SINGLE);
    meta.AddAttribute(FIELDS[Field::FLIP], BOOL, cls_UniversalRoot, SINGLE);
    meta.AddAttribute(FIELDS[Field::PARENT_IDS], OBJECT, cls_ListTypeId, cls_CollectionType::LIST_INT);
    meta.AddAttribute(FIELDS[Field::OWNER_FEAT_ID], INT, cls_UniversalRoot, SINGLE);
    meta.AddDtor(&gsl_Plane::CowDtor);
}

void gsl_Plane::CowDtor(void* body)
{
    delete static_cast<gsl_Plane*>(body);
}

gsl_Plane::gsl_Plane() : method_(gsl_DirMethod::PLANE_INVALID) {}

gsl_Plane::gsl_Plane(const gsl_Point& point, const gsl_Vector& normal)
    : method_(gsl_DirMethod::FROM_POINT_VECTOR)
{
    Place(point, normal);
}

gsl_Plane::gsl_Plane(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3)
    : gsl_Plane(p1, gsl_Vector(p1, p2, p3))
{}

gsl_Plane::gsl_Plane(const cls_ReadVisitor& reader)
    : method_(gsl_DirMethod::PLANE_INVALID), uid_(reader.Uid())
{
    reader.ReadBool(FIELDS[OK], ok_);
    reader.ReadObject(FIELDS[POINT], point_);
    reader.ReadObject(FIELDS[NORMAL], normal_);
    gsl_ReadMethod(reader, FIELDS[METHOD], method_);
    reader.ReadBool(FIELDS[FLIP], flip_);
    reader.ReadList(FIELDS[PARENT_IDS], parentIds_);
    reader.ReadInt(FIELDS[OWNER_FEAT_ID], ownerFeatId_);
    if (!gsl_RestoreUnit(normal_) || !ok_ || method_ == gsl_DirMethod::PLANE_INVALID)
    {
        Invalidate();
    }
}

void gsl_Plane::Place(const gsl_Point& point, const gsl_Vector& normal)
{
    gsl_Vector unit = normal;
    point_ = point;
    ok_ = unit.Normalize();
    if (!ok_)
    {
        unit = gsl_Vector();
        method_ = gsl_DirMethod::PLANE_INVALID;
    }
    normal_.SetVector(unit);
}

void gsl_Plane::Invalidate() noexcept
{
    ok_ = false;
    method_ = gsl_DirMethod::PLANE_INVALID;
}

void gsl_Plane::SetParents(gsl_DirMethod method, const cow_List<int>& parentIds, bool flip)
{
    parentIds_ = parentIds;
    flip_ = flip;
    method_ = HasNormal() ? method : gsl_DirMethod::PLANE_INVALID;
    ok_ = method_ != gsl_DirMethod::PLANE_INVALID;
}

void gsl_Plane::SetCentroid(const gsl_Point& centroid)
{
    centroid_ = centroid;
    hasCentroid_ = true;
}

bool gsl_Plane::Regenerate()
{
    if (method_ == gsl_DirMethod::FROM_POINT_VECTOR)
    {
        return true;
    }
    gsl_Point point;
    gsl_Vector normal;
    const gsl_ModelAccess* model = gsl_ModelAccess::Current();
    if (method_ == gsl_DirMethod::PLANE_INVALID || model == nullptr ||
        !model->FindPlane(method_, parentIds_, point, normal) || !normal.Normalize())
    {
        Invalidate();
        return false;
    }
    if (flip_)
    {
        normal.Negate();
    }
    Place(point, normal);
    ResetCentroid();
    return true;
}

double gsl_Plane::GetDistance(const gsl_Plane& plane) const
{
    return IsParallel(plane) ? point_.GetDistance(plane) : 0.0;
}

bool gsl_Plane::IsOn(const gsl_Plane& plane) const
{
    return IsParallel(plane) && point_.IsOn(plane);
}

bool gsl_Plane::IsParallel(const gsl_Plane& plane) const
{
    return Direction().IsOn(plane.Direction(), gsl_Vector::PARALLEL_SINE);
}

gsl_Plane* gsl_Plane::Copy() const
{
    return new gsl_Plane(*this);
}

bool gsl_Plane::CreateHitRecord(gsl_HitRecord& out) const
{
    if (!ok_ || method_ == gsl_DirMethod::FROM_POINT_VECTOR)
    {
        return false;
    }
    out = gsl_HitRecord{DynTypeId(), static_cast<int>(method_), parentIds_, Centroid(), Direction()};
    return true;
}

void gsl_Plane::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), uid_))
    {
        return;
    }
    writer.WriteBool(FIELDS[OK], ok_);
    writer.WriteObject(FIELDS[POINT], point_);
    writer.WriteObject(FIELDS[NORMAL], normal_);
    gsl_WriteMethod(writer, FIELDS[METHOD], method_);
    writer.WriteBool(FIELDS[FLIP], flip_);
    writer.WriteList(FIELDS[PARENT_IDS], parentIds_);
    writer.WriteInt(FIELDS[OWNER_FEAT_ID], ownerFeatId_);
}
