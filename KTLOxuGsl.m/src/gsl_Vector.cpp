#include <gsl_Indent.h>
#include <gsl_Matrix.h>
#include <gsl_Plane.h>
#include <gsl_Point.h>
#include <gsl_Triple.h>
#include <gsl_Util.h>
#include <gsl_Vector.h>
#include <gsl_utils.h>
#include <nex_Raise.h>
#include <numbers>
#include <ostream>

namespace
{
constexpr double DEGREES = 180.0 / std::numbers::pi;

void Check(int index)
{
    if (index < 0 || index > 2)
    {
        nex_RaiseRange(index, 3, "KTLOxuGsl.m/src/gsl_Vector", __LINE__);
    }
}

double Unit(double component, double magnitude)
{
    return magnitude == 0.0 ? 0.0 : component / magnitude;
}
}

gsl_Vector::gsl_Vector(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3)
{
    const gsl_Triple a{p2.X() - p1.X(), p2.Y() - p1.Y(), p2.Z() - p1.Z()};
    const gsl_Triple b{p3.X() - p2.X(), p3.Y() - p2.Y(), p3.Z() - p2.Z()};
    gsl_Triple unit;
    if (gsl_UnitNormal3(a, b, gsl_Util::Instance().ParallelTolerance(), unit))
    {
        x_ = unit.x;
        y_ = unit.y;
        z_ = unit.z;
        magnitude_ = 1.0;
    }
}

void gsl_Vector::Set(int index, double value)
{
    Check(index);
    (index == 0 ? x_ : index == 1 ? y_ : z_) = value;
    magnitude_ = -1.0;
}

double gsl_Vector::operator[](int index) const
{
    Check(index);
    return index == 0 ? x_ : index == 1 ? y_ : z_;
}

void gsl_Vector::FromCoordinates(const double* xyz)
{
    *this = gsl_Vector(xyz[0], xyz[1], xyz[2]);
}

void gsl_Vector::ToCoordinates(double* xyz) const
{
    xyz[0] = x_;
    xyz[1] = y_;
    xyz[2] = z_;
}

bool gsl_Vector::Normalize()
{
    return Normalize(gsl_Util::Instance().LinearTolerance());
}

bool gsl_Vector::Normalize(double tol)
{
    const double length = Magnitude();
    // The second test matters for a tolerance of 0 alone: nothing has no direction.
    if (length < tol || length == 0.0)
    {
        return false;
    }
    x_ /= length;
    y_ /= length;
    z_ /= length;
    magnitude_ = 1.0;
    return true;
}

bool gsl_Vector::NormalizedCopy(gsl_Vector& out) const
{
    gsl_Vector copy = *this;
    if (!copy.Normalize())
    {
        return false;
    }
    out = copy;
    return true;
}

void gsl_Vector::Scale(double factor)
{
    x_ *= factor;
    y_ *= factor;
    z_ *= factor;
    magnitude_ = magnitude_ < 0.0 ? -1.0 : std::abs(factor) * magnitude_;
}

gsl_Vector gsl_Vector::ScaledCopy(double factor) const
{
    gsl_Vector copy = *this;
    copy.Scale(factor);
    return copy;
}

void gsl_Vector::RotateAndTransform(const gsl_Matrix& matrix)
{
    *this = matrix.Transform(*this);
}

double gsl_Vector::AngleWith(const gsl_Vector& v, bool degrees) const
{
    // By the arc tangent: exact to the last digits also for nearly parallel vectors, where the arc cosine is
    // not (W. Kahan, "How Futile are Mindless Assessments of Roundoff in Floating-Point Computation", 2006).
    const double angle = std::atan2(CrossProduct(v).Magnitude(), DotProduct(v));
    return degrees ? angle * DEGREES : angle;
}

double gsl_Vector::AngleWith(const gsl_Vector& v, bool degrees, gsl_Vector& axis) const
{
    const double angle = AngleWith(v, degrees);
    gsl_Vector a;
    gsl_Vector b;
    gsl_Vector turn;
    if (NormalizedCopy(a) && v.NormalizedCopy(b))
    {
        turn = a.CrossProduct(b);
    }
    axis = turn.Normalize(PARALLEL_SINE) ? turn : AnyOrthogonalUnit();
    return angle;
}

