// `orvex travel` from end to end: the program is run on small parts that the tests make.

#include <array>
#include <csignal>
#include <filesystem>
#include <gmock/gmock.h>
#include <gsl_Triangle.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <set>
#include <sys/stat.h>
#include <testing/MeshWriter.h>
#include <testing/PartShapes.h>
#include <testing/ProgramRun.h>
#include <testing/ScratchFolder.h>

using testing::HasSubstr;
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
    for (int k = 0; k < 3; ++k)
    {
        const double from = json["movable"]["point"][k];
        EXPECT_NEAR(json["fixed"]["point"][k], from + travel * double(json["direction"][k]), 1e-9) << json;
    }
    for (const auto& [side, mesh] : {std::pair{"fixed", &fixed}, {"movable", &movable}})
    {
        const std::size_t triangle = json[side]["triangle"];
        ASSERT_LT(triangle, mesh->size() / 9);
        const double* c = &(*mesh)[9 * triangle];
        const auto& p = json[side]["point"];
        const gsl_Triangle named(gsl_Point(c), gsl_Point(c + 3), gsl_Point(c + 6));
        EXPECT_TRUE(named.Contains(gsl_Point(p[0], p[1], p[2]))) << side << json;
    }
}

const Mesh CUBE = Cube({0, 0, 0});
const Mesh ABOVE = Cube({0.25, 0.25, 5});
const Words UP = {"--dir", "+z"};
// Two plates that stand upright like a plus sign when seen from above, the fixed one 3 higher.
const Mesh PLATE_X = PartShapes::Box({-2, -0.25, 0}, {2, 0.25, 1});
const Mesh PLATE_Y = PartShapes::Box({-0.25, -2, 4}, {0.25, 2, 5});
const Mesh RIDGE = {-3, 0, 5, 3, 0, 5, 0, 2, 9};  // its lower edge runs along x at height 5
const Mesh CREST = {1, -3, 0, 1, 3, 0, 1, 0, -4}; // its upper edge runs along y at height 0
const Mesh ROOM = PartShapes::Box({-4, -4, -4}, {4, 4, 4});

/// With a triangle that is a point, and one that is a line, in the way.
Mesh AboveWithDegenerates()
{
    Mesh mesh = ABOVE;
    PartShapes::AddTriangle(mesh, {0.5, 0.5, 2}, {0.5, 0.5, 2}, {0.5, 0.5, 2});
    PartShapes::AddTriangle(mesh, {0, 0, 3}, {0.5, 0.5, 3}, {1, 1, 3});
    return mesh;
}

TEST_F(Travel, StatesWithBothTreesAndAnyDepth)
{
    struct Row
    {
        const char* what;
        Mesh fixed, movable;
        const char *direction, *bound, *state;
        double travel; // no meaning when clear
    };
    const Row rows[] = {
        {"face to face", ABOVE, CUBE, "+z", "4.000000000000001", "contact", 4},
        {"degenerate triangles in the way", AboveWithDegenerates(), CUBE, "+z", "9", "contact", 4},
        {"the bound is no way to go", ABOVE, CUBE, "+z", "4", "clear", 0},
        {"downwards", Cube({0.25, 0.25, -5}), CUBE, "-z", "9", "contact", 4},
        {"like a plus sign", PLATE_Y, PLATE_X, "0,0,1", "9", "contact", 3},
        {"inside, without touching", ROOM, CUBE, "-0,0,.5", "9", "contact", 3},
        {"on top", Cube({0.25, 0.25, 1}), CUBE, "+z", "9", "touching", 0},
        {"on top, less than the tolerance deep", Cube({0.25, 0.25, 1 - 5e-7}), CUBE, "+z", "9", "touching",
         0},
        {"on top, more than it", Cube({0.25, 0.25, 1 - 4e-6}), CUBE, "+z", "9", "overlapping", 0},
        {"corners through walls", Cube({0.5, 0.5, 0.5}), CUBE, "-1,-1,-1", "9", "overlapping", 0},
        {"edge against edge", RIDGE, CREST, "+z", "9", "contact", 5},
        {"past each other", Cube({3, 0, 5}), CUBE, "+z", "9", "clear", 0},
        {"what lies behind is no contact", Cube({0.25, 0.25, -5}), CUBE, "+z", "9", "clear", 0}};
    for (const Row& row : rows)
        for (const char* tree : {"oct", "mod"})
            for (const char* depth : {"1", "20"})
            {
                SCOPED_TRACE(row.what);
                const bool clear = std::string(row.state) == "clear";
                const Json json = Run(row.fixed, row.movable,
                                      {"--dir", row.direction, "--bound", row.bound, "--tree", tree,
                                       "--depth", depth, "--check"},
                                      clear ? 1 : 0);
                EXPECT_EQ(json["state"], row.state);
                EXPECT_EQ(json["bound"], std::stod(row.bound));
                EXPECT_EQ(json["travel"].is_null(), clear);
                const bool degenerate = row.fixed.size() == 14 * 9;
                EXPECT_EQ(json["skipped"].dump(),
                          degenerate ? R"({"degenerate":2,"outside":0})" : R"({"degenerate":0,"outside":0})");
                if (clear)
                    continue;
                EXPECT_NEAR(json["travel"], row.travel, 1e-9);
                ExpectPairFits(json, row.fixed, row.movable);
            }
}

