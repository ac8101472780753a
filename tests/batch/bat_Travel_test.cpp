// `orvex travel` from end to end: the program is run on small parts that the tests make.

#include <array>
#include <cmath>
#include <csignal>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <nlohmann/json.hpp>
#include <sys/stat.h>
#include <testing/MeshWriter.h>
#include <testing/PartShapes.h>
#include <testing/ProgramRun.h>
#include <testing/ScratchFolder.h>

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace
{
using Json = nlohmann::ordered_json;
using PartShapes::Cube;
using PartShapes::Mesh;
using Words = std::vector<std::string>;

const std::string PROGRAM = ORVEX_PROGRAM;

class Travel : public testing::Test
{
protected:
    /// FIXED and MOVABLE on disk, as arguments.
    Words Parts(const Mesh& fixed, const Mesh& movable) const
    {
        return {folder.Write("fixed.off", MeshWriter::Off(fixed)),
                folder.Write("movable.off", MeshWriter::Off(movable))};
    }
    static Words Command(const Words& parts, const Words& options)
    {
        Words command = {PROGRAM, "travel"};
        command.insert(command.end(), parts.begin(), parts.end());
        command.insert(command.end(), options.begin(), options.end());
        return command;
    }
    /// The JSON line of a run, parsed; the run must end with that code.
    Json Run(const Mesh& fixed, const Mesh& movable, Words options, int code) const
    {
        options.insert(options.end(), {"--json", "--quiet"});
        ProgramRun run(Command(Parts(fixed, movable), options));
        EXPECT_EQ(run.Finish().Code(), code) << run.Err();
        EXPECT_EQ(run.Err(), "");
        EXPECT_EQ(run.Out().find('\n'), run.Out().size() - 1) << "one line";
        return Json::parse(run.Out(), nullptr, false);
    }

    ScratchFolder folder;
};

/// The pair re-creates the travel, and the points lie on the triangles named.
void ExpectPairFits(const Json& json, const Mesh& fixed, const Mesh& movable)
{
    const double travel = json["travel"];
    double along = 0.0;
    for (int k = 0; k < 3; ++k)
    {
        const double from = json["movable"]["point"][k];
        const double to = json["fixed"]["point"][k];
        const double step = json["direction"][k];
        EXPECT_NEAR(to - from, travel * step, 1e-9) << json;
        along += (to - from) * step;
    }
    EXPECT_NEAR(along, travel, 1e-9) << json;
    for (const auto& [side, mesh] : {std::pair{"fixed", &fixed}, {"movable", &movable}})
    {
        const std::size_t triangle = json[side]["triangle"];
        ASSERT_LT(triangle, mesh->size() / 9);
        const double* c = &(*mesh)[9 * triangle];
        const double u[3] = {c[3] - c[0], c[4] - c[1], c[5] - c[2]};
        const double v[3] = {c[6] - c[0], c[7] - c[1], c[8] - c[2]};
        const double n[3] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
        double off = 0.0;
        double square = 0.0;
        for (int k = 0; k < 3; ++k)
        {
            const double p = json[side]["point"][k];
            off += (p - c[k]) * n[k];
            square += n[k] * n[k];
            EXPECT_GE(p, std::min({c[k], c[k + 3], c[k + 6]}) - 1e-6) << side << json;
            EXPECT_LE(p, std::max({c[k], c[k + 3], c[k + 6]}) + 1e-6) << side << json;
        }
        EXPECT_NEAR(off / std::sqrt(square), 0.0, 1e-6) << side << json;
    }
}

struct StateRow
{
    const char* what;
    Mesh fixed;
    Mesh movable;
    Words options;
    const char* state;
    double travel; // no meaning when clear

    friend void PrintTo(const StateRow& row, std::ostream* out) { *out << row.what; }
};

class TravelState : public Travel, public testing::WithParamInterface<StateRow>
{};

TEST_P(TravelState, MatchesTableWithBothTreesAndAnyDepth)
{
    const StateRow& row = GetParam();
    const bool clear = std::string(row.state) == "clear";
    for (const Words& trees : {Words{}, Words{"--tree", "mod"}, Words{"--depth", "1"}, Words{"--depth", "20"},
                               Words{"--tree", "mod", "--depth", "3"}})
    {
        Words options = row.options;
        options.insert(options.end(), trees.begin(), trees.end());
        options.push_back("--check");
        const Json json = Run(row.fixed, row.movable, options, clear ? 1 : 0);
        EXPECT_EQ(json["state"], row.state);
        if (clear)
        {
            EXPECT_TRUE(json["travel"].is_null());
            EXPECT_TRUE(json["fixed"]["point"].is_null());
            EXPECT_TRUE(json["movable"]["triangle"].is_null());
            continue;
        }
        EXPECT_NEAR(json["travel"], row.travel, 1e-9);
        ExpectPairFits(json, row.fixed, row.movable);
    }
}

const Mesh CUBE = Cube({0, 0, 0});
const Words UP = {"--dir", "+z"};
// Two plates that stand upright like a plus sign when seen from above, the fixed one 3 higher.
const Mesh PLATE_X = PartShapes::Box({-2, -0.25, 0}, {2, 0.25, 1});
const Mesh PLATE_Y = PartShapes::Box({-0.25, -2, 4}, {0.25, 2, 5});
const Mesh ROOM = PartShapes::Box({-4, -4, -4}, {4, 4, 4});

INSTANTIATE_TEST_SUITE_P(
    Rows, TravelState,
    testing::Values(
        StateRow{"face to face", Cube({0.25, 0.25, 5}), CUBE, UP, "contact", 4.0},
        StateRow{"a corner above an edge", Cube({0.5, 0.5, 7}), CUBE, UP, "contact", 6.0},
        StateRow{
            "along a diagonal", Cube({5, 4.9, 4.8}), CUBE, {"--dir", "1,1,1"}, "contact", 4 * std::sqrt(3.0)},
        StateRow{"downwards", Cube({0.25, 0.25, -5}), CUBE, {"--dir", "-z"}, "contact", 4.0},
        StateRow{"like a plus sign", PLATE_Y, PLATE_X, UP, "contact", 3.0},
        StateRow{"inside, without touching", ROOM, CUBE, UP, "contact", 3.0},
        StateRow{"inside, sideways", ROOM, CUBE, {"--dir", "-1,0,0"}, "contact", 4.0},
        StateRow{"around, without touching", CUBE, ROOM, UP, "contact", 4.0},
        StateRow{"a bound beyond the contact",
                 Cube({0.25, 0.25, 5}),
                 CUBE,
                 {"--dir", "+z", "--bound", "4.5"},
                 "contact",
                 4.0},
        StateRow{"on top", Cube({0.25, 0.25, 1}), CUBE, UP, "touching", 0.0},
        StateRow{"on top, less than the tolerance deep", Cube({0.25, 0.25, 1 - 5e-7}), CUBE, UP, "touching",
                 0.0},
        StateRow{"on top, more than the tolerance deep", Cube({0.25, 0.25, 1 - 4e-6}), CUBE, UP,
                 "overlapping", 0.0},
        StateRow{"corners through walls", Cube({0.5, 0.5, 0.5}), CUBE, UP, "overlapping", 0.0},
        StateRow{"corners through walls, leaving",
                 Cube({0.5, 0.5, 0.5}),
                 CUBE,
                 {"--dir", "-1,-1,-1"},
                 "overlapping",
                 0.0},
        StateRow{"spheres through each other",
                 PartShapes::Sphere({0.7, 0.1, 0.2}, 1, 10),
                 PartShapes::Sphere({0, 0, 0}, 1, 10),
                 {"--dir", "0.3,0.2,1"},
                 "overlapping",
                 0.0},
        StateRow{"past each other", Cube({3, 0, 5}), CUBE, UP, "clear", 0.0},
        StateRow{"what lies behind is no contact", Cube({0.25, 0.25, -5}), CUBE, UP, "clear", 0.0},
        StateRow{"the bound comes before",
                 Cube({0.25, 0.25, 5}),
                 CUBE,
                 {"--dir", "+z", "--bound", "3"},
                 "clear",
                 0.0},
        StateRow{"a contact at the bound is none",
                 Cube({0.25, 0.25, 5}),
                 CUBE,
                 {"--dir", "+z", "--bound", "4"},
                 "clear",
                 0.0}));

TEST_F(Travel, JustBeyondTheContactTheBoundDoesNotMatter)
{
    const Mesh fixed = Cube({0.25, 0.25, 5});
    const Json json = Run(fixed, CUBE, {"--dir", "+z", "--bound", "4.000000000000001"}, 0);
    EXPECT_EQ(json["travel"], 4.0);
    EXPECT_EQ(json["bound"], 4.000000000000001);
}

TEST_F(Travel, TheLineOfJsonIsThisOne)
{
    const Words parts = Parts({0, 0, 5, 4, 0, 5, 0, 4, 5}, {1, 1, 0.25, 2, 1, 0, 1, 2, 0});
    ProgramRun run(Command(parts, {"--dir", "0,0,2", "--bound", "10", "--json"}));
    ASSERT_EQ(run.Finish().Code(), 0) << run.Err();
    const std::string version = Json::parse(run.Out())["version"];
    EXPECT_EQ(run.Out(),
              R"({"schema":"orvex.travel/1","state":"contact","travel":4.75,"bound":10,"tolerance":1e-06,)"
              R"("direction":[0,0,1],"fixed":{"file":")" +
                  parts[0] + R"(","triangles":1,"triangle":0,"point":[1,1,5]},"movable":{"file":")" +
                  parts[1] +
                  R"(","triangles":1,"triangle":0,"point":[1,1,0.25]},)"
                  R"("skipped":{"degenerate":0,"outside":0},"version":")" +
                  version + "\"}\n");
    ProgramRun again(Command(parts, {"--dir", "0,0,2", "--bound", "10", "--json"}));
    EXPECT_EQ(again.Finish().Out(), run.Out());
    ProgramRun asked({PROGRAM, "--version"});
    EXPECT_EQ(asked.Finish().Out(), "orvex " + version + "\n");
    EXPECT_EQ(asked.Code(), 0);
}

