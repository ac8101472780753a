// What the mesh readers accept: every spelling that a format allows gives the same triangles.

#include <bat_MeshError.h>
#include <bat_MeshReader.h>

#include <gtest/gtest.h>
#include <testing/MeshWriter.h>

#include <filesystem>
#include <fstream>
#include <limits>
#include <locale>
#include <random>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace
{
using namespace std::string_literals;

// One triangle, and a square in the plane z = 0 cut into two.
const std::vector<double> TRIANGLE = {0, 0, 0, 1, 0, 0, 0, 1, 0};
const std::vector<double> SQUARE = {0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 0, 0, 1, 1, 0, 0, 1, 0};
const std::vector<double> TETRAHEDRON = {0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1,
                                         0, 0, 0, 0, 0, 1, 0, 1, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1};

const std::string FACET =
    "facet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 1 0\nendloop\n"
    "endfacet\n";
const std::string OBJ_SQUARE = "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\n";
const std::string OFF_SQUARE = "0 0 0\n1 0 0\n1 1 0\n0 1 0\n4 0 1 2 3\n";

std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    {
        text.replace(at, from.size(), to);
    }
    return text;
}

std::string Upper(std::string text)
{
    for (char& c : text)
    {
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
    }
    return text;
}

struct GoodRow
{
    const char* what;
    std::string bytes;
    bat_MeshFormat format;
    std::vector<double> corners;

    friend void PrintTo(const GoodRow& row, std::ostream* out) { *out << row.what; }
};

class MeshReaderAccepts : public testing::TestWithParam<GoodRow>
{};

TEST_P(MeshReaderAccepts, TheTriangles)
{
    const GoodRow& row = GetParam();
    EXPECT_EQ(bat_TellMeshFormat(row.bytes, "file"), row.format);
    EXPECT_EQ(bat_ParseMesh(row.bytes, "file").Coordinates(), row.corners);
}

