#include <algorithm>
#include <bat_Direction.h>
#include <bat_Number.h>
#include <bat_UsageError.h>
#include <cmath>
#include <string_view>

namespace
{
constexpr std::string_view AXES = "xyz";

[[noreturn]] void Refuse(const std::string& text, const char* reason)
{
    throw bat_UsageError("--dir " + text + ": " + reason);
}

bool ParseAxis(const std::string& text, std::array<double, 3>& xyz)
{
    if (text.size() != 2 || (text[0] != '+' && text[0] != '-'))
        return false;
    const std::size_t axis = AXES.find(text[1]);
    if (axis == std::string_view::npos)
        return false;
    xyz[axis] = text[0] == '+' ? 1.0 : -1.0;
    return true;
}

bool ParseComponents(std::string_view text, std::array<double, 3>& xyz)
{
    for (std::size_t i = 0; i < 3; ++i)
    {
        const std::size_t comma = text.find(',');
        if ((comma == std::string_view::npos) != (i == 2))
            return false;
        if (!bat_ParseNumber(text.substr(0, comma), xyz[i]))
            return false;
        text.remove_prefix(i == 2 ? text.size() : comma + 1);
    }
    return true;
}
}

bat_Direction::bat_Direction(const std::string& text)
{
    const std::optional<std::array<double, 3>> xyz = Parse(text);
    if (!xyz)
        Refuse(text, "write three numbers, X,Y,Z, or an axis: +x -x +y -y +z -z");
    const std::optional<gsl_Vector> unit = Unit(*xyz);
    if (!unit)
        Refuse(text, "a direction needs a length above zero");
    unit_ = *unit;
}

std::optional<std::array<double, 3>> bat_Direction::Parse(const std::string& text)
{
    std::array<double, 3> xyz{};
    if (!ParseAxis(text, xyz) && !ParseComponents(text, xyz))
        return std::nullopt;
    return xyz;
}

std::optional<gsl_Vector> bat_Direction::Unit(const std::array<double, 3>& xyz)
{
    const double largest = std::max({std::abs(xyz[0]), std::abs(xyz[1]), std::abs(xyz[2])});
    const bool finite = std::isfinite(xyz[0]) && std::isfinite(xyz[1]) && std::isfinite(xyz[2]);
    if (!finite || largest == 0.0)
        return std::nullopt;
    const double x = xyz[0] / largest;
    const double y = xyz[1] / largest;
    const double z = xyz[2] / largest;
    const double length = std::sqrt(x * x + y * y + z * z); // 1 to sqrt 3
    return gsl_Vector(x / length, y / length, z / length);
}