// Edge against edge: the points are those of the contact, not corners.
TEST_F(Travel, EdgesTouchWhereTheyCross)
{
    const Mesh ridge = {-3, 0, 5, 3, 0, 5, 0, 2, 9};  // its lower edge runs along x at height 5
    const Mesh crest = {1, -3, 0, 1, 3, 0, 1, 0, -4}; // its upper edge runs along y at height 0
    const Json json = Run(ridge, crest, UP, 0);
    EXPECT_DOUBLE_EQ(json["travel"], 5.0);
    const double onRidge[3] = {1, 0, 5};
    const double onCrest[3] = {1, 0, 0};
    for (int k = 0; k < 3; ++k)
    {
        EXPECT_NEAR(json["fixed"]["point"][k], onRidge[k], 1e-12) << json;
        EXPECT_NEAR(json["movable"]["point"][k], onCrest[k], 1e-12) << json;
    }
}

TEST_F(Travel, SameInputSameBytesOnCurvedParts)
{
    const Words parts =
        Parts(PartShapes::Sphere({0.3, 0.2, 8}, 1.5, 20), PartShapes::Sphere({0, 0, 0}, 1, 17));
    std::string first;
    for (int round = 0; round < 3; ++round)
    {
        ProgramRun run(Command(parts, {"--dir", "0.1,0,1", "--json"}));
        ASSERT_EQ(run.Finish().Code(), 0) << run.Err();
        if (round == 0)
            first = run.Out();
        EXPECT_EQ(run.Out(), first);
    }
}

