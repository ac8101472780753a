#pragma once

#include <aio_ostream.h>
#include <cmath>
#include <oxu_Export.h>

class gsl_Matrix;
class gsl_Plane;
class gsl_Point;

/// Free vector in model units: three components and a cached length.
///
/// A plain value without identity; its persistent wrapper is gsl_PersistentVector. The cache is negative
/// while the length is unknown; the first question that needs it fills it, also through a const object, so a
/// vector that threads share is to be asked for its Magnitude() before. "Zero" means shorter than gsl_Util's
/// linear tolerance. operator== is tolerant (see there): no hash, no key, no order.
///
/// Laws of the relations, for vectors that are not zero:
///  1. v.IsOn(w, t) == w.IsOn(v, t), and == v.IsOn(-w, t): parallel in either sense, by the sine.
///  2. v.SameDirection(w, t) == w.SameDirection(v, t); the test is by unit components, not by angle.
///  3. v.SameDirection(w, t) implies v.IsParallel(w, t); v.IsParallel(w, t) == v.IsParallel(-w, t).
///  4. v.IsOrthogonal(w) == w.IsOrthogonal(v).
///  5. None of them is transitive, and operator== is not.
///  6. For a zero vector o: o.SameDirection(o, t) holds, o.IsOn(anything, t) and o.IsOrthogonal(anything)
///     fail.
class OXU_EXPORT gsl_Vector
{
public:
    /// Below this sine lines, planes and Intersection call two directions parallel.
    static constexpr double PARALLEL_SINE = 1e-9;

    gsl_Vector() = default;
    gsl_Vector(double x, double y, double z) noexcept : x_(x), y_(y), z_(z), magnitude_(-1.0) {}
    /// From the origin to p.
    explicit gsl_Vector(const gsl_Point& p);
    /// From one point to another: to - from.
    gsl_Vector(const gsl_Point& from, const gsl_Point& to);
    /// Unit normal of three points, (p2 - p1) x (p3 - p2) normalised; the zero vector when the sine of the
    /// two edges does not exceed gsl_Util's parallel tolerance.
    gsl_Vector(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3);

    /// index 0..2, else nex_RangeException.
    void Set(int index, double value);
    void FromCoordinates(const double* xyz);

    /// Makes the length 1. false, and unchanged, when it is below gsl_Util's linear tolerance.
    [[nodiscard]] bool Normalize();
    /// The same with tol in place of the linear tolerance.
    [[nodiscard]] bool Normalize(double tol);
    void Scale(double factor);
    void Negate() noexcept
    {
        x_ = -x_;
        y_ = -y_;
        z_ = -z_;
    }
    /// Applies the rotation part (the upper left 3x3) alone: a free vector has no place.
    void RotateAndTransform(const gsl_Matrix& matrix);

    double X() const noexcept { return x_; }
    double Y() const noexcept { return y_; }
    double Z() const noexcept { return z_; }
    /// index 0..2, else nex_RangeException.
    double operator[](int index) const;
    void ToCoordinates(double* xyz) const;

    /// The length; computed by the first question.
    double Magnitude() const
    {
        if (magnitude_ < 0.0)
        {
            ComputeMagnitude();
        }
        return magnitude_;
    }
    /// Fills the cache from the components.
    void ComputeMagnitude() const { magnitude_ = std::sqrt(x_ * x_ + y_ * y_ + z_ * z_); }
    /// The cache as it stands, negative while the length is unknown.
    double CachedMagnitude() const noexcept { return magnitude_; }

    double DotProduct(const gsl_Vector& v) const noexcept { return x_ * v.x_ + y_ * v.y_ + z_ * v.z_; }
    gsl_Vector CrossProduct(const gsl_Vector& v) const noexcept
    {
        return {y_ * v.z_ - z_ * v.y_, z_ * v.x_ - x_ * v.z_, x_ * v.y_ - y_ * v.x_};
    }
    /// This vector times (a x b): the signed volume of the box that the three span.
    double TripleProduct(const gsl_Vector& a, const gsl_Vector& b) const noexcept
    {
        return DotProduct(a.CrossProduct(b));
    }

