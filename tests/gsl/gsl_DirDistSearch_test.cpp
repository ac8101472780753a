// The fast search, the nested one and the loop over every pair answer alike, to the last bit and with the
// same pair, on thousands of sets, many of them degenerate; and as an oracle does that knows nothing of
// trees, boxes or stages.
#include <testing/DirDistOracle.h>
#include <testing/SetDraw.h>

#include <gsl_ModOctreeNode.h>
#include <string>

namespace
{
using namespace testing_sets;
constexpr auto OCT = gsl_TriOctree::gsl_OCTREE;
constexpr auto MOD = gsl_TriOctree::gsl_MODOCTREE;

gsl_Matrix Motion(GeometryDraw& draw, int kind)
{
    gsl_Matrix motion;
    if (kind == 0)
        return motion;
    if (kind == 1)
    {
        EXPECT_TRUE(motion.AxisRotation(draw.Unit(), draw.Number(-3, 3)));
        motion.SetTranslation({draw.Number(-2, 2), draw.Number(-2, 2), draw.Number(-2, 2)});
    }
    else
    {
        // Neither rigid nor near the origin.
        motion.SetRotationVectors({0.5, 0.1, 0}, {0, 2, 0.2}, {0.3, 0, 1});
        motion.SetTranslation({100, -3e4, 7});
    }
    return motion;
}

/// The same answer, the same bits; at travel 0 the first pair met stands, which the searches may choose
/// differently.
void ExpectSame(const Answer& a, const Answer& b, const std::string& what)
{
    if (a.found && a.travel == 0 && b.found && b.travel == 0)
        return;
    EXPECT_EQ(a, b) << what;
}

// 1e-9 of the largest coordinate or travel, and what rounding does to the height of planes nearly upright.
double Allowed(const Set& fixed, const Set& movable, const gsl_Vector& u, double travel)
{
    double scale = std::fabs(travel);
    double steepest = 1;
    for (const Set* set : {&fixed, &movable})
        for (const Triangle& t : *set)
        {
            for (const Point& p : t)
                for (const double x : p)
                    scale = std::max(scale, std::fabs(x));
            const double lean = std::fabs(Of(t).Normal().DotProduct(u));
            steepest = lean > 1e-12 ? std::min(steepest, lean) : steepest;
        }
    return scale * std::max(1e-9, 1e-12 / steepest);
}

/// The set where the search sees it, without what it leaves out.
Set Seen(const Set& set, const gsl_Matrix& motion)
{
    Set seen;
    for (Triangle t : set)
    {
        for (Point& p : t)
            if (const gsl_Point q = motion.Transform(Of(p)); !motion.IsIdentity())
                p = {q.X(), q.Y(), q.Z()};
        if (Of(t).Normal().Magnitude() > 0)
            seen.push_back(t);
    }
    return seen;
}

// As the oracle answers, or, where grazing decides, inside the bracket of parts shrunk and grown by twice the
// tolerance.
testing::AssertionResult Agrees(const Answer& answer, const Set& fixed, const Set& movable,
                                const gsl_Vector& u, int& grazing)
{
    const Point direction{u.X(), u.Y(), u.Z()};
    const auto exact = testing_oracle::FirstContact(fixed, movable, direction);
    const double allowed = Allowed(fixed, movable, u, exact.found ? exact.travel : 0);
    if (answer.found == exact.found && (!answer.found || std::fabs(answer.travel - exact.travel) <= allowed))
        return testing::AssertionSuccess();
    ++grazing;
    const auto bracket = testing_oracle::ContactBracket(fixed, movable, direction, 2e-6);
    const double low = bracket.grown.found ? bracket.grown.travel - allowed : UNLIMITED;
    const double high = bracket.shrunk.found ? bracket.shrunk.travel + allowed : UNLIMITED;
    if (answer.travel >= low && answer.travel <= high)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << answer << ", oracle " << exact.found << " " << exact.travel
                                       << ", bracket [" << low << ", " << high << "]";
}

class DirDistSearch : public testing::TestWithParam<SetFamily>
{};

TEST_P(DirDistSearch, AgreesWithTheOracleTheNestedSearchAndEveryPair)
{
    constexpr int CASES = 350;
    GeometryDraw draw(2024);
    int found = 0;
    int positive = 0;
    int grazing = 0;
    for (int i = 0; i < CASES; ++i)
    {
        const SetPair pair = GetParam().draw(draw);
        const int depth = 1 + i % 7;
        const gsl_TriOctree fixed = Tree(pair.fixed, draw.Coin() ? OCT : MOD, depth);
        const gsl_TriOctree movable = Tree(pair.movable, draw.Coin() ? OCT : MOD, depth);
        SetSearch search(depth, pair.fixed, pair.movable);
        ASSERT_TRUE(search.SetDirection(pair.direction));
        search.SetFixedTransform(Motion(draw, i % 5 < 3 ? 0 : i % 5 - 2));
        search.SetReverseFixed(draw.Coin());
        search.SetReverseMovable(draw.Coin());

        const std::string what = std::string(GetParam().name) + " " + std::to_string(i);
        const Answer every = EveryPair(search, pair.fixed, pair.movable, UNLIMITED);
        const Answer fast = Ask(search, fixed, movable, UNLIMITED);
        ASSERT_TRUE(Agrees(fast, Seen(pair.fixed, search.FixedTransform()), Seen(pair.movable, {}),
                           search.Direction(), grazing))
            << what;
        ExpectSame(fast, every, what + ": fast, every pair");
        EXPECT_EQ(Ask(search, fixed, movable, UNLIMITED), fast) << what << ": a second time";
        SetSearch fresh(depth, pair.fixed, pair.movable);
        ASSERT_TRUE(fresh.SetDirection(pair.direction));
        fresh.SetFixedTransform(search.FixedTransform());
        EXPECT_EQ(Ask(fresh, fixed, movable, UNLIMITED), fast) << what << ": by a fresh object";
        found += every.found;
        positive += every.found && every.travel > 0;
        for (const double bound :
             {UNLIMITED, every.travel, every.travel * 0.9, every.travel * 1.1, 0.0, -1.0})
        {
            const Answer below = EveryPair(search, pair.fixed, pair.movable, bound);
            ExpectSame(Ask(search, fixed, movable, bound), below, what + ": fast, bound");
            ExpectSame(Ask(search, fixed, movable, bound, true), below, what + ": nested, bound");
        }
        if (HasFailure())
            return;
    }
    const std::string name = GetParam().name;
    EXPECT_GT(found, name == "Behind" ? 0 : CASES / 20) << name;
    EXPECT_GT(positive, name == "Behind" ? 0 : CASES / 100) << name;
    EXPECT_LE(grazing, std::ceil(GetParam().grazing * CASES));
}

INSTANTIATE_TEST_SUITE_P(Families, DirDistSearch, testing::ValuesIn(SET_FAMILIES),
                         [](const auto& row) { return std::string(row.param.name); });

/// The triangles that a search of that depth looks at.
void Counted(const gsl_TriOctreeNode& node, int generation, int generations, double leastSize,
             std::vector<bool>& counted)
{
    if (!(node.Box().Size() < leastSize))
        for (const int index : node.Triangles())
            counted[static_cast<std::size_t>(index)] = true;
    for (int slot = 0; generation + 1 < generations && slot < node.GetChildCount(); ++slot)
        if (const gsl_TriOctreeNode* child = node.Child(slot))
            Counted(*child, generation + 1, generations, leastSize, counted);
}

Set Filtered(const Set& set, const std::vector<bool>& counted)
{
    // A degenerate triangle in place of one left out keeps the indices.
    Set filtered = set;
    for (std::size_t i = 0; i < set.size(); ++i)
        if (!counted[i])
            filtered[i] = {set[i][0], set[i][0], set[i][0]};
    return filtered;
}

TEST(DirDistSearchDepth, FixedLevelsBeyondTheDepthAreLeftOut)
{
    GeometryDraw draw(8);
    int differs = 0;
    for (int i = 0; i < 120; ++i)
    {
        const Set fixedSet = Soup(draw, 40, 3, 0.3);
        const Set movableSet = Moved(Soup(draw, 40, 3, 0.3), {0, 0, -8});
        const auto type = i % 2 == 0 ? OCT : MOD;
        const gsl_TriOctree fixed = Tree(fixedSet, type, 6);
        const gsl_TriOctree movable = Tree(movableSet, type, 6);
        const int depth = i % 6; // 0 looks at as much as 1
        SetSearch search(depth, fixedSet, movableSet);
        std::vector<bool> ofFixed(fixedSet.size());
        std::vector<bool> ofMovable(movableSet.size());
        Counted(*fixed.Root(), 0, std::max(depth, 1), 1e-6, ofFixed);
        Counted(*movable.Root(), 0, depth <= 1 ? 1 : 100, 0, ofMovable);
        const Answer expected =
            EveryPair(search, Filtered(fixedSet, ofFixed), Filtered(movableSet, ofMovable), UNLIMITED);
        ASSERT_EQ(Ask(search, fixed, movable, UNLIMITED), expected) << i;
        ASSERT_EQ(Ask(search, fixed, movable, UNLIMITED, true), expected) << i;
        differs += !(expected == EveryPair(search, fixedSet, movableSet, UNLIMITED));
    }
    EXPECT_GT(differs, 20);
}

TEST(DirDistSearchDepth, BoxesSmallerThanTheToleranceAreNeverLookedAt)
{
    // Two specks on opposite corners of the box, in cells of half a tolerance at level 8; the floor sits at
    // the root.
    Set set = {{{{0, 0, 0}, {3e-8, 0, 0}, {0, 3e-8, 0}}},
               {{{1e-5, 1e-5, 1e-5}, {1e-5 - 3e-8, 1e-5, 1e-5}, {1e-5, 1e-5 - 3e-8, 1e-5}}}};
    const Set under = {{{{-1, -1, -1}, {1, -1, -1}, {0, 1, -1}}}};
    const gsl_TriOctree fixed = Tree(set, OCT, 12);
    const gsl_TriOctree movable = Tree(under, OCT, 12);
    SetSearch deep(12, set, under);
    EXPECT_FALSE(Ask(deep, fixed, movable, UNLIMITED).found);
    EXPECT_FALSE(Ask(deep, fixed, movable, UNLIMITED, true).found);
    const gsl_TriOctree shallow = Tree(set, OCT, 3);
    EXPECT_DOUBLE_EQ(Ask(deep, shallow, movable, UNLIMITED).travel, 1);
    EXPECT_DOUBLE_EQ(Ask(deep, shallow, movable, UNLIMITED, true).travel, 1);
}

TEST(DirDistSearch, EmptyTreesGiveNothing)
{
    const Set none;
    const Set floor = Floor(2, 0);
    const gsl_TriOctree empty(BoxOf(floor), "", OCT, 4);
    const gsl_TriOctree full = Tree(floor, OCT, 4);
    const gsl_TriOctree nowhere(gsl_BBox(), "", OCT, 4);
    SetSearch search(4, floor, floor);
    for (const bool nested : {false, true})
        for (const gsl_TriOctree* tree : {&empty, &nowhere})
        {
            EXPECT_EQ(Ask(search, *tree, full, 5, nested), (Answer{false, 5, -1, -1}));
            EXPECT_EQ(Ask(search, full, *tree, 5, nested), (Answer{false, 5, -1, -1}));
        }
}

TEST(DirDistSearch, OneObjectTellsATreeFromItsChildren)
{
    GeometryDraw draw(77);
    const Set fixedSet = Soup(draw, 60, 3, 0.3);
    const Set movableSet = Moved(Soup(draw, 60, 3, 0.3), {0, 0, -8});
    const gsl_TriOctree fixed = Tree(fixedSet, OCT, 5);
    const gsl_TriOctree movable = Tree(movableSet, OCT, 5);
    const auto ask = [&](SetSearch& search, const gsl_TriOctreeNode& node) {
        double travel = UNLIMITED;
        (void)search.FindDirectionalDistance(node, *movable.Root(), travel);
        return travel;
    };
    SetSearch kept(5, fixedSet, movableSet);
    const double whole = ask(kept, *fixed.Root());
    int differs = 0;
    for (int slot = 0; slot < fixed.Root()->GetChildCount(); ++slot)
        if (const gsl_TriOctreeNode* child = fixed.Root()->Child(slot))
        {
            SetSearch fresh(5, fixedSet, movableSet);
            const double part = ask(fresh, *child);
            EXPECT_EQ(ask(kept, *child), part) << slot;
            EXPECT_EQ(ask(kept, *fixed.Root()), whole) << slot;
            differs += part != whole;
        }
    EXPECT_GT(differs, 3);
}

TEST(DirDistSearch, TravelZeroHasNoSign)
{
    const Set plate = Floor(2, 0);
    const gsl_TriOctree tree = Tree(plate, OCT, 4);
    for (const gsl_Vector& direction : {gsl_Vector(0, 0, 1), gsl_Vector(0, 0, -1), gsl_Vector(0.1, 0.2, -1)})
        for (const bool nested : {false, true})
        {
            SetSearch search(4, plate, plate);
            ASSERT_TRUE(search.SetDirection(direction));
            const Answer answer = Ask(search, tree, tree, UNLIMITED, nested);
            ASSERT_TRUE(answer.found);
            EXPECT_EQ(answer.travel, 0);
            EXPECT_FALSE(std::signbit(answer.travel));
        }
}

TEST(DirDistSearch, LongListsAreSearchedLikeAllOthers)
{
    // Hundreds of triangles that all straddle the middle: one list at the root, halved by the search itself.
    GeometryDraw draw(31);
    for (int i = 0; i < 6; ++i)
    {
        Set fixedSet;
        Set movableSet;
        for (int k = 0; k < 400; ++k)
        {
            const double angle = draw.Number(0, 3.1);
            const double z = draw.Number(0, 1);
            const double off = draw.Number(-0.3, 0.3);
            const double c = std::cos(angle);
            const double s = std::sin(angle);
            (k % 2 == 0 ? fixedSet : movableSet)
                .push_back({{{-c - off * s, -s + off * c, z},
                             {c - off * s, s + off * c, z + 0.01},
                             {c, s + 0.01, z}}});
        }
        movableSet = Moved(movableSet, {0, 0, -3});
        for (const auto type : {OCT, MOD})
        {
            const gsl_TriOctree fixed = Tree(fixedSet, type, 7);
            const gsl_TriOctree movable = Tree(movableSet, type, 7);
            SetSearch search(7, fixedSet, movableSet);
            ASSERT_TRUE(search.SetDirection({0.01 * i, 0, 1}));
            const Answer every = EveryPair(search, fixedSet, movableSet, UNLIMITED);
            EXPECT_TRUE(every.found);
            EXPECT_EQ(Ask(search, fixed, movable, UNLIMITED), every);
            EXPECT_EQ(Ask(search, fixed, movable, UNLIMITED, true), every);
        }
    }
}

// Every pair meets at the same travel. The lowest of them wins without all being looked at: a hundred million
// would take half a minute.
TEST(DirDistSearch, PartCoveringTrianglesAtOneTravel)
{
    GeometryDraw draw(3);
    Set layers[3];
    for (int k = 0; k < 3; ++k)
        for (int i = 0; i < 10000; ++i)
        {
            const double off = k == 0 ? 0 : draw.Number(0, 0.1);
            layers[k].push_back({{{-1 - off, -1, 0}, {1, -1 - off, 0}, {off, 1 + off, 0}}});
        }
    const Set under = Moved(layers[2], {0, 0, -2});
    const gsl_TriOctree movable = Tree(under, OCT, 5);
    for (const Set& over : {layers[0], layers[1]})
    {
        const gsl_TriOctree fixed = Tree(over, OCT, 5);
        SetSearch search(5, over, under);
        EXPECT_EQ(Ask(search, fixed, movable, UNLIMITED), (Answer{true, 2, 0, 0}));
        EXPECT_LT(search.FixedTriangleCount(), 1000000);
    }
}

TEST(DirDistSearch, NumbersThatAreNoneAreDegenerate)
{
    const double nan = std::nan("");
    const double inf = std::numeric_limits<double>::infinity();
    Set floor = Floor(4, 2);
    const Set under = Floor(4, 0);
    const gsl_TriOctree fixed = Tree(floor, OCT, 4);
    const gsl_TriOctree movable = Tree(under, OCT, 4);
    floor[3] = {{{nan, nan, nan}, {1, 0, 1}, {0, 1, 1}}};
    floor[7] = {{{nan, nan, nan}, {nan, nan, nan}, {nan, nan, nan}}};
    floor[9] = {{{inf, 0, 1}, {1, 0, 1}, {0, 1, 1}}};
    floor[12] = {{{inf, -inf, nan}, {1, 0, 1}, {0, 1, 1}}};
    SetSearch search(4, floor, under);
    EXPECT_EQ(Ask(search, fixed, movable, UNLIMITED), (Answer{true, 2, 0, 0}));
    EXPECT_EQ(Ask(search, fixed, movable, UNLIMITED, true), (Answer{true, 2, 0, 0}));
}

TEST(DirDistSearch, TreesOfTheCallersOwnMaking)
{
    // Children with boxes of their own, and a root that is no gsl_TriOctree's.
    const Set floor = Floor(4, 2);
    const Set under = Moved(Floor(4, 0), {0.25, 0.25, 0});
    gsl_ModOctreeNode root(gsl_BBox(gsl_Point(-1, -1, -1), gsl_Point(9, 9, 9)), 1, -1, nullptr);
    root.BuildOctree(root.Box(), 3);
    root.Build(0, new gsl_TriOctreeNode(gsl_BBox(gsl_Point(0, 0, 0), gsl_Point(3, 3, 3)), 2, 0, &root), 3);
    for (std::size_t i = 0; i < floor.size(); ++i)
        ASSERT_TRUE(root.Add(Of(floor[i][0]), Of(floor[i][1]), Of(floor[i][2]), static_cast<int>(i)));
    const gsl_TriOctree movable = Tree(under, OCT, 3);
    SetSearch search(3, floor, under);
    double travel = UNLIMITED;
    ASSERT_TRUE(search.FindDirectionalDistance(root, *movable.Root(), travel));
    EXPECT_EQ(travel, 2);
    // Part of a tree is a tree.
    const gsl_TriOctreeNode* part = root.Child(0);
    ASSERT_NE(part, nullptr);
    travel = UNLIMITED;
    ASSERT_TRUE(search.FindDirectionalDistance(*part, *movable.Root(), travel));
    EXPECT_EQ(travel, 2);
}
}