TEST_F(Travel, TheLengthOfTheDirectionDoesNotMatter)
{
    const Words parts = Parts(Cube({0.25, 0.25, 5}), CUBE);
    std::string first;
    for (const char* direction :
         {"+z", "0,0,1", "0,0,7.5", "0,0,1e-300", "0,0,1e300", "0,0,5e-324", "1e-320,0,1e300"})
    {
        ProgramRun run(Command(parts, {"--dir", direction, "--json"}));
        ASSERT_EQ(run.Finish().Code(), 0) << direction << run.Err();
        if (first.empty())
            first = run.Out();
        EXPECT_EQ(run.Out(), first) << direction;
    }
    EXPECT_THAT(first, HasSubstr("\"travel\":4,"));
}

TEST_F(Travel, TheFormatIsToldFromTheContent)
{
    const Mesh fixed = Cube({0.25, 0.25, 5});
    const Words files = {folder.Write("a.obj", MeshWriter::StlBinary(fixed)),
                         folder.Write("a.stl", MeshWriter::StlAscii(fixed)),
                         folder.Write("a.off", MeshWriter::Obj(fixed)),
                         folder.Write("a", MeshWriter::Off(fixed))};
    const std::string movable = folder.Write("movable.off", MeshWriter::Off(CUBE));
    for (const std::string& file : files)
    {
        ProgramRun run({PROGRAM, "travel", file, movable, "--dir", "+z", "--json"});
        EXPECT_EQ(run.Finish().Code(), 0) << run.Err();
        EXPECT_THAT(run.Out(), HasSubstr("\"travel\":4,")) << file;
    }
}

