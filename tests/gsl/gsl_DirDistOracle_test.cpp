// The search against an oracle that knows nothing of trees, boxes or stages: on every pair of triangles the
// interval of travel at which the two meet. Families of sets are drawn with fixed seeds; each family says
// whether grazing can occur in it, in which case an answer inside the bracket of parts shrunk and grown by
// twice the tolerance is right too. How often that was needed is bounded, so that it cannot become the rule.
#include <testing/DirDistOracle.h>

#include <cmath>
#include <functional>
#include <gsl_Matrix.h>
#include <gsl_TriOctree.h>
#include <gsl_TriTriDirDist.h>
#include <gtest/gtest.h>
#include <limits>
#include <ostream>
#include <random>

namespace
{
using testing_oracle::Bracket;
using testing_oracle::Contact;
using testing_oracle::ContactBracket;
using testing_oracle::FirstContact;
using testing_oracle::Point;
using testing_oracle::Triangle;
using Set = std::vector<Triangle>;
using Random = std::mt19937_64;

constexpr double TOLERANCE = 1e-6;
constexpr double UNLIMITED = std::numeric_limits<double>::max();

struct Case
{
    Set fixed;
    Set movable;
    Point direction{0, 0, 1};
};

struct Family
{
    const char* name;
    std::function<Case(Random&)> draw;
    int cases;
    double grazing; // the share of cases that may need the bracket
};

std::ostream& operator<<(std::ostream& out, const Family& family)
{
    return out << family.name;
}

double Uniform(Random& random, double low, double high)
{
    return std::uniform_real_distribution<double>(low, high)(random);
}

int Whole(Random& random, int low, int high)
{
    return std::uniform_int_distribution<int>(low, high)(random);
}

Point Moved(const Point& p, const Point& by)
{
    return {p[0] + by[0], p[1] + by[1], p[2] + by[2]};
}

Set Moved(Set set, const Point& by)
{
    for (Triangle& triangle : set)
        for (Point& p : triangle)
            p = Moved(p, by);
    return set;
}

Point AnyDirection(Random& random)
{
    std::normal_distribution<double> normal;
    Point d{};
    do
        d = {normal(random), normal(random), normal(random)};
    while (std::hypot(d[0], d[1], d[2]) < 0.1);
    return d;
}

Point AxisDirection(Random& random)
{
    Point d{};
    d[static_cast<std::size_t>(Whole(random, 0, 2))] = Whole(random, 0, 1) != 0 ? 1 : -1;
    return d;
}

Set Soup(Random& random, int count, double extent, double size)
{
    Set set;
    for (int i = 0; i < count; ++i)
    {
        const Point at{Uniform(random, -extent, extent), Uniform(random, -extent, extent),
                       Uniform(random, -extent, extent)};
        Triangle triangle{};
        for (Point& p : triangle)
            p = Moved(at, {Uniform(random, -size, size), Uniform(random, -size, size),
                           Uniform(random, -size, size)});
        set.push_back(triangle);
    }
    return set;
}

gsl_Point Of(const Point& p)
{
    return {p[0], p[1], p[2]};
}

// Without the triangles that have no normal: the search skips them, the oracle would not.
Set GridSoup(Random& random, int count, int extent)
{
    Set set;
    while (static_cast<int>(set.size()) < count)
    {
        Triangle triangle{};
        for (Point& p : triangle)
            for (double& c : p)
                c = Whole(random, 0, extent);
        if (gsl_Vector(Of(triangle[0]), Of(triangle[1]), Of(triangle[2])).Magnitude() > 0)
            set.push_back(triangle);
    }
    return set;
}

// Closed box as 12 triangles.
Set Box(const Point& low, const Point& high)
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

// A plate that holds the z axis, turned about it by `angle`, tilted off upright by `tilt`.
Set Plate(double angle, double width, double low, double high, double tilt)
{
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const auto at = [&](double across, double height) {
        return Point{across * c - tilt * height * s, across * s + tilt * height * c, height};
    };
    return {{at(-width, low), at(width, low), at(width, high)},
            {at(-width, low), at(width, high), at(-width, high)}};
}

Point RandomPlace(Random& random, double extent)
{
    return {Uniform(random, -extent, extent), Uniform(random, -extent, extent),
            Uniform(random, -extent, extent)};
}

const Family FAMILIES[] = {
    {"apart",
     [](Random& r) {
         return Case{Moved(Soup(r, 30, 3, 1), {0, 0, 12}), Soup(r, 30, 3, 1), {0, 0, 1}};
     },
     400, 0.002},
    {"anyDirection",
     [](Random& r) {
         Case c{Soup(r, 25, 3, 1), {}, AnyDirection(r)};
         const double length = std::hypot(c.direction[0], c.direction[1], c.direction[2]);
         c.movable = Moved(Soup(r, 25, 3, 1), {-9 * c.direction[0] / length, -9 * c.direction[1] / length,
                                               -9 * c.direction[2] / length});
         return c;
     },
     400, 0.002},
    {"mixed, some behind, some crossing",
     [](Random& r) {
         return Case{Soup(r, 12, 3, 0.6), Soup(r, 12, 3, 0.6), AnyDirection(r)};
     },
     400, 0.002},
    {"single pairs",
     [](Random& r) {
         return Case{Soup(r, 1, 0.7, 1), Soup(r, 1, 0.7, 1), AnyDirection(r)};
     },
     2000, 0.002},
    {"grid along an axis",
     [](Random& r) {
         return Case{Moved(GridSoup(r, 8, 3), {0, 0, 0}), GridSoup(r, 8, 3), AxisDirection(r)};
     },
     1500, 0.05},
    {"grid apart along an axis",
     [](Random& r) {
         Case c{GridSoup(r, 10, 4), {}, AxisDirection(r)};
         c.movable =
             Moved(GridSoup(r, 10, 4), {-5 * c.direction[0], -5 * c.direction[1], -5 * c.direction[2]});
         return c;
     },
     1500, 0.05},
    {"grid along a diagonal",
     [](Random& r) {
         Point d{};
         do
             for (double& x : d)
                 x = Whole(r, -2, 2);
         while (d[0] == 0 && d[1] == 0 && d[2] == 0);
         Case c{GridSoup(r, 8, 3), {}, d};
         c.movable = Moved(GridSoup(r, 8, 3), {-4 * d[0], -4 * d[1], -4 * d[2]});
         return c;
     },
     1500, 0.5},
    {"needles",
     [](Random& r) {
         Case c{{}, {}, AnyDirection(r)};
         for (Set* set : {&c.fixed, &c.movable})
             for (int i = 0; i < 12; ++i)
             {
                 const Point a = RandomPlace(r, 4);
                 const Point b = RandomPlace(r, 4);
                 set->push_back({a, b, Moved(b, RandomPlace(r, 1e-3))});
             }
         return c;
     },
     300, 0.02},
    {"crossing plates",
     [](Random& r) {
         return Case{
             Moved(Plate(Uniform(r, 0, 3.1), 2, 0, 1, 0), {Uniform(r, -0.5, 0.5), Uniform(r, -0.5, 0.5), 4}),
             Plate(Uniform(r, 0, 3.1), 2, 0, 1, 0),
             {0, 0, 1}};
     },
     600, 0.02},
    {"plus sign",
     [](Random& r) {
         return Case{Moved(Plate(0, 2, 0, 1, 0), {0, 0, Uniform(r, -2, 4)}),
                     Plate(1.5707963267948966, 2, 0, 1, 0),
                     {0, 0, 1}};
     },
     200, 0.5},
    {"part inside a part",
     [](Random& r) {
         const Point at = RandomPlace(r, 2);
         return Case{Box({-4, -4, -4}, {4, 4, 4}), Box(at, Moved(at, {1, 1, 1})), AnyDirection(r)};
     },
     300, 0.02},
    {"boxes level with each other",
     [](Random& r) {
         const Point at{double(Whole(r, -2, 2)), double(Whole(r, -2, 2)), double(Whole(r, -6, 2))};
         return Case{Box({0, 0, 0}, {2, 2, 2}), Moved(Box({0, 0, 0}, {2, 2, 2}), at), {0, 0, 1}};
     },
     300, 0.6},
    {"start behind",
     [](Random& r) {
         return Case{Soup(r, 20, 3, 1), Moved(Soup(r, 20, 3, 1), {0, 0, Uniform(r, 4, 12)}), {0, 0, 1}};
     },
     200, 0.01},
    {"far from the origin",
     [](Random& r) {
         const Point far{1e6, -2e6, 5e5};
         Case c{Moved(Soup(r, 15, 3, 1), far), {}, AnyDirection(r)};
         const double length = std::hypot(c.direction[0], c.direction[1], c.direction[2]);
         c.movable =
             Moved(Moved(Soup(r, 15, 3, 1), far), {-8 * c.direction[0] / length, -8 * c.direction[1] / length,
                                                   -8 * c.direction[2] / length});
         return c;
     },
     200, 0.02},
    {"walls tilted a little",
     [](Random& r) {
         const double tilt = std::pow(10.0, Uniform(r, -9, -5)) * (Whole(r, 0, 1) != 0 ? 1 : -1);
         const double other = std::pow(10.0, Uniform(r, -9, -5)) * (Whole(r, 0, 1) != 0 ? 1 : -1);
         return Case{Moved(Plate(Uniform(r, 0, 3.1), 200, 0, 100, tilt), {0, 0, Uniform(r, 150, 400)}),
                     Plate(Uniform(r, 0, 3.1), 200, 0, 100, other),
                     {0, 0, 1}};
     },
     600, 0.05},
    {"walls nearly in one plane",
     [](Random& r) {
         const double tilt = std::pow(10.0, Uniform(r, -9, -5));
         const double other = std::pow(10.0, Uniform(r, -9, -5));
         const double angle = Uniform(r, 0, 3.1);
         return Case{Moved(Plate(angle, 200, 0, 100, tilt), {0, 0, Uniform(r, 150, 400)}),
                     Plate(angle + Uniform(r, -1e-7, 1e-7), 200, 0, 100, other),
                     {0, 0, 1}};
     },
     600, 1.0},
    {"wall under a slope",
     [](Random& r) {
         Case c{Soup(r, 4, 100, 150),
                Plate(Uniform(r, 0, 3.1), 100, 0, 50, std::pow(10.0, Uniform(r, -9, -5))),
                {0, 0, 1}};
         c.movable = Moved(c.movable, {0, 0, -600});
         return c;
     },
     400, 0.02},
};

class Search : public gsl_TriTriDirDist
{
public:
    Search(int maxDepth, const Case& sets) : gsl_TriTriDirDist(maxDepth), sets_(sets) {}

