// What the mesh readers accept: every spelling that a format allows gives the same triangles.

#include <bat_MeshError.h>
#include <bat_MeshReader.h>

#include <gtest/gtest.h>
#include <testing/CommaLocale.h>
#include <testing/MeshWriter.h>
#include <testing/ScratchFolder.h>

#include <cmath>
#include <limits>
#include <random>
#include <sys/stat.h>
#include <thread>

namespace
{
using enum bat_MeshFormat;
using Corners = std::vector<double>;

// One triangle, and a square in the plane z = 0 cut into two.
const Corners TRIANGLE = {0, 0, 0, 1, 0, 0, 0, 1, 0};
const Corners SQUARE = {0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 0, 0, 1, 1, 0, 0, 1, 0};
const Corners TETRAHEDRON = {0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1,
                             0, 0, 0, 0, 0, 1, 0, 1, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1};

const std::string FACET =
    "facet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 1 0\nendloop\n"
    "endfacet\n";
const std::string SOLID = "solid a\n" + FACET + "endsolid a\n";
const std::string OBJ_SQUARE = "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\n";
const std::string OBJ_FACE = OBJ_SQUARE + "f 1 2 3 4\n";
const std::string OFF_SQUARE = "0 0 0\n1 0 0\n1 1 0\n0 1 0\n4 0 1 2 3\n";

std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

struct GoodRow
{
    const char* what;
    std::string bytes;
    bat_MeshFormat format;
    Corners corners;
};

const GoodRow GOOD[] = {
    {"binary with solid in the header", MeshWriter::StlBinary(TRIANGLE, "solid part\nfacet normal"),
     STL_BINARY, TRIANGLE},
    {"binary with a foreign mark in the header", MeshWriter::StlBinary(TRIANGLE, "ply"), STL_BINARY,
     TRIANGLE},
    {"text with odd blanks", Replaced(Replaced("\n " + SOLID, " ", " \t\v "), "\n", "\n\n\f"), STL_ASCII,
     TRIANGLE},
    {"text a word a line", "solid a\n" + Replaced(FACET, " ", "\r\n") + "endsolid a\n", STL_ASCII, TRIANGLE},
    {"text in one line", Replaced("solid a b\n" + FACET + "endsolid a b\n", "\n", " "), STL_ASCII, TRIANGLE},
    {"text behind a byte order mark", "\xef\xbb\xbf" + SOLID, STL_ASCII, TRIANGLE},
    {"text of three solids",
     "solid z\nendsolid z\nsolid a\n" + Replaced(FACET, "0 1 0", "1 1 0") + "endsolid a\n\nSOLID b\n" +
         Replaced(FACET, "1 0 0", "1 1 0") + "endsolid b\n",
     STL_ASCII, SQUARE},
    {"text with a normal that is no direction", Replaced(SOLID, "0 0 1", "nan -1.#IND inf"), STL_ASCII,
     TRIANGLE},
    {"OBJ with indices from behind and a vertex after them", OBJ_SQUARE + "f -4 -3 -2 -1\nv 9 9 9\n", OBJ,
     SQUARE},
    {"OBJ with indices that point ahead", "f 1 2 3 4\n" + OBJ_SQUARE, OBJ, SQUARE},
    {"OBJ with all kinds of corners", OBJ_SQUARE + "vt 0 0\nvn nan nan nan\nf 1/1 2//1 -2/-1/-1 4//\n", OBJ,
     SQUARE},
    {"OBJ with a statement over several lines",
     "v 0 \\\n0 \\\r\n0\nv 1 0 0\nv 1 1 0\nv 0 1 0\nf 1 2\\\n 3\\\n 4\n", OBJ, SQUARE},
    {"OBJ with colours", Replaced(OBJ_FACE, "0\n", "0 .5 .5 .5\n"), OBJ, SQUARE},
    {"OBJ with groups, materials, points and lines",
     "mtllib a.mtl\no part\n" + OBJ_SQUARE + "g side\nusemtl red#2\ns off\np 1 2\nl 1 2 3\nf 1 2 3 4\n", OBJ,
     SQUARE},
    {"OFF joined to its counts, no edges", "off4 1\n" + OFF_SQUARE, OFF, SQUARE},
    {"OFF with comments",
     "# a square\n\nOFF # keyword\n\n4 1 0 # counts\n" + Replaced(OFF_SQUARE, "\n", " # corner\n\n") +
         "# end",
     OFF, SQUARE},
    {"OFF with colours of faces", "OFF\r\n4 1 0\r\n" + Replaced(OFF_SQUARE, "2 3\n", "2 3 255 0 0\n"), OFF,
     SQUARE},
    {"STCNOFF", "STCNOFF\n4 1 0\n" + Replaced(OFF_SQUARE, " 0\n", " 0 0 0 1 9 9 9 9 .5 .5\n"), OFF, SQUARE},
    {"OFF with points and lines", "OFF\n4 3 0\n0 0 0\n1 0 0\n1 1 0\n0 1 0\n1 2\n4 0 1 2 3\n2 0 1\n", OFF,
     SQUARE},
};

TEST(MeshReader, AcceptsEverySpelling)
{
    for (const GoodRow& row : GOOD)
    {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(bat_TellMeshFormat(row.bytes, "file"), row.format);
        EXPECT_EQ(bat_ParseMesh(row.bytes, "file").Coordinates(), row.corners);
    }
}

TEST(MeshReader, NotesInWholeSentences)
{
    const std::string open =
        "the surface is open or not turned consistently: its area vectors do not cancel out";
    const std::string normals =
        "1 of 4 stored normals are zero, not finite or contrary to the corners; the corners count";
    const std::string closed = MeshWriter::StlAscii(TETRAHEDRON, "part");
    const std::string slanted = "facet normal 1 1 1";
    Corners far = TETRAHEDRON;
    for (std::size_t i = 0; i < far.size(); i += 3)
        far[i] += 1e9;
    struct Row
    {
        const char* what;
        std::string bytes;
        std::string notes;
    };
    const Row rows[] = {
        {"closed at a great distance", MeshWriter::Off(far), ""},
        {"one face turned over", Replaced(MeshWriter::Off(TETRAHEDRON), "3 9 10 11", "3 9 11 10"), open},
        {"too large to say", MeshWriter::Off({0, 0, 0, 1e300, 0, 0, 0, 1e300, 0}), ""},
        {"a name that changes", Replaced(closed, "endsolid part", "endsolid other"),
         "the solid 'part' ends under the name 'other'"},
        {"a name that is not repeated", Replaced(closed, "endsolid part", "endsolid"), ""},
        {"a normal that is none", Replaced(closed, slanted, "facet normal NaN NaN NaN"), normals},
        {"a contrary normal", Replaced(closed, slanted, "facet normal -1 0 0"), normals},
        {"a slanted normal", Replaced(closed, slanted, "facet normal 1 0 0"), ""},
        {"binary that says solid", MeshWriter::StlBinary(TETRAHEDRON, "solid"),
         "the header begins with \"solid\" as text does, the content is binary STL"}};
    for (const Row& row : rows)
    {
        std::string notes;
        const bat_TriangleMesh mesh = bat_ParseMesh(row.bytes, "file");
        for (const std::string& note : mesh.Notes())
            notes += note;
        EXPECT_EQ(notes, row.notes) << row.what;
    }
}

template <class Read>
std::string Refusal(Read read)
{
    try
    {
        read();
    }
    catch (const bat_MeshError& error)
    {
        return error.what();
    }
    return "nothing was refused";
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
    EXPECT_EQ(Refusal([] { (void)bat_ParseMesh("OFF\n100000 1 0\n", "file"); }),
              "file, line 2: 100000 vertices and 1 faces do not fit into the 1 bytes that follow");
    EXPECT_EQ(bat_ParseMesh(MeshWriter::StlBinary(single), "b.stl").Coordinates(), single);
}

TEST(MeshFiles, ReadsMoreThanOneBufferfulFromAPipe)
{
    const ScratchFolder folder;
    Corners many;
    for (int i = 0; i < 3000; ++i)
        many.insert(many.end(), TETRAHEDRON.begin(), TETRAHEDRON.end());
    const std::string bytes = MeshWriter::StlBinary(many);
    const std::string pipe = folder / "pipe.obj"; // the name says nothing
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    std::thread writer([&] { folder.Write("pipe.obj", bytes); });
    EXPECT_EQ(bat_ReadMesh(pipe).Coordinates(), many);
    writer.join();
}

TEST(MeshFiles, RefusesWhatIsNoFileOrMayNotBeRead)
{
    const ScratchFolder folder;
    for (const auto& [path, reason] :
         {std::pair{folder / "none.stl", ": cannot be opened: No such file or directory"},
          {folder.Path(), ": is a directory"},
          {"/dev/null", ": is neither a file nor a pipe"},
          {"/proc/self/mem", ": cannot be read: Input/output error"},
          {folder.Write("empty.stl", ""), ": the file is empty"}})
        EXPECT_EQ(Refusal([&path = path] { (void)bat_ReadMesh(path); }), path + reason);
}
}
