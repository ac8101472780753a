#pragma once

#include <gsl_Definition.h>
#include <oxu_Export.h>

enum class gsl_LineMethod;
class gsl_Plane;

/// Straight line in model space, without ends, that remembers how it was defined: a point on it, a unit
/// direction, and the model entities from which it was built.
///
/// A direction shorter than gsl_Util's linear tolerance is none: the line is then not valid, its method is
/// STLINE_INVALID and its direction zero. Such a line is only its point: distances are to or from that point,
/// it is on nothing, parallel to nothing and meets nothing. A line that Regenerate() refused is not valid
/// either but keeps its last point and direction. L is gsl_Util's linear tolerance, S is
/// gsl_Vector::PARALLEL_SINE.
///
/// Laws, for lines with a direction:
///  1. a.IsParallel(b) == b.IsParallel(a), in either sense; not transitive.
///  2. a.IsOn(b) implies a.IsParallel(b) and is not symmetric: a's point is tested against b.
///  3. a.IsSkewed(b) == b.IsSkewed(a), up to rounding. It asks whether the lines keep apart, so parallel
///     lines at a distance are "skewed" too: IsSkewed and IsParallel do not exclude each other.
///  4. a.Intersect(b) holds exactly when a and b are neither skewed nor parallel.
///  5. a.IsParallel(plane) has the coarser measure of gsl_Vector::IsOrthogonal (L), a.Intersect(plane) fails
///     only up to S: in between, a line is parallel to the plane and meets it far away.
class OXU_EXPORT gsl_StLine : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() noexcept { return cls_MakeTypeId(0x30A, 6); }
    virtual unsigned DynTypeId() const { return TypeId(); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    /// Destructor hook of the metadata: deletes a gsl_StLine made by new.
    static void CowDtor(void* body);

    /// Not valid, at the origin.
    gsl_StLine();
    /// FROM_PNT_VECTOR.
    gsl_StLine(const gsl_Point& point, const gsl_Vector& dir);
    gsl_StLine(const gsl_Point& point, const gsl_Vector& dir, gsl_LineMethod method);
    /// FROM_PNT_PNT, from p1 towards p2.
    gsl_StLine(const gsl_Point& p1, const gsl_Point& p2);
    explicit gsl_StLine(const cls_ReadVisitor& reader);
    gsl_StLine(const gsl_StLine&) = default;
    gsl_StLine& operator=(const gsl_StLine&) = default;
    ~gsl_StLine() override = default;

    /// Says from which model entities the line was built and whether its direction is the reverse of theirs;
    /// moves nothing. A line without a direction stays STLINE_INVALID.
    void SetParents(gsl_LineMethod method, const cow_List<int>& parentIds, bool flip = false);
    /// The feature that owns the line; 0 for none.
    void SetOwnerFeatID(int featureId) noexcept { definition_.ownerFeatId = featureId; }
    /// Reverses the direction and notes that it is the reverse of the defining entity's (or no longer is).
    void FlipDirection();
    /// Recomputes point and direction through gsl_ModelAccess. A line from points and vectors stays as it is.
    /// Without a hook, or when it refuses: false, not valid, STLINE_INVALID.
    [[nodiscard]] virtual bool Regenerate();

    bool IsValid() const noexcept { return definition_.ok; }
    bool HasDirection() const noexcept { return Direction().CachedMagnitude() > 0.0; }
    /// Unit, zero when there is none.
    const gsl_Vector& Direction() const noexcept { return definition_.direction.Vector(); }
    const gsl_Point& PointOn() const noexcept { return definition_.point; }
    /// PointOn() moved along the unit direction; negative distances lie behind it.
    gsl_Point PointAtDistance(double distance) const { return definition_.point + Direction() * distance; }
    gsl_LineMethod Method() const noexcept { return definition_.method; }
    /// The direction is the reverse of the defining entity's.
    bool IsFlipped() const noexcept { return definition_.flip; }
    /// The direction as the defining entity has it: Direction() with the flip undone.
    gsl_Vector DirectionForDatum() const;
    /// The unit direction along the line that points away from p; Direction() when p's foot is the line's
    /// point.
    gsl_Vector DirFromPtForStraightEdge(const gsl_Point& p) const;
    /// Identity of the n-th entity from which the line was built; nex_RangeException when there is none.
    int GetParentInstId(int n) const { return definition_.parentIds.Get(n); }
    const cow_List<int>& ParentIds() const noexcept { return definition_.parentIds; }
    /// 0 when no feature owns the line.
    int OwnerFeatID() const noexcept { return definition_.ownerFeatId; }

    /// Never negative.
    double GetDistance(const gsl_Point& p) const { return p.GetDistance(*this); }
    double GetDistance(const gsl_StLine& line) const { return std::abs(GetSignedDistance(line)); }
    /// Along unit(d1 x d2), from this line to the other; parallel lines have their gap, never negative.
    double GetSignedDistance(const gsl_StLine& line) const;
    /// Distance <= L, inclusive.
    bool IsOn(const gsl_Point& p) const { return p.IsOn(*this); }
    /// Parallel, and the distance from this line's point to the other line below L, strict.
    bool IsOn(const gsl_StLine& line) const;
    /// Parallel, and this line's point on the plane.
    bool IsOn(const gsl_Plane& plane) const;
    /// By the sine of the directions, S.
    bool IsParallel(const gsl_StLine& line) const;
    /// Direction and normal orthogonal by gsl_Vector::IsOrthogonal.
    bool IsParallel(const gsl_Plane& plane) const;
    /// The lines stay more than L apart, on purpose also when they are parallel: "do not meet".
    bool IsSkewed(const gsl_StLine& line) const;

    /// Where the lines meet: midpoint of their closest points. false, and out unchanged, when they are
    /// parallel, coincident or more than L apart.
    [[nodiscard]] bool Intersect(const gsl_StLine& line, gsl_Point& out) const;
    /// false, and out unchanged, when the line is parallel to the plane (|cosine to the normal| < S).
    [[nodiscard]] bool Intersect(const gsl_Plane& plane, gsl_Point& out) const;
    /// The point of this line closest to the other, however far apart they are. false, and out unchanged,
    /// only when they are parallel.
    [[nodiscard]] bool IntersectNonParallel(const gsl_StLine& line, gsl_Point& out) const;

    /// A new line that the caller owns.
    virtual gsl_StLine* Copy() const;
    /// false, and out unchanged, when the line is not valid or was not picked on the model.
    [[nodiscard]] virtual bool CreateHitRecord(gsl_HitRecord& out) const;

    virtual void DBWrite(const cls_WriteVisitor& writer) const;

private:
    gsl_Definition<gsl_LineMethod> definition_;
    cls_Uid uid_;
};
