#include <cls_TypeAdapter.h>
#include <gsl_DefinitionBody.h>
#include <gsl_DirMethod.h>
#include <gsl_Plane.h>

namespace
{
constexpr unsigned LAYOUT_RELEASE = 800;
}

template <>
struct gsl_DefinitionTraits<gsl_DirMethod>
{
    static constexpr gsl_DirMethod INVALID = gsl_DirMethod::PLANE_INVALID;
    static constexpr const char* DIRECTION = "_normal";
    static bool IsFree(gsl_DirMethod method) { return method == gsl_DirMethod::FROM_POINT_VECTOR; }
};

void gsl_Plane::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta = registrar.Create("gsl_Plane", TypeId(), LAYOUT_RELEASE,
                                               cls_TypeAdapter<gsl_Plane>::Instance(), cls_UniversalRoot);
    gsl_Definition<gsl_DirMethod>::Declare(meta);
    meta.AddDtor(&gsl_Plane::CowDtor);
}

void gsl_Plane::CowDtor(void* body)
{
    delete static_cast<gsl_Plane*>(body);
}

gsl_Plane::gsl_Plane() = default;

gsl_Plane::gsl_Plane(const gsl_Point& point, const gsl_Vector& normal)
    : definition_(point, normal, gsl_DirMethod::FROM_POINT_VECTOR)
{}

gsl_Plane::gsl_Plane(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3)
    : gsl_Plane(p1, gsl_Vector(p1, p2, p3))
{}

gsl_Plane::gsl_Plane(const cls_ReadVisitor& reader) : definition_(reader), uid_(reader.Uid()) {}

void gsl_Plane::SetParents(gsl_DirMethod method, const cow_List<int>& parentIds, bool flip)
{
    definition_.SetParents(method, parentIds, flip);
}

void gsl_Plane::SetCentroid(const gsl_Point& centroid)
{
    centroid_ = centroid;
    hasCentroid_ = true;
}

bool gsl_Plane::Regenerate()
{
    if (definition_.IsFree())
    {
        return true;
    }
    if (!definition_.Regenerate(&gsl_ModelAccess::FindPlane))
    {
        return false;
    }
    ResetCentroid();
    return true;
}

double gsl_Plane::GetDistance(const gsl_Plane& plane) const
{
    return IsParallel(plane) ? PointOn().GetDistance(plane) : 0.0;
}

bool gsl_Plane::IsOn(const gsl_Plane& plane) const
{
    return IsParallel(plane) && PointOn().IsOn(plane);
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
    return definition_.CreateHitRecord(DynTypeId(), Centroid(), out);
}

void gsl_Plane::DBWrite(const cls_WriteVisitor& writer) const
{
    if (writer.Announce(TypeId(), uid_))
    {
        definition_.DBWrite(writer);
    }
}