TEST_F(Travel, DegenerateTrianglesAreCountedAndPassedOver)
{
    Mesh fixed = Cube({0.25, 0.25, 5});
    PartShapes::AddTriangle(fixed, {0.5, 0.5, 2}, {0.5, 0.5, 2}, {0.5, 0.5, 2});
    PartShapes::AddTriangle(fixed, {0, 0, 3}, {0.5, 0.5, 3}, {1, 1, 3});
    const Json json = Run(fixed, CUBE, {"--dir", "+z", "--check"}, 0);
    EXPECT_EQ(json["travel"], 4.0);
    EXPECT_EQ(json["skipped"]["degenerate"], 2);
    EXPECT_EQ(json["skipped"]["outside"], 0);
    EXPECT_EQ(json["fixed"]["triangles"], 14);
}

TEST_F(Travel, SmallPartsFindTheirContactTooAndSaySo)
{
    const Words parts = Parts(PartShapes::Scaled(PartShapes::Sphere({0, 0, 4}, 1, 6), 1e-5),
                              PartShapes::Scaled(PartShapes::Sphere({0, 0, 0}, 1, 6), 1e-5));
    ProgramRun run(Command(parts, {"--dir", "+z", "--json", "--check"}));
    ASSERT_EQ(run.Finish().Code(), 0) << run.Err();
    EXPECT_NEAR(Json::parse(run.Out())["travel"], 2e-5, 1e-9);
    EXPECT_THAT(run.Err(), HasSubstr(parts[0] + " is so small that the trees stop at depth "));
    EXPECT_THAT(run.Err(), HasSubstr("agrees"));
}

TEST_F(Travel, TheCheckSaysOverHowManyPairsItAgrees)
{
    ProgramRun run(Command(Parts(Cube({0.25, 0.25, 5}), CUBE), {"--dir", "+z", "--check", "--no-progress"}));
    ASSERT_EQ(run.Finish().Code(), 0) << run.Err();
    EXPECT_THAT(run.Err(), testing::MatchesRegex("orvex: check: brute force over [0-9 ]+ pairs agrees\n"));
}

TEST_F(Travel, PeopleReadLabelledLines)
{
    const Words parts = Parts({0, 0, 5, 4, 0, 5, 0, 4, 5}, {1, 1, 0.25, 2, 1, 0, 1, 2, 0});
    ProgramRun run(Command(parts, {"--dir", "+z"}));
    ASSERT_EQ(run.Finish().Code(), 0);
    EXPECT_EQ(run.Out(), "travel    4.75 along (0, 0, 1)\n"
                         "state     contact: the movable part goes that far, then touches\n"
                         "fixed     " +
                             parts[0] +
                             ", triangle 0 of 1 at (1, 1, 5)\n"
                             "movable   " +
                             parts[1] +
                             ", triangle 0 of 1 at (1, 1, 0.25) before the travel\n"
                             "sizes     fixed 4 x 4 x 0, movable 1 x 1 x 0.25\n");
}

