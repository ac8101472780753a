// The trace file of the search: switched on by an environment variable that every constructor reads, written
// to the current folder. Every test works in a folder of its own and restores both.
#include <testing/CommaLocale.h>
#include <testing/ScratchFolder.h>
#include <testing/SetDraw.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

namespace
{
using namespace testing_sets;
constexpr const char* SWITCH = "VDM_TRITRIDIRDIST_DEBUG";
constexpr const char* FILE_NAME = "TriTriDirDist.dat";
constexpr auto OCT = gsl_TriOctree::gsl_OCTREE;

class DirDistTrace : public testing::Test
{
protected:
    void SetUp() override
    {
        former_ = std::filesystem::current_path();
        std::filesystem::current_path(folder_.Path());
        setenv(SWITCH, "", 1); // set, to whatever value
    }
    void TearDown() override
    {
        unsetenv(SWITCH);
        std::filesystem::current_path(former_);
    }
    static std::string Traced()
    {
        std::stringstream text;
        text << std::ifstream(FILE_NAME).rdbuf();
        return text.str();
    }

private:
    ScratchFolder folder_;
    std::filesystem::path former_;
};

const Set FLOOR = {{{{0, 0, 0}, {4, 0, 0}, {0, 4, 0}}}};
const Set LID = {{{{0, 0, 2.5}, {4, 0, 2.5}, {0, 4, 2.5}}}};

TEST_F(DirDistTrace, OnePairToTheLetter)
{
    {
        SetSearch search(1, LID, FLOOR);
        EXPECT_TRUE(search.IsTracing());
        EXPECT_EQ(Ask(search, Tree(LID, OCT, 1), Tree(FLOOR, OCT, 1), UNLIMITED), (Answer{true, 2.5, 0, 0}));
    }
    EXPECT_EQ(Traced(), " Fixed bbox node level 1 and index -1\n"
                        " Movable bbox node level 1 and index -1\n"
                        "  Bbox distance: 2.500000\n"
                        "   Fixed Triangles: 1\n"
                        "   Movable Triangles: 1\n"
                        "  (F 0, M 0): 2.500000\n"
                        "  Distance: 2.500000\n");
}

TEST_F(DirDistTrace, RejectionsToTheLetter)
{
    const Set beside = Moved(LID, {50, 0, 0});
    {
        SetSearch search(1, beside, FLOOR);
        EXPECT_FALSE(Ask(search, Tree(beside, OCT, 1), Tree(FLOOR, OCT, 1), UNLIMITED).found);
    }
    EXPECT_EQ(Traced(), " Fixed bbox node level 1 and index -1\n"
                        " Movable bbox node level 1 and index -1\n"
                        "  BBox did not intersect\n");
    {
        SetSearch search(1, LID, FLOOR); // takes the file over
        EXPECT_FALSE(Ask(search, Tree(LID, OCT, 1), Tree(FLOOR, OCT, 1), 1.25).found);
    }
    EXPECT_EQ(Traced(), " Fixed bbox node level 1 and index -1\n"
                        " Movable bbox node level 1 and index -1\n"
                        "  Bbox distance: 2.500000\n"
                        "  Rejecting based on the face bbox check\n");
}

TEST_F(DirDistTrace, NodesAndRunningTotals)
{
    // Two specks of a lid in opposite octants over one floor.
    const Set lids = {{{{0, 0, 2}, {1, 0, 2}, {0, 1, 2}}}, {{{3, 3, 5}, {4, 3, 5}, {3, 4, 5}}}};
    const Set floors = {{{{0, 0, 0}, {9, 0, 0}, {0, 9, 0}}}};
    {
        SetSearch search(2, lids, floors);
        EXPECT_EQ(Ask(search, Tree(lids, OCT, 2), Tree(floors, OCT, 2), UNLIMITED), (Answer{true, 2, 0, 0}));
    }
    EXPECT_EQ(Traced(), " Fixed bbox node level 1 and index -1\n"
                        " Movable bbox node level 1 and index -1\n"
                        "  Bbox distance: 2.000000\n"
                        " Fixed bbox node level 2 and index 0\n"
                        " Movable bbox node level 1 and index -1\n"
                        "  Bbox distance: 2.000000\n"
                        "   Fixed Triangles: 1\n"
                        "   Movable Triangles: 1\n"
                        "  (F 0, M 0): 2.000000\n"
                        " Fixed bbox node level 2 and index 7\n"
                        " Movable bbox node level 1 and index -1\n"
                        "  Bbox distance: 3.500000\n"
                        "  Rejecting based on the face bbox check\n"
                        "  Distance: 2.000000\n");
}

TEST_F(DirDistTrace, NumbersAreTheSameInEveryLocale)
{
    const CommaLocale locale;
    if (!locale.IsActive())
        GTEST_SKIP() << "no locale with a decimal comma here";
    {
        SetSearch search(1, LID, FLOOR);
        EXPECT_TRUE(Ask(search, Tree(LID, OCT, 1), Tree(FLOOR, OCT, 1), UNLIMITED).found);
    }
    EXPECT_NE(Traced().find("  Distance: 2.500000\n"), std::string::npos);
}

TEST_F(DirDistTrace, StaysOffWhereTheFileCannotBeOpened)
{
    std::filesystem::create_directory(FILE_NAME); // in the file's place
    SetSearch search(1, LID, FLOOR);
    EXPECT_FALSE(search.IsTracing());
    EXPECT_TRUE(Ask(search, Tree(LID, OCT, 1), Tree(FLOOR, OCT, 1), UNLIMITED).found);
    EXPECT_TRUE(std::filesystem::is_empty(FILE_NAME));
}

TEST_F(DirDistTrace, IsFlushedWithEveryPairOfLists)
{
    SetSearch search(1, LID, FLOOR);
    EXPECT_TRUE(Ask(search, Tree(LID, OCT, 1), Tree(FLOOR, OCT, 1), UNLIMITED).found);
    EXPECT_NE(Traced().find("   Movable Triangles: 1\n"), std::string::npos);
}
}
