#include <algorithm>
#include <cmath>
#include <gsl_TriangleQuality.h>
#include <gsl_Util.h>

namespace
{
/// 3 sqrt(3) / 4 as stored factors were made with it: the area of the equilateral triangle in a circle of
/// radius 1.
constexpr double EQUILATERAL_AREA = 1.299038106;

float Difference(double to, double from)
{
    return static_cast<float>(to - from);
}

double SquaredDistance(const double* a, const double* b)
{
    const double x = a[0] - b[0];
    const double y = a[1] - b[1];
    const double z = a[2] - b[2];
    return x * x + y * y + z * z;
}

// An exported function may be replaced by another library's, so that calls to it are never inlined.
inline double Area(const double* a, const double* b, const double* c, bool planar)
{
    const float ux = Difference(b[0], a[0]);
    const float uy = Difference(b[1], a[1]);
    const float vx = Difference(c[0], a[0]);
    const float vy = Difference(c[1], a[1]);
    const float nz = ux * vy - uy * vx;
    if (planar)
        return 0.5F * nz;
    const float uz = Difference(b[2], a[2]);
    const float vz = Difference(c[2], a[2]);
    const float nx = uy * vz - uz * vy;
    const float ny = uz * vx - ux * vz;
    return 0.5F * std::sqrt(nx * nx + ny * ny + nz * nz);
}

inline double Radius(const double* a, const double* b, const double* c, double area)
{
    return std::sqrt(SquaredDistance(a, b) * SquaredDistance(b, c) * SquaredDistance(c, a)) / (4.0 * area);
}

template <class Measure>
double OfPoints(Measure measure, const gsl_Point& a, const gsl_Point& b, const gsl_Point& c, bool planar)
{
    const double corners[3][3] = {{a.X(), a.Y(), a.Z()}, {b.X(), b.Y(), b.Z()}, {c.X(), c.Y(), c.Z()}};
    return measure(corners[0], corners[1], corners[2], planar);
}
}

double gsl_ComputeAreaTri(const double* a, const double* b, const double* c, bool planar)
{
    return Area(a, b, c, planar);
}

double gsl_ComputeAreaTriByCoords(uti_Coord3D a, uti_Coord3D b, uti_Coord3D c, bool planar)
{
    return gsl_ComputeAreaTri(a.Data(), b.Data(), c.Data(), planar);
}

double gsl_ComputeAreaTriByPts(const gsl_Point& a, const gsl_Point& b, const gsl_Point& c, bool planar)
{
    return OfPoints(&gsl_ComputeAreaTri, a, b, c, planar);
}

double gsl_ComputeRadiusTri(const double* a, const double* b, const double* c, double area)
{
    return Radius(a, b, c, area);
}

double gsl_ComputeShapeFactorTri(const double* a, const double* b, const double* c, bool planar)
{
    const gsl_Util& tolerances = gsl_Util::Instance();
    const double area = Area(a, b, c, planar);
    if (!(area >= tolerances.SquaredTolerance()))
        return 0.0;
    const double radius = Radius(a, b, c, area);
    if (!(radius >= tolerances.LinearTolerance()))
        return 0.0;
    return std::min(1.0, area / (EQUILATERAL_AREA * (radius * radius)));
}

double gsl_ComputeShapeFactorTriByCoords(uti_Coord3D a, uti_Coord3D b, uti_Coord3D c, bool planar)
{
    return gsl_ComputeShapeFactorTri(a.Data(), b.Data(), c.Data(), planar);
}

double gsl_ComputeShapeFactorTriByPnts(const gsl_Point& a, const gsl_Point& b, const gsl_Point& c,
                                       bool planar)
{
    return OfPoints(&gsl_ComputeShapeFactorTri, a, b, c, planar);
}