const GoodRow STL_ROWS[] = {
    {"binary", MeshWriter::StlBinary(TETRAHEDRON), bat_MeshFormat::STL_BINARY, TETRAHEDRON},
    {"binary with solid in the header", MeshWriter::StlBinary(TRIANGLE, "solid part\nfacet normal"),
     bat_MeshFormat::STL_BINARY, TRIANGLE},
    {"binary with OFF in the header", MeshWriter::StlBinary(TRIANGLE, "OFF\n3 1 0\n"),
     bat_MeshFormat::STL_BINARY, TRIANGLE},
    {"binary with a foreign mark in the header", MeshWriter::StlBinary(TRIANGLE, "ply"),
     bat_MeshFormat::STL_BINARY, TRIANGLE},
    {"text", "solid a\n" + FACET + "endsolid a\n", bat_MeshFormat::STL_ASCII, TRIANGLE},
    {"text without names", "solid\n" + FACET + "endsolid\n", bat_MeshFormat::STL_ASCII, TRIANGLE},
    {"text without a last line end", "solid a\n" + FACET + "endsolid", bat_MeshFormat::STL_ASCII, TRIANGLE},
    {"text in capitals", Upper("solid a\n" + FACET + "endsolid a\n"), bat_MeshFormat::STL_ASCII, TRIANGLE},
    {"text with CR LF", Replaced("solid a\n" + FACET + "endsolid a\n", "\n", "\r\n"),
     bat_MeshFormat::STL_ASCII, TRIANGLE},
    {"text with CR", Replaced("solid a\n" + FACET + "endsolid a\n", "\n", "\r"), bat_MeshFormat::STL_ASCII,
     TRIANGLE},
    {"text with odd blanks",
     Replaced(Replaced("\n \tsolid a\n" + FACET + "endsolid a\n", " ", " \t\v "), "\n", "\n\n\f"),
     bat_MeshFormat::STL_ASCII, TRIANGLE},
    {"text a word a line", "solid a\n" + Replaced(FACET, " ", "\n") + "endsolid a\n",
     bat_MeshFormat::STL_ASCII, TRIANGLE},
    {"text in one line", Replaced("solid a b\n" + FACET + "endsolid a b\n", "\n", " "),
     bat_MeshFormat::STL_ASCII, TRIANGLE},
    {"text in one line without a name", Replaced("solid\n" + FACET + "endsolid\n", "\n", " "),
     bat_MeshFormat::STL_ASCII, TRIANGLE},
    {"text with a facet in the name", "solid facet of a gem\n" + FACET + "endsolid facet of a gem\n",
     bat_MeshFormat::STL_ASCII, TRIANGLE},
    {"text behind a byte order mark", "\xef\xbb\xbfsolid a\n" + FACET + "endsolid a\n",
     bat_MeshFormat::STL_ASCII, TRIANGLE},
    {"text of two solids",
     "solid a\n" + Replaced(FACET, "0 1 0", "1 1 0") + "endsolid a\n\nSOLID b\n" +
         Replaced(FACET, "1 0 0", "1 1 0") + "endsolid b\n",
     bat_MeshFormat::STL_ASCII, SQUARE},
    {"text of an empty solid and another", "solid a\nendsolid a\nsolid b\n" + FACET + "endsolid b\n",
     bat_MeshFormat::STL_ASCII, TRIANGLE},
    {"text with a normal that is no direction",
     "solid a\n" + Replaced(FACET, "0 0 1", "nan -1.#IND inf") + "endsolid a\n", bat_MeshFormat::STL_ASCII,
     TRIANGLE},
    {"text with numbers of every form",
     "solid a\nfacet normal 0 0 1 outer loop vertex +0 -0.0 0e5 vertex 1.E+0 .0 0. vertex 1e-999 +.1e1 0\n"
     "endloop endfacet endsolid a",
     bat_MeshFormat::STL_ASCII, TRIANGLE},
    {"degenerate triangles",
     "solid a\n" + Replaced(FACET, "1 0 0", "0 1 0") + "endsolid a\n",
     bat_MeshFormat::STL_ASCII,
     {0, 0, 0, 0, 1, 0, 0, 1, 0}},
};
INSTANTIATE_TEST_SUITE_P(Stl, MeshReaderAccepts, testing::ValuesIn(STL_ROWS));

