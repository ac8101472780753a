// What the search object promises its caller: settings, the pair and the place of contact, what is kept
// between searches, progress and cancelling, and look-ups that throw.
#include <testing/SetDraw.h>

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <testing/ToleranceGuard.h>
#include <thread>

namespace
{
using namespace testing_sets;
constexpr auto OCT = gsl_TriOctree::gsl_OCTREE;

TEST(TriTriDirDist, DirectionIsKeptAsUnitVector)
{
    const Set none;
    SetSearch search(3, none, none);
    EXPECT_TRUE(Same(search.Direction(), gsl_Vector(0, 0, 1)));
    EXPECT_EQ(search.MaxDepth(), 3);
    EXPECT_TRUE(search.SetDirection({0, 3, 4}));
    EXPECT_TRUE(Near(search.Direction(), gsl_Vector(0, 0.6, 0.8), 1e-16));
    // Far below the tolerance and far out: a length is a length.
    EXPECT_TRUE(search.SetDirection({0, 3e-300, 4e-300}));
    EXPECT_TRUE(Near(search.Direction(), gsl_Vector(0, 0.6, 0.8), 1e-15));
    EXPECT_TRUE(search.SetDirection({3e300, 0, 4e300}));
    EXPECT_TRUE(Near(search.Direction(), gsl_Vector(0.6, 0, 0.8), 1e-15));
    EXPECT_TRUE(search.SetDirection({5e-324, 0, 0}));
    EXPECT_TRUE(Same(search.Direction(), gsl_Vector(1, 0, 0)));
    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(search.SetDirection({0, 0, 0}));
    EXPECT_FALSE(search.SetDirection({0, std::nan(""), 1}));
    EXPECT_FALSE(search.SetDirection({0, inf, 1}));
    EXPECT_TRUE(Same(search.Direction(), gsl_Vector(1, 0, 0)));
}

TEST(TriTriDirDist, LowestIndicesWinAmongEquals)
{
    const Set above = Floor(4, 3);
    const Set below = Moved(Floor(4, 0), {0.5, 0.5, 0});
    const gsl_TriOctree fixed = Tree(above, OCT, 4);
    const gsl_TriOctree movable = Tree(below, OCT, 4);
    SetSearch search(4, above, below);
    int f = 7;
    int m = 7;
    gsl_Point onFixed(1, 2, 3);
    gsl_Point onMovable(1, 2, 3);
    EXPECT_FALSE(search.LastPair(f, m));
    EXPECT_FALSE(search.LastContact(onFixed, onMovable));
    EXPECT_TRUE(f == 7 && m == 7 && Same(onFixed, gsl_Point(1, 2, 3)) && Same(onMovable, gsl_Point(1, 2, 3)));
    EXPECT_EQ(Ask(search, fixed, movable, UNLIMITED), (Answer{true, 3, 0, 0}));
    EXPECT_EQ(Ask(search, fixed, movable, UNLIMITED, true), (Answer{true, 3, 0, 0}));
    // A search without a contact forgets the pair of the one before.
    EXPECT_EQ(Ask(search, fixed, movable, 3), (Answer{false, 3, -1, -1}));
    EXPECT_FALSE(search.LastContact(onFixed, onMovable));
}

TEST(TriTriDirDist, CountersGrow)
{
    const Set above = Floor(1, 3);
    const Set below = Floor(1, 0);
    const gsl_TriOctree fixed = Tree(above, OCT, 1);
    const gsl_TriOctree movable = Tree(below, OCT, 1);
    SetSearch search(1, above, below);
    EXPECT_EQ(search.FixedTriangleCount(), 0);
    EXPECT_TRUE(Ask(search, fixed, movable, UNLIMITED, true).found);
    EXPECT_EQ(search.FixedTriangleCount(), 2);
    EXPECT_EQ(search.MovableTriangleCount(), 2);
    EXPECT_TRUE(Ask(search, fixed, movable, UNLIMITED).found);
    EXPECT_EQ(search.FixedTriangleCount(), 4);
    EXPECT_EQ(search.MovableTriangleCount(), 4);
}

bool OnTriangle(const gsl_Point& p, const Triangle& t, double within)
{
    // By the gap to the plane and the areas towards the sides, not by the search's own test.
    const gsl_Vector n = Of(t).Normal();
    if (std::fabs((p - Of(t[0])).DotProduct(n)) > within)
        return false;
    for (std::size_t i = 0; i < 3; ++i)
    {
        const gsl_Vector side = Of(t[(i + 1) % 3]) - Of(t[i]);
        if (n.CrossProduct(side).DotProduct(p - Of(t[i])) < -within * side.Magnitude())
            return false;
    }
    return true;
}

// The two places lie on their triangles and are the travel apart, along the direction; of all kinds of
// contact.
TEST(TriTriDirDist, ContactRecreatesTheDistance)
{
    GeometryDraw draw(55);
    int corners = 0;
    int edges = 0;
    int crossing = 0;
    for (int i = 0; i < 1500; ++i)
    {
        const SetPair pair = SET_FAMILIES[i % 7].draw(draw);
        SetSearch search(3, pair.fixed, pair.movable);
        ASSERT_TRUE(search.SetDirection(pair.direction));
        gsl_Matrix shift;
        if (i % 4 == 0)
            shift.SetTranslation({0.25, 0, 0.5});
        search.SetFixedTransform(shift);
        const Answer answer = Ask(search, Tree(pair.fixed, OCT, 3), Tree(pair.movable, OCT, 3), UNLIMITED);
        gsl_Point onFixed;
        gsl_Point onMovable;
        ASSERT_EQ(search.LastContact(onFixed, onMovable), answer.found);
        if (!answer.found)
            continue;
        Triangle f = pair.fixed[static_cast<std::size_t>(answer.fixed)];
        for (Point& p : f)
        {
            const gsl_Point moved = shift.Transform(Of(p));
            p = {moved.X(), moved.Y(), moved.Z()};
        }
        const Triangle& m = pair.movable[static_cast<std::size_t>(answer.movable)];
        const double within = 2.1e-6;
        ASSERT_TRUE(OnTriangle(onFixed, f, within)) << SET_FAMILIES[i % 7].name << i;
        ASSERT_TRUE(OnTriangle(onMovable, m, within)) << SET_FAMILIES[i % 7].name << i;
        ASSERT_TRUE(Near(onMovable + search.Direction() * answer.travel, onFixed, within))
            << SET_FAMILIES[i % 7].name << i;
        crossing += answer.travel == 0;
        const auto isCorner = [](const gsl_Point& p, const Triangle& t) {
            return std::any_of(t.begin(), t.end(),
                               [&](const Point& q) { return p.GetDistance(Of(q)) < 1e-9; });
        };
        const bool corner = isCorner(onFixed, f) || isCorner(onMovable, m);
        corners += corner && answer.travel > 0;
        edges += !corner && answer.travel > 0;
    }
    EXPECT_GT(corners, 100);
    EXPECT_GT(edges, 50);
    EXPECT_GT(crossing, 100);
}

/// Counts its look-ups, and does to a look-up what it is told.
class WatchedSearch : public SetSearch
{
public:
    using SetSearch::SetSearch;

