#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <random>
#include <string>
#include <vector>

/// The made parts that the directional distance is measured on: pairs of triangle sets in a number of sizes.
namespace bench_parts
{
using Point = std::array<double, 3>;
using Triangle = std::array<Point, 3>;
using Mesh = std::vector<Triangle>;

struct Case
{
    std::string name;
    Mesh fixed;
    Mesh movable;
    Point direction{0, 0, 1};
};

inline void Move(Mesh& mesh, const Point& by)
{
    for (Triangle& t : mesh)
        for (Point& p : t)
            for (std::size_t k = 0; k < 3; ++k)
                p[k] += by[k];
}

/// A surface over the unit square of parameters, `rows` by `columns` cells of two triangles each.
template <class Surface>
Mesh Grid(int rows, int columns, Surface surface)
{
    Mesh mesh;
    mesh.reserve(2 * static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
    const auto at = [&](int i, int j) {
        return surface(static_cast<double>(i) / rows, static_cast<double>(j) / columns);
    };
    for (int i = 0; i < rows; ++i)
    {
        for (int j = 0; j < columns; ++j)
        {
            const Point a = at(i, j);
            const Point b = at(i + 1, j);
            const Point c = at(i + 1, j + 1);
            const Point d = at(i, j + 1);
            mesh.push_back({a, b, c});
            mesh.push_back({a, c, d});
        }
    }
    return mesh;
}

/// Rows and columns of a grid of about that many triangles, `aspect` columns to a row.
inline std::array<int, 2> CellsFor(int triangles, double aspect)
{
    const double rows = std::sqrt(triangles / 2.0 / aspect);
    return {std::max(1, static_cast<int>(std::lround(rows))),
            std::max(1, static_cast<int>(std::lround(rows * aspect)))};
}

inline Mesh Sphere(int triangles, double radius)
{
    const auto [rows, columns] = CellsFor(triangles, 2.0);
    return Grid(rows, columns, [radius](double u, double v) {
        const double a = std::numbers::pi * u;
        const double b = 2 * std::numbers::pi * v;
        return Point{radius * std::sin(a) * std::cos(b), radius * std::sin(a) * std::sin(b),
                     radius * std::cos(a)};
    });
}

inline Mesh Torus(int triangles, double radius, double tube)
{
    const auto [rows, columns] = CellsFor(triangles, 3.0);
    return Grid(columns, rows, [=](double u, double v) {
        const double a = 2 * std::numbers::pi * u;
        const double b = 2 * std::numbers::pi * v;
        const double r = radius + tube * std::cos(b);
        return Point{r * std::cos(a), r * std::sin(a), tube * std::sin(b)};
    });
}

/// Rough hills over the square from -1 to 1; the same seed gives the same hills.
inline Mesh HeightField(int triangles, std::uint32_t seed, double roughness)
{
    const auto [rows, columns] = CellsFor(triangles, 1.0);
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> noise(-1, 1);
    std::vector<double> jitter(static_cast<std::size_t>((rows + 1) * (columns + 1)));
    for (double& j : jitter)
        j = noise(random);
    const double phase = noise(random);
    return Grid(rows, columns, [&, rows = rows, columns = columns](double u, double v) {
        const auto i = static_cast<std::size_t>(std::lround(u * rows));
        const auto j = static_cast<std::size_t>(std::lround(v * columns));
        const double hills =
            0.1 * std::sin(9 * u + phase) * std::cos(7 * v - phase) + 0.03 * std::sin(40 * u * v);
        return Point{2 * u - 1, 2 * v - 1,
                     hills + roughness * jitter[i * static_cast<std::size_t>(columns + 1) + j] / rows};
    });
}

/// A screw thread about z: a helical ridge on a cylinder, seen from outside (bolt) or inside (nut).
inline Mesh Thread(int triangles, double radius, double depth, double turns, double phase)
{
    const auto [rows, columns] = CellsFor(triangles, 1.0);
    return Grid(rows, columns, [=](double u, double v) {
        const double a = 2 * std::numbers::pi * v;
        const double pitch = 1.0 / turns;
        const double z = u;
        const double along = z / pitch - v + phase;
        const double saw = std::fabs(2 * (along - std::floor(along)) - 1); // 0 in the groove, 1 on the ridge
        const double r = radius + depth * saw;
        return Point{r * std::cos(a), r * std::sin(a), z};
    });
}

/// Long thin triangles across the unit square at heights between 0 and 1, at any angle or along x.
inline Mesh Slivers(int triangles, std::uint32_t seed, bool anyAngle)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> unit(0, 1);
    Mesh mesh;
    for (int i = 0; i < triangles; ++i)
    {
        const double angle = anyAngle ? 2 * std::numbers::pi * unit(random) : 0.0;
        const Point at{unit(random), unit(random), unit(random)};
        const double c = 0.5 * std::cos(angle);
        const double s = 0.5 * std::sin(angle);
        const double tilt = 0.02 * (unit(random) - 0.5);
        mesh.push_back({Point{at[0] - c, at[1] - s, at[2] - tilt}, Point{at[0] + c, at[1] + s, at[2] + tilt},
                        Point{at[0] + c - 1e-3 * s, at[1] + s + 1e-3 * c, at[2] + tilt}});
    }
    return mesh;
}

/// A surface of revolution about z from a profile of radii and heights.
template <class Profile>
Mesh Turned(int triangles, double aspect, Profile profile)
{
    const auto [rows, columns] = CellsFor(triangles, aspect);
    return Grid(rows, columns, [=](double u, double v) {
        const double a = 2 * std::numbers::pi * v;
        const auto [r, z] = profile(u);
        return Point{r * std::cos(a), r * std::sin(a), z};
    });
}

/// A pin with a rounded tip and a head.
inline Mesh Pin(int triangles)
{
    return Turned(triangles, 1.0, [](double u) -> std::array<double, 2> {
        if (u < 0.2)
        {
            const double a = 0.5 * std::numbers::pi * u / 0.2;
            return {0.3 * std::sin(a), 0.3 - 0.3 * std::cos(a)};
        }
        if (u < 0.7)
            return {0.3, 0.3 + 2.0 * (u - 0.2)};
        if (u < 0.8)
            return {0.3 + 3.0 * (u - 0.7), 1.3};
        return {0.6, 1.3 + 1.0 * (u - 0.8)};
    });
}

/// A plate with a hole, chamfered, into which the pin goes up to its head.
inline Mesh PlateWithHole(int triangles)
{
    return Turned(triangles, 1.0, [](double u) -> std::array<double, 2> {
        if (u < 0.3)
            return {0.34, -0.7 + 2.0 * u};
        if (u < 0.4)
            return {0.34 + 0.5 * (u - 0.3), -0.1 + 1.0 * (u - 0.3)};
        return {0.39 + 1.5 * (u - 0.4), 0.0};
    });
}

inline Case MakeCase(const std::string& name, int triangles)
{
    Case made;
    made.name = name;
    if (name == "sphere")
    {
        made.fixed = Sphere(triangles, 1.0);
        made.movable = Sphere(triangles, 1.0);
        Move(made.movable, {0.31, 0.17, -3.0});
    }
    else if (name == "torus")
    {
        made.fixed = Torus(triangles, 1.0, 0.3);
        made.movable = Torus(triangles, 1.0, 0.3);
        Move(made.movable, {0.41, 0.23, -3.0});
    }
    else if (name == "heightfield")
    {
        made.fixed = HeightField(triangles, 1, 0.2);
        made.movable = HeightField(triangles, 2, 0.2);
        Move(made.movable, {0.0, 0.0, -1.0});
    }
    else if (name == "thread")
    {
        // The nut's groove stands round the bolt's ridge with play on both flanks.
        made.fixed = Thread(triangles, 1.01, 0.06, 12.0, 0.0);
        made.movable = Thread(triangles, 0.99, 0.06, 12.0, 0.0);
    }
    else if (name == "slivers")
    {
        made.fixed = Slivers(triangles, 1, false);
        made.movable = Slivers(triangles, 2, false);
        Move(made.movable, {0.0, 0.0, -1.2});
    }
    else if (name == "slivers-crossed")
    {
        made.fixed = Slivers(triangles, 1, true);
        made.movable = Slivers(triangles, 2, true);
        Move(made.movable, {0.0, 0.0, -1.2});
    }
    else if (name == "pin")
    {
        made.fixed = PlateWithHole(triangles);
        made.movable = Pin(triangles);
        Move(made.movable, {0.0013, 0.0007, 1.0});
        made.direction = {0, 0, -1};
    }
    return made;
}
}