    void GetFixedTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3) override
    {
        Give(sets_.fixed[static_cast<std::size_t>(index)], p1, p2, p3);
    }
    void GetMovableTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3) override
    {
        Give(sets_.movable[static_cast<std::size_t>(index)], p1, p2, p3);
    }

private:
    static void Give(const Triangle& t, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3)
    {
        p1.Set(t[0][0], t[0][1], t[0][2]);
        p2.Set(t[1][0], t[1][1], t[1][2]);
        p3.Set(t[2][0], t[2][1], t[2][2]);
    }
    const Case& sets_;
};

gsl_TriOctree Tree(const Set& set, gsl_TriOctree::OctreeNodeType type, int depth)
{
    gsl_BBox box;
    for (const Triangle& t : set)
        for (const Point& p : t)
            box.Add(Of(p));
    gsl_TriOctree tree(box, "set", type, depth);
    for (std::size_t i = 0; i < set.size(); ++i)
        EXPECT_TRUE(tree.Root()->Add(Of(set[i][0]), Of(set[i][1]), Of(set[i][2]), static_cast<int>(i)));
    return tree;
}

// The tolerance of the comparison: 1e-9 of the largest coordinate or travel, and what rounding of the
// coordinates does to the height of planes nearly upright.
double Allowed(const Case& sets, double travel)
{
    double scale = std::fabs(travel);
    double steepest = 1;
    const double length = std::hypot(sets.direction[0], sets.direction[1], sets.direction[2]);
    for (const Set* set : {&sets.fixed, &sets.movable})
    {
        for (const Triangle& t : *set)
        {
            for (const Point& p : t)
                for (double c : p)
                    scale = std::max(scale, std::fabs(c));
            const gsl_Vector normal(Of(t[0]), Of(t[1]), Of(t[2]));
            const double lean = std::fabs(normal.DotProduct(
                {sets.direction[0] / length, sets.direction[1] / length, sets.direction[2] / length}));
            if (lean > 1e-12)
                steepest = std::min(steepest, lean);
        }
    }
    return scale * std::max(1e-9, 1e-12 / steepest);
}

