#include <bat_FacetNormals.h>

#include <bat_TriangleMesh.h>

namespace
{
// Below this share of the square of its sides a triangle's area, and with it the direction of its
// normal, is rounding: single precision numbers have 24 bits.
constexpr double NEGLIGIBLE_SHARE = 1e-6;
}

void bat_FacetNormals::Compare(std::span<const double, 3> normal, std::span<const double, 9> corners)
{
    const double* a = corners.data();
    const double u[3] = {a[3] - a[0], a[4] - a[1], a[5] - a[2]};
    const double v[3] = {a[6] - a[0], a[7] - a[1], a[8] - a[2]};
    const double own[3] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
    const double sides = u[0] * u[0] + u[1] * u[1] + u[2] * u[2] + v[0] * v[0] + v[1] * v[1] + v[2] * v[2];
    const double area = own[0] * own[0] + own[1] * own[1] + own[2] * own[2];
    const bool hasArea = area > NEGLIGIBLE_SHARE * NEGLIGIBLE_SHARE * sides * sides;
    // A comparison with NaN is false: not agreeing.
    const bool agrees = normal[0] * own[0] + normal[1] * own[1] + normal[2] * own[2] > 0;
    wrong_ += hasArea && !agrees;
}

void bat_FacetNormals::Report(bat_TriangleMesh& mesh) const
{
    if (wrong_ > 0)
    {
        mesh.Note(std::to_string(wrong_) + " of " + std::to_string(mesh.Length()) +
                  " stored normals are zero, not finite or contrary to the corners; the corners count");
    }
}