const GoodRow OBJ_ROWS[] = {
    {"polygon", OBJ_SQUARE + "f 1 2 3 4\n", bat_MeshFormat::OBJ, SQUARE},
    {"no last line end", OBJ_SQUARE + "f 1 2 3 4", bat_MeshFormat::OBJ, SQUARE},
    {"CR LF", Replaced(OBJ_SQUARE + "f 1 2 3 4\n", "\n", "\r\n"), bat_MeshFormat::OBJ, SQUARE},
    {"CR", Replaced(OBJ_SQUARE + "f 1 2 3 4\n", "\n", "\r"), bat_MeshFormat::OBJ, SQUARE},
    {"comments first and behind",
     "# made by hand\n\n  # twice\n" + OBJ_SQUARE + "f 1 2 3 4 # the square\n#end", bat_MeshFormat::OBJ,
     SQUARE},
    {"indices from behind", OBJ_SQUARE + "f -4 -3 -2 -1\nv 9 9 9\n", bat_MeshFormat::OBJ, SQUARE},
    {"indices from behind in the middle", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf -3 -2 -1\nv 5 5 5\n",
     bat_MeshFormat::OBJ, TRIANGLE},
    {"indices that point ahead", "f 1 2 3 4\n" + OBJ_SQUARE, bat_MeshFormat::OBJ, SQUARE},
    {"v/vt", OBJ_SQUARE + "vt 0 0\nf 1/1 2/1 3/-1 4/1\n", bat_MeshFormat::OBJ, SQUARE},
    {"v//vn", OBJ_SQUARE + "vn 0 0 1\nf 1//1 2//1 3//-1 4//1\n", bat_MeshFormat::OBJ, SQUARE},
    {"v/vt/vn", OBJ_SQUARE + "vt 0 0\nvn nan nan nan\nf 1/1/1 2/1/1 -2/-1/-1 4/1/1\n", bat_MeshFormat::OBJ,
     SQUARE},
    {"empty parts behind the slashes", OBJ_SQUARE + "f 1/ 2// 3/ 4//\n", bat_MeshFormat::OBJ, SQUARE},
    {"a statement over several lines", "v 0 \\\n0 \\\r\n0\nv 1 0 0\nv 1 1 0\nv 0 1 0\nf 1 2\\\n 3\\\n 4\n",
     bat_MeshFormat::OBJ, SQUARE},
    {"weights that move nothing", Replaced(OBJ_SQUARE, "0\n", "0 2.5\n") + "f 1 2 3 4\n", bat_MeshFormat::OBJ,
     SQUARE},
    {"colours at the vertices", Replaced(OBJ_SQUARE, "0\n", "0 .5 .5 .5\n") + "f 1 2 3 4\n",
     bat_MeshFormat::OBJ, SQUARE},
    {"weights and colours", Replaced(OBJ_SQUARE, "0\n", "0 1 .5 .5 .5\n") + "f 1 2 3 4\n",
     bat_MeshFormat::OBJ, SQUARE},
    {"groups, materials, points and lines",
     "mtllib a.mtl\no part\n" + OBJ_SQUARE + "g side\nusemtl red#2\ns off\np 1 2\nl 1 2 3\nf 1 2 3 4\n",
     bat_MeshFormat::OBJ, SQUARE},
    {"a degenerate face", OBJ_SQUARE + "f 1 1 2\n", bat_MeshFormat::OBJ, {0, 0, 0, 0, 0, 0, 1, 0, 0}},
    {"byte order mark", "\xef\xbb\xbf" + OBJ_SQUARE + "f 1 2 3 4\n", bat_MeshFormat::OBJ, SQUARE},
};
INSTANTIATE_TEST_SUITE_P(Obj, MeshReaderAccepts, testing::ValuesIn(OBJ_ROWS));