// Does the search answer as the oracle does, or, where grazing decides, inside the bracket?
testing::AssertionResult Agrees(bool found, double travel, const Case& sets, const Contact& exact,
                                int& grazing)
{
    const double allowed = Allowed(sets, exact.found ? exact.travel : 0);
    if (found == exact.found && (!found || std::fabs(travel - exact.travel) <= allowed))
        return testing::AssertionSuccess();
    ++grazing;
    const Bracket bracket = ContactBracket(sets.fixed, sets.movable, sets.direction, 2 * TOLERANCE);
    const double low = bracket.grown.found ? bracket.grown.travel : UNLIMITED;
    const double high = bracket.shrunk.found ? bracket.shrunk.travel : UNLIMITED;
    const double answer = found ? travel : UNLIMITED;
    if (answer >= low - allowed && answer <= high + (high < UNLIMITED ? allowed : 0))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "search " << (found ? "found " : "found nothing ") << travel
                                       << ", oracle " << (exact.found ? "" : "nothing ") << exact.travel
                                       << ", bracket [" << low << ", " << high << "], allowed " << allowed;
}

class DirDistOracle : public testing::TestWithParam<Family>
{};

TEST_P(DirDistOracle, SearchAgreesOnEveryCase)
{
    const Family& family = GetParam();
    Random random(20240611);
    int grazing = 0;
    int found = 0;
    for (int i = 0; i < family.cases; ++i)
    {
        const Case sets = family.draw(random);
        const Contact exact = FirstContact(sets.fixed, sets.movable, sets.direction);
        const int depth = 1 + i % 7;
        const auto type = i % 2 == 0 ? gsl_TriOctree::gsl_OCTREE : gsl_TriOctree::gsl_MODOCTREE;
        const gsl_TriOctree fixed = Tree(sets.fixed, type, depth);
        const gsl_TriOctree movable = Tree(sets.movable, type, depth);
        Search search(depth, sets);
        ASSERT_TRUE(search.SetDirection({sets.direction[0], sets.direction[1], sets.direction[2]}));
        double travel = UNLIMITED;
        const bool answer = search.FindDirectionalDistance(*fixed.Root(), *movable.Root(), travel);
        found += answer;
        ASSERT_TRUE(Agrees(answer, travel, sets, exact, grazing)) << family.name << ", case " << i;
    }
    EXPECT_LE(grazing, std::ceil(family.grazing * family.cases)) << "of " << family.cases;
    RecordProperty("found", found);
    RecordProperty("grazing", grazing);
    EXPECT_TRUE(found > 0 || std::string(family.name) == "start behind");
}

