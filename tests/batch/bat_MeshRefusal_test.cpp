// What the mesh readers refuse, and in which words.

#include <bat_MeshError.h>
#include <bat_MeshReader.h>

#include <gtest/gtest.h>
#include <testing/MeshWriter.h>

#include <cmath>
#include <cstring>
#include <limits>

namespace
{
using namespace std::string_literals;

const std::vector<double> TWO = {0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 1, 0};

std::string Solid(const std::string& content)
{
    return "solid a\n" + content;
}

std::string Facet(const std::string& vertices, const std::string& normal = "0 0 1")
{
    return "solid a\nfacet normal " + normal + "\nouter loop\n" + vertices +
           "endloop\nendfacet\nendsolid a\n";
}

std::string BinaryWith(std::size_t offset, float value)
{
    std::string bytes = MeshWriter::StlBinary(TWO);
    std::memcpy(bytes.data() + offset, &value, sizeof value);
    return bytes;
}

std::string BinaryWithCount(std::uint32_t count, std::string header = "")
{
    std::string bytes = MeshWriter::StlBinary(TWO, std::move(header));
    std::memcpy(bytes.data() + 80, &count, sizeof count);
    return bytes;
}

struct BadRow
{
    const char* what;
    std::string bytes;
    std::string sentence;

    friend void PrintTo(const BadRow& row, std::ostream* out) { *out << row.what; }
};

class MeshReaderRefuses : public testing::TestWithParam<BadRow>
{};

TEST_P(MeshReaderRefuses, InAWholeSentence)
{
    try
    {
        const bat_TriangleMesh mesh = bat_ParseMesh(GetParam().bytes, "part");
        FAIL() << mesh.Length() << " triangles were read";
    }
    catch (const bat_MeshError& error)
    {
        EXPECT_EQ(error.what(), GetParam().sentence);
    }
}

const BadRow FORMAT_ROWS[] = {
    {"empty", "", "part: the file is empty"},
    {"blanks", " \n\t\r\n", "part: the file holds nothing but blanks and comments"},
    {"comments", "# nothing\n", "part: the file holds nothing but blanks and comments"},
    {"byte order mark alone", "\xef\xbb\xbf", "part: the file holds nothing but blanks and comments"},
    {"prose", "Hello, world", "part: the content begins with 'Hello,' and is none of STL, OBJ and OFF"},
    {"long and unprintable", std::string(30, '\x1b') + std::string(30, 'x'),
     "part: the content begins with '" +
         [] {
             std::string escapes;
             for (int i = 0; i < 30; ++i)
             {
                 escapes += "\\x1b";
             }
             return escapes;
         }() +
         "xxxxxxxxxx...' and is none of STL, OBJ and OFF"},
    {"a word too short", "soli", "part: the content begins with 'soli' and is none of STL, OBJ and OFF"},
    {"PLY", "ply\nformat ascii 1.0\n", "part: the content is PLY, read are STL, OBJ and OFF"},
    {"ZIP", "PK\x03\x04\0\0"s, "part: the content is a ZIP archive, read are STL, OBJ and OFF"},
    {"gzip", "\x1f\x8b\x08\0"s, "part: the content is gzip, read are STL, OBJ and OFF"},
    {"STEP", "ISO-10303-21;\n", "part: the content is STEP, read are STL, OBJ and OFF"},
    {"UTF-16", "\xff\xfes\0o\0l\0i\0d\0"s, "part: the content is UTF-16 text, read are STL, OBJ and OFF"},
    {"short binary", "\x01\0\x02"s,
     "part: the content is binary and shorter than the 84 bytes that begin a binary STL file: it has 3"},
};
INSTANTIATE_TEST_SUITE_P(Format, MeshReaderRefuses, testing::ValuesIn(FORMAT_ROWS));

const BadRow BINARY_ROWS[] = {
    {"header alone", MeshWriter::StlBinary({}), "part: the file holds no triangle"},
    {"one facet too many promised", BinaryWithCount(3),
     "part, byte 80: read as binary STL, 3 facets make 234 bytes, the file has 184"},
    {"all facets promised", BinaryWithCount(0xffffffff),
     "part, byte 80: read as binary STL, 4294967295 facets make 214748364834 bytes, the file has 184"},
    {"one facet too few promised", BinaryWithCount(1),
     "part, byte 80: read as binary STL, 1 facets make 134 bytes, the file has 184"},
    {"wrong number, solid in the header", BinaryWithCount(9, "solid of steel"),
     "part, byte 80: read as binary STL, 9 facets make 534 bytes, the file has 184"},
    {"one byte too many", MeshWriter::StlBinary(TWO) + "\n",
     "part, byte 80: read as binary STL, 2 facets make 184 bytes, the file has 185"},
    {"NaN in the first corner", BinaryWith(96, std::nanf("")),
     "part, byte 96: the x coordinate of a corner of facet 0 is not a number (NaN)"},
    {"infinity in the last corner", BinaryWith(178, -std::numeric_limits<float>::infinity()),
     "part, byte 178: the z coordinate of a corner of facet 1 is infinite"},
};
INSTANTIATE_TEST_SUITE_P(StlBinary, MeshReaderRefuses, testing::ValuesIn(BINARY_ROWS));

const std::string TWO_VERTICES = "vertex 0 0 0\nvertex 1 0 0\n";
const BadRow ASCII_ROWS[] = {
    {"no facet", Solid("endsolid a"), "part: the file holds no triangle"},
    {"a word alone", "solid", "part, line 1: the file ends inside the solid '', before its \"endsolid\""},
    {"no end", Facet(TWO_VERTICES + "vertex 0 1 0\n").substr(0, 94),
     "part, line 9: the file ends inside the solid 'a', before its \"endsolid\""},
    {"text behind the end", Facet(TWO_VERTICES + "vertex 0 1 0\n") + "more",
     "part, line 10: 'more' stands where \"solid\" is due"},
    {"a foreign word", Solid("colour red\n"),
     "part, line 2: 'colour' stands where \"facet\" or \"endsolid\" is due"},
    {"no normal", Solid("facet\nouter loop\n"), "part, line 3: 'outer' stands where \"normal\" is due"},
    {"a short normal", Facet(TWO_VERTICES, "0 0"),
     "part, line 3: a facet's normal needs three numbers, 'outer' is none"},
    {"no loop", Solid("facet normal 0 0 1\nvertex 0 0 0\n"),
     "part, line 3: 'vertex' stands where \"outer\" is due"},
    {"cut in a facet", Solid("facet normal 0 0 1\nouter"),
     "part, line 3: the file ends where \"loop\" is due"},
    {"no corner", Facet(""), "part, line 4: a facet has three corners, this one has 0"},
    {"two corners", Facet(TWO_VERTICES), "part, line 6: a facet has three corners, this one has 2"},
    {"four corners", Facet(TWO_VERTICES + TWO_VERTICES),
     "part, line 7: a facet has three corners, here is a fourth"},
    {"a loop without end", Solid("facet normal 0 0 1 outer loop vertex 0 0 0 endfacet"),
     "part, line 2: 'endfacet' stands where \"vertex\" or \"endloop\" is due"},
    {"cut in a loop", Solid("facet normal 0 0 1 outer loop vertex 0 0 0"),
     "part, line 2: the file ends where \"vertex\" or \"endloop\" is due"},
    {"NaN", Facet("vertex nan 0 0\n"), "part, line 4: the x coordinate is not a number (NaN)"},
    {"signed NaN", Facet("vertex 0 -NaN 0\n"), "part, line 4: the y coordinate is not a number (NaN)"},
    {"NaN in another spelling", Facet("vertex 0 0 -1.#IND00\n"),
     "part, line 4: the z coordinate is not a number (NaN)"},
    {"infinity", Facet("vertex 0 0 -inf\n"),
     "part, line 4: the z coordinate '-inf' is infinite or too large for a double"},
    {"infinity in another spelling", Facet("vertex 0 1.#INF 0\n"),
     "part, line 4: the y coordinate '1.#INF' is infinite or too large for a double"},
    {"too large", Facet("vertex 1e309 0 0\n"),
     "part, line 4: the x coordinate '1e309' is infinite or too large for a double"},
    {"decimal comma", Facet("vertex 0,5 0 0\n"), "part, line 4: the x coordinate '0,5' is no number"},
    {"hexadecimal", Facet("vertex 0x10 0 0\n"), "part, line 4: the x coordinate '0x10' is no number"},
    {"two signs", Facet("vertex +-1 0 0\n"), "part, line 4: the x coordinate '+-1' is no number"},
    {"a coordinate too few", Facet("vertex 0 0\nvertex 1 0 0\n"),
     "part, line 5: the z coordinate 'vertex' is no number"},
    {"cut at a coordinate", Solid("facet normal 0 0 1 outer loop vertex 0 0"),
     "part, line 2: the z coordinate is missing"},
    {"a coordinate too many", Facet("vertex 0 0 0 0\n"),
     "part, line 4: '0' stands where \"vertex\" or \"endloop\" is due"},
    {"lines counted with CR LF and CR", "solid a\r\nfacet normal 0 0 1\router loop\nvertex x",
     "part, line 4: the x coordinate 'x' is no number"},
};
INSTANTIATE_TEST_SUITE_P(StlAscii, MeshReaderRefuses, testing::ValuesIn(ASCII_ROWS));

const std::string V3 = "v 0 0 0\nv 1 0 0\nv 0 1 0\n";
const BadRow OBJ_ROWS[] = {
    {"no face", V3, "part: the file holds no triangle"},
    {"two corners", V3 + "f 1 2\n", "part, line 4: a face needs three corners at least, this one has 2"},
    {"no corner", V3 + "f\n", "part, line 4: a face needs three corners at least, this one has 0"},
    {"index 0", V3 + "f 0 1 2\n", "part, line 4: the vertex index '0' is 0, indices count from 1"},
    {"index past the end", V3 + "f 1 2 4\n",
     "part, line 4: the vertex index '4' is out of range, the file has 3 vertices"},
    {"index before the start", V3 + "f 1 2 -4\n",
     "part, line 4: the vertex index '-4' is out of range, before it stand 3 vertices"},
    {"index back past the face", "v 0 0 0\nf -1 -2 1\nv 1 0 0\n",
     "part, line 2: the vertex index '-2' is out of range, before it stand 1 vertices"},
    {"the largest index", V3 + "f 1 2 9223372036854775807\n",
     "part, line 4: the vertex index '9223372036854775807' is out of range, the file has 3 vertices"},
    {"the smallest index", V3 + "f 1 2 -9223372036854775808\n",
     "part, line 4: the vertex index '-9223372036854775808' is out of range, before it stand 3 vertices"},
    {"an index beyond 64 bits", V3 + "f 1 2 9223372036854775808\n",
     "part, line 4: the vertex index '9223372036854775808' is no whole number"},
    {"an index with a fraction", V3 + "f 1 2 3.0\n",
     "part, line 4: the vertex index '3.0' is no whole number"},
    {"texture index out of range", V3 + "vt 0 0\nf 1/1 2/1 3/2\n",
     "part, line 5: the texture index '2' is out of range, the file has 1 texture coordinates"},
    {"normal index out of range", V3 + "f 1//1 2//1 3//1\n",
     "part, line 4: the normal index '1' is out of range, the file has 0 normals"},
    {"a corner without a vertex", V3 + "f /1 2 3\n",
     "part, line 4: the corner '/1' is none of v, v/vt, v//vn and v/vt/vn"},
    {"a corner of four parts", V3 + "vt 0 0\nvn 0 0 1\nf 1/1/1/1 2 3\n",
     "part, line 6: the corner '1/1/1/1' is none of v, v/vt, v//vn and v/vt/vn"},
    {"two coordinates", "v 0 0\n", "part, line 1: the z coordinate is missing"},
    {"five numbers", "v 0 0 0 1 1\n", "part, line 1: a vertex has 3, 4, 6 or 7 numbers, this one has 5"},
    {"eight numbers", "v 0 0 0 1 1 1 1 1\n",
     "part, line 1: a vertex has 3, 4, 6 or 7 numbers, this one has 8"},
    {"NaN", "v 0 nan 0\n", "part, line 1: the y coordinate is not a number (NaN)"},
    {"NaN whose spelling has a hash", "v 0 0 1.#QNAN\n",
     "part, line 1: the z coordinate is not a number (NaN)"},
    {"a comment joined to a number", "v 0 0 1#\n", "part, line 1: the z coordinate '1#' is no number"},
    {"infinite weight", "v 0 0 0 inf\n",
     "part, line 1: the weight or colour 'inf' is infinite or too large for a double"},
    {"free-form surface", V3 + "cstype bezier\n", "part, line 4: the statement 'cstype' is not read"},
    {"call of another file", V3 + "call other.obj\n", "part, line 4: the statement 'call' is not read"},
    {"lines counted over continuations", "v 0 \\\n 0 \\\n x\n",
     "part, line 3: the z coordinate 'x' is no number"},
};
INSTANTIATE_TEST_SUITE_P(Obj, MeshReaderRefuses, testing::ValuesIn(OBJ_ROWS));

const std::string P3 = "0 0 0\n1 0 0\n0 1 0\n";
const BadRow OFF_ROWS[] = {
    {"keyword alone", "OFF\n", "part, line 2: the number of vertices is missing"},
    {"no number of faces", "OFF\n3\n" + P3, "part, line 2: the number of faces is missing"},
    {"no faces", "OFF\n3 0 0\n" + P3, "part: the file holds no triangle"},
    {"negative count", "OFF\n-3 1 0\n" + P3, "part, line 2: the number of vertices '-3' is no count"},
    {"count that is no number", "OFF\n3 many 0\n" + P3,
     "part, line 2: the number of faces 'many' is no count"},
    {"more than counts", "OFF\n3 1 0 0\n" + P3,
     "part, line 2: '0' stands behind the numbers of vertices, faces and edges"},
    {"vertices that do not fit", "OFF\n1000000000000 1 0\n" + P3 + "3 0 1 2\n",
     "part, line 2: 1000000000000 vertices and 1 faces do not fit into the 27 bytes that follow"},
    {"faces that do not fit", "OFF\n3 9223372036854775807 0\n" + P3 + "3 0 1 2\n",
     "part, line 2: 3 vertices and 9223372036854775807 faces do not fit into the 27 bytes that follow"},
    {"a vertex too few", "OFF\n4 1 0\n" + P3 + "3 0 1 2\n",
     "part, line 6: a vertex has 4 numbers where its keyword asks for 3"},
    {"cut among the vertices", "OFF\n3 1 0\n" + P3.substr(0, 12) + "       \n     ",
     "part, line 6: the file ends after 2 of 3 vertices"},
    {"cut among the faces", "OFF\n3 2 0\n" + P3 + "3 0 1 2\n",
     "part, line 7: the file ends before the last of 2 faces"},
    {"cut in a face", "OFF\n3 1 0\n" + P3 + "3 0 1", "part, line 6: a face of 3 corners ends after 2"},
    {"a face of no corners", "OFF\n3 1 0\n" + P3 + "0\n  ", "part, line 6: a face has no corners"},
    {"a face of more corners than memory", "OFF\n3 1 0\n" + P3 + "9223372036854775807 0 1 2\n",
     "part, line 6: a face of 9223372036854775807 corners ends after 3"},
    {"index past the end", "OFF\n3 1 0\n" + P3 + "3 0 1 3\n",
     "part, line 6: the vertex index '3' is out of range, the file has 3 vertices, counted from 0"},
    {"negative index", "OFF\n3 1 0\n" + P3 + "3 0 1 -1\n",
     "part, line 6: the vertex index '-1' is out of range, the file has 3 vertices, counted from 0"},
    {"index that is no number", "OFF\n3 1 0\n" + P3 + "3 0 1 a\n",
     "part, line 6: the vertex index 'a' is no whole number"},
    {"more behind a face than a colour", "OFF\n3 1 0\n" + P3 + "3 0 1 2 1 1 1 1 1\n",
     "part, line 6: '1' behind a face's corners belongs to no colour"},
    {"a face too many", "OFF\n3 1 0\n" + P3 + "3 0 1 2\n3 0 1 2\n",
     "part, line 7: '3' stands behind the last of 1 faces"},
    {"NaN", "OFF\n3 1 0\n0 0 nan\n1 0 0\n0 1 0\n3 0 1 2\n",
     "part, line 3: the z coordinate is not a number (NaN)"},
    {"two coordinates", "OFF\n3 1 0\n0 0\n1 0 0\n0 1 0\n3 0 1 2\n",
     "part, line 3: the z coordinate is missing"},
    {"colours without C", "OFF\n3 1 0\n0 0 0 1 1 1\n1 0 0\n0 1 0\n3 0 1 2\n",
     "part, line 3: a vertex has 6 numbers where its keyword asks for 3"},
    {"C without colours", "COFF\n3 1 0\n" + P3 + "3 0 1 2\n",
     "part, line 3: a vertex has 3 numbers where its keyword asks for 6 or 7"},
    {"a word behind a vertex", "NOFF\n3 1 0\n0 0 0 0 0 up\n1 0 0\n0 1 0\n3 0 1 2\n",
     "part, line 3: 'up' behind a vertex is no number"},
    {"binary", "OFF BINARY\n\0\0\0\3"s, "part, line 1: binary OFF is not read, only OFF in text is"},
    {"four coordinates", "4OFF\n3 1 0\n" + P3,
     "part, line 1: '4OFF' is not read, only points of three coordinates are"},
    {"any number of coordinates", "nOFF\n3\n3 1 0\n" + P3,
     "part, line 1: 'nOFF' is not read, only points of three coordinates are"},
    {"all prefixes", "STCN4nOFF\n3\n3 1 0\n" + P3,
     "part, line 1: 'STCN4nOFF' is not read, only points of three coordinates are"},
};
INSTANTIATE_TEST_SUITE_P(Off, MeshReaderRefuses, testing::ValuesIn(OFF_ROWS));
}