const GoodRow OFF_ROWS[] = {
    {"plain", "OFF\n4 1 0\n" + OFF_SQUARE, bat_MeshFormat::OFF, SQUARE},
    {"small letters", "off\n4 1 0\n" + OFF_SQUARE, bat_MeshFormat::OFF, SQUARE},
    {"counts beside the keyword", "OFF 4 1 4\n" + OFF_SQUARE, bat_MeshFormat::OFF, SQUARE},
    {"counts joined to the keyword", "OFF4 1 4\n" + OFF_SQUARE, bat_MeshFormat::OFF, SQUARE},
    {"no number of edges", "OFF\n4 1\n" + OFF_SQUARE, bat_MeshFormat::OFF, SQUARE},
    {"comments and empty lines",
     "# a square\n\nOFF # keyword\n\n4 1 0 # counts\n# corners\n" +
         Replaced(OFF_SQUARE, "\n", " # corner\n\n") + "# end",
     bat_MeshFormat::OFF, SQUARE},
    {"CR LF", Replaced("OFF\n4 1 0\n" + OFF_SQUARE, "\n", "\r\n"), bat_MeshFormat::OFF, SQUARE},
    {"colour of a face", "OFF\n4 1 0\n" + Replaced(OFF_SQUARE, "2 3\n", "2 3 255 0 0\n"), bat_MeshFormat::OFF,
     SQUARE},
    {"colour map index of a face", "OFF\n4 1 0\n" + Replaced(OFF_SQUARE, "2 3\n", "2 3 7\n"),
     bat_MeshFormat::OFF, SQUARE},
    {"COFF of four", "COFF\n4 1 0\n" + Replaced(OFF_SQUARE, " 0\n", " 0 .1 .2 .3 1\n"), bat_MeshFormat::OFF,
     SQUARE},
    {"COFF of three", "COFF\n4 1 0\n" + Replaced(OFF_SQUARE, " 0\n", " 0 10 20 30\n"), bat_MeshFormat::OFF,
     SQUARE},
    {"NOFF", "NOFF\n4 1 0\n" + Replaced(OFF_SQUARE, " 0\n", " 0 0 0 1\n"), bat_MeshFormat::OFF, SQUARE},
    {"STOFF", "STOFF\n4 1 0\n" + Replaced(OFF_SQUARE, " 0\n", " 0 .5 .5\n"), bat_MeshFormat::OFF, SQUARE},
    {"CNOFF", "CNOFF\n4 1 0\n" + Replaced(OFF_SQUARE, " 0\n", " 0 0 0 1 9 9 9\n"), bat_MeshFormat::OFF,
     SQUARE},
    {"STCNOFF", "STCNOFF\n4 1 0\n" + Replaced(OFF_SQUARE, " 0\n", " 0 0 0 1 9 9 9 9 .5 .5\n"),
     bat_MeshFormat::OFF, SQUARE},
    {"points and lines among the faces", "OFF\n4 3 0\n0 0 0\n1 0 0\n1 1 0\n0 1 0\n1 2\n4 0 1 2 3\n2 0 1\n",
     bat_MeshFormat::OFF, SQUARE},
    {"the smallest", "OFF 1 1\n0 0 0\n3 0 0 0", bat_MeshFormat::OFF, {0, 0, 0, 0, 0, 0, 0, 0, 0}},
};
INSTANTIATE_TEST_SUITE_P(Off, MeshReaderAccepts, testing::ValuesIn(OFF_ROWS));

struct NoteRow
{
    const char* what;
    std::string bytes;
    std::vector<std::string> notes;

    friend void PrintTo(const NoteRow& row, std::ostream* out) { *out << row.what; }
};

class MeshReaderNotes : public testing::TestWithParam<NoteRow>
{};

TEST_P(MeshReaderNotes, WholeSentences)
{
    EXPECT_EQ(bat_ParseMesh(GetParam().bytes, "file").Notes(), GetParam().notes);
}

const std::string OPEN = "the surface is open or not turned consistently: its area vectors do not cancel out";
const std::string NORMALS =
    " stored normals are zero, not finite or contrary to the corners; the corners count";
const std::string CLOSED = MeshWriter::StlAscii(TETRAHEDRON, "part");
const NoteRow NOTE_ROWS[] = {
    {"closed, nothing odd", CLOSED, {}},
    {"closed binary, nothing odd", MeshWriter::StlBinary(TETRAHEDRON), {}},
    {"closed at a great distance",
     MeshWriter::Off({1e9, 0, 0, 1e9, 1, 0, 1e9 + 1, 0, 0, 1e9,     0, 0, 1e9 + 1, 0, 0, 1e9, 0, 1,
                      1e9, 0, 0, 1e9, 0, 1, 1e9,     1, 0, 1e9 + 1, 0, 0, 1e9,     1, 0, 1e9, 0, 1}),
     {}},
    {"open", OBJ_SQUARE + "f 1 2 3 4\n", {OPEN}},
    {"one face missing", MeshWriter::Off({TETRAHEDRON.begin(), TETRAHEDRON.end() - 9}), {OPEN}},
    {"one face turned over", Replaced(MeshWriter::Off(TETRAHEDRON), "3 9 10 11", "3 9 11 10"), {OPEN}},
    {"too large to say", MeshWriter::Off({0, 0, 0, 1e300, 0, 0, 0, 1e300, 0}), {}},
    {"a name that changes",
     Replaced(CLOSED, "endsolid part", "endsolid other"),
     {"the solid 'part' ends under the name 'other'"}},
    {"a name that is not repeated", Replaced(CLOSED, "endsolid part", "endsolid"), {}},
    {"a normal of zero", Replaced(CLOSED, "facet normal 1 1 1", "facet normal 0 0 0"), {"1 of 4" + NORMALS}},
    {"a normal that is none",
     Replaced(CLOSED, "facet normal 1 1 1", "facet normal NaN NaN NaN"),
     {"1 of 4" + NORMALS}},
    {"a contrary normal",
     Replaced(CLOSED, "facet normal 1 1 1", "facet normal -1 0 0"),
     {"1 of 4" + NORMALS}},
    {"a slanted normal", Replaced(CLOSED, "facet normal 1 1 1", "facet normal 1 0 0"), {}},
    {"a normal of a triangle without area", MeshWriter::StlAscii({0, 0, 0, 1, 1, 1, 2, 2, 2}), {}},
    {"binary that says solid",
     MeshWriter::StlBinary(TETRAHEDRON, "solid"),
     {"the header begins with \"solid\" as text does, the content is binary STL"}},
};
INSTANTIATE_TEST_SUITE_P(Rows, MeshReaderNotes, testing::ValuesIn(NOTE_ROWS));