TEST_F(Travel, ALineEachTenPercentOnTheErrorStream)
{
    const Words parts = Parts(Cube({0.25, 0.25, 5}), CUBE);
    ProgramRun run(Command(parts, {"--dir", "+z"}));
    run.Finish();
    int last = 0;
    int lines = 0;
    std::istringstream err(run.Err());
    for (std::string line; std::getline(err, line);)
    {
        int percent = 0;
        ASSERT_EQ(std::sscanf(line.c_str(), "%3d %%  ", &percent), 1) << line;
        EXPECT_EQ(percent % 10, 0) << line;
        EXPECT_GT(percent, last) << line;
        last = percent;
        ++lines;
    }
    EXPECT_EQ(last, 100);
    EXPECT_GT(lines, 3);
    EXPECT_THAT(run.Err(), Not(HasSubstr("\r")));

    for (const char* silence : {"--no-progress", "--quiet"})
    {
        ProgramRun silent(Command(parts, {"--dir", "+z", silence}));
        EXPECT_EQ(silent.Finish().Err(), "") << silence;
        EXPECT_EQ(silent.Out(), run.Out()) << silence;
    }
}

TEST_F(Travel, OnATerminalABarThatEndsWithItsLine)
{
    ProgramRun::Setting setting;
    setting.terminal = true;
    ProgramRun run(Command(Parts(Cube({0.25, 0.25, 5}), CUBE), {"--dir", "+z"}), setting);
    EXPECT_EQ(run.Finish().Code(), 0);
    EXPECT_THAT(run.Err(), HasSubstr("[##############################] 100 % done"));
    EXPECT_THAT(run.Err(), StartsWith("\r\033[K["));
    EXPECT_EQ(run.Err().substr(run.Err().size() - 2), "\r\n") << "the terminal's line end";
    EXPECT_THAT(run.Out(), StartsWith("travel    4 "));
}

struct UsageRow
{
    const char* what;
    Words arguments; // F and M stand for the two files
    const char* sentence;

    friend void PrintTo(const UsageRow& row, std::ostream* out) { *out << row.what; }
};

class TravelUsage : public Travel, public testing::WithParamInterface<UsageRow>
{};

TEST_P(TravelUsage, IsRefusedWithASentence)
{
    const Words parts = Parts(Cube({0.25, 0.25, 5}), CUBE);
    Words command = {PROGRAM};
    for (const std::string& word : GetParam().arguments)
        command.push_back(word == "F" ? parts[0] : word == "M" ? parts[1] : word);
    ProgramRun run(command);
    EXPECT_EQ(run.Finish().Code(), 2);
    EXPECT_EQ(run.Out(), "");
    EXPECT_THAT(run.Err(), HasSubstr(GetParam().sentence));
    EXPECT_THAT(run.Err(), StartsWith("orvex: "));
    EXPECT_EQ(run.Err().find('\n'), run.Err().size() - 1) << "one line";
}