double gsl_Vector::AngleBetween(const gsl_Vector& a, const gsl_Vector& b, const gsl_Vector& axis)
{
    const double angle = a.AngleWith(b, false);
    return axis.TripleProduct(a, b) < 0.0 ? -angle : angle;
}

bool gsl_Vector::SameDirection(const gsl_Vector& v, double tol) const
{
    const double m = Magnitude();
    const double n = v.Magnitude();
    return gsl_RealEqual(Unit(x_, m), Unit(v.x_, n), tol) && gsl_RealEqual(Unit(y_, m), Unit(v.y_, n), tol) &&
           gsl_RealEqual(Unit(z_, m), Unit(v.z_, n), tol);
}

bool gsl_Vector::IsParallel(const gsl_Vector& v, double tol) const
{
    if (SameDirection(v, tol))
    {
        return true;
    }
    gsl_Vector opposite = v;
    opposite.Negate();
    return SameDirection(opposite, tol);
}

bool gsl_Vector::IsOn(const gsl_Vector& v, double tol) const
{
    return CrossProduct(v).Magnitude() < tol * Magnitude() * v.Magnitude();
}

bool gsl_Vector::IsOrthogonal(const gsl_Vector& v) const
{
    return std::abs(DotProduct(v)) < gsl_Util::Instance().LinearTolerance() * Magnitude() * v.Magnitude();
}

gsl_Vector gsl_Vector::AnyOrthogonalUnit() const
{
    gsl_Vector w(y_ - z_, z_ - x_, x_ - y_);
    // Absolute on purpose: a tiny vector takes the fall-back too, although that need not be orthogonal to it.
    if (w.Magnitude() < gsl_Util::Instance().LinearTolerance())
    {
        w = gsl_Vector(1.0, -1.0, 0.0);
    }
    (void)w.Normalize(0.0);
    return w;
}

gsl_Vector gsl_Vector::BestAlignedOrthogonalUnit(const gsl_Vector& hint) const
{
    gsl_Vector along = *this;
    gsl_Vector best = hint;
    if (!best.Normalize())
    {
        return AnyOrthogonalUnit();
    }
    if (along.Normalize(0.0))
    {
        // Twice: when hint is nearly parallel the first difference has lost digits that the second restores.
        for (int pass = 0; pass < 2; ++pass)
        {
            best = best - along * best.DotProduct(along);
            if (!best.Normalize())
            {
                return AnyOrthogonalUnit();
            }
        }
    }
    return best;
}

gsl_Vector gsl_Vector::ProjectOn(const gsl_Plane& plane) const
{
    const gsl_Vector& normal = plane.Direction();
    return *this - normal * DotProduct(normal);
}

void gsl_Vector::Print(aio_ostream& stream, int indent) const
{
    stream << gsl_Indent(indent) << "magnitude:\t" << Magnitude() << "\n";
    stream << gsl_Indent(indent) << x_ << "\ty:\t" << y_ << "\tz:\t" << z_ << "\n";
}

bool operator==(const gsl_Vector& a, const gsl_Vector& b)
{
    return &a == &b || (a - b).Magnitude() < gsl_Util::Instance().LinearTolerance();
}

bool Intersection(const gsl_Vector& dir1, const gsl_Point& point1, const gsl_Vector& dir2,
                  const gsl_Point& point2, gsl_Point& out)
{
    gsl_Vector u = dir1;
    gsl_Vector v = dir2;
    if (!u.Normalize(0.0) || !v.Normalize(0.0) || u.IsOn(v, gsl_Vector::PARALLEL_SINE))
    {
        return false;
    }
    gsl_Vector n = u.CrossProduct(v);
    const double sine = n.Magnitude();
    (void)n.Normalize(0.0);
    const gsl_Vector w = point2 - point1;
    if (std::abs(w.DotProduct(n)) > gsl_Util::Instance().LinearTolerance())
    {
        return false;
    }
    // The closest points differ along n alone: w = s u - t v + k n. Triple products with v and u leave s and
    // t (R. Goldman, "Intersection of two lines in three-space", Graphics Gems, 1990).
    const gsl_Point on1 = point1 + u * (w.CrossProduct(v).DotProduct(n) / sine);
    const gsl_Point on2 = point2 + v * (w.CrossProduct(u).DotProduct(n) / sine);
    out.Set(0.5 * (on1.X() + on2.X()), 0.5 * (on1.Y() + on2.Y()), 0.5 * (on1.Z() + on2.Z()));
    return true;
}