// Numbers that stress the text: subnormal, largest, not exact in decimal.
std::vector<double> RandomCorners(std::size_t triangles, bool single)
{
    std::mt19937_64 random(20240607);
    std::vector<double> corners = {std::numeric_limits<float>::max(),
                                   std::numeric_limits<float>::denorm_min(),
                                   0.1F,
                                   -std::numeric_limits<float>::max(),
                                   1e-30F,
                                   -0.1F,
                                   0,
                                   -1,
                                   1.0F / 3};
    if (!single)
    {
        corners[0] = std::numeric_limits<double>::max();
        corners[1] = std::numeric_limits<double>::denorm_min();
        corners[2] = 0.1;
    }
    while (corners.size() < 9 * triangles)
    {
        const double value = std::ldexp(std::uniform_real_distribution<double>(-1, 1)(random),
                                        std::uniform_int_distribution<int>(-60, 60)(random));
        corners.push_back(single ? static_cast<double>(static_cast<float>(value)) : value);
    }
    return corners;
}

TEST(MeshReader, RoundTripsThroughAllFormats)
{
    const std::vector<double> exact = RandomCorners(500, false);
    EXPECT_EQ(bat_ParseMesh(MeshWriter::StlAscii(exact), "a.stl").Coordinates(), exact);
    EXPECT_EQ(bat_ParseMesh(MeshWriter::Obj(exact), "a.obj").Coordinates(), exact);
    EXPECT_EQ(bat_ParseMesh(MeshWriter::Off(exact), "a.off").Coordinates(), exact);
    const std::vector<double> single = RandomCorners(500, true);
    EXPECT_EQ(bat_ParseMesh(MeshWriter::StlBinary(single), "b.stl").Coordinates(), single);
}

/// Writes numbers as much of Europe does.
struct DecimalComma : std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(MeshReader, ReadsNumbersTheSameInEveryLocale)
{
    const std::locale former = std::locale::global(std::locale(std::locale(), new DecimalComma));
    const std::vector<double> read =
        bat_ParseMesh("v 0 0 0\nv 1000.5 0 0\nv 0 2.5 0\nf 1 2 3\n", "file").Coordinates();
    std::string sentence;
    try
    {
        static_cast<void>(bat_ParseMesh("OFF\n100000 1 0\n", "file"));
    }
    catch (const bat_MeshError& error)
    {
        sentence = error.Reason();
    }
    std::locale::global(former);
    EXPECT_EQ(read, (std::vector<double>{0, 0, 0, 1000.5, 0, 0, 0, 2.5, 0}));
    EXPECT_EQ(sentence, "100000 vertices and 1 faces do not fit into the 1 bytes that follow");
}

