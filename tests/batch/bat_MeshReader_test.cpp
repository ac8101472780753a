// What the mesh readers accept: every spelling that a format allows gives the same triangles.

#include <bat_Interrupted.h>
#include <bat_MeshError.h>
#include <bat_MeshReader.h>

#include <gmock/gmock.h>
#include <testing/CommaLocale.h>
#include <testing/MeshWriter.h>
#include <testing/PartShapes.h>
#include <testing/ScratchFolder.h>

#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <sys/stat.h>
#include <thread>

namespace
{
using Corners = std::vector<double>;

// A square in the plane z = 0 cut into two.
const Corners SQUARE = {0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 0, 0, 1, 1, 0, 0, 1, 0};
const std::string SOLID = MeshWriter::StlAscii(SQUARE);
const std::string OBJ_SQUARE = "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\n";
const std::string OFF_SQUARE = "0 0 0\n1 0 0\n1 1 0\n0 1 0\n4 0 1 2 3\n";

std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

TEST(MeshReader, AcceptsEverySpelling)
{
    const struct
    {
        const char* what;
        std::string bytes;
    } rows[] = {
        {"binary with solid in the header", MeshWriter::StlBinary(SQUARE, "solid part\nfacet normal")},
        {"binary with a foreign mark in the header", MeshWriter::StlBinary(SQUARE, "ply")},
        {"text with odd blanks", Replaced(Replaced("\n " + SOLID, " ", " \t\v "), "\n", "\n\n\f")},
        {"text a word a line", "solid a\n" + Replaced(Replaced(SOLID.substr(11), " part", ""), " ", "\r\n")},
        {"text in one line", Replaced(SOLID, "\n", " ")},
        {"text behind a byte order mark", "\xef\xbb\xbf" + SOLID},
        {"text of three solids",
         "solid z\nendsolid z\nsolid a\n" +
             Replaced(SOLID.substr(11), "endfacet\nfacet", "endfacet\nendsolid a\n\nSOLID part\nfacet")},
        {"text with a normal that is no direction", Replaced(SOLID, "0 0 1\n o", "nan -1.#IND inf\no")},
        {"OBJ with indices from behind and a vertex after them", OBJ_SQUARE + "f -4 -3 -2 -1\nv 9 9 9\n"},
        {"OBJ with indices that point ahead", "f 1 2 3 4\n" + OBJ_SQUARE},
        {"OBJ with all kinds of corners", OBJ_SQUARE + "vt 0 0\nvn nan nan nan\nf 1/1 2//1 -2/-1/-1 4//\n"},
        {"OBJ with a statement over several lines, a comment not",
         "v 0 \\\n0 \\\r\n0\nv 1 0 0\nv 1 1 0 # \\\nv 0 1 0\nf 1 2\\\n 3\\\n 4\n"},
        {"OBJ with colours", Replaced(OBJ_SQUARE, "0\n", "0 .5 .5 .5\n") + "f 1 2 3 4\n"},
        {"OBJ with groups, materials, points and lines",
         "mtllib a.mtl\no part\n" + OBJ_SQUARE + "g side\nusemtl red#2\ns off\np 1 2\nl 1 2 3\nf 1 2 3 4\n"},
        {"OFF joined to its counts, no edges", "off4 1\n" + OFF_SQUARE},
        {"OFF with comments",
         "# a\n\nOFF # b\n\n4 1 0 # counts\n" + Replaced(OFF_SQUARE, "\n", " # corner\n\n") + "# end"},
        {"OFF with colours of faces", "OFF\r\n4 1 0\r\n" + Replaced(OFF_SQUARE, "2 3\n", "2 3 255 0 0\n")},
        {"STCNOFF", "STCNOFF\n4 1 0\n" + Replaced(OFF_SQUARE, " 0\n", " 0 0 0 1 9 9 9 9 .5 .5\n")},
        {"OFF with points and lines",
         "OFF\n4 3 0\n" + Replaced(OFF_SQUARE, "4 0 1 2 3\n", "1 2\n4 0 1 2 3\n2 0 1\n")}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(bat_ParseMesh(row.bytes, "file").Coordinates(), SQUARE);
    }
}

TEST(MeshReader, NotesInWholeSentences)
{
    const std::string open =
        "the surface is open or not turned consistently: its area vectors do not cancel out";
    const std::string normals =
        "1 of 4 stored normals are zero, not finite or contrary to the corners; the corners count";
    // The last triangle is slanted.
    const Corners pyramid = {0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1,
                             0, 0, 0, 0, 0, 1, 0, 1, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1};
    const std::string closed = MeshWriter::StlAscii(pyramid);
    const std::string slanted = "facet normal 1 1 1";
    for (const auto& [bytes, notes] :
         {std::pair{MeshWriter::Off(PartShapes::Cube({1e9, 0, 0})), std::string()},
          {Replaced(MeshWriter::Off(pyramid), "3 9 10 11", "3 9 11 10"), open},
          {MeshWriter::Off({0, 0, 0, 1e300, 0, 0, 0, 1e300, 0}), ""}, // too large to say
          {Replaced(closed, "endsolid part", "endsolid other"),
           "the solid 'part' ends under the name 'other'"},
          {Replaced(closed, "endsolid part", "endsolid"), ""},
          {Replaced(closed, slanted, "facet normal NaN NaN NaN"), normals},
          {Replaced(closed, slanted, "facet normal -1 0 0"), normals},
          {Replaced(closed, slanted, "facet normal 1 0 0"), ""},
          {MeshWriter::StlBinary(pyramid, "solid"),
           "the header begins with \"solid\" as text does, the content is binary STL"}})
    {
        std::string all;
        const bat_TriangleMesh mesh = bat_ParseMesh(bytes, "file");
        for (const std::string& note : mesh.Notes())
            all += note;
        EXPECT_EQ(all, notes) << bytes;
    }
}

// Numbers that stress the text: subnormal, largest, not exact in decimal; and in every locale the same.
TEST(MeshReader, RoundTripsThroughAllFormats)
{
    std::mt19937_64 random(20240607);
    using Double = std::numeric_limits<double>;
    using Float = std::numeric_limits<float>;
    Corners exact = {Double::max(), Double::denorm_min(), 0.1};
    Corners single = {Float::max(), Float::denorm_min(), 0.1F};
    while (exact.size() < 9 * 300)
    {
        exact.push_back(std::ldexp(double(random() % 2000001) - 1e6, int(random() % 120) - 80));
        single.push_back(static_cast<double>(static_cast<float>(exact.back())));
    }
    const std::string texts[] = {MeshWriter::StlAscii(exact), MeshWriter::Obj(exact), MeshWriter::Off(exact)};
    const CommaStreams streams;
    for (const std::string& text : texts)
        EXPECT_EQ(bat_ParseMesh(text, "a").Coordinates(), exact) << text.substr(0, 5);
    EXPECT_THAT([] { (void)bat_ParseMesh("OFF\n100000 1 0\n", "file"); },
                testing::ThrowsMessage<bat_MeshError>(
                    "file, line 2: 100000 vertices and 1 faces do not fit into the 1 bytes that follow"));
    EXPECT_EQ(bat_ParseMesh(MeshWriter::StlBinary(single), "b.stl").Coordinates(), single);
}

TEST(MeshFiles, AreReadFromAPipeOrRefused)
{
    const ScratchFolder folder;
    Corners many(9 * 12000); // more than one bufferful
    std::iota(many.begin(), many.end(), 0);
    const std::string pipe = folder / "pipe.obj"; // the name says nothing
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    std::thread writer([&] { folder.Write("pipe.obj", MeshWriter::StlBinary(many)); });
    EXPECT_EQ(bat_ReadMesh(pipe).Coordinates(), many);
    writer.join();
    for (const auto& [path, reason] :
         {std::pair{folder / "none.stl", ": cannot be opened: No such file or directory"},
          {folder.Path(), ": is a directory"},
          {"/proc/self/mem", ": cannot be read: Input/output error"}})
        EXPECT_THAT([&path = path] { (void)bat_ReadMesh(path); },
                    testing::ThrowsMessage<bat_MeshError>(path + reason));
}

/// Wants no more after so many questions.
class CountingWatcher : public bat_Watcher
{
public:
    explicit CountingWatcher(int most) : patience(most) {}

    void Begin(const std::string&, float) override {}
    void End() override {}
    bool Proceed(double) override { return ++questions <= patience; }
    void Note(const std::string&) override {}

    int patience;
    int questions = 0;
};

TEST(MeshReader, AsksOftenAndCanBeStopped)
{
    const Corners sheet = PartShapes::HeightField(60, 0, 1, 1);
    for (const auto& [bytes, least] : {std::pair{MeshWriter::StlBinary(sheet), 7},
                                       {MeshWriter::StlAscii(sheet), 100},
                                       {MeshWriter::Obj(sheet), 60},
                                       {MeshWriter::Off(sheet), 60}})
    {
        SCOPED_TRACE(bytes.substr(0, 10));
        CountingWatcher all(1 << 30);
        (void)bat_ParseMesh(bytes, "part", all);
        EXPECT_GE(all.questions, least);
        CountingWatcher watcher(all.questions / 2);
        EXPECT_THROW((void)bat_ParseMesh(bytes, "part", watcher), bat_Interrupted);
        EXPECT_EQ(watcher.questions, all.questions / 2 + 1);
    }
}
}
