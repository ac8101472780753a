// The trace file of the search: switched on by an environment variable that every constructor reads, written
// to the current folder. Every test works in a folder of its own and restores both.
#include <testing/CommaLocale.h>
#include <testing/ScratchFolder.h>
#include <testing/SetDraw.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace
{
using namespace testing_sets;
constexpr const char* SWITCH = "VDM_TRITRIDIRDIST_DEBUG";
constexpr const char* FILE_NAME = "TriTriDirDist.dat";

class DirDistTrace : public testing::Test
{
protected:
    void SetUp() override
    {
        std::filesystem::current_path(folder_.Path());
        setenv(SWITCH, "", 1); // set, to whatever value
    }
    void TearDown() override
    {
        unsetenv(SWITCH);
        std::filesystem::current_path(former_);
    }

private:
    const std::filesystem::path former_ = std::filesystem::current_path();
    ScratchFolder folder_;
};

// Three specks of a lid over one floor: met, met later than the first, and not met.
const Set LIDS = {{{{0, 0, 2.5}, {1, 0, 2.5}, {0, 1, 2.5}}},
                  {{{3, 3, 5.5}, {4, 3, 5.5}, {3, 4, 5.5}}},
                  {{{18, 18, 3.5}, {20, 18, 2.5}, {18, 20, 2.5}}}};
const Set FLOOR = {{{{0, 0, 0}, {9, 0, 0}, {0, 9, 0}}}};

TEST_F(DirDistTrace, TellsTheSearchToTheLetterInEveryLocale)
{
    const CommaLocale locale;
    for (int i = 0; i < 2; ++i) // the second search takes the file over
    {
        SetSearch search(2, LIDS, FLOOR);
        EXPECT_TRUE(search.IsTracing());
        EXPECT_EQ(Ask(search, Tree(LIDS, OCT, 2), Tree(FLOOR, OCT, 2)), (Answer{true, 2.5, 0, 0}));
    }
    std::stringstream text;
    text << std::ifstream(FILE_NAME).rdbuf();
    EXPECT_EQ(text.str(), " Fixed bbox node level 1 and index -1\n"
                          " Movable bbox node level 1 and index -1\n"
                          "  Bbox distance: 2.500000\n"
                          " Fixed bbox node level 2 and index 0\n"
                          " Movable bbox node level 1 and index -1\n"
                          "  Bbox distance: 2.500000\n"
                          "   Fixed Triangles: 1\n"
                          "   Movable Triangles: 1\n"
                          "  (F 0, M 0): 2.500000\n"
                          " Fixed bbox node level 2 and index 3\n"
                          " Movable bbox node level 1 and index -1\n"
                          "  BBox did not intersect\n"
                          " Fixed bbox node level 2 and index 4\n"
                          " Movable bbox node level 1 and index -1\n"
                          "  Bbox distance: 4.000000\n"
                          "  Rejecting based on the face bbox check\n"
                          "  Distance: 2.500000\n");
}

TEST_F(DirDistTrace, StaysOffWhereTheFileCannotBeOpened)
{
    std::filesystem::create_directory(FILE_NAME); // in the file's place
    SetSearch search(2, LIDS, FLOOR);
    EXPECT_FALSE(search.IsTracing());
    EXPECT_TRUE(Ask(search, Tree(LIDS, OCT, 2), Tree(FLOOR, OCT, 2)).found);
    EXPECT_TRUE(std::filesystem::is_empty(FILE_NAME));
}
}
