#pragma once

#include <gsl_Definition.h>
#include <oxu_Export.h>

enum class gsl_DirMethod;

/// Plane in model space that remembers how it was defined: a point on it, a unit normal, and the model
/// entities from which it was built.
///
/// A normal shorter than gsl_Util's linear tolerance is none: the plane is then not valid, its method is
/// PLANE_INVALID and its normal zero. Such a plane is only its point: distances are to that point, it is
/// parallel to nothing and nothing is on it. A plane that Regenerate() refused is not valid either but keeps
/// its last point and normal. L is gsl_Util's linear tolerance.
///
/// Laws, for planes with a normal:
///  1. a.IsParallel(b) == b.IsParallel(a), whichever sides the normals point to; not transitive.
///  2. a.IsOn(b) implies a.IsParallel(b) and is not symmetric: a's point is tested against b, with tilts up
///     to gsl_Vector::PARALLEL_SINE between them.
///  3. a.GetDistance(b) is 0 when the two are not parallel.
class OXU_EXPORT gsl_Plane : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() noexcept { return cls_MakeTypeId(0x30A, 4); }
    virtual unsigned DynTypeId() const { return TypeId(); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    /// Destructor hook of the metadata: deletes a gsl_Plane made by new.
    static void CowDtor(void* body);

    /// Not valid, at the origin.
    gsl_Plane();
    /// FROM_POINT_VECTOR.
    gsl_Plane(const gsl_Point& point, const gsl_Vector& normal);
    /// FROM_POINT_VECTOR, through p1 with the normal of gsl_Vector(p1, p2, p3).
    gsl_Plane(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3);
    explicit gsl_Plane(const cls_ReadVisitor& reader);
    gsl_Plane(const gsl_Plane&) = default;
    gsl_Plane& operator=(const gsl_Plane&) = default;
    ~gsl_Plane() override = default;

    /// Says from which model entities the plane was built and whether its normal is the reverse of theirs;
    /// moves nothing. A plane without a normal stays PLANE_INVALID.
    void SetParents(gsl_DirMethod method, const cow_List<int>& parentIds, bool flip = false);
    /// The feature that owns the plane; 0 for none.
    void SetOwnerFeatID(int featureId) noexcept { definition_.ownerFeatId = featureId; }
    /// A point of the plane that stands for it in pictures and distances.
    void SetCentroid(const gsl_Point& centroid);
    /// Forgets the centroid: it is PointOn() again.
    void ResetCentroid() noexcept { hasCentroid_ = false; }
    /// Recomputes point and normal through gsl_ModelAccess and resets the centroid. A plane from point and
    /// vector stays as it is. Without a hook, or when it refuses: false, not valid, PLANE_INVALID.
    [[nodiscard]] virtual bool Regenerate();

    bool IsValid() const noexcept { return definition_.ok; }
    bool HasNormal() const noexcept { return Direction().CachedMagnitude() > 0.0; }
    /// The unit normal, zero when there is none.
    const gsl_Vector& Direction() const noexcept { return definition_.direction.Vector(); }
    const gsl_Point& PointOn() const noexcept { return definition_.point; }
    gsl_DirMethod Method() const noexcept { return definition_.method; }
    /// The normal is the reverse of the defining entity's.
    bool IsFlipped() const noexcept { return definition_.flip; }
    /// As set, else PointOn().
    gsl_Point Centroid() const { return hasCentroid_ ? centroid_ : definition_.point; }
    /// Identity of the n-th entity from which the plane was built; nex_RangeException when there is none.
    int GetParentInstId(int n) const { return definition_.parentIds.Get(n); }
    const cow_List<int>& ParentIds() const noexcept { return definition_.parentIds; }
    /// 0 when no feature owns the plane.
    int OwnerFeatID() const noexcept { return definition_.ownerFeatId; }

    /// Never negative.
    double GetDistance(const gsl_Point& p) const { return p.GetDistance(*this); }
    /// From this plane's point to the other plane when the two are parallel, else 0.
    double GetDistance(const gsl_Plane& plane) const;
    /// Distance <= L, inclusive.
    bool IsOn(const gsl_Point& p) const { return p.IsOn(*this); }
    /// Parallel, and this plane's point on the other.
    bool IsOn(const gsl_Plane& plane) const;
    /// By the sine of the normals, gsl_Vector::PARALLEL_SINE.
    bool IsParallel(const gsl_Plane& plane) const;

    /// A new plane that the caller owns.
    virtual gsl_Plane* Copy() const;
    /// false, and out unchanged, when the plane is not valid or was not picked on the model.
    [[nodiscard]] virtual bool CreateHitRecord(gsl_HitRecord& out) const;

    virtual void DBWrite(const cls_WriteVisitor& writer) const;

private:
    gsl_Definition<gsl_DirMethod> definition_;
    bool hasCentroid_ = false;
    gsl_Point centroid_;
    cls_Uid uid_;
};
