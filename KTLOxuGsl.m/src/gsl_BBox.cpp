#include <algorithm>
#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <g3d_Sphere.h>
#include <gsl_BBox.h>
#include <gsl_Indent.h>
#include <gsl_Matrix.h>
#include <ostream>

namespace
{
constexpr unsigned LAYOUT_RELEASE = 800;

double Farther(double low, double high, double from)
{
    return std::abs(low - from) > std::abs(high - from) ? low : high;
}
}

constexpr auto gsl_BBox::Fields()
{
    return cls_Fields(cls_Field{"_low", &gsl_BBox::low_}, cls_Field{"_high", &gsl_BBox::high_});
}

void gsl_BBox::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    Fields().Declare(registrar.Create("gsl_BBox", TypeId(), LAYOUT_RELEASE,
                                      cls_TypeAdapter<gsl_BBox>::Instance(), cls_UniversalRoot));
}

gsl_BBox::gsl_BBox(const cls_ReadVisitor& reader) : gsl_BBox()
{
    Fields().Read(reader, *this);
}

void gsl_BBox::Add(const gsl_BBox& box)
{
    if (!box.IsEmpty())
    {
        Add(box.low_);
        Add(box.high_);
    }
}

void gsl_BBox::Vacate()
{
    low_.Set(0.0, 0.0, 0.0);
    high_.Set(-1.0, -1.0, -1.0);
}

void gsl_BBox::Transform(const gsl_Matrix& matrix)
{
    // The identity is skipped so that the corners stay as they are to the last bit, -0 and infinity included.
    if (IsEmpty() || matrix.IsIdentity())
    {
        return;
    }
    double low[3] = {low_.X(), low_.Y(), low_.Z()};
    matrix.TransformCoordinates(low, low);
    double high[3] = {low[0], low[1], low[2]};
    for (int corner = 1; corner < 8; ++corner)
    {
        double xyz[3] = {(corner & 1) != 0 ? high_.X() : low_.X(), (corner & 2) != 0 ? high_.Y() : low_.Y(),
                         (corner & 4) != 0 ? high_.Z() : low_.Z()};
        matrix.TransformCoordinates(xyz, xyz);
        for (int k = 0; k < 3; ++k)
        {
            low[k] = std::min(low[k], xyz[k]);
            high[k] = std::max(high[k], xyz[k]);
        }
    }
    low_.Set(low[0], low[1], low[2]);
    high_.Set(high[0], high[1], high[2]);
}

bool gsl_BBox::ContainsBox(const gsl_BBox& box) const noexcept
{
    return !box.IsEmpty() && ContainsPoint(box.low_) && ContainsPoint(box.high_);
}

bool gsl_BBox::SphereContainsBox(const g3d_Sphere& sphere) const
{
    if (IsEmpty())
    {
        return false;
    }
    // The corner farthest from the centre is the farthest on each axis by itself.
    return sphere.Contains(Farther(low_.X(), high_.X(), sphere.X()), Farther(low_.Y(), high_.Y(), sphere.Y()),
                           Farther(low_.Z(), high_.Z(), sphere.Z()));
}

bool gsl_BBox::Intersect(const gsl_BBox& box) const noexcept
{
    return !IsEmpty() && !box.IsEmpty() && low_.X() <= box.high_.X() && box.low_.X() <= high_.X() &&
           low_.Y() <= box.high_.Y() && box.low_.Y() <= high_.Y() && low_.Z() <= box.high_.Z() &&
           box.low_.Z() <= high_.Z();
}

gsl_Point gsl_BBox::Center() const
{
    return {0.5 * (low_.X() + high_.X()), 0.5 * (low_.Y() + high_.Y()), 0.5 * (low_.Z() + high_.Z())};
}

gsl_Vector gsl_BBox::Diag() const
{
    return IsEmpty() ? gsl_Vector() : high_ - low_;
}

double gsl_BBox::Size() const
{
    return Diag().Magnitude();
}

void gsl_BBox::GetExtent(double low[3], double high[3]) const noexcept
{
    low[0] = low_.X();
    low[1] = low_.Y();
    low[2] = low_.Z();
    high[0] = high_.X();
    high[1] = high_.Y();
    high[2] = high_.Z();
}

void gsl_BBox::Print(aio_ostream& stream, int indent) const
{
    stream << gsl_Indent(indent) << "low:\t";
    low_.Print(stream, 0);
    stream << gsl_Indent(indent) << "high:\t";
    high_.Print(stream, 0);
}

void gsl_BBox::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.AnnounceValue(TypeId()))
    {
        return;
    }
    Fields().Write(writer, *this);
}
