#pragma once

#include <gsl_Point.h>
#include <oxu_Export.h>

/// The straight piece between two points, ends included.
///
/// A segment shorter than gsl_Util's linear tolerance L is degenerate: its direction is zero and it meets no
/// other.
class OXU_EXPORT gsl_Segment : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() noexcept { return cls_MakeTypeId(0x30A, 8); }
    virtual unsigned DynTypeId() const { return TypeId(); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    /// Both ends at the origin.
    gsl_Segment() = default;
    gsl_Segment(const gsl_Point& point1, const gsl_Point& point2) : point1_(point1), point2_(point2) {}
    explicit gsl_Segment(const cls_ReadVisitor& reader);

    const gsl_Point& Point1() const noexcept { return point1_; }
    const gsl_Point& Point2() const noexcept { return point2_; }
    /// Unit vector from the first point to the second, zero when degenerate.
    gsl_Vector Direction() const;
    double Length() const noexcept { return point1_.GetDistance(point2_); }
    /// To ClosestPoint(p); never negative.
    double GetDistance(const gsl_Point& p) const { return p.GetDistance(ClosestPoint(p)); }
    /// The point of the segment nearest to p, ends included.
    gsl_Point ClosestPoint(const gsl_Point& p) const;
    /// Where the two cross. Both lines and both ends have the tolerance L, inclusive. false, and out
    /// unchanged, when they do not cross, are parallel or degenerate.
    [[nodiscard]] bool Intersect(const gsl_Segment& segment, gsl_Point& out) const;

    virtual void DBWrite(const cls_WriteVisitor& writer) const;

private:
    static constexpr auto Fields();

    /// The foot of p on the line lies on the segment, ends widened by L.
    bool Spans(const gsl_Point& p) const;

    gsl_Point point1_;
    gsl_Point point2_;
};
