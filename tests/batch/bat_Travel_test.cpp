// `orvex travel` from end to end: the program is run on small parts that the tests make.

#include <array>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gsl_Triangle.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>
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

struct Done
{
    int code;
    std::string out, err;
};

Done RunOrvex(Words arguments, const ProgramRun::Setting& setting = {})
{
    arguments.insert(arguments.begin(), PROGRAM);
    ProgramRun run(arguments, setting);
    run.Finish();
    return {run.Code(), run.Out(), run.Err()};
}

class Travel : public testing::Test
{
protected:
    /// The command for FIXED and MOVABLE, written to disk, with options between blanks.
    Words Command(const Mesh& fixed, const Mesh& movable, const std::string& options) const
    {
        Words command = {"travel", folder.Write("fixed.off", MeshWriter::Off(fixed)),
                         folder.Write("movable.off", MeshWriter::Off(movable))};
        std::istringstream words(options);
        for (std::string word; words >> word;)
            command.push_back(word);
        return command;
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
// Two plates that stand upright like a plus sign when seen from above, the fixed one 3 higher.
const Mesh PLATE_X = PartShapes::Box({-2, -0.25, 0}, {2, 0.25, 1});
const Mesh PLATE_Y = PartShapes::Box({-0.25, -2, 4}, {0.25, 2, 5});
const Mesh RIDGE = {-3, 0, 5, 3, 0, 5, 0, 2, 9};  // its lower edge runs along x at height 5
const Mesh CREST = {1, -3, 0, 1, 3, 0, 1, 0, -4}; // its upper edge runs along y at height 0
const Mesh ROOM = PartShapes::Box({-4, -4, -4}, {4, 4, 4});

TEST_F(Travel, StatesWithBothTreesAndAnyDepth)
{
    Mesh degenerate = ABOVE; // with a triangle that is a point, and one that is a line, in the way
    PartShapes::AddTriangle(degenerate, {0.5, 0.5, 2}, {0.5, 0.5, 2}, {0.5, 0.5, 2});
    PartShapes::AddTriangle(degenerate, {0, 0, 3}, {0.5, 0.5, 3}, {1, 1, 3});
    struct Row
    {
        const char* what;
        Mesh fixed, movable;
        const char *direction, *bound, *state;
        double travel; // no meaning when clear
    };
    const Row rows[] = {
        {"face to face", ABOVE, CUBE, "+z", "4.000000000000001", "contact", 4},
        {"degenerate triangles in the way", degenerate, CUBE, "0,0,1e300", "9", "contact", 4},
        {"the bound is no way to go", ABOVE, CUBE, "+z", "4", "clear", 0},
        {"downwards", Cube({0.25, 0.25, -5}), CUBE, "-z", "9", "contact", 4},
        {"like a plus sign", PLATE_Y, PLATE_X, "0,0,5e-324", "9", "contact", 3},
        {"inside, without touching", ROOM, CUBE, "-0,0,.5", "9", "contact", 3},
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
                const Done done =
                    RunOrvex(Command(row.fixed, row.movable,
                                     std::string("--json --quiet --check --dir ") + row.direction +
                                         " --bound " + row.bound + " --tree " + tree + " --depth " + depth));
                const bool clear = std::string(row.state) == "clear";
                EXPECT_TRUE(done.code == (clear ? 1 : 0) && done.err.empty()) << done.err;
                EXPECT_EQ(done.out.find('\n'), done.out.size() - 1) << "one line";
                const Json json = Json::parse(done.out, nullptr, false);
                EXPECT_EQ(json["state"], row.state);
                EXPECT_EQ(json["travel"].is_null(), clear);
                EXPECT_EQ(json["skipped"]["degenerate"], row.fixed == degenerate ? 2 : 0);
                if (clear)
                    continue;
                EXPECT_NEAR(json["travel"], row.travel, 1e-9);
                ExpectPairFits(json, row.fixed, row.movable);
            }
}

TEST_F(Travel, ProgressOnTheErrorStream)
{
    const Done lines = RunOrvex(Command(ABOVE, CUBE, "--dir +z"));
    EXPECT_THAT(lines.out, StartsWith("travel    4 along (0, 0, 1)\n"));
    EXPECT_THAT(lines.err, testing::MatchesRegex("( [1-9]0 %  [^\n]*\n)+100 %  [^\n]*\n"));
    EXPECT_EQ(RunOrvex(Command(ABOVE, CUBE, "--dir +z --no-progress")).err, "");
    EXPECT_EQ(RunOrvex(Command(ABOVE, CUBE, "--dir +z --quiet")).err, "");
    ProgramRun::Setting setting;
    setting.terminal = true;
    const Done bar = RunOrvex(Command(ABOVE, CUBE, "--dir +z"), setting);
    EXPECT_THAT(bar.err, testing::AllOf(StartsWith("\r\033[K["), testing::EndsWith("] 100 % done\r\n")));
}

void ExpectRefused(const Words& command, int code, const std::string& sentence,
                   const ProgramRun::Setting& setting = {})
{
    SCOPED_TRACE(sentence);
    const Done done = RunOrvex(command, setting);
    EXPECT_EQ(done.code, code);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, testing::AllOf(StartsWith("orvex: "), HasSubstr(sentence)));
    EXPECT_EQ(done.err.find('\n'), done.err.size() - 1) << "one line";
}

/// Each triangle covers the whole part, so that all pairs overlap across the direction, and all start at the
/// same height z, from which they rise by so much each: no pair is farther than another.
Mesh Fan(int triangles, double z, double rise)
{
    Mesh mesh;
    for (int i = 0; i < triangles; ++i)
        PartShapes::AddTriangle(mesh, {0, 0, z}, {100, 100, z + rise * i}, {100, 0, z});
    return mesh;
}

TEST_F(Travel, WhatIsRefusedAndWithWhichCode)
{
    for (const auto& [options, sentence] :
         {std::pair{"", "--dir is required"},
          {"more --dir +z", "not expected"},
          {"--dir 0,0,0", "--dir 0,0,0: a direction needs a length above zero"},
          {"--dir 1,2,3,4", "--dir 1,2,3,4: write three numbers, X,Y,Z, or an axis: +x -x +y -y +z -z"},
          {"--dir +z --bound 0", "--bound 0: must be above 0; leave it out for no bound"},
          {"--dir +z --bound nan", "--bound nan: not a number that can be a length"},
          {"--dir +z --depth 21", "--depth"},
          {"--dir +z --dir +x", "--dir: takes one value, and is given once"}})
        ExpectRefused(Command(ABOVE, CUBE, options), 2, sentence);
    ExpectRefused(
        Command(Fan(80000, 200000, 1), Fan(80000, 0, -1), "--dir +z --check --quiet"), 2,
        "--check: brute force would have to look at 6 400 000 000 pairs of triangles, more than the "
        "5 000 000 000 that take a bearable time: check coarser meshes");
    ExpectRefused({"trvel"}, 2, "trvel: no such subcommand. Did you mean \"travel\"? (see orvex --help)");
    ExpectRefused({"travel", "a", "b", "--dir", "+z", "--picture", ""}, 2, "--picture: the name is empty");
    ExpectRefused({"--json", "travel"}, 2, "--json: the subcommand must come first (see orvex --help)");
    EXPECT_EQ(RunOrvex({}).code, 2);
    EXPECT_EQ(RunOrvex({}).out, "") << "the help goes to the error stream";

    Words command = Command(ABOVE, CUBE, "--dir +z --quiet");
    for (const std::string& bytes :
         {std::string("this is no mesh\n"), std::string("OFF\n3 1 0\n0 0 0\n1e200 0 0\n0 1 0\n3 0 1 2\n"),
          MeshWriter::Off(PartShapes::Scaled(CUBE, 1e-7))}) // tiny
    {
        folder.Write("fixed.off", bytes);
        ExpectRefused(command, 3, "orvex: " + command[1]);
    }
    command[1] = folder / "none.stl";
    ExpectRefused(command, 3, "orvex: " + command[1]);
    ProgramRun::Setting full;
    full.outFile = "/dev/full";
    ExpectRefused(Command(ABOVE, CUBE, "--dir +z --quiet"), 5,
                  "orvex: cannot write the result to standard output\n", full);
}

#ifdef ORVEX_WITH_VIEWER
/// The annotations of a picture, from the rearmost to the front: "Travel Contact".
std::string Drawn(const std::string& svg)
{
    const std::string key = "data-name=\"";
    std::string names;
    for (std::size_t at = svg.find(key); at != std::string::npos; at = svg.find(key, at + 1))
        names += svg.substr(at + key.size(), svg.find('"', at + key.size()) - at - key.size()) + " ";
    return names;
}

TEST_F(Travel, PicturesShowPartsTravelAndContact)
{
    const Mesh across = Cube({3, 0, 5});
    const Mesh over = Cube({0.5, 0.5, 0.5});
    for (const auto& [fixed, names, label] :
         {std::tuple{&ABOVE, "Headline Travel Contact Distance ", ">4</text>"},
          {&over, "Headline Contact Distance ", ">overlapping</text>"},
          {&across, "Headline ", "no contact on the way</text>"}})
    {
        SCOPED_TRACE(label);
        const std::string file = folder / "picture.SVG";
        const Done done = RunOrvex(Command(*fixed, CUBE, "--dir +z --quiet --picture " + file));
        EXPECT_EQ(done.code, fixed == &across ? 1 : 0) << done.err;
        std::ostringstream svg;
        svg << std::ifstream(file).rdbuf();
        EXPECT_EQ(Drawn(svg.str()), names);
        EXPECT_THAT(svg.str(), HasSubstr(label));
        EXPECT_EQ(std::filesystem::remove(file), true);
    }
    // The answer is told all the same.
    const std::string longName = folder / (std::string(252, 'x') + ".png");
    const Done late = RunOrvex(Command(ABOVE, CUBE, "--dir +z --quiet --picture " + longName));
    EXPECT_EQ(late.code, 3);
    EXPECT_THAT(late.out, StartsWith("travel    4 "));
    EXPECT_EQ(late.err, "orvex: cannot write " + longName + ": File name too long\n");
    // Before the parts are even read.
    ASSERT_EQ(mkfifo((folder / "pipe.svg").c_str(), 0600), 0);
    for (const auto& [name, code, reason] :
         {std::tuple{"x.jpg", 2, ": the name must end in .svg or .png (see orvex travel --help)"},
          {"pipe.svg", 3, " cannot be written: Invalid argument"},
          {"none/x.svg", 3, " cannot be written: No such file or directory"},
          {"fixed.off/x.png", 3, " cannot be written: Not a directory"}})
    {
        const std::string file = folder / name;
        ExpectRefused({"travel", folder / "fixed.off", "none.off", "--dir", "+z", "--picture", file}, code,
                      "orvex: --picture " + file + reason);
    }
}
#endif

TEST_F(Travel, TheExamplesOfTheHelpRun)
{
    const std::string help = RunOrvex({"travel", "--help"}).out;
    const std::string examples = help.substr(help.find('\n', help.find("Examples")));
    const std::string path = std::filesystem::path(PROGRAM).parent_path().string();
    ProgramRun run({"/bin/sh", "-ec", "PATH=" + path + ":$PATH; cd " + folder.Path() + examples});
    EXPECT_EQ(run.Finish().Code(), 0) << run.Err();
    EXPECT_THAT(run.Out(), testing::ContainsRegex("contact.*\n(.*\n)*.*\"contact\""))
        << "two that find a contact";
}

// In a reader that waits for a pipe which stays empty, and in a long computation.
TEST_F(Travel, CtrlCStopsAtOnce)
{
    for (const bool pipe : {false, true})
    {
        Words command =
            Command(Fan(60000, 200000, 1), Fan(60000, 0, -1), pipe ? "--dir +z" : "--dir +z --check");
        command.insert(command.begin(), PROGRAM);
        if (pipe)
            command[3] = folder / "pipe.stl";
        ASSERT_TRUE(!pipe || mkfifo(command[3].c_str(), 0600) == 0);
        ProgramRun run(command);
        ASSERT_TRUE(run.WaitForErr(pipe ? "20 %  reading " : "10 %  reading ")) << run.Err();
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
