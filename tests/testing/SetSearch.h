#pragma once

#include <array>
#include <cmath>
#include <gsl_BBox.h>
#include <gsl_Matrix.h>
#include <gsl_Plane.h>
#include <gsl_TriOctree.h>
#include <gsl_TriTriDirDist.h>
#include <gsl_Triangle.h>
#include <limits>
#include <vector>

/// Sets of triangles for the tests of the directional distance, and the search over two of them.
namespace testing_sets
{
using Point = std::array<double, 3>;
using Triangle = std::array<Point, 3>;
using Set = std::vector<Triangle>;

constexpr double UNLIMITED = std::numeric_limits<double>::max();

inline gsl_Point Of(const Point& p)
{
    return {p[0], p[1], p[2]};
}
inline gsl_Triangle Of(const Triangle& t)
{
    return {Of(t[0]), Of(t[1]), Of(t[2])};
}

inline Set Moved(Set set, const Point& by)
{
    for (Triangle& triangle : set)
        for (Point& p : triangle)
            for (std::size_t k = 0; k < 3; ++k)
                p[k] += by[k];
    return set;
}

/// Closed box as 12 triangles.
inline Set Box(const Point& low, const Point& high)
{
    const auto corner = [&](int i) {
        return Point{(i & 1) != 0 ? high[0] : low[0], (i & 2) != 0 ? high[1] : low[1],
                     (i & 4) != 0 ? high[2] : low[2]};
    };
    constexpr int FACES[12][3] = {{0, 2, 1}, {1, 2, 3}, {4, 5, 6}, {5, 7, 6}, {0, 1, 4}, {1, 5, 4},
                                  {2, 6, 3}, {3, 6, 7}, {0, 4, 2}, {2, 4, 6}, {1, 3, 5}, {3, 7, 5}};
    Set set;
    for (const auto& face : FACES)
        set.push_back({corner(face[0]), corner(face[1]), corner(face[2])});
    return set;
}

/// The search over two sets that it looks at.
class SetSearch : public gsl_TriTriDirDist
{
public:
    SetSearch(int maxDepth, const Set& fixed, const Set& movable)
        : gsl_TriTriDirDist(maxDepth), fixed_(fixed), movable_(movable)
    {}

    void GetFixedTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3) override
    {
        Give(fixed_[static_cast<std::size_t>(index)], p1, p2, p3);
    }
    void GetMovableTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3) override
    {
        Give(movable_[static_cast<std::size_t>(index)], p1, p2, p3);
    }

protected:
    static void Give(const Triangle& t, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3)
    {
        p1.Set(t[0][0], t[0][1], t[0][2]);
        p2.Set(t[1][0], t[1][1], t[1][2]);
        p3.Set(t[2][0], t[2][1], t[2][2]);
    }

    const Set& fixed_;
    const Set& movable_;
};

inline gsl_BBox BoxOf(const Set& set)
{
    gsl_BBox box;
    for (const Triangle& t : set)
        for (const Point& p : t)
            box.Add(Of(p));
    return box;
}

/// The octree of a set over its own box, every triangle added under its place in the set.
inline gsl_TriOctree Tree(const Set& set, gsl_TriOctree::OctreeNodeType type, int depth)
{
    gsl_TriOctree tree(BoxOf(set), "set", type, depth);
    for (std::size_t i = 0; i < set.size(); ++i)
        (void)tree.Root()->Add(Of(set[i][0]), Of(set[i][1]), Of(set[i][2]), static_cast<int>(i));
    return tree;
}

/// An answer of a search, with its pair.
struct Answer
{
    bool found = false;
    double travel = 0;
    int fixed = -1;
    int movable = -1;

    friend bool operator==(const Answer&, const Answer&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Answer& a)
    {
        out.precision(17);
        return out << (a.found ? "found " : "nothing ") << a.travel << " (F " << a.fixed << ", M "
                   << a.movable << ")";
    }
};

inline Answer Ask(gsl_TriTriDirDist& search, const gsl_TriOctree& fixed, const gsl_TriOctree& movable,
                  double bound, bool nested = false)
{
    Answer answer{false, bound, -1, -1};
    answer.found = nested
                       ? search.FindDirectionalDistanceNested(*fixed.Root(), *movable.Root(), answer.travel)
                       : search.FindDirectionalDistance(*fixed.Root(), *movable.Root(), answer.travel);
    (void)search.LastPair(answer.fixed, answer.movable);
    return answer;
}

/// Every pair by the stage for one pair, without trees, boxes or any order: the lowest travel below the
/// bound.
inline Answer EveryPair(gsl_TriTriDirDist& search, const Set& fixed, const Set& movable, double bound)
{
    Answer answer{false, bound, -1, -1};
    gsl_Vector against = search.Direction();
    against.Negate();
    for (std::size_t i = 0; i < fixed.size(); ++i)
    {
        gsl_Point corner[3];
        for (std::size_t k = 0; k < 3; ++k)
        {
            corner[k] = Of(fixed[i][k]);
            if (!search.FixedTransform().IsIdentity())
                corner[k].Transform(search.FixedTransform());
        }
        const gsl_Triangle f(corner[0], corner[1], corner[2]);
        for (std::size_t j = 0; j < movable.size(); ++j)
        {
            const gsl_Triangle m = Of(movable[j]);
            double rangeF[2];
            double rangeM[2];
            search.GetRange(f, f.Point(0), against, rangeF);
            search.GetRange(m, f.Point(0), against, rangeM);
            double travel = UNLIMITED;
            if (f.Normal().Magnitude() == 0 || m.Normal().Magnitude() == 0 || rangeM[1] < rangeF[0] ||
                !search.FindDirDistBetweenTriangles(m, gsl_Plane(m.Point(0), m.Normal()), f,
                                                    gsl_Plane(f.Point(0), f.Normal()), travel))
                continue;
            if (travel < answer.travel)
                answer = {true, travel, static_cast<int>(i), static_cast<int>(j)};
        }
    }
    return answer;
}
}