    void GetFixedTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3) override
    {
        Note();
        SetSearch::GetFixedTriangle(index, p1, p2, p3);
    }
    void GetMovableTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3) override
    {
        Note();
        SetSearch::GetMovableTriangle(index, p1, p2, p3);
    }
    bool Proceed(double done) override
    {
        said.push_back(done);
        const auto now = std::chrono::steady_clock::now();
        longestSilence = std::max(longestSilence, now - lastWord_);
        lastWord_ = now;
        return static_cast<int>(said.size()) <= patience;
    }
    void Restart()
    {
        lookUps = 0;
        said.clear();
        longestSilence = {};
        lastWord_ = std::chrono::steady_clock::now();
    }

    int lookUps = 0;
    int throwAt = -1;
    int patience = 1000000;
    std::chrono::microseconds pause{0};
    std::vector<double> said;
    std::chrono::steady_clock::duration longestSilence{};

private:
    void Note()
    {
        if (lookUps++ == throwAt)
            throw std::runtime_error("no such triangle");
        if (pause.count() > 0)
            std::this_thread::sleep_for(pause);
    }

    std::chrono::steady_clock::time_point lastWord_ = std::chrono::steady_clock::now();
};

TEST(TriTriDirDist, LookUpThatThrowsLeavesTheObjectUsable)
{
    GeometryDraw draw(9);
    const Set above = Soup(draw, 300, 3, 0.5);
    const Set below = Moved(Soup(draw, 300, 3, 0.5), {0, 0, -9});
    const gsl_TriOctree fixed = Tree(above, OCT, 4);
    const gsl_TriOctree movable = Tree(below, OCT, 4);
    WatchedSearch search(4, above, below);
    const Answer expected = Ask(search, fixed, movable, UNLIMITED);
    ASSERT_TRUE(expected.found);
    const int all = search.lookUps;
    ASSERT_GT(all, 20);
    for (const bool nested : {false, true})
    {
        WatchedSearch other(4, above, below);
        int threw = 0;
        for (int at = 0; at < all; at += 1 + all / 40)
        {
            other.lookUps = 0;
            other.throwAt = at;
            double travel = 1234;
            try
            {
                (void)(nested ? other.FindDirectionalDistanceNested(*fixed.Root(), *movable.Root(), travel)
                              : other.FindDirectionalDistance(*fixed.Root(), *movable.Root(), travel));
            }
            catch (const std::runtime_error&)
            {
                ++threw;
                EXPECT_EQ(travel, 1234);
                int f = 0;
                EXPECT_FALSE(other.LastPair(f, f));
            }
            other.throwAt = -1;
            ASSERT_EQ(Ask(other, fixed, movable, UNLIMITED), expected) << "after a throw at " << at;
        }
        EXPECT_GT(threw, 10);
    }
}

