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

TEST(TriTriDirDist, DirectionIsKeptAsUnitVectorWhateverItsLength)
{
    const Set none;
    SetSearch search(3, none, none);
    EXPECT_TRUE(Same(search.Direction(), gsl_Vector(0, 0, 1)));
    for (const double length : {1.0, 1e-300, 1e300})
    {
        EXPECT_TRUE(search.SetDirection({0, 3 * length, 4 * length}));
        EXPECT_TRUE(Near(search.Direction(), gsl_Vector(0, 0.6, 0.8), 1e-15)) << length;
    }
    for (const double y : {0.0, std::nan(""), std::numeric_limits<double>::infinity()})
        EXPECT_FALSE(search.SetDirection({0, y, y * y}));
    EXPECT_TRUE(Near(search.Direction(), gsl_Vector(0, 0.6, 0.8), 1e-15));
}

TEST(TriTriDirDist, LowestIndicesWinAmongEquals)
{
    const Set above = Floor(4, 3);
    const Set below = Moved(Floor(4, 0), {0.5, 0.5, 0});
    const gsl_TriOctree fixed = Tree(above, OCT, 4);
    const gsl_TriOctree movable = Tree(below, OCT, 4);
    SetSearch search(4, above, below);
    gsl_Point p(1, 2, 3);
    for (const bool nested : {false, true})
    {
        EXPECT_EQ(Ask(search, fixed, movable, UNLIMITED, nested), (Answer{true, 3, 0, 0}));
        // A search without a contact forgets the pair of the one before.
        EXPECT_EQ(Ask(search, fixed, movable, 3, nested), (Answer{false, 3, -1, -1}));
        EXPECT_FALSE(search.LastContact(p, p));
    }
    EXPECT_TRUE(Same(p, gsl_Point(1, 2, 3)));
}

bool OnTriangle(const gsl_Point& p, const Triangle& t, double within)
{
    // By the gap to the plane and the areas towards the sides, not by the search's own test.
    const gsl_Vector n = Of(t).Normal();
    bool on = std::fabs((p - Of(t[0])).DotProduct(n)) <= within;
    for (std::size_t i = 0; i < 3; ++i)
    {
        const gsl_Vector side = Of(t[(i + 1) % 3]) - Of(t[i]);
        on = on && n.CrossProduct(side).DotProduct(p - Of(t[i])) >= -within * side.Magnitude();
    }
    return on;
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
        const SetPair pair = SET_FAMILIES[i % 4].draw(draw);
        SetSearch search(3, pair.fixed, pair.movable);
        ASSERT_TRUE(search.SetDirection(pair.direction));
        gsl_Matrix shift;
        shift.SetTranslation({i % 5 * 0.25, 0, i % 5 * 0.5});
        search.SetFixedTransform(shift);
        const Answer answer = Ask(search, Tree(pair.fixed, OCT, 3), Tree(pair.movable, OCT, 3));
        gsl_Point onFixed;
        gsl_Point onMovable;
        ASSERT_EQ(search.LastContact(onFixed, onMovable), answer.found);
        if (!answer.found)
            continue;
        const Triangle f = Image(shift, pair.fixed[static_cast<std::size_t>(answer.fixed)]);
        const Triangle& m = pair.movable[static_cast<std::size_t>(answer.movable)];
        const double within = 2.1e-6;
        ASSERT_TRUE(OnTriangle(onFixed, f, within) && OnTriangle(onMovable, m, within)) << i;
        ASSERT_TRUE(Near(onMovable + search.Direction() * answer.travel, onFixed, within)) << i;
        const auto isCorner = [](const gsl_Point& p, const Triangle& t) {
            return std::any_of(t.begin(), t.end(),
                               [&](const Point& q) { return p.GetDistance(Of(q)) < 1e-9; });
        };
        const bool corner = isCorner(onFixed, f) || isCorner(onMovable, m);
        ++(answer.travel == 0 ? crossing : corner ? corners : edges);
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

    bool Proceed(double done) override
    {
        said.push_back(done);
        mostUnheard = std::max(mostUnheard, lookUps - heard_);
        heard_ = lookUps;
        return static_cast<int>(said.size()) <= patience;
    }

    int lookUps = 0;
    int throwAt = -1;
    int patience = 1000000;
    std::chrono::microseconds pause{0};
    std::vector<double> said;
    int mostUnheard = 0; // look-ups between two words

private:
    void BeforeLookUp() override
    {
        if (lookUps++ == throwAt)
            throw std::runtime_error("no such triangle");
        if (pause.count() > 0)
            std::this_thread::sleep_for(pause);
    }

    int heard_ = 0;
};

/// Two parts, and their trees.
struct Parts
{
    explicit Parts(int count, int depth, unsigned seed) : draw(seed)
    {
        above = Soup(draw, count, 3, 0.5);
        below = Moved(Soup(draw, count, 3, 0.5), {0, 0, -9});
        fixed = Tree(above, OCT, depth);
        movable = Tree(below, OCT, depth);
    }

    GeometryDraw draw;
    Set above, below;
    gsl_TriOctree fixed{gsl_BBox(), "", OCT, 1}, movable{gsl_BBox(), "", OCT, 1};
};