INSTANTIATE_TEST_SUITE_P(
    Rows, TravelUsage,
    testing::Values(
        UsageRow{"no direction", {"travel", "F", "M"}, "--dir is required"},
        UsageRow{"no movable part", {"travel", "F", "--dir", "+z"}, "MOVABLE is required"},
        UsageRow{"no parts", {"travel", "--dir", "+z"}, "FIXED is required"},
        UsageRow{"three parts", {"travel", "F", "M", "M", "--dir", "+z"}, "not expected"},
        UsageRow{"no such option", {"travel", "F", "M", "--dir", "+z", "--bond", "3"}, "--bond"},
        UsageRow{"no such subcommand", {"trvel", "F", "M"}, "trvel"},
        UsageRow{"no length",
                 {"travel", "F", "M", "--dir", "0,0,0"},
                 "--dir 0,0,0: a direction needs a length above zero"},
        UsageRow{"two numbers", {"travel", "F", "M", "--dir", "0,1"}, "--dir 0,1: write three numbers"},
        UsageRow{
            "bound 0", {"travel", "F", "M", "--dir", "+z", "--bound", "0"}, "--bound 0: must be above 0"},
        UsageRow{"bound below 0",
                 {"travel", "F", "M", "--dir", "+z", "--bound", "-4"},
                 "--bound -4: must be above 0"},
        UsageRow{"bound no number",
                 {"travel", "F", "M", "--dir", "+z", "--bound", "far"},
                 "--bound far: not a number"},
        UsageRow{
            "bound nan", {"travel", "F", "M", "--dir", "+z", "--bound", "nan"}, "--bound nan: not a number"},
        UsageRow{"bound empty", {"travel", "F", "M", "--dir", "+z", "--bound", ""}, "--bound"},
        UsageRow{"depth 0", {"travel", "F", "M", "--dir", "+z", "--depth", "0"}, "--depth"},
        UsageRow{"depth 21", {"travel", "F", "M", "--dir", "+z", "--depth", "21"}, "--depth"},
        UsageRow{"depth 2.5", {"travel", "F", "M", "--dir", "+z", "--depth", "2.5"}, "--depth"},
        UsageRow{"no such tree", {"travel", "F", "M", "--dir", "+z", "--tree", "quad"}, "--tree"},
        UsageRow{"two directions", {"travel", "F", "M", "--dir", "+z", "--dir", "+x"}, "--dir"}));

TEST_F(Travel, WithoutArgumentsTheHelpGoesToTheErrorStream)
{
    ProgramRun run({PROGRAM});
    EXPECT_EQ(run.Finish().Code(), 2);
    EXPECT_EQ(run.Out(), "");
    EXPECT_THAT(run.Err(), HasSubstr("travel"));
}

TEST_F(Travel, NegativeDirectionsNeedNoQuotes)
{
    const Words parts = Parts(Cube({0.25, 0.25, -5}), CUBE);
    for (const Words& direction : {Words{"--dir", "-z"}, Words{"--dir=-z"}, Words{"--dir", "-0,0,-.5"}})
    {
        ProgramRun run(Command(parts, direction));
        EXPECT_EQ(run.Finish().Code(), 0) << direction[0];
        EXPECT_THAT(run.Out(), StartsWith("travel    4 along (0, 0, -1)\n"));
    }
}

TEST_F(Travel, UnreadablePartsAreInputErrors)
{
    const std::string good = folder.Write("good.off", MeshWriter::Off(CUBE));
    const std::string empty = folder.Write("empty.stl", "");
    const std::string nan = folder.Write("nan.off", "OFF\n3 1 0\n0 0 0\n1 nan 0\n0 1 0\n3 0 1 2\n");
    const std::string text = folder.Write("text.stl", "this is no mesh\n");
    const std::string huge = folder.Write("huge.off", "OFF\n3 1 0\n0 0 0\n1e200 0 0\n0 1 0\n3 0 1 2\n");
    const std::string tiny = folder.Write("tiny.off", MeshWriter::Off(PartShapes::Scaled(CUBE, 1e-7)));
    for (const std::string& bad : {folder / "none.stl", folder.Path(), empty, nan, text, huge, tiny})
        for (const bool first : {true, false})
        {
            if (bad == tiny && !first)
                continue; // a tiny movable part is no trouble
            ProgramRun run(
                {PROGRAM, "travel", first ? bad : good, first ? good : bad, "--dir", "+z", "--quiet"});
            EXPECT_EQ(run.Finish().Code(), 3) << bad;
            EXPECT_EQ(run.Out(), "");
            EXPECT_THAT(run.Err(), StartsWith("orvex: " + bad)) << "one sentence that names the file";
            EXPECT_EQ(run.Err().find('\n'), run.Err().size() - 1) << run.Err();
        }
}

TEST_F(Travel, AResultThatCannotBeWrittenIsAFault)
{
    if (!std::filesystem::exists("/dev/full"))
        GTEST_SKIP() << "no /dev/full here";
    ProgramRun::Setting setting;
    setting.outFile = "/dev/full";
    ProgramRun run(Command(Parts(Cube({0.25, 0.25, 5}), CUBE), {"--dir", "+z", "--quiet"}), setting);
    EXPECT_EQ(run.Finish().Code(), 5);
    EXPECT_EQ(run.Err(), "orvex: cannot write the result to standard output\n");
}

