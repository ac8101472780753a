#pragma once

#include <aio_ostream.h>
#include <cls_Persistent.h>
#include <cls_TypeId.h>
#include <cls_Uid.h>
#include <cmath>
#include <gsl_Util.h>
#include <gsl_Vector.h>
#include <oxu_Export.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;
class gsl_Matrix;
class gsl_Plane;
class gsl_StLine;

/// Point in model space, in model units, with an identity that copies share.
///
/// operator== is tolerant (see there): no hash, no key, no order by it. operator> is dominance on every axis,
/// not an order either.
///
/// Laws of the relations, L being gsl_Util's linear tolerance:
///  1. p == q, p.IsOn(q) and the distances are symmetric; none of the relations is transitive.
///  2. p == q includes the bound (squared distance <= squared tolerance), p.IsOn(q) excludes it (< L^2):
///     points exactly L apart are equal and not on each other.
///  3. p > q implies p >= q and not q >= p. Two points of which neither is >= the other are common.
///  4. !(p > q) does not imply q >= p, and p >= q with q >= p means the same coordinates.
class OXU_EXPORT gsl_Point : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() noexcept { return cls_MakeTypeId(0x30A, 1); }
    virtual unsigned DynTypeId() const { return TypeId(); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    /// Destructor hook of the metadata: deletes a gsl_Point made by new.
    static void CowDtor(void* body);

    /// The origin.
    gsl_Point() = default;
    gsl_Point(double x, double y, double z) : x_(x), y_(y), z_(z) {}
    explicit gsl_Point(const double* xyz) : x_(xyz[0]), y_(xyz[1]), z_(xyz[2]) {}
    explicit gsl_Point(const cls_ReadVisitor& reader);
    gsl_Point(const gsl_Point&) = default;
    gsl_Point& operator=(const gsl_Point&) = default;
    ~gsl_Point() override = default;

    void Set(double x, double y, double z) noexcept
    {
        x_ = x;
        y_ = y;
        z_ = z;
    }
    /// In place, with the translation, without perspective division.
    void Transform(const gsl_Matrix& matrix);

    double X() const noexcept { return x_; }
    double Y() const noexcept { return y_; }
    double Z() const noexcept { return z_; }
    /// index 0..2, else nex_RangeException.
    double operator[](int index) const;
    const cls_Uid& Uid() const noexcept { return uid_; }

    /// Distances are never negative; to a plane without normal or a line without direction they are to its
    /// point.
    double GetDistance(const gsl_Point& p) const noexcept { return std::sqrt(SquaredDistance(p)); }
    double GetDistance(const gsl_StLine& line) const;
    double GetDistance(const gsl_Plane& plane) const;
    /// Positive on the side to which the plane's normal points.
    double GetSignedDistance(const gsl_Plane& plane) const;
    double SquaredDistance(const gsl_Point& p) const noexcept
    {
        const double dx = p.x_ - x_;
        const double dy = p.y_ - y_;
        const double dz = p.z_ - z_;
        return dx * dx + dy * dy + dz * dz;
    }

    /// Squared distance < L^2, strict.
    bool IsOn(const gsl_Point& p) const
    {
        const double tolerance = gsl_Util::Instance().LinearTolerance();
        return SquaredDistance(p) < tolerance * tolerance;
    }
    /// Distance <= L, inclusive; false for a line without direction or a plane without normal.
    bool IsOn(const gsl_StLine& line) const;
    bool IsOn(const gsl_Plane& plane) const;

    /// The orthogonal foot.
    gsl_Point ProjectOn(const gsl_Plane& plane) const;
    gsl_Point ProjectOn(const gsl_StLine& line) const;
    /// This point moved by dist along dir, whatever dir's length; this point itself when dir is zero.
    gsl_Point PointAtDistInDirection(double dist, const gsl_Vector& dir) const;
    /// Where the ray from here along dir meets the plane. false, and out unchanged, when dir is parallel to
    /// the plane or the plane lies behind.
    [[nodiscard]] bool RayIntersect(const gsl_Vector& dir, const gsl_Plane& plane, gsl_Point& out) const;
    /// Barycentric coordinates of the foot of this point on the plane of p1, p2, p3: a + b + c = 1 and the
    /// foot is a p1 + b p2 + c p3. false, and outputs unchanged, when the three have no normal.
    [[nodiscard]] bool Bary(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3, double& a,
                            double& b, double& c) const;

    friend gsl_Point operator+(const gsl_Point& p, const gsl_Vector& v)
    {
        return {p.x_ + v.X(), p.y_ + v.Y(), p.z_ + v.Z()};
    }
    friend gsl_Point operator-(const gsl_Point& p, const gsl_Vector& v)
    {
        return {p.x_ - v.X(), p.y_ - v.Y(), p.z_ - v.Z()};
    }
    /// The vector from b to a.
    friend gsl_Vector operator-(const gsl_Point& a, const gsl_Point& b) noexcept
    {
        return {a.x_ - b.x_, a.y_ - b.y_, a.z_ - b.z_};
    }

    /// The same object, or squared distance <= gsl_Util's squared tolerance (inclusive).
    friend bool operator==(const gsl_Point& a, const gsl_Point& b)
    {
        return &a == &b || a.SquaredDistance(b) <= gsl_Util::Instance().SquaredTolerance();
    }
    /// Every coordinate of a greater than b's; false for the same object.
    friend bool operator>(const gsl_Point& a, const gsl_Point& b) noexcept
    {
        return &a != &b && a.x_ > b.x_ && a.y_ > b.y_ && a.z_ > b.z_;
    }
    /// No coordinate of b greater than a's; true for the same object.
    friend bool operator>=(const gsl_Point& a, const gsl_Point& b) noexcept
    {
        return &a == &b || !(b.x_ > a.x_ || b.y_ > a.y_ || b.z_ > a.z_);
    }

    /// One line, indented by that many blanks; x has no label.
    void Print(aio_ostream& stream, int indent) const;

    virtual void DBWrite(const cls_WriteVisitor& writer) const;

private:
    static constexpr auto Fields();

    double x_ = 0.0;
    double y_ = 0.0;
    double z_ = 0.0;
    cls_Uid uid_;
};

inline gsl_Vector::gsl_Vector(const gsl_Point& p) : gsl_Vector(p.X(), p.Y(), p.Z()) {}

inline gsl_Vector::gsl_Vector(const gsl_Point& from, const gsl_Point& to) : gsl_Vector(to - from) {}