TEST(TriTriDirDist, LookUpThatThrowsLeavesTheObjectUsable)
{
    const Parts parts(300, 4, 9);
    WatchedSearch search(4, parts.above, parts.below);
    const Answer expected = Ask(search, parts.fixed, parts.movable);
    ASSERT_TRUE(expected.found);
    const int all = search.lookUps;
    ASSERT_GT(all, 20);
    for (int at = 0; at < all - 1; at += 1 + all / 40)
        for (const bool nested : {false, true})
        {
            search.lookUps = 0;
            search.throwAt = at;
            double travel = 1234;
            EXPECT_THROW((void)(nested ? search.FindDirectionalDistanceNested(*parts.fixed.Root(),
                                                                              *parts.movable.Root(), travel)
                                       : search.FindDirectionalDistance(*parts.fixed.Root(),
                                                                        *parts.movable.Root(), travel)),
                         std::runtime_error);
            EXPECT_EQ(travel, 1234);
            int f = 0;
            EXPECT_FALSE(search.LastPair(f, f));
            search.throwAt = -1;
            ASSERT_EQ(Ask(search, parts.fixed, parts.movable), expected) << "after a throw at " << at;
        }
}

// Look-ups that take a quarter of a millisecond: the search reports from the start and in time, its share of
// the work never falls, and it stops at the first refusal.
TEST(TriTriDirDist, ProceedIsAskedAllTheWay)
{
    for (const auto& [depth, nested] : {std::pair(1, false), {4, false}, {3, true}})
    {
        const Parts parts(nested ? 60 : 400, depth, 10);
        WatchedSearch search(depth, parts.above, parts.below);
        search.pause = std::chrono::microseconds(250);
        const Answer expected = Ask(search, parts.fixed, parts.movable, UNLIMITED, nested);
        EXPECT_GT(search.said.size(), 10u);
        EXPECT_TRUE(std::is_sorted(search.said.begin(), search.said.end()));
        EXPECT_TRUE(search.said.front() == 0 && search.said.back() <= 1);
        // Forty such look-ups take the ten milliseconds of the contract; slower ones are fewer.
        EXPECT_LE(search.mostUnheard, 40);
        for (const int patience : {0, 1, 8})
        {
            search.said.clear();
            search.lookUps = 0;
            search.patience = patience;
            EXPECT_EQ(Ask(search, parts.fixed, parts.movable, 99, nested), (Answer{false, 99, -1, -1}));
            EXPECT_EQ(static_cast<int>(search.said.size()), patience + 1);
            EXPECT_EQ(search.lookUps == 0, patience == 0);
        }
        search.patience = 1000000;
        search.pause = std::chrono::microseconds(0);
        EXPECT_EQ(Ask(search, parts.fixed, parts.movable, UNLIMITED, nested), expected);
    }
}

// A tree's shape is kept while it stays; corners are fetched anew in every search.
TEST(TriTriDirDist, EverythingMayChangeBetweenSearches)
{
    Parts parts(300, 1, 12);
    auto& [draw, above, below, fixed, movable] = parts;
    SetSearch search(5, above, below);
    // Another tree at the place of the former one, which then grows.
    fixed = gsl_TriOctree(gsl_BBox(gsl_Point(-4, -4, -4), gsl_Point(4, 4, 4)), "", MOD, 5);
    EXPECT_FALSE(Ask(search, fixed, movable).found || Ask(search, movable, fixed).found) << "nothing there";
    Set part;
    int found = 0;
    for (std::size_t i = 0; i < above.size(); ++i)
    {
        part.push_back(above[i]);
        ASSERT_TRUE(
            fixed.Root()->Add(Of(above[i][0]), Of(above[i][1]), Of(above[i][2]), static_cast<int>(i)));
        if (i % 10 != 0)
            continue;
        std::shuffle(below.begin(), below.end(), std::mt19937(static_cast<unsigned>(i)));
        for (Triangle& t : below)
            t[0][2] = std::clamp(t[0][2] + draw.Number(-0.2, 0.2), -11.9, -6.1);
        gsl_Matrix motion;
        if (i % 3 != 0)
        {
            ASSERT_TRUE(search.SetDirection(draw.Unit() + gsl_Vector(0, 0, 2)));
            ASSERT_TRUE(motion.AxisRotation(draw.Unit(), draw.Number(-3, 3)));
        }
        search.SetFixedTransform(motion);
        const double bound = i % 4 == 0 ? draw.Number(1, 9) : UNLIMITED;
        const Answer answer = Ask(search, fixed, movable, bound);
        EXPECT_EQ(answer, EveryPair(search, part, below, bound)) << i;
        found += answer.found;
    }
    EXPECT_GT(found, 10);
}

TEST(TriTriDirDist, TolerancesAreThoseOfItsMaking)
{
    const ToleranceGuard guard;
    const Set above = {{{{1.2, 0, 3}, {5, 0, 3}, {5, 5, 3}}}};
    const Set below = {{{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}}};
    SetSearch fine(1, above, below);
    gsl_Util::Instance().SetLinearTolerance(0.25);
    SetSearch coarse(1, above, below);
    EXPECT_FALSE(Ask(fine, Tree(above, OCT, 1), Tree(below, OCT, 1)).found);
    EXPECT_EQ(Ask(coarse, Tree(above, OCT, 1), Tree(below, OCT, 1)), (Answer{true, 3, 0, 0}));
}
}
