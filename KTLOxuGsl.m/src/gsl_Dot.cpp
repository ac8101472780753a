#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_MetadataRegistrar.h>
#include <cls_TypeAdapter.h>
#include <gsl_Dot.h>
#include <gsl_DotMethod.h>
#include <gsl_HitRecord.h>
#include <gsl_ModelAccess.h>
#include <nex_Raise.h>
#include <omu_PrimEnumCodec.h>

namespace
{
constexpr unsigned LAYOUT_RELEASE = 203;
}

constexpr auto gsl_Dot::Fields()
{
    return cls_Fields(cls_Field{"_point", &gsl_Dot::point_}, cls_Field{"_method", &gsl_Dot::method_},
                      cls_Field{"_instanceId", &gsl_Dot::instanceId_},
                      cls_Field{"_entityId", &gsl_Dot::entityId_});
}

void gsl_Dot::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta = registrar.Create("gsl_Dot", TypeId(), LAYOUT_RELEASE,
                                               cls_TypeAdapter<gsl_Dot>::Instance(), cls_UniversalRoot);
    Fields().Declare(meta);
    meta.AddDtor(&gsl_Dot::CowDtor);
}

void gsl_Dot::CowDtor(void* body)
{
    delete static_cast<gsl_Dot*>(body);
}

gsl_Dot::gsl_Dot() : method_(gsl_DotMethod::gsl_DOT_INVALID) {}

gsl_Dot::gsl_Dot(int instanceId, int entityId)
    : method_(gsl_DotMethod::gsl_FROM_VERTEX), instanceId_(instanceId), entityId_(entityId)
{}

gsl_Dot::gsl_Dot(double x, double y, double z) : gsl_Dot(gsl_Point(x, y, z)) {}

gsl_Dot::gsl_Dot(const gsl_Point& point) : point_(point), method_(gsl_DotMethod::gsl_FROM_POINT) {}

gsl_Dot::gsl_Dot(const cls_ReadVisitor& reader) : method_(gsl_DotMethod::gsl_DOT_INVALID), uid_(reader.Uid())
{
    Fields().Read(reader, *this);
}

void gsl_Dot::SetValues(const gsl_Point& point, gsl_DotMethod method, int instanceId, int entityId)
{
    point_ = point;
    method_ = method;
    instanceId_ = instanceId;
    entityId_ = entityId;
}

bool gsl_Dot::Regenerate()
{
    if (method_ == gsl_DotMethod::gsl_FROM_POINT)
    {
        return true;
    }
    gsl_Point point;
    const gsl_ModelAccess* model = gsl_ModelAccess::Current();
    if (method_ == gsl_DotMethod::gsl_DOT_INVALID || model == nullptr ||
        !model->FindDot(method_, instanceId_, entityId_, geometryData_, point))
    {
        method_ = gsl_DotMethod::gsl_DOT_INVALID;
        return false;
    }
    point_ = point;
    return true;
}

int gsl_Dot::GetUserNodeLabel() const noexcept
{
    return method_ == gsl_DotMethod::gsl_FROM_NODE ? entityId_ : -1;
}

int gsl_Dot::NmrParents() const noexcept
{
    return method_ == gsl_DotMethod::gsl_FROM_POINT || method_ == gsl_DotMethod::gsl_DOT_INVALID ? 0 : 1;
}

int gsl_Dot::GetNthParentId(int n) const
{
    if (n < 0 || n >= NmrParents())
    {
        nex_RaiseRange(n, NmrParents(), "KTLOxuGsl.m/src/gsl_Dot", __LINE__);
    }
    return entityId_;
}

int gsl_Dot::OwnerFeatID() const
{
    const gsl_ModelAccess* model = gsl_ModelAccess::Current();
    return model != nullptr && NmrParents() > 0 ? model->FindOwner(instanceId_, entityId_) : 0;
}

bool gsl_Dot::IsA(unsigned typeId) const
{
    return cls_MetadataRegistrar::Instance().Registrar().InheritanceCheck(DynTypeId(), typeId);
}

gsl_Dot* gsl_Dot::Copy() const
{
    return new gsl_Dot(*this);
}

bool gsl_Dot::CreateHitRecord(gsl_HitRecord& out) const
{
    if (NmrParents() == 0)
    {
        return false;
    }
    out = gsl_HitRecord{DynTypeId(), static_cast<int>(method_), cow_List<int>{instanceId_, entityId_}, point_,
                        gsl_Vector()};
    return true;
}

void gsl_Dot::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), uid_))
    {
        return;
    }
    Fields().Write(writer, *this);
}
