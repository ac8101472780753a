// The fast search, the nested one and the loop over every pair answer alike, to the last bit and with the
// same pair, on many sets, most of them degenerate; and as an oracle does that knows nothing of trees, boxes
// or stages.
#include <testing/DirDistOracle.h>
#include <testing/SetDraw.h>

#include <functional>
#include <string>
#include <thread>

namespace
{
using namespace testing_sets;

gsl_Matrix Motion(GeometryDraw& draw, int kind)
{
    gsl_Matrix motion;
    if (kind == 1)
    {
        EXPECT_TRUE(motion.AxisRotation(draw.Unit(), draw.Number(-3, 3)));
        motion.SetTranslation({draw.Number(-2, 2), draw.Number(-2, 2), draw.Number(-2, 2)});
    }
    else if (kind == 2)
    {
        // Neither rigid nor near the origin.
        motion.SetRotationVectors({0.5, 0.1, 0}, {0, 2, 0.2}, {0.3, 0, 1});
        motion.SetTranslation({100, -3e4, 7});
    }
    return motion;
}

/// The same answer, the same bits; at travel 0 the first pair met stands, which the searches may choose
/// differently.
void ExpectSame(const Answer& a, const Answer& b)
{
    EXPECT_TRUE(a == b || (a.found && a.travel == 0 && b.found && b.travel == 0)) << a << ", " << b;
}

/// The set where the search sees it, without what it leaves out.
Set Seen(const Set& set, const gsl_Matrix& motion)
{
    Set seen;
    for (const Triangle& t : set)
        if (const Triangle image = Image(motion, t); Of(image).Normal().Magnitude() > 0)
            seen.push_back(image);
    return seen;
}

// As the oracle answers; or, where grazing decides, between its answers for parts displaced by up to twice
// the tolerance.
testing::AssertionResult Agrees(const Answer& answer, const Set& fixed, const Set& movable,
                                const gsl_Vector& u, int& grazing)
{
    const Point direction{u.X(), u.Y(), u.Z()};
    const auto exact = testing_oracle::FirstContact(fixed, movable, direction);
    const double allowed = Allowed(fixed, movable, u, exact.found ? exact.travel : 0);
    if (answer.found == exact.found && (!answer.found || std::fabs(answer.travel - exact.travel) <= allowed))
        return testing::AssertionSuccess();
    ++grazing;
    double low = exact.found ? exact.travel : UNLIMITED;
    double high = low;
    for (int k = 0; k < 32; ++k)
    {
        const double by = k < 16 ? 1e-6 : 2e-6;
        const auto beside = testing_oracle::FirstContact(fixed, movable, direction, by * std::cos(k * 0.3927),
                                                         by * std::sin(k * 0.3927));
        low = std::min(low, beside.found ? beside.travel - 2e-6 : UNLIMITED);
        high = std::max(high, beside.found ? beside.travel + 2e-6 : UNLIMITED);
    }
    if (answer.travel >= low - allowed && answer.travel <= high + allowed)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << answer << ", bracket [" << low << ", " << high << "]";
}

class DirDistSearch : public testing::TestWithParam<SetFamily>
{};

TEST_P(DirDistSearch, AgreesWithTheOracleTheNestedSearchAndEveryPair)
{
    constexpr int CASES = 350;
    GeometryDraw draw(2024);
    int positive = 0;
    int grazing = 0;
    for (int i = 0; i < CASES && !HasFailure(); ++i)
    {
        SCOPED_TRACE(i);
        const SetPair pair = GetParam().draw(draw);
        const int depth = 1 + i % 7;
        const gsl_TriOctree fixed = Tree(pair.fixed, draw.Coin() ? OCT : MOD, depth);
        const gsl_TriOctree movable = Tree(pair.movable, draw.Coin() ? OCT : MOD, depth);
        SetSearch search(depth, pair.fixed, pair.movable);
        ASSERT_TRUE(search.SetDirection(pair.direction));
        search.SetFixedTransform(Motion(draw, i % 5 < 3 ? 0 : i % 5 - 2));
        search.SetReverseFixed(draw.Coin());
        search.SetReverseMovable(draw.Coin());

        const Answer every = EveryPair(search, pair.fixed, pair.movable);
        const Answer fast = Ask(search, fixed, movable);
        ASSERT_TRUE(Agrees(fast, Seen(pair.fixed, search.FixedTransform()), Seen(pair.movable, {}),
                           search.Direction(), grazing));
        ExpectSame(fast, every);
        EXPECT_EQ(Ask(search, fixed, movable), fast) << "a second time";
        EXPECT_FALSE(fast.found && std::signbit(fast.travel)) << "travel 0 has no sign";
        positive += every.found && every.travel > 0;
        for (const double bound :
             {UNLIMITED, every.travel, every.travel * 0.9, every.travel * 1.1, 0.0, -1.0})
        {
            const Answer below = EveryPair(search, pair.fixed, pair.movable, bound);
            ExpectSame(Ask(search, fixed, movable, bound), below);
            ExpectSame(Ask(search, fixed, movable, bound, true), below);
        }
    }
    EXPECT_GT(positive, CASES / 20);
    EXPECT_LE(grazing, CASES / 100);
}

INSTANTIATE_TEST_SUITE_P(Families, DirDistSearch, testing::ValuesIn(SET_FAMILIES),
                         [](const auto& row) { return std::string(row.param.name); });

/// The set as a search of that depth sees it: what lies deeper is replaced by points, which keeps the
/// indices.
Set Counted(const Set& set, const gsl_TriOctreeNode& root, int generations)
{
    Set counted;
    for (const Triangle& t : set)
        counted.push_back({t[0], t[0], t[0]});
    const std::function<void(const gsl_TriOctreeNode&, int)> walk = [&](const auto& node, int left) {
        for (const int index : node.Triangles())
            counted[static_cast<std::size_t>(index)] = set[static_cast<std::size_t>(index)];
        for (int slot = 0; left > 1 && slot < node.GetChildCount(); ++slot)
            if (const gsl_TriOctreeNode* child = node.Child(slot))
                walk(*child, left - 1);
    };
    walk(root, generations);
    return counted;
}

TEST(DirDistSearchDepth, FixedLevelsBeyondTheDepthAreLeftOut)
{
    GeometryDraw draw(8);
    int differs = 0;
    for (int i = 0; i < 120; ++i)
    {
        const Set above = Soup(draw, 40, 3, 0.3);
        const Set below = Moved(Soup(draw, 40, 3, 0.3), {0, 0, -8});
        const gsl_TriOctree fixed = Tree(above, i % 2 == 0 ? OCT : MOD, 6);
        const gsl_TriOctree movable = Tree(below, i % 2 == 0 ? OCT : MOD, 6);
        const int depth = i % 6; // 0 looks at as much as 1
        SetSearch search(depth, above, below);
        const Answer expected = EveryPair(search, Counted(above, *fixed.Root(), depth),
                                          Counted(below, *movable.Root(), depth <= 1 ? 1 : 100));
        ASSERT_EQ(Ask(search, fixed, movable), expected) << i;
        ASSERT_EQ(Ask(search, fixed, movable, UNLIMITED, true), expected) << i;
        // One object tells a tree from its children.
        if (const gsl_TriOctreeNode* child = fixed.Root()->Child(i % 8))
        {
            SetSearch fresh(depth, above, below);
            ASSERT_EQ(Ask(search, *child, *movable.Root()), Ask(fresh, *child, *movable.Root())) << i;
            ASSERT_EQ(Ask(search, fixed, movable), expected) << i;
        }
        differs += !(expected == EveryPair(search, above, below));
    }
    EXPECT_GT(differs, 20);
}

TEST(DirDistSearchDepth, BoxesSmallerThanTheToleranceAreNeverLookedAt)
{
    // Two specks on opposite corners of the box, in cells of half a tolerance at level 8.
    const Set specks = {{{{0, 0, 0}, {3e-8, 0, 0}, {0, 3e-8, 0}}},
                        {{{1e-5, 1e-5, 1e-5}, {1e-5 - 3e-8, 1e-5, 1e-5}, {1e-5, 1e-5 - 3e-8, 1e-5}}}};
    const Set under = {{{{-1, -1, -1}, {1, -1, -1}, {0, 1, -1}}}};
    const gsl_TriOctree movable = Tree(under, OCT, 12);
    SetSearch search(12, specks, under);
    for (const bool nested : {false, true})
    {
        EXPECT_FALSE(Ask(search, Tree(specks, OCT, 12), movable, UNLIMITED, nested).found);
        EXPECT_DOUBLE_EQ(Ask(search, Tree(specks, OCT, 3), movable, UNLIMITED, nested).travel, 1);
    }
}

// Every pair meets at the same travel. The lowest of them wins without all being looked at: a hundred million
// would take half a minute.
TEST(DirDistSearch, PartCoveringTrianglesAtOneTravel)
{
    GeometryDraw draw(3);
    Set layers[2];
    for (int i = 0; i < 20000; ++i)
    {
        const double off = draw.Number(0, 0.1);
        layers[i % 2].push_back(
            {{{-1 - off, -1, i % 2 * -2.0}, {1, -1 - off, i % 2 * -2.0}, {off, 1 + off, i % 2 * -2.0}}});
    }
    SetSearch search(5, layers[0], layers[1]);
    EXPECT_EQ(Ask(search, Tree(layers[0], OCT, 5), Tree(layers[1], OCT, 5)), (Answer{true, 2, 0, 0}));
    EXPECT_LT(search.FixedTriangleCount(), 1000000);
}

// Several searches, each on a thread of its own, over trees that they share and trees that they build.
TEST(DirDistSearch, TreesAreSharedByThreads)
{
    GeometryDraw draw(21);
    const Set above = Soup(draw, 600, 3, 0.4);
    const Set below = Moved(Soup(draw, 600, 3, 0.4), {0, 0, -8});
    const gsl_TriOctree fixed = Tree(above, OCT, 5);
    const gsl_TriOctree movable = Tree(below, MOD, 5);
    Answer answers[4][6];
    std::vector<std::thread> threads;
    for (auto& ofThread : answers)
        threads.emplace_back([&] {
            SetSearch search(5, above, below);
            const gsl_TriOctree own = Tree(above, OCT, 5);
            for (int i = 0; i < 6; ++i)
                if (search.SetDirection({0.05 * i, 0, 1}))
                    ofThread[i] = Ask(search, i % 2 == 0 ? fixed : own, movable, UNLIMITED, i % 3 == 0);
        });
    for (std::thread& thread : threads)
        thread.join();
    SetSearch search(5, above, below);
    for (int i = 0; i < 6; ++i)
    {
        ASSERT_TRUE(search.SetDirection({0.05 * i, 0, 1}));
        for (const auto& ofThread : answers)
            EXPECT_EQ(ofThread[i], Ask(search, fixed, movable)) << i;
    }
}
}
