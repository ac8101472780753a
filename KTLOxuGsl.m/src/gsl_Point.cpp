#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <gsl_Indent.h>
#include <gsl_Matrix.h>
#include <gsl_Plane.h>
#include <gsl_Point.h>
#include <gsl_StLine.h>
#include <gsl_Util.h>
#include <nex_Raise.h>
#include <ostream>

namespace
{
constexpr unsigned LAYOUT_RELEASE = 203;
}

constexpr auto gsl_Point::Fields()
{
    return cls_Fields(cls_Field{"x", &gsl_Point::x_}, cls_Field{"y", &gsl_Point::y_},
                      cls_Field{"z", &gsl_Point::z_});
}

void gsl_Point::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta = registrar.Create("gsl_Point", TypeId(), LAYOUT_RELEASE,
                                               cls_TypeAdapter<gsl_Point>::Instance(), cls_UniversalRoot);
    Fields().Declare(meta);
    meta.AddDtor(&gsl_Point::CowDtor);
}

void gsl_Point::CowDtor(void* body)
{
    delete static_cast<gsl_Point*>(body);
}

gsl_Point::gsl_Point(const cls_ReadVisitor& reader) : uid_(reader.Uid())
{
    Fields().Read(reader, *this);
}

void gsl_Point::Transform(const gsl_Matrix& matrix)
{
    const double xyz[3] = {x_, y_, z_};
    double moved[3];
    matrix.TransformCoordinates(xyz, moved);
    Set(moved[0], moved[1], moved[2]);
}

double gsl_Point::operator[](int index) const
{
    if (index < 0 || index > 2)
    {
        nex_RaiseRange(index, 3, "KTLOxuGsl.m/src/gsl_Point", __LINE__);
    }
    return index == 0 ? x_ : index == 1 ? y_ : z_;
}

double gsl_Point::GetDistance(const gsl_StLine& line) const
{
    return GetDistance(ProjectOn(line));
}

double gsl_Point::GetDistance(const gsl_Plane& plane) const
{
    return std::abs(GetSignedDistance(plane));
}

double gsl_Point::GetSignedDistance(const gsl_Plane& plane) const
{
    const gsl_Vector away = *this - plane.PointOn();
    return plane.HasNormal() ? away.DotProduct(plane.Direction()) : away.Magnitude();
}

bool gsl_Point::IsOn(const gsl_StLine& line) const
{
    return line.HasDirection() && GetDistance(line) <= gsl_Util::Instance().LinearTolerance();
}

bool gsl_Point::IsOn(const gsl_Plane& plane) const
{
    return plane.HasNormal() && GetDistance(plane) <= gsl_Util::Instance().LinearTolerance();
}

gsl_Point gsl_Point::ProjectOn(const gsl_Plane& plane) const
{
    if (!plane.HasNormal())
    {
        return plane.PointOn();
    }
    return *this - plane.Direction() * GetSignedDistance(plane);
}

gsl_Point gsl_Point::ProjectOn(const gsl_StLine& line) const
{
    return line.PointAtDistance((*this - line.PointOn()).DotProduct(line.Direction()));
}

gsl_Point gsl_Point::PointAtDistInDirection(double dist, const gsl_Vector& dir) const
{
    gsl_Vector unit;
    return dir.NormalizedCopy(unit) ? *this + unit * dist : *this;
}

bool gsl_Point::RayIntersect(const gsl_Vector& dir, const gsl_Plane& plane, gsl_Point& out) const
{
    const gsl_StLine ray(*this, dir);
    gsl_Point hit;
    if (!ray.Intersect(plane, hit) || (hit - *this).DotProduct(dir) < 0.0)
    {
        return false;
    }
    out = hit;
    return true;
}

bool gsl_Point::Bary(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3, double& a, double& b,
                     double& c) const
{
    const gsl_Vector n(p1, p2, p3);
    if (n.Magnitude() == 0.0)
    {
        return false;
    }
    // Areas of the three triangles that the foot makes with the sides, over the area of the whole: signed,
    // because measured along the normal (C. Ericson, "Real-Time Collision Detection", 2005, section 3.4).
    const double whole = n.TripleProduct(p2 - p1, p3 - p1);
    b = n.TripleProduct(*this - p1, p3 - p1) / whole;
    c = n.TripleProduct(p2 - p1, *this - p1) / whole;
    a = 1.0 - b - c;
    return true;
}

void gsl_Point::Print(aio_ostream& stream, int indent) const
{
    stream << gsl_Indent(indent) << x_ << "\ty:\t" << y_ << "\tz:\t" << z_ << "\n";
}

void gsl_Point::DBWrite(const cls_WriteVisitor& writer) const
{
    if (writer.Announce(TypeId(), uid_))
    {
        Fields().Write(writer, *this);
    }
}
