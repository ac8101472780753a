#pragma once

#include <testing/GeometryTesting.h>
#include <testing/SetSearch.h>

/// Pairs of random sets for the directional distance, many of them degenerate on purpose.
namespace testing_sets
{
struct SetPair
{
    Set fixed;
    Set movable;
    gsl_Vector direction{0, 0, 1};
};

inline Triangle DrawTriangle(GeometryDraw& draw, double extent, double size)
{
    const Point at{draw.Number(-extent, extent), draw.Number(-extent, extent), draw.Number(-extent, extent)};
    Triangle t{};
    for (Point& p : t)
        for (std::size_t k = 0; k < 3; ++k)
            p[k] = at[k] + draw.Number(-size, size);
    return t;
}

inline Set Soup(GeometryDraw& draw, int count, double extent, double size)
{
    Set set;
    for (int i = 0; i < count; ++i)
        set.push_back(DrawTriangle(draw, extent, size));
    return set;
}

/// Corners on whole numbers: coplanar, touching, edge-on and degenerate triangles.
inline Set GridSoup(GeometryDraw& draw, int count, int extent)
{
    Set set(static_cast<std::size_t>(count));
    for (Triangle& t : set)
        for (Point& p : t)
            for (double& x : p)
                x = draw.Whole(0, extent);
    return set;
}

/// Down to the sine below which triangles are left out; the third corner anywhere along the long side.
inline Set Needles(GeometryDraw& draw, int count)
{
    Set set;
    for (int i = 0; i < count; ++i)
    {
        Triangle t = DrawTriangle(draw, 2, 2);
        const double width = std::pow(10.0, draw.Number(-9, -3));
        const double at = draw.Coin() ? 1 : draw.Number(0, 1);
        for (std::size_t k = 0; k < 3; ++k)
            t[2][k] = t[0][k] * (1 - at) + t[1][k] * at + width * draw.Number(-1, 1);
        set.push_back(t);
    }
    return set;
}

/// A plate that holds the z axis, turned about it and tilted off upright.
inline Set Plate(double angle, double width, double low, double high, double tilt)
{
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const auto at = [&](double across, double height) {
        return Point{across * c - tilt * height * s, across * s + tilt * height * c, height};
    };
    return {{at(-width, low), at(width, low), at(width, high)},
            {at(-width, low), at(width, high), at(-width, high)}};
}

/// A square of n by n cells at height z, all its triangles level.
inline Set Floor(int n, double z)
{
    Set set;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
        {
            const double x = i;
            const double y = j;
            set.push_back({{{x, y, z}, {x + 1, y, z}, {x + 1, y + 1, z}}});
            set.push_back({{{x, y, z}, {x + 1, y + 1, z}, {x, y + 1, z}}});
        }
    return set;
}

inline gsl_Vector AxisOrAny(GeometryDraw& draw)
{
    switch (draw.Whole(0, 3))
    {
    case 0:
        return {0, 0, 1};
    case 1:
        return {draw.Coin() ? 1.0 : -1.0, 0, 0};
    case 2:
        return {1, draw.Whole(-1, 1) * 1.0, -1};
    default:
        return draw.Unit();
    }
}

struct SetFamily
{
    const char* name;
    SetPair (*draw)(GeometryDraw&);
    double grazing = 0.01; // the share of cases that the last bit of a coordinate may decide
};

inline Point Times(const gsl_Vector& v, double factor)
{
    return {v.X() * factor, v.Y() * factor, v.Z() * factor};
}

inline const SetFamily SET_FAMILIES[] = {
    {"Soup",
     [](GeometryDraw& d) {
         const gsl_Vector u = AxisOrAny(d);
         const double size = std::pow(10.0, d.Number(-1.5, 0.5));
         return SetPair{Soup(d, d.Whole(1, 40), 3, size),
                        Moved(Soup(d, d.Whole(1, 40), 3, size), Times(u, d.Number(-9, 2))), u};
     }},
    {"Grid",
     [](GeometryDraw& d) {
         const gsl_Vector u = AxisOrAny(d);
         const double by = -d.Whole(0, 5);
         return SetPair{GridSoup(d, d.Whole(2, 14), 4), Moved(GridSoup(d, d.Whole(2, 14), 4), Times(u, by)),
                        u};
     }},
    {"Floors",
     [](GeometryDraw& d) {
         return SetPair{Floor(d.Whole(1, 4), 3),
                        Moved(Floor(d.Whole(1, 4), 0), {d.Whole(-1, 1) * 0.5, 0, 0}),
                        {0, 0, 1}};
     }},
    {"Needles",
     [](GeometryDraw& d) {
         return SetPair{Needles(d, 12), Moved(Needles(d, 12), {0, 0, -3}), AxisOrAny(d)};
     }},
    {"Plates",
     [](GeometryDraw& d) {
         SetPair pair;
         for (int i = 0; i < 4; ++i)
         {
             const double tilt = d.Coin() ? 0 : std::pow(10.0, d.Number(-13, -3));
             Set& set = i % 2 == 0 ? pair.fixed : pair.movable;
             const Set plate = Moved(Plate(d.Whole(0, 3) * 0.785, 3, 0, 2, tilt),
                                     {d.Number(-1, 1), 0, i % 2 == 0 ? 4.0 : 0.0});
             set.insert(set.end(), plate.begin(), plate.end());
         }
         return pair;
     }},
    {"Nested",
     [](GeometryDraw& d) {
         return SetPair{Box({-4, -4, -4}, {4, 4, 4}), Box({-1, -1, -1}, {d.Number(0, 3), 1, d.Number(0, 3)}),
                        AxisOrAny(d)};
     }},
    {"Contact",
     [](GeometryDraw& d) {
         return SetPair{Box({0, 0, 2}, {2, 2, 4}),
                        Box({d.Whole(-2, 2) * 1.0, 0, 0}, {3, 1, d.Whole(1, 3) * 1.0}), AxisOrAny(d)};
     }},
    {"Behind",
     [](GeometryDraw& d) {
         return SetPair{Soup(d, 10, 2, 1), Moved(Soup(d, 10, 2, 1), {0, 0, d.Number(2, 5)}), {0, 0, 1}};
     }},
    {"FarAway",
     [](GeometryDraw& d) {
         const Point far{1e7, -3e7, d.Coin() ? 1e3 : 5e8};
         return SetPair{
             Moved(Soup(d, 15, 2, 1), far), Moved(Moved(Soup(d, 15, 2, 1), {0, 0, -6}), far), {0.1, 0, 1}};
     }},
    {"Sizes",
     [](GeometryDraw& d) {
         SetPair pair;
         for (int i = 0; i < 40; ++i)
             (i % 2 == 0 ? pair.fixed : pair.movable)
                 .push_back(DrawTriangle(d, 2, std::pow(10.0, d.Number(-7, 0.5))));
         pair.movable = Moved(pair.movable, {0, 0, -5});
         return pair;
     }},
    {"SinglePair",
     [](GeometryDraw& d) {
         return SetPair{Soup(d, 1, 0.7, 1), Soup(d, 1, 0.7, 1), d.Unit()};
     }},
    {"GridDiagonal",
     [](GeometryDraw& d) {
         gsl_Vector u(1, 0, 0);
         do
             u = gsl_Vector(d.Whole(-2, 2), d.Whole(-2, 2), d.Whole(-2, 2));
         while (u.Magnitude() == 0);
         return SetPair{GridSoup(d, 8, 3), Moved(GridSoup(d, 8, 3), Times(u, -4)), u};
     },
     0.5},
    {"PlusSign",
     [](GeometryDraw& d) {
         return SetPair{Moved(Plate(0, 2, 0, 1, 0), {0, 0, d.Number(-2, 4)}),
                        Plate(std::acos(0.0), 2, 0, 1, 0),
                        {0, 0, 1}};
     },
     0.5},
    {"TiltedWalls",
     [](GeometryDraw& d) {
         const double angle = d.Number(0, 3.1);
         const double other = d.Coin() ? d.Number(0, 3.1) : angle + d.Number(-1e-7, 1e-7);
         const auto tilt = [&] { return std::pow(10.0, d.Number(-9, -5)) * (d.Coin() ? 1 : -1); };
         const Set wall = Moved(Plate(angle, 200, 0, 100, tilt()), {0, 0, d.Number(150, 400)});
         return SetPair{wall, Plate(other, 200, 0, 100, tilt()), {0, 0, 1}};
     },
     0.5},
    {"WallUnderSlope",
     [](GeometryDraw& d) {
         const Set wall = Plate(d.Number(0, 3.1), 100, 0, 50, std::pow(10.0, d.Number(-9, -5)));
         return SetPair{Soup(d, 4, 100, 150), Moved(wall, {0, 0, -600}), {0, 0, 1}};
     },
     0.02},
};
}
