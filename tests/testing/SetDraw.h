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
    const gsl_Vector at(draw.Point(extent));
    Triangle t{};
    for (Point& p : t)
        for (double& x : p)
            x = draw.Number(-size, size);
    return Moved(t, at);
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
inline Triangle Needle(GeometryDraw& draw, Triangle t)
{
    const double width = std::pow(10.0, draw.Number(-9, -3));
    const double at = draw.Coin() ? 1 : draw.Number(0, 1);
    for (std::size_t k = 0; k < 3; ++k)
        t[2][k] = t[0][k] * (1 - at) + t[1][k] * at + width * draw.Number(-1, 1);
    return t;
}

/// A plate of 6 by 2 that holds the z axis, turned about it and tilted off upright.
inline Set Plate(double angle, double tilt)
{
    const auto at = [&](double across, double height) {
        const double aside = tilt * height;
        return Point{across * std::cos(angle) - aside * std::sin(angle),
                     across * std::sin(angle) + aside * std::cos(angle), height};
    };
    return {{at(-3, 0), at(3, 0), at(3, 2)}, {at(-3, 0), at(3, 2), at(-3, 2)}};
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
            for (const int k : {0, 1})
                set.push_back({{{x, y, z}, {x + 1, y + k, z}, {x + 1 - k, y + 1, z}}});
        }
    return set;
}

inline gsl_Vector AxisOrAny(GeometryDraw& draw)
{
    const gsl_Vector all[] = {
        {0, 0, 1}, {draw.Coin() ? 1.0 : -1.0, 0, 0}, {1, draw.Whole(-1, 1) * 1.0, -1}, draw.Unit()};
    return all[draw.Whole(0, 3)];
}

/// By how much rounding may move a contact: 1e-9 of the largest coordinate or travel, and what it does to the
/// height of planes nearly upright over a place that is known to 1e-15 of the coordinates.
inline double Allowed(const Set& fixed, const Set& movable, const gsl_Vector& u, double travel)
{
    double scale = std::fabs(travel);
    double steepest = 1;
    for (const Set* set : {&fixed, &movable})
        for (const Triangle& t : *set)
        {
            for (const Point& p : t)
                scale = std::max({scale, std::fabs(p[0]), std::fabs(p[1]), std::fabs(p[2])});
            const double lean = std::fabs(Of(t).Normal().DotProduct(u));
            steepest = lean > 1e-12 ? std::min(steepest, lean) : steepest;
        }
    return scale * std::max(1e-9, 1e-12 / steepest);
}

struct SetFamily
{
    const char* name;
    SetPair (*draw)(GeometryDraw&);
};

inline const SetFamily SET_FAMILIES[] = {
    {"Soup",
     [](GeometryDraw& d) {
         const gsl_Vector u = AxisOrAny(d);
         const double size = std::pow(10.0, d.Number(-1.5, 0.5));
         return SetPair{Soup(d, d.Whole(1, 40), 3, size),
                        Moved(Soup(d, d.Whole(1, 40), 3, size), u * (d.Number(-9, 2))), u};
     }},
    {"Grid",
     [](GeometryDraw& d) {
         const gsl_Vector u = AxisOrAny(d);
         const double by = -d.Whole(0, 5);
         return SetPair{GridSoup(d, d.Whole(2, 14), 4), Moved(GridSoup(d, d.Whole(2, 14), 4), u * by), u};
     }},
    {"Needles",
     [](GeometryDraw& d) {
         SetPair pair{Soup(d, 12, 2, 2), Moved(Soup(d, 12, 2, 2), {0, 0, -3}), AxisOrAny(d)};
         for (Set* set : {&pair.fixed, &pair.movable})
             for (Triangle& t : *set)
                 t = Needle(d, t);
         return pair;
     }},
    {"Plates",
     [](GeometryDraw& d) {
         SetPair pair;
         for (int i = 0; i < 4; ++i)
         {
             const double tilt = d.Coin() ? 0 : std::pow(10.0, d.Number(-13, -3));
             Set& set = i % 2 == 0 ? pair.fixed : pair.movable;
             for (const Triangle& t : Plate(d.Whole(0, 3) * 0.785, tilt))
                 set.push_back(Moved(t, {0.3 * i - 0.4, 0, i % 2 == 0 ? 4.0 : 0.0}));
         }
         return pair;
     }},
    {"FarAway", [](GeometryDraw& d) {
         const gsl_Vector far(1e7, -3e7, d.Coin() ? 1e3 : 5e8);
         return SetPair{
             Moved(Soup(d, 15, 2, 1), far), Moved(Soup(d, 15, 2, 1), far - gsl_Vector(0, 0, 6)), {0.1, 0, 1}};
     }}};
}
