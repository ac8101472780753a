#include <bat_Interrupted.h>
#include <bat_MeshReader.h>
#include <bat_Phase.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <testing/MeshWriter.h>
#include <testing/PartShapes.h>

namespace
{
/// Writes down what it is told, and wants no more after so many questions.
class CountingWatcher : public bat_Watcher
{
public:
    explicit CountingWatcher(int most) : patience(most) {}

    void Begin(const std::string& what, float) override { log += "<" + what; }
    void End() override
    {
        log += ">";
        throw std::runtime_error("lost");
    }
    bool Proceed(double done) override
    {
        told = told || done != 0.0;
        return ++questions <= patience;
    }
    void Note(const std::string&) override {}

    int patience;
    int questions = 0;
    bool told = false;
    std::string log;
};

std::string Polygon(int corners)
{
    std::string text;
    std::string face = "f";
    for (int i = 0; i < corners; ++i)
    {
        text += "v " + std::to_string(i) + " " + std::to_string(i * i % 97) + " 0\n";
        face += " " + std::to_string(i + 1);
    }
    return text + face + "\n";
}

struct ReadRow
{
    const char* what;
    std::string bytes;
    int least; ///< questions in one reading
};

class ReadingIsWatched : public testing::TestWithParam<ReadRow>
{};

TEST_P(ReadingIsWatched, AndStopsAtAnyQuestion)
{
    CountingWatcher all(1 << 30);
    const bat_TriangleMesh mesh = bat_ParseMesh(GetParam().bytes, "part", all);
    EXPECT_GE(all.questions, GetParam().least);
    EXPECT_FALSE(all.told) << "how much of a file is done nobody knows";
    for (const int patience : {0, all.questions / 2, all.questions - 1})
    {
        CountingWatcher watcher(patience);
        EXPECT_THROW(static_cast<void>(bat_ParseMesh(GetParam().bytes, "part", watcher)), bat_Interrupted);
        EXPECT_EQ(watcher.questions, patience + 1);
    }
}

const PartShapes::Mesh SHEET = PartShapes::HeightField(60, 0, 1, 1);

INSTANTIATE_TEST_SUITE_P(Formats, ReadingIsWatched,
                         testing::Values(ReadRow{"StlBinary", MeshWriter::StlBinary(SHEET), 7},
                                         ReadRow{"StlAscii", MeshWriter::StlAscii(SHEET), 100},
                                         ReadRow{"Obj", MeshWriter::Obj(SHEET), 60},
                                         ReadRow{"Off", MeshWriter::Off(SHEET), 60},
                                         ReadRow{"Polygon", Polygon(20000), 140}),
                         [](const testing::TestParamInfo<ReadRow>& row) { return row.param.what; });

TEST(Phase, TellsItsEndUnlessAnExceptionEndsTheJob)
{
    CountingWatcher watcher(0);
    {
        const bat_Phase outer(watcher, 1.0f, "a");
        const bat_Phase inner(watcher, 0.5f, "b");
    }
    EXPECT_EQ(watcher.log, "<a<b>>") << "what the watcher throws ends there";
    try
    {
        const bat_Phase phase(watcher, 1.0f, "c");
        throw bat_Interrupted();
    }
    catch (const bat_Interrupted&)
    {
        EXPECT_EQ(watcher.log, "<a<b>><c");
    }
}
}