/// A folder of its own, removed at the end.
class MeshFiles : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string name = (std::filesystem::temp_directory_path() / "orvex-mesh-XXXXXX").string();
        ASSERT_NE(::mkdtemp(name.data()), nullptr);
        folder_ = name;
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    std::string Path(const std::string& name) const { return (folder_ / name).string(); }
    std::string Write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(Path(name), std::ios::binary) << bytes;
        return Path(name);
    }
    static std::string Refusal(const std::string& path)
    {
        try
        {
            static_cast<void>(bat_ReadMesh(path));
        }
        catch (const bat_MeshError& error)
        {
            return error.what();
        }
        return "read";
    }

private:
    std::filesystem::path folder_;
};

TEST_F(MeshFiles, ReadsWhatTheContentSaysNotTheName)
{
    EXPECT_EQ(bat_ReadMesh(Write("part.obj", MeshWriter::StlBinary(TETRAHEDRON))).Coordinates(), TETRAHEDRON);
    EXPECT_EQ(bat_ReadMesh(Write("part.stl", MeshWriter::Off(TETRAHEDRON))).Coordinates(), TETRAHEDRON);
}

TEST_F(MeshFiles, ReadsMoreThanOneBufferfulFromAPipe)
{
    std::vector<double> many;
    for (int i = 0; i < 3000; ++i)
    {
        many.insert(many.end(), TETRAHEDRON.begin(), TETRAHEDRON.end());
    }
    const std::string bytes = MeshWriter::StlBinary(many);
    ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
    std::thread writer([&] { Write("pipe", bytes); });
    EXPECT_EQ(bat_ReadMesh(Path("pipe")).Coordinates(), many);
    writer.join();
}

TEST_F(MeshFiles, RefusesWhatIsNoFile)
{
    EXPECT_EQ(Refusal(Path("none.stl")), Path("none.stl") + ": cannot be opened: No such file or directory");
    EXPECT_EQ(Refusal(Path("")), Path("") + ": is a directory");
    EXPECT_EQ(Refusal("/dev/null"), "/dev/null: is neither a file nor a pipe");
    EXPECT_EQ(Refusal("/proc/self/mem"), "/proc/self/mem: cannot be read: Input/output error");
    EXPECT_EQ(Refusal(""), ": cannot be opened: No such file or directory");
    EXPECT_EQ(Refusal(Write("empty.stl", "")), Path("empty.stl") + ": the file is empty");
}

TEST_F(MeshFiles, RefusesAFileThatMayNotBeRead)
{
    const std::string path = Write("secret.stl", CLOSED);
    std::filesystem::permissions(path, std::filesystem::perms::none);
    // The superuser may read every file: become somebody else meanwhile.
    constexpr uid_t NOBODY = 65534;
    const bool super = ::geteuid() == 0;
    ASSERT_EQ(super ? ::seteuid(NOBODY) : 0, 0);
    const std::string refusal = Refusal(path);
    ASSERT_EQ(super ? ::seteuid(0) : 0, 0);
    EXPECT_EQ(refusal, path + ": cannot be opened: Permission denied");
}

TEST(MeshError, TellsFilePlaceAndReason)
{
    const bat_MeshError whole("a.stl", "the reason");
    EXPECT_STREQ(whole.what(), "a.stl: the reason");
    EXPECT_FALSE(whole.Line() || whole.Byte());
    const bat_MeshError line = bat_MeshError::AtLine("a.obj", 3, "the reason");
    EXPECT_STREQ(line.what(), "a.obj, line 3: the reason");
    EXPECT_EQ(line.Line(), 3U);
    EXPECT_EQ(line.Reason(), "the reason");
    EXPECT_EQ(line.File(), "a.obj");
    const bat_MeshError byte = bat_MeshError::AtByte("a.stl", 84, "the reason");
    EXPECT_STREQ(byte.what(), "a.stl, byte 84: the reason");
    EXPECT_EQ(byte.Byte(), 84U);
}
}