TEST(TriTriDirDist, ProceedIsAskedFirstAndMayRefuse)
{
    const Set above = Floor(8, 3);
    const Set below = Floor(8, 0);
    const gsl_TriOctree fixed = Tree(above, OCT, 4);
    const gsl_TriOctree movable = Tree(below, OCT, 4);
    for (const bool nested : {false, true})
    {
        WatchedSearch search(4, above, below);
        search.patience = 0;
        EXPECT_EQ(Ask(search, fixed, movable, 50, nested), (Answer{false, 50, -1, -1}));
        EXPECT_EQ(search.said, std::vector<double>{0});
        EXPECT_EQ(search.lookUps, 0);
        search.patience = 100;
        EXPECT_EQ(Ask(search, fixed, movable, 50, nested), (Answer{true, 3, 0, 0}));
    }
}

// Look-ups that take a quarter of a millisecond: the search reports in time, its share of the work never
// falls, and it stops at the first refusal.
TEST(TriTriDirDist, ProceedIsAskedAllTheWay)
{
    GeometryDraw draw(10);
    const Set above = Soup(draw, 400, 3, 0.4);
    const Set below = Moved(Soup(draw, 400, 3, 0.4), {0, 0, -5});
    for (const int depth : {1, 4})
    {
        const gsl_TriOctree fixed = Tree(above, OCT, depth);
        const gsl_TriOctree movable = Tree(below, OCT, depth);
        WatchedSearch search(depth, above, below);
        search.pause = std::chrono::microseconds(250);
        search.Restart();
        const Answer expected = Ask(search, fixed, movable, UNLIMITED);
        ASSERT_TRUE(expected.found);
        EXPECT_GT(search.said.size(), 10u);
        EXPECT_TRUE(std::is_sorted(search.said.begin(), search.said.end()));
        EXPECT_GE(search.said.front(), 0);
        EXPECT_LE(search.said.back(), 1);
        // Ten by contract; a busy machine may sleep longer than asked.
        EXPECT_LT(search.longestSilence, std::chrono::milliseconds(100));

        for (const int patience : {1, 3, 8})
        {
            search.Restart();
            search.patience = patience;
            EXPECT_EQ(Ask(search, fixed, movable, 99), (Answer{false, 99, -1, -1}));
            EXPECT_EQ(static_cast<int>(search.said.size()), patience + 1);
            search.patience = 1000000;
            search.pause = std::chrono::microseconds(0);
            EXPECT_EQ(Ask(search, fixed, movable, UNLIMITED), expected);
            search.pause = std::chrono::microseconds(250);
        }
    }
}

TEST(TriTriDirDist, NestedSearchIsCancelledToo)
{
    GeometryDraw draw(11);
    const Set above = Soup(draw, 60, 3, 0.4);
    const Set below = Moved(Soup(draw, 60, 3, 0.4), {0, 0, -5});
    const gsl_TriOctree fixed = Tree(above, OCT, 3);
    const gsl_TriOctree movable = Tree(below, OCT, 3);
    WatchedSearch search(3, above, below);
    search.pause = std::chrono::microseconds(500);
    search.patience = 4;
    EXPECT_EQ(Ask(search, fixed, movable, 99, true), (Answer{false, 99, -1, -1}));
    EXPECT_EQ(search.said.size(), 5u);
    EXPECT_TRUE(std::is_sorted(search.said.begin(), search.said.end()));
}