    /// Angle between the two, 0 to pi (0 to 180 in degrees); 0 when either has no length.
    double AngleWith(const gsl_Vector& v, bool degrees) const;
    /// The same; axis becomes the unit vector that turns this towards v right-handed, or AnyOrthogonalUnit()
    /// when the two are parallel.
    double AngleWith(const gsl_Vector& v, bool degrees, gsl_Vector& axis) const;
    /// Angle in radians that turns a towards b, from -pi to pi, positive when right-handed about axis.
    static double AngleBetween(const gsl_Vector& a, const gsl_Vector& b, const gsl_Vector& axis);

    /// SameDirection with v or with -v.
    bool IsParallel(const gsl_Vector& v, double tol) const;
    /// Compares the unit components one by one, each within tol inclusive; the components of a vector without
    /// length count as 0.
    bool SameDirection(const gsl_Vector& v, double tol) const;
    /// Parallel in either sense: |this x v| < tol |this| |v|, strict.
    bool IsOn(const gsl_Vector& v, double tol) const;
    /// |this . v| < L |this| |v|, strict, L being gsl_Util's linear tolerance.
    bool IsOrthogonal(const gsl_Vector& v) const;

    /// Unit copy in out. false, and out unchanged, when this is zero.
    [[nodiscard]] bool NormalizedCopy(gsl_Vector& out) const;
    gsl_Vector ScaledCopy(double factor) const;
    /// A unit vector orthogonal to this one. Normalise first: for a vector shorter than about the linear
    /// tolerance the answer is (1,-1,0)/sqrt 2 whatever its direction, on purpose.
    gsl_Vector AnyOrthogonalUnit() const;
    /// The unit vector orthogonal to this that comes nearest to hint; AnyOrthogonalUnit() when hint is zero
    /// or parallel to this.
    gsl_Vector BestAlignedOrthogonalUnit(const gsl_Vector& hint) const;
    /// This without its component along the plane's normal.
    gsl_Vector ProjectOn(const gsl_Plane& plane) const;

    friend gsl_Vector operator+(const gsl_Vector& a, const gsl_Vector& b) noexcept
    {
        return {a.x_ + b.x_, a.y_ + b.y_, a.z_ + b.z_};
    }
    friend gsl_Vector operator-(const gsl_Vector& a, const gsl_Vector& b) noexcept
    {
        return {a.x_ - b.x_, a.y_ - b.y_, a.z_ - b.z_};
    }
    friend gsl_Vector operator*(const gsl_Vector& v, double factor) { return v.ScaledCopy(factor); }
    friend gsl_Vector operator*(double factor, const gsl_Vector& v) { return v.ScaledCopy(factor); }
    /// The same object, or |a - b| below the linear tolerance (strict).
    OXU_EXPORT friend bool operator==(const gsl_Vector& a, const gsl_Vector& b);

    /// The magnitude on one line, the components on a second, each indented by that many blanks.
    void Print(aio_ostream& stream, int indent) const;

private:
    friend class gsl_PersistentVector;

    double x_ = 0.0;
    double y_ = 0.0;
    double z_ = 0.0;
    mutable double magnitude_ = 0.0;
};

/// Where the lines point1 + s dir1 and point2 + t dir2 meet: the midpoint of their closest points. false, and
/// out unchanged, when they are parallel (sine below gsl_Vector::PARALLEL_SINE) or pass each other at more
/// than gsl_Util's linear tolerance.
[[nodiscard]] OXU_EXPORT bool Intersection(const gsl_Vector& dir1, const gsl_Point& point1,
                                           const gsl_Vector& dir2, const gsl_Point& point2, gsl_Point& out);