/// Each triangle covers the whole part, so that all pairs overlap across the direction, and all start at the
/// same height z, from which they rise by so much each: no pair is farther than another.
std::string Fan(int triangles, double z, double rise)
{
    Mesh mesh;
    for (int i = 0; i < triangles; ++i)
        PartShapes::AddTriangle(mesh, {0, 0, z}, {100, 100, z + rise * i}, {100, 0, z});
    return MeshWriter::StlBinary(mesh);
}

TEST_F(Travel, AnInfeasibleCheckIsRefusedBeforeAnythingIsSearched)
{
    const std::string fixed = folder.Write("fixed.stl", Fan(80000, 200000, 1));
    const std::string movable = folder.Write("movable.stl", Fan(80000, 0, -1));
    ProgramRun run({PROGRAM, "travel", fixed, movable, "--dir", "+z", "--check", "--no-progress"});
    EXPECT_EQ(run.Finish().Code(), 2);
    EXPECT_EQ(run.Out(), "");
    EXPECT_THAT(run.Err(),
                HasSubstr("--check: brute force would have to look at 6 400 000 000 pairs of triangles, more "
                          "than the 5 000 000 000 that take a bearable time"));
}

TEST_F(Travel, TheExamplesOfTheHelpRun)
{
    ProgramRun help({PROGRAM, "travel", "--help"});
    ASSERT_EQ(help.Finish().Code(), 0);
    EXPECT_EQ(help.Err(), "");
    for (const char* option : {"--dir", "--bound", "--depth", "--tree", "--json", "--check", "--quiet",
                               "--no-progress", "--help", "--version"})
        EXPECT_THAT(help.Out(), HasSubstr(option));

    std::istringstream lines(help.Out().substr(help.Out().find("Examples")));
    std::string line;
    std::getline(lines, line);
    int programs = 0;
    while (std::getline(lines, line))
    {
        if (line.find_first_not_of(' ') == std::string::npos)
            continue;
        ProgramRun::Setting setting;
        setting.folder = folder.Path();
        const std::string folderOfProgram = std::filesystem::path(PROGRAM).parent_path().string();
        ProgramRun run({"/bin/sh", "-c", "PATH=" + folderOfProgram + ":$PATH;" + line}, setting);
        EXPECT_EQ(run.Finish().Code(), 0) << line << "\n" << run.Err();
        programs += run.Out().find("contact") != std::string::npos;
    }
    EXPECT_GE(programs, 2) << "two examples that find a contact";
}

TEST_F(Travel, CtrlCWhileAFileIsReadStopsAtOnce)
{
    const std::string pipe = folder / "pipe.stl";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string good = folder.Write("good.off", MeshWriter::Off(CUBE));
    ProgramRun run({PROGRAM, "travel", good, pipe, "--dir", "+z"});
    // Then it waits for the second file, which never comes.
    ASSERT_TRUE(run.WaitForErr("20 %  reading " + good)) << run.Err();
    run.Signal(SIGINT);
    EXPECT_EQ(run.Finish().Code(), 130);
    EXPECT_THAT(run.Err(), HasSubstr("orvex: interrupted\n"));
    EXPECT_EQ(run.Out(), "");
}

TEST_F(Travel, CtrlCInALongComputationEndsIt)
{
    const std::string fixed = folder.Write("fixed.stl", Fan(60000, 200000, 1));
    const std::string movable = folder.Write("movable.stl", Fan(60000, 0, -1));
    ProgramRun run({PROGRAM, "travel", fixed, movable, "--dir", "+z", "--check"});
    ASSERT_TRUE(run.WaitForErr("20 %  reading")) << run.Err();
    run.Signal(SIGINT);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(run.Finish().Code(), 130) << run.Err();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10))
        << "generous: the machine may be busy";
    EXPECT_THAT(run.Err(), HasSubstr("orvex: interrupted\n"));
    EXPECT_EQ(run.Out(), "");
}
}