// The tree's shape is kept, its corners are not: a mesh that has changed within its boxes is seen as it is
// now.
TEST(TriTriDirDist, CornersAreFetchedAnewInEverySearch)
{
    GeometryDraw draw(12);
    Set above = Soup(draw, 300, 3, 0.5);
    Set below = Moved(Soup(draw, 300, 3, 0.5), {0, 0, -9});
    const gsl_TriOctree fixed = Tree(above, OCT, 1);
    const gsl_TriOctree movable = Tree(below, OCT, 1);
    SetSearch search(1, above, below);
    for (int i = 0; i < 10; ++i)
    {
        EXPECT_EQ(Ask(search, fixed, movable, UNLIMITED), EveryPair(search, above, below, UNLIMITED)) << i;
        std::shuffle(above.begin(), above.end(), std::mt19937(static_cast<unsigned>(i)));
        for (Triangle& t : below)
            t[0][2] = std::clamp(t[0][2] + draw.Number(-0.2, 0.2), -11.9, -6.1);
    }
}

TEST(TriTriDirDist, TreesMayChangeBetweenSearches)
{
    GeometryDraw draw(13);
    const Set above = Soup(draw, 400, 3, 0.5);
    const Set below = Moved(Soup(draw, 400, 3, 0.5), {0, 0, -9});
    gsl_TriOctree fixed(BoxOf(above), "", OCT, 5);
    gsl_TriOctree movable(BoxOf(below), "", OCT, 5);
    SetSearch search(5, above, below);
    for (std::size_t i = 0; i < above.size(); ++i)
    {
        const auto add = [i](gsl_TriOctree& tree, const Triangle& t) {
            ASSERT_TRUE(tree.Root()->Add(Of(t[0]), Of(t[1]), Of(t[2]), static_cast<int>(i)));
        };
        add(fixed, above[i]);
        if (i % 3 == 0)
            add(movable, below[i]);
        if (i % 37 == 0)
        {
            Set part(below.begin(), below.begin() + static_cast<std::ptrdiff_t>(i) + 1);
            for (std::size_t k = 0; k <= i; ++k)
                if (k % 3 != 0)
                    part[k][1] = part[k][2] = part[k][0];
            const Set parted(above.begin(), above.begin() + static_cast<std::ptrdiff_t>(i) + 1);
            ASSERT_EQ(Ask(search, fixed, movable, UNLIMITED), EveryPair(search, parted, part, UNLIMITED))
                << i;
        }
    }
    // Another tree at the place of the former one.
    fixed = Tree(above, gsl_TriOctree::gsl_MODOCTREE, 3);
    const gsl_TriOctree whole = Tree(below, OCT, 3);
    EXPECT_EQ(Ask(search, fixed, whole, UNLIMITED), EveryPair(search, above, below, UNLIMITED));
}

TEST(TriTriDirDist, DirectionTransformAndBoundMayChangeBetweenSearches)
{
    GeometryDraw draw(14);
    const Set above = Soup(draw, 130, 3, 0.4);
    const Set below = Soup(draw, 130, 3, 0.4);
    const gsl_TriOctree fixed = Tree(above, OCT, 5);
    const gsl_TriOctree movable = Tree(below, gsl_TriOctree::gsl_MODOCTREE, 4);
    SetSearch search(5, above, below);
    int found = 0;
    for (int i = 0; i < 60; ++i)
    {
        ASSERT_TRUE(search.SetDirection(draw.Unit()));
        gsl_Matrix motion;
        if (i % 3 != 0)
        {
            ASSERT_TRUE(motion.AxisRotation(draw.Unit(), draw.Number(-3, 3)));
            motion.SetTranslation(search.Direction() * 9.0);
        }
        search.SetFixedTransform(motion);
        const double bound = i % 5 == 0 ? draw.Number(1, 9) : UNLIMITED;
        const Answer answer = Ask(search, fixed, movable, bound);
        const Answer every = EveryPair(search, above, below, bound);
        EXPECT_EQ(answer.travel, every.travel) << i;
        EXPECT_TRUE(every.travel == 0 ? answer.found : answer == every)
            << i << ": " << answer << ", " << every;
        found += answer.found;
    }
    EXPECT_GT(found, 30);
}

TEST(TriTriDirDist, TolerancesAreThoseOfItsMaking)
{
    const ToleranceGuard guard;
    const Set above = {{{{1.2, 0, 3}, {5, 0, 3}, {5, 5, 3}}}};
    const Set below = {{{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}}};
    const gsl_TriOctree fixed = Tree(above, OCT, 1);
    const gsl_TriOctree movable = Tree(below, OCT, 1);
    SetSearch fine(1, above, below);
    gsl_Util::Instance().SetLinearTolerance(0.25);
    SetSearch coarse(1, above, below);
    EXPECT_FALSE(Ask(fine, fixed, movable, UNLIMITED).found);
    EXPECT_EQ(Ask(coarse, fixed, movable, UNLIMITED), (Answer{true, 3, 0, 0}));
}
}
