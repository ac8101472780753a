#pragma once

#include <cow_List.h>
#include <gsl_Point.h>
#include <oxu_Export.h>

enum class gsl_DotMethod;
struct gsl_HitRecord;

/// Point that remembers how it was picked on the model: the method, the part instance and the entity.
///
/// Identities are the model's; 0 is none. A dot whose method is gsl_DOT_INVALID keeps its last place. The
/// parameters of the pick (GetGeometryData) live with the object and are not stored.
class OXU_EXPORT gsl_Dot : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() noexcept { return cls_MakeTypeId(0x30A, 5); }
    virtual unsigned DynTypeId() const { return TypeId(); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    /// Destructor hook of the metadata: deletes a gsl_Dot made by new.
    static void CowDtor(void* body);

    /// gsl_DOT_INVALID, at the origin.
    gsl_Dot();
    /// gsl_FROM_VERTEX, at the origin until Regenerate().
    gsl_Dot(int instanceId, int entityId);
    /// gsl_FROM_POINT.
    gsl_Dot(double x, double y, double z);
    explicit gsl_Dot(const gsl_Point& point);
    explicit gsl_Dot(const cls_ReadVisitor& reader);
    gsl_Dot(const gsl_Dot&) = default;
    gsl_Dot& operator=(const gsl_Dot&) = default;
    ~gsl_Dot() override = default;

    /// Place and origin at once; the instance and the entity are the model's.
    void SetValues(const gsl_Point& point, gsl_DotMethod method, int instanceId, int entityId);
    /// Parameters of the method, as gsl_ModelAccess understands them: the place along an edge, distances on a
    /// face.
    void SetGeometryData(const cow_List<double>& data) { geometryData_ = data; }
    /// Recomputes the place through gsl_ModelAccess. A dot from a point stays as it is. Without a hook, or
    /// when it refuses: false, gsl_DOT_INVALID.
    [[nodiscard]] virtual bool Regenerate();

    const gsl_Point& GetPoint() const noexcept { return point_; }
    gsl_DotMethod GetMethod() const noexcept { return method_; }
    int GetInstanceId() const noexcept { return instanceId_; }
    int GetEntityId() const noexcept { return entityId_; }
    const cow_List<double>& GetGeometryData() const noexcept { return geometryData_; }
    /// The entity when a node was picked, else -1.
    int GetUserNodeLabel() const noexcept;
    /// 1 when the dot was picked on the model, else 0.
    int NmrParents() const noexcept;
    /// The entity picked; nex_RangeException for n outside 0..NmrParents()-1.
    int GetNthParentId(int n) const;
    /// The feature that owns the entity, by gsl_ModelAccess; 0 when there is none.
    int OwnerFeatID() const;
    /// The class with that type id is this object's class or one of its registered ancestors.
    bool IsA(unsigned typeId) const;

    /// A new dot that the caller owns.
    virtual gsl_Dot* Copy() const;
    /// false, and out unchanged, when the dot was not picked on the model.
    [[nodiscard]] virtual bool CreateHitRecord(gsl_HitRecord& out) const;

    virtual void DBWrite(const cls_WriteVisitor& writer) const;

private:
    static constexpr auto Fields();

    gsl_Point point_;
    gsl_DotMethod method_;
    int instanceId_ = 0;
    int entityId_ = 0;
    cow_List<double> geometryData_;
    cls_Uid uid_;
};