// Same input, same bytes: the length of the direction and the format of the files do not matter.
TEST_F(Travel, TheLineOfJsonIsThatOfTheInput)
{
    const Words parts = Parts({0, 0, 5, 4, 0, 5, 0, 4, 5}, {1, 1, 0.25, 2, 1, 0, 1, 2, 0});
    std::set<std::string> lines;
    for (const char* direction : {"+z", "0,0,7.5", "0,0,1e300", "0,0,5e-324", "1e-320,0,1e300"})
    {
        ProgramRun run(Command(parts, {"--dir", direction, "--bound", "10", "--json"}));
        ASSERT_EQ(run.Finish().Code(), 0) << direction << run.Err();
        lines.insert(run.Out());
    }
    ASSERT_EQ(lines.size(), 1u);
    const Json json = Json::parse(*lines.begin());
    EXPECT_EQ(json["travel"], 4.75);
    EXPECT_EQ(json["fixed"].dump(),
              R"({"file":")" + parts[0] + R"(","triangles":1,"triangle":0,"point":[1,1,5]})");
    EXPECT_EQ(json["movable"].dump(),
              R"({"file":")" + parts[1] + R"(","triangles":1,"triangle":0,"point":[1,1,0.25]})");
    ProgramRun asked({PROGRAM, "--version"});
    ASSERT_EQ(asked.Finish().Code(), 0);
    EXPECT_EQ(asked.Out(), "orvex " + std::string(json["version"]) + "\n");
    lines.clear();
    for (const std::string& bytes :
         {MeshWriter::StlBinary(ABOVE), MeshWriter::StlAscii(ABOVE), MeshWriter::Obj(ABOVE)})
    {
        ProgramRun run(
            {PROGRAM, "travel", folder.Write("fixed.off", bytes), parts[1], "--dir", "+z", "--json"});
        EXPECT_EQ(run.Finish().Code(), 0) << run.Err();
        lines.insert(run.Out());
    }
    EXPECT_EQ(lines.size(), 1u);
}

TEST_F(Travel, SmallPartsFindTheirContactTooAndSaySo)
{
    const Words parts = Parts(PartShapes::Scaled(PartShapes::Sphere({0, 0, 4}, 1, 6), 1e-5),
                              PartShapes::Scaled(PartShapes::Sphere({0, 0, 0}, 1, 6), 1e-5));
    ProgramRun run(Command(parts, {"--dir", "+z", "--json", "--check", "--no-progress"}));
    ASSERT_EQ(run.Finish().Code(), 0) << run.Err();
    EXPECT_NEAR(Json::parse(run.Out())["travel"], 2e-5, 1e-9);
    EXPECT_THAT(run.Err(),
                testing::MatchesRegex("orvex: note: " + parts[0] +
                                      " is so small that the trees stop at depth [0-9], where their boxes "
                                      "come near the tolerance\norvex: check: brute force over [0-9 ]+ "
                                      "pairs agrees\n"));
}

TEST_F(Travel, ALineEachTenPercentOnTheErrorStream)
{
    const Words parts = Parts(ABOVE, CUBE);
    ProgramRun run(Command(parts, UP));
    EXPECT_EQ(run.Finish().Code(), 0);
    EXPECT_THAT(run.Out(), StartsWith("travel    4 along (0, 0, 1)\n"
                                      "state     contact: the movable part goes that far, then touches\n"));
    EXPECT_THAT(run.Err(), testing::MatchesRegex("( [1-9]0 %  [^\n]*\n)+100 %  [^\n]*\n"));
    for (const char* silence : {"--no-progress", "--quiet"})
    {
        ProgramRun silent(Command(parts, {"--dir", "+z", silence}));
        EXPECT_EQ(silent.Finish().Err(), "") << silence;
        EXPECT_EQ(silent.Out(), run.Out()) << silence;
    }
    ProgramRun::Setting setting;
    setting.terminal = true;
    ProgramRun bar(Command(parts, UP), setting);
    EXPECT_EQ(bar.Finish().Code(), 0);
    EXPECT_THAT(bar.Err(), StartsWith("\r\033[K["));
    EXPECT_THAT(bar.Err(), testing::EndsWith("[##############################] 100 % done\r\n"));
}

void ExpectRefused(const Words& command, int code, const std::string& sentence,
                   const ProgramRun::Setting& setting = {})
{
    SCOPED_TRACE(sentence);
    ProgramRun run(command, setting);
    EXPECT_EQ(run.Finish().Code(), code);
    EXPECT_EQ(run.Out(), "");
    EXPECT_THAT(run.Err(), testing::AllOf(StartsWith("orvex: "), HasSubstr(sentence)));
    EXPECT_EQ(run.Err().find('\n'), run.Err().size() - 1) << "one line";
}

