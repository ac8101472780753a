#pragma once

#include <array>
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
constexpr auto OCT = gsl_TriOctree::gsl_OCTREE;
constexpr auto MOD = gsl_TriOctree::gsl_MODOCTREE;

inline gsl_Point Of(const Point& p)
{
    return {p[0], p[1], p[2]};
}
inline gsl_Triangle Of(const Triangle& t)
{
    return {Of(t[0]), Of(t[1]), Of(t[2])};
}

inline Triangle Moved(Triangle triangle, const gsl_Vector& by)
{
    for (Point& p : triangle)
        p = {p[0] + by.X(), p[1] + by.Y(), p[2] + by.Z()};
    return triangle;
}
inline Set Moved(Set set, const gsl_Vector& by)
{
    for (Triangle& triangle : set)
        triangle = Moved(triangle, by);
    return set;
}

/// As the search moves a fixed triangle.
inline Triangle Image(const gsl_Matrix& motion, Triangle t)
{
    for (Point& p : t)
        if (const gsl_Point q = motion.Transform(Of(p)); !motion.IsIdentity())
            p = {q.X(), q.Y(), q.Z()};
    return t;
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
    virtual void BeforeLookUp() {}

private:
    void Give(const Triangle& t, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3)
    {
        BeforeLookUp();
        p1.Set(t[0][0], t[0][1], t[0][2]);
        p2.Set(t[1][0], t[1][1], t[1][2]);
        p3.Set(t[2][0], t[2][1], t[2][2]);
    }

    const Set& fixed_;
    const Set& movable_;
};

/// The octree of a set over its own box, every triangle added under its place in the set.
inline gsl_TriOctree Tree(const Set& set, gsl_TriOctree::OctreeNodeType type, int depth)
{
    gsl_BBox box;
    for (const Triangle& t : set)
        for (const Point& p : t)
            box.Add(Of(p));
    gsl_TriOctree tree(box, "set", type, depth);
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

inline Answer Ask(gsl_TriTriDirDist& search, const gsl_TriOctreeNode& fixed, const gsl_TriOctreeNode& movable,
                  double bound = UNLIMITED, bool nested = false)
{
    Answer answer{false, bound, -1, -1};
    answer.found = nested ? search.FindDirectionalDistanceNested(fixed, movable, answer.travel)
                          : search.FindDirectionalDistance(fixed, movable, answer.travel);
    (void)search.LastPair(answer.fixed, answer.movable);
    return answer;
}
inline Answer Ask(gsl_TriTriDirDist& search, const gsl_TriOctree& fixed, const gsl_TriOctree& movable,
                  double bound = UNLIMITED, bool nested = false)
{
    return Ask(search, *fixed.Root(), *movable.Root(), bound, nested);
}

/// Every pair by the stage for one pair, without trees, boxes or any order: the lowest travel below the
/// bound.
inline Answer EveryPair(gsl_TriTriDirDist& search, const Set& fixed, const Set& movable,
                        double bound = UNLIMITED)
{
    Answer answer{false, bound, -1, -1};
    const gsl_Vector against = search.Direction() * -1;
    for (std::size_t i = 0; i < fixed.size(); ++i)
    {
        const gsl_Triangle f = Of(Image(search.FixedTransform(), fixed[i]));
        for (std::size_t j = 0; j < movable.size(); ++j)
        {
            const gsl_Triangle m = Of(movable[j]);
            double range[2][2];
            search.GetRange(f, f.Point(0), against, range[0]);
            search.GetRange(m, f.Point(0), against, range[1]);
            double travel = UNLIMITED;
            if (f.Normal().Magnitude() > 0 && m.Normal().Magnitude() > 0 && range[1][1] >= range[0][0] &&
                search.FindDirDistBetweenTriangles(m, gsl_Plane(m.Point(0), m.Normal()), f,
                                                   gsl_Plane(f.Point(0), f.Normal()), travel) &&
                travel < answer.travel)
                answer = {true, travel, static_cast<int>(i), static_cast<int>(j)};
        }
    }
    return answer;
}
}
