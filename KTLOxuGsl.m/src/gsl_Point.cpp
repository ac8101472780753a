#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
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
// Stored order: append only. A retired field keeps its index.
enum Field { FIELD_X, FIELD_Y, FIELD_Z };
constexpr cls_FieldHandle FIELDS[] = {{FIELD_X, "x"}, {FIELD_Y, "y"}, {FIELD_Z, "z"}};
constexpr unsigned LAYOUT_RELEASE = 203;
}

void gsl_Point::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta = registrar.Create("gsl_Point", TypeId(), LAYOUT_RELEASE,
                                               cls_TypeAdapter<gsl_Point>::Instance(), cls_UniversalRoot);
    for (const cls_FieldHandle& field : FIELDS)
    {
        meta.AddAttribute(field, cls_AttributeType::DOUBLE, cls_UniversalRoot, cls_CollectionType::SINGLE);
    }
    meta.AddDtor(&gsl_Point::CowDtor);
}

void gsl_Point::CowDtor(void* body)
{
    delete static_cast<gsl_Point*>(body);
}

gsl_Point::gsl_Point(const cls_ReadVisitor& reader) : uid_(reader.Uid())
{
    reader.ReadDouble(FIELDS[FIELD_X], x_);
    reader.ReadDouble(FIELDS[FIELD_Y], y_);
    reader.ReadDouble(FIELDS[FIELD_Z], z_);
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
    switch (index)
    {
    case 0:
        return x_;
    case 1:
        return y_;
    case 2:
        return z_;
    default:
        nex_RaiseRange(index, 3, "KTLOxuGsl.m/src/gsl_Point", __LINE__);
    }
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
    if (!writer.Announce(TypeId(), uid_))
    {
        return;
    }
    writer.WriteDouble(FIELDS[FIELD_X], x_);
    writer.WriteDouble(FIELDS[FIELD_Y], y_);
    writer.WriteDouble(FIELDS[FIELD_Z], z_);
}
