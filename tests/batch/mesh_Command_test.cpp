// `orvex mesh` from end to end.

#include <csignal>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/stat.h>
#include <testing/DriverOutcome.h>
#include <testing/MeshWriter.h>
#include <testing/PartShapes.h>
#include <testing/ProgramRun.h>
#include <testing/ScratchFolder.h>

using testing::HasSubstr;

namespace
{
class MeshCommand : public testing::Test
{
protected:
    /// Exit code, standard output and standard error, one behind the other.
    std::string Outcome(std::vector<std::string> words) const
    {
        words.insert(words.begin(), "mesh");
        return DriverOutcome(words);
    }

    ScratchFolder folder_;
    const std::string cube_ = folder_.Write("cube.stl", MeshWriter::StlBinary(PartShapes::Cube({0, 0, 0})));
    const std::string sheet_ = folder_.Write("sheet.off", "OFF\n3 1 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n");
};

TEST_F(MeshCommand, EveryExitCode)
{
    EXPECT_THAT(Outcome({cube_, "--quiet", "--check"}), testing::StartsWith("0\nfile "));
    EXPECT_THAT(Outcome({cube_, "--check"}),
                HasSubstr("orvex: check: the quadratic operations agree\n"));
    EXPECT_THAT(Outcome({sheet_, "--quiet"}),
                testing::AllOf(testing::StartsWith("1\n"), testing::EndsWith("fit for use: 3 open edges\n")));
    EXPECT_THAT(Outcome({sheet_, "--quiet", "--open", "--worst", "1"}),
                testing::AllOf(testing::StartsWith("0\n"), HasSubstr(" alone: at triangles 0\n")));
    EXPECT_THAT(Outcome({sheet_, "--quiet", "--open", "--sliver", "0.8", "--json"}),
                testing::StartsWith("1\n{\"schema\":\"orvex.mesh/1\","));
    const std::string large =
        folder_.Write("large.stl", MeshWriter::StlBinary(PartShapes::HeightField(51, 0, 1, 1)));
    for (const auto& [words, sentence] :
         std::initializer_list<std::pair<std::vector<std::string>, std::string>>{
             {{cube_, "--tolerance", "-1"}, "--tolerance -1: must not be below 0"},
             {{cube_, "--tolerance", "nan"}, "--tolerance nan: not a number that can be a length"},
             {{cube_, "--tolerance", "1e-151"}, "--tolerance 1e-151: must be 0, or 1e-150 at least"},
             {{cube_, "--sliver", "1.5"}, "--sliver 1.5: must be a number from 0 to 1"},
             {{large, "--quiet", "--check"},
              "--check: the quadratic operations take a bearable time up to 5 000 triangles, the mesh has "
              "5 202"}})
        EXPECT_EQ(Outcome(words), "2\norvex: " + sentence + " (see orvex mesh --help)\n");
    EXPECT_THAT(Outcome({folder_ / "none.stl"}), testing::StartsWith("3\n"));
    EXPECT_THAT(Outcome({folder_.Write("odd.off", "OFF\n3 1 0\n0 0 0\n1 0 inf\n0 1 0\n3 0 1 2\n")}),
                HasSubstr("odd.off, line 4: "));
}

TEST_F(MeshCommand, CtrlCStops)
{
    const std::string pipe = folder_ / "pipe.stl";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    ProgramRun::Setting setting;
    setting.terminal = true;
    ProgramRun run({ORVEX_PROGRAM, "mesh", pipe}, setting);
    ASSERT_TRUE(run.WaitForErr("reading ")) << run.Err();
    run.Signal(SIGINT);
    EXPECT_EQ(run.Finish().Code(), 130) << run.Err();
}

#ifdef ORVEX_WITH_VIEWER
TEST_F(MeshCommand, PicturesHaveALegendAndTheVerdict)
{
    const std::string file = folder_ / "mesh.svg";
    EXPECT_THAT(Outcome({sheet_, "--quiet", "--picture", file}), testing::StartsWith("1\n"));
    std::ostringstream svg;
    svg << std::ifstream(file).rdbuf();
    for (const char* part :
         {">0.0 to 0.1</text>", ">0.9 to 1.0</text>", ">100.0 %</text>", "fit for use: 3 open"})
        EXPECT_THAT(svg.str(), HasSubstr(part));
    EXPECT_THAT(Outcome({sheet_, "--picture", "x.jpg"}),
                "2\norvex: --picture x.jpg: the name must end in .svg or .png (see orvex mesh --help)\n");
}
#endif

TEST_F(MeshCommand, TheExamplesOfTheHelpRun)
{
    const std::string help = Outcome({"--help"});
    const std::string examples = help.substr(help.find('\n', help.find("Examples")));
    const std::string path = std::filesystem::path(ORVEX_PROGRAM).parent_path().string();
    ProgramRun run({"/bin/sh", "-ec", "PATH=" + path + ":$PATH; cd " + folder_.Path() + examples});
    EXPECT_EQ(run.Finish().Code(), 0) << run.Err();
    EXPECT_THAT(run.Out(),
                testing::AllOf(HasSubstr("verdict       fit for use\n"), HasSubstr("\"fit\":true")));
}
}
