#pragma once

#include <aio_ostream.h>
#include <gsl_Point.h>
#include <gsl_Vector.h>
#include <oxu_Export.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;
class g3d_Sphere;
class gsl_Matrix;

/// Axis-aligned box in model space: every point with low <= p <= high, bounds included.
///
/// A value in model units. A box is empty when low > high on any axis; the empty box made here is low
/// (0,0,0), high (-1,-1,-1): ask IsEmpty() before reading a corner. The empty box holds nothing, meets
/// nothing, has size and lengths 0 and stays empty under Transform. operator== has gsl_Point's tolerance and
/// is not transitive: never sort, hash or key by a box.
class OXU_EXPORT gsl_BBox : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() noexcept { return cls_MakeTypeId(0x30A, 7); }
    virtual unsigned DynTypeId() const { return TypeId(); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    /// The empty box.
    gsl_BBox() : high_(-1.0, -1.0, -1.0) {}
    /// The corners as given; low above high on any axis makes an empty box.
    gsl_BBox(const gsl_Point& low, const gsl_Point& high) : low_(low), high_(high) {}
    /// The box of a single point.
    explicit gsl_BBox(const gsl_Point& p) : low_(p), high_(p) {}
    explicit gsl_BBox(const cls_ReadVisitor& reader);

    /// Widens the box to hold p; an empty box becomes the single point p.
    void Add(const gsl_Point& p) noexcept
    {
        if (IsEmpty())
        {
            low_.Set(p.X(), p.Y(), p.Z());
            high_.Set(p.X(), p.Y(), p.Z());
            return;
        }
        low_.Set(p.X() < low_.X() ? p.X() : low_.X(), p.Y() < low_.Y() ? p.Y() : low_.Y(),
                 p.Z() < low_.Z() ? p.Z() : low_.Z());
        high_.Set(p.X() > high_.X() ? p.X() : high_.X(), p.Y() > high_.Y() ? p.Y() : high_.Y(),
                  p.Z() > high_.Z() ? p.Z() : high_.Z());
    }
    /// Widens the box to hold the other; an empty one changes nothing.
    void Add(const gsl_BBox& box);
    /// Becomes the empty box.
    void Vacate();
    /// Becomes the box of the eight transformed corners.
    void Transform(const gsl_Matrix& matrix);

    const gsl_Point& Low() const noexcept { return low_; }
    const gsl_Point& High() const noexcept { return high_; }
    bool IsEmpty() const noexcept
    {
        return low_.X() > high_.X() || low_.Y() > high_.Y() || low_.Z() > high_.Z();
    }
    /// Inclusive, without tolerance.
    bool ContainsPoint(const gsl_Point& p) const noexcept
    {
        return low_.X() <= p.X() && p.X() <= high_.X() && low_.Y() <= p.Y() && p.Y() <= high_.Y() &&
               low_.Z() <= p.Z() && p.Z() <= high_.Z();
    }
    /// Both corners of the other inside; an empty one is in no box.
    bool ContainsBox(const gsl_BBox& box) const noexcept;
    /// All eight corners within the radius of the centre, inclusive.
    bool SphereContainsBox(const g3d_Sphere& sphere) const;
    /// The two share a point; boxes that only touch do.
    bool Intersect(const gsl_BBox& box) const noexcept;
    bool Intersect(const gsl_Point& p) const noexcept { return ContainsPoint(p); }

    /// Half way between the corners as stored.
    gsl_Point Center() const;
    /// From low to high; the zero vector when empty.
    gsl_Vector Diag() const;
    /// Length of the diagonal.
    double Size() const;
    /// The corners as stored.
    void GetExtent(double low[3], double high[3]) const noexcept;
    double XLen() const noexcept { return IsEmpty() ? 0.0 : high_.X() - low_.X(); }
    double YLen() const noexcept { return IsEmpty() ? 0.0 : high_.Y() - low_.Y(); }
    double ZLen() const noexcept { return IsEmpty() ? 0.0 : high_.Z() - low_.Z(); }

    /// Two lines, indented by that many blanks.
    void Print(aio_ostream& stream, int indent) const;

    /// Both empty, or corners equal with gsl_Point's tolerance.
    friend bool operator==(const gsl_BBox& a, const gsl_BBox& b)
    {
        return (a.IsEmpty() && b.IsEmpty()) || (a.low_ == b.low_ && a.high_ == b.high_);
    }

    virtual void DBWrite(const cls_WriteVisitor& writer) const;

private:
    static constexpr auto Fields();

    gsl_Point low_;
    gsl_Point high_;
};