TEST_F(Travel, WrongUsageIsRefusedWithASentence)
{
    const Words parts = Parts(ABOVE, CUBE);
    // F and M stand for the two files.
    for (const auto& [options, sentence] :
         {std::pair{"travel F M", "--dir is required"},
          {"travel F --dir +z", "MOVABLE is required"},
          {"travel F M M --dir +z", "not expected"},
          {"travel F M --dir +z --bond 3", "--bond"},
          {"trvel F M", "trvel: no such subcommand (see orvex --help)"},
          {"travel F M --dir 0,0,0", "--dir 0,0,0: a direction needs a length above zero"},
          {"travel F M --dir +z --bound 0", "--bound 0: must be above 0; leave it out for no bound"},
          {"travel F M --dir +z --bound nan", "--bound nan: not a number that can be a length"},
          {"travel F M --dir +z --depth 0", "--depth"},
          {"travel F M --dir +z --depth 21", "--depth"},
          {"travel F M --dir +z --tree quad", "--tree"},
          {"travel F M --dir +z --dir +x", "--dir"}})
    {
        Words command = {PROGRAM};
        std::istringstream words(options);
        for (std::string word; words >> word;)
            command.push_back(word == "F" ? parts[0] : word == "M" ? parts[1] : word);
        ExpectRefused(command, 2, sentence);
    }
    ProgramRun run({PROGRAM});
    EXPECT_EQ(run.Finish().Code(), 2);
    EXPECT_TRUE(run.Out().empty() && !run.Err().empty()) << "the help goes to the error stream";
}

TEST_F(Travel, UnreadablePartsAndUnwritableResultsAreRefused)
{
    const std::string good = folder.Write("good.off", MeshWriter::Off(CUBE));
    const std::string text = folder.Write("text.stl", "this is no mesh\n");
    const std::string huge = folder.Write("huge.off", "OFF\n3 1 0\n0 0 0\n1e200 0 0\n0 1 0\n3 0 1 2\n");
    const std::string tiny = folder.Write("tiny.off", MeshWriter::Off(PartShapes::Scaled(CUBE, 1e-7)));
    for (const auto& [fixed, movable] :
         {std::pair{folder / "none.stl", good}, {good, text}, {huge, good}, {tiny, good}})
        ExpectRefused(Command({fixed, movable}, {"--dir", "+z", "--quiet"}), 3,
                      "orvex: " + (fixed == good ? movable : fixed));
    ProgramRun::Setting full;
    full.outFile = "/dev/full";
    ExpectRefused(Command({good, good}, {"--dir", "+z", "--quiet"}), 5,
                  "orvex: cannot write the result to standard output\n", full);
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
    ProgramRun run({PROGRAM, "travel", folder.Write("fixed.stl", Fan(80000, 200000, 1)),
                    folder.Write("movable.stl", Fan(80000, 0, -1)), "--dir", "+z", "--check",
                    "--no-progress"});
    EXPECT_EQ(run.Finish().Code(), 2);
    EXPECT_EQ(run.Out(), "");
    EXPECT_THAT(run.Err(),
                HasSubstr("--check: brute force would have to look at 6 400 000 000 pairs of triangles, more "
                          "than the 5 000 000 000 that take a bearable time: check coarser meshes"));
}

TEST_F(Travel, TheExamplesOfTheHelpRun)
{
    ProgramRun help({PROGRAM, "travel", "--help"});
    ASSERT_EQ(help.Finish().Code(), 0);
    for (const char* option : {"--dir", "--bound", "--depth", "--tree", "--json", "--check", "--quiet",
                               "--no-progress", "--help", "--version"})
        EXPECT_THAT(help.Out(), HasSubstr(option));
    ProgramRun::Setting setting;
    setting.folder = folder.Path();
    const std::string examples = help.Out().substr(help.Out().find("Examples"));
    const std::string path = std::filesystem::path(PROGRAM).parent_path().string();
    ProgramRun run({"/bin/sh", "-ec", "PATH=" + path + ":$PATH" + examples.substr(examples.find('\n'))},
                   setting);
    EXPECT_EQ(run.Finish().Code(), 0) << run.Err();
    EXPECT_THAT(run.Out(), testing::ContainsRegex("contact.*\n(.*\n)*.*\"contact\""))
        << "two that find a contact";
}

// In a reader that waits for a pipe which stays empty, and in a long computation.
TEST_F(Travel, CtrlCStopsAtOnce)
{
    const std::string pipe = folder / "pipe.stl";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string fixed = folder.Write("fixed.stl", Fan(60000, 200000, 1));
    for (const std::string& movable : {pipe, folder.Write("movable.stl", Fan(60000, 0, -1))})
    {
        ProgramRun run(
            {PROGRAM, "travel", fixed, movable, "--dir", "+z", movable == pipe ? "--json" : "--check"});
        ASSERT_TRUE(run.WaitForErr(movable == pipe ? "20 %  reading " : "10 %  reading ")) << run.Err();
        run.Signal(SIGINT);
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(run.Finish().Code(), 130) << run.Err();
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10))
            << "generous: the machine may be busy";
        EXPECT_THAT(run.Err(), testing::EndsWith("orvex: interrupted\n"));
        EXPECT_EQ(run.Out(), "");
    }
}
}
