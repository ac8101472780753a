#include <vwr_View.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace
{
// Sine of the angle between direction and up below which up says nothing.
constexpr double PARALLEL = 1e-9;

using Triple = std::array<double, 3>;

Triple Cross(const Triple& a, const Triple& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

// To length one; false for what has no length or is not finite. Scaled first, so that neither very long nor
// very short vectors overflow.
bool Normalise(Triple& v)
{
    const double largest = std::max({std::fabs(v[0]), std::fabs(v[1]), std::fabs(v[2])});
    if (!(largest > 0.0) || !std::isfinite(v[0]) || !std::isfinite(v[1]) || !std::isfinite(v[2]))
        return false;
    for (double& component : v)
        component /= largest;
    const double length = std::hypot(v[0], v[1], v[2]);
    for (double& component : v)
        component /= length;
    return true;
}

Triple MostAcross(const Triple& back)
{
    int axis = 2; // z where axes are level: models stand on their z plane
    for (const int other : {1, 0})
        if (std::fabs(back[static_cast<std::size_t>(other)]) <
            std::fabs(back[static_cast<std::size_t>(axis)]))
            axis = other;
    Triple up{};
    up[static_cast<std::size_t>(axis)] = 1.0;
    return up;
}
}

vwr_View::vwr_View(double x, double y, double z, double w)
{
    const double largest = std::max({std::fabs(x), std::fabs(y), std::fabs(z), std::fabs(w)});
    const bool finite = std::isfinite(x) && std::isfinite(y) && std::isfinite(z) && std::isfinite(w);
    if (!finite || !(largest > 0.0))
        return;
    const double length =
        largest * std::hypot(std::hypot(x / largest, y / largest, z / largest), w / largest);
    x_ = x / length;
    y_ = y / length;
    z_ = z / length;
    w_ = w / length;
}

vwr_View vwr_View::Isometric()
{
    return Along(gsl_Vector(-1.0, -1.0, -1.0), gsl_Vector(0.0, 0.0, 1.0));
}

vwr_View vwr_View::Along(const gsl_Vector& direction, const gsl_Vector& up)
{
    Triple back = {-direction.X(), -direction.Y(), -direction.Z()};
    if (!Normalise(back))
        return {};
    Triple hint = {up.X(), up.Y(), up.Z()};
    Triple right{};
    const auto across = [&] {
        right = Cross(hint, back);
        return std::hypot(right[0], right[1], right[2]) > PARALLEL;
    };
    if (!Normalise(hint) || !across())
    {
        hint = MostAcross(back);
        across();
    }
    Normalise(right);
    const Triple top = Cross(back, right);

    // Shepperd's choice of the largest component keeps the square root away from zero
    // (S. W. Shepperd, "Quaternion from rotation matrix", J. Guidance and Control 1, 1978).
    const double trace = right[0] + top[1] + back[2];
    if (trace >= right[0] && trace >= top[1] && trace >= back[2])
        return {top[2] - back[1], back[0] - right[2], right[1] - top[0], 1.0 + trace};
    if (right[0] >= top[1] && right[0] >= back[2])
        return {1.0 + 2.0 * right[0] - trace, right[1] + top[0], back[0] + right[2], top[2] - back[1]};
    if (top[1] >= back[2])
        return {right[1] + top[0], 1.0 + 2.0 * top[1] - trace, top[2] + back[1], back[0] - right[2]};
    return {back[0] + right[2], top[2] + back[1], 1.0 + 2.0 * back[2] - trace, right[1] - top[0]};
}

gsl_Vector vwr_View::Turned(double x, double y, double z) const
{
    // v + 2 q x (q x v + w v)
    const Triple q = {x_, y_, z_};
    const Triple v = {x, y, z};
    Triple inner = Cross(q, v);
    for (std::size_t i = 0; i < 3; ++i)
        inner[i] += w_ * v[i];
    const Triple outer = Cross(q, inner);
    return {v[0] + 2.0 * outer[0], v[1] + 2.0 * outer[1], v[2] + 2.0 * outer[2]};
}