INSTANTIATE_TEST_SUITE_P(Families, DirDistOracle, testing::ValuesIn(FAMILIES), [](const auto& row) {
    std::string name = row.param.name;
    std::erase_if(name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); });
    return name;
});

// A bound only cuts off: at or below it nothing is found and nothing is written.
TEST(DirDistOracleBound, BoundCutsOff)
{
    Random random(7);
    int cut = 0;
    for (int i = 0; i < 200; ++i)
    {
        const Case sets = FAMILIES[0].draw(random);
        const Contact exact = FirstContact(sets.fixed, sets.movable, sets.direction);
        if (!exact.found)
            continue;
        const gsl_TriOctree fixed = Tree(sets.fixed, gsl_TriOctree::gsl_OCTREE, 4);
        const gsl_TriOctree movable = Tree(sets.movable, gsl_TriOctree::gsl_OCTREE, 4);
        Search search(4, sets);
        double whole = UNLIMITED;
        ASSERT_TRUE(search.FindDirectionalDistance(*fixed.Root(), *movable.Root(), whole));
        for (const double factor : {0.5, 1.0, 1.5})
        {
            const double bound = whole * factor;
            double travel = bound;
            const bool answer = search.FindDirectionalDistance(*fixed.Root(), *movable.Root(), travel);
            EXPECT_EQ(answer, factor > 1) << "case " << i << ", factor " << factor;
            EXPECT_EQ(travel, factor > 1 ? whole : bound);
            cut += !answer;
        }
    }
    EXPECT_GT(cut, 300);
}

// The fixed transform moves the triangles and, with them, what the tree's boxes prune.
TEST(DirDistOracleTransform, RigidMotionsOfTheFixedSet)
{
    Random random(11);
    int grazing = 0;
    int found = 0;
    for (int i = 0; i < 400; ++i)
    {
        Case sets{Soup(random, 20, 2, 1), Soup(random, 20, 2, 1), AnyDirection(random)};
        gsl_Matrix turn;
        ASSERT_TRUE(
            turn.AxisRotation({Uniform(random, -1, 1), Uniform(random, -1, 1), 0.5}, Uniform(random, -3, 3)));
        turn.SetTranslation({Uniform(random, -12, 12), Uniform(random, -12, 12), Uniform(random, -12, 12)});
        const int depth = 1 + i % 6;
        const gsl_TriOctree fixed = Tree(sets.fixed, gsl_TriOctree::gsl_MODOCTREE, depth);
        const gsl_TriOctree movable = Tree(sets.movable, gsl_TriOctree::gsl_OCTREE, depth);
        Search search(depth, sets);
        search.SetFixedTransform(turn);
        ASSERT_TRUE(search.SetDirection({sets.direction[0], sets.direction[1], sets.direction[2]}));
        double travel = UNLIMITED;
        const bool answer = search.FindDirectionalDistance(*fixed.Root(), *movable.Root(), travel);

        Case moved = sets;
        for (Triangle& t : moved.fixed)
            for (Point& p : t)
            {
                const gsl_Point image = turn.Transform(Of(p));
                p = {image.X(), image.Y(), image.Z()};
            }
        const Contact exact = FirstContact(moved.fixed, moved.movable, moved.direction);
        ASSERT_TRUE(Agrees(answer, travel, moved, exact, grazing)) << "case " << i;
        found += answer;
    }
    EXPECT_GT(found, 30);
    EXPECT_LT(found, 390);
    EXPECT_LE(grazing, 4);
}
}
