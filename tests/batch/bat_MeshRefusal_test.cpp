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
};

const std::string TWO_VERTICES = "vertex 0 0 0\nvertex 1 0 0\n";
const std::string V3 = "v 0 0 0\nv 1 0 0\nv 0 1 0\n";
const std::string P3 = "0 0 0\n1 0 0\n0 1 0\n";

// TWO_VERTICES, V3 and P3 begin files of text STL, OBJ and OFF.
const BadRow ROWS[] = {
    {"empty", "", "part: the file is empty"},
    {"blanks", " \n\t\r\n", "part: the file holds nothing but blanks and comments"},
    {"prose", "Hello, world", "part: the content begins with 'Hello,' and is none of STL, OBJ and OFF"},
    {"long and unprintable", std::string(3, '\x1b') + std::string(50, 'x'),
     "part: the content begins with '\\x1b\\x1b\\x1b" + std::string(37, 'x') +
         "...' and is none of STL, OBJ and OFF"},
    {"PLY", "ply\nformat ascii 1.0\n", "part: the content is PLY, read are STL, OBJ and OFF"},
    {"UTF-16", "\xff\xfes\0o\0l\0i\0d\0"s, "part: the content is UTF-16 text, read are STL, OBJ and OFF"},
    {"short binary", "\x01\0\x02"s,
     "part: the content is binary and shorter than the 84 bytes that begin a binary STL file: it has 3"},

    {"header alone", MeshWriter::StlBinary({}), "part: the file holds no triangle"},
    {"one facet too many promised", BinaryWithCount(3),
     "part, byte 80: read as binary STL, 3 facets make 234 bytes, the file has 184"},
    {"wrong number, solid in the header", BinaryWithCount(9, "solid of steel"),
     "part, byte 80: read as binary STL, 9 facets make 534 bytes, the file has 184"},
    {"NaN in the first corner", BinaryWith(96, std::nanf("")),
     "part, byte 96: the x coordinate of a corner of facet 0 is not a number (NaN)"},

    {"no facet", Solid("endsolid a"), "part: the file holds no triangle"},
    {"no end", Facet(TWO_VERTICES + "vertex 0 1 0\n").substr(0, 94),
     "part, line 9: the file ends inside the solid 'a', before its \"endsolid\""},
    {"a foreign word", Solid("colour red\n"),
     "part, line 2: 'colour' stands where \"facet\" or \"endsolid\" is due"},
    {"no normal", Solid("facet\nouter loop\n"), "part, line 3: 'outer' stands where \"normal\" is due"},
    {"four corners", Facet(TWO_VERTICES + TWO_VERTICES),
     "part, line 7: a facet has three corners, here is a fourth"},
    {"NaN", Facet("vertex nan 0 0\n"), "part, line 4: the x coordinate is not a number (NaN)"},
    {"infinity", Facet("vertex 0 0 -inf\n"),
     "part, line 4: the z coordinate '-inf' is infinite or too large for a double"},
    {"too large", Facet("vertex 1e309 0 0\n"),
     "part, line 4: the x coordinate '1e309' is infinite or too large for a double"},
    {"a coordinate too many", Facet("vertex 0 0 0 0\n"),
     "part, line 4: '0' stands where \"vertex\" or \"endloop\" is due"},
    {"lines counted with CR LF and CR", "solid a\r\nfacet normal 0 0 1\router loop\nvertex x",
     "part, line 4: the x coordinate 'x' is no number"},

    {"no face", V3, "part: the file holds no triangle"},
    {"index 0", V3 + "f 0 1 2\n", "part, line 4: the vertex index '0' is 0, indices count from 1"},
    {"index past the end", V3 + "f 1 2 4\n",
     "part, line 4: the vertex index '4' is out of range, the file has 3 vertices"},
    {"index before the start", V3 + "f 1 2 -4\n",
     "part, line 4: the vertex index '-4' is out of range, before it stand 3 vertices"},
    {"texture index out of range", V3 + "vt 0 0\nf 1/1 2/1 3/2\n",
     "part, line 5: the texture index '2' is out of range, the file has 1 texture coordinates"},
    {"normal index out of range", V3 + "f 1//1 2//1 3//1\n",
     "part, line 4: the normal index '1' is out of range, the file has 0 normals"},
    {"a corner without a vertex", V3 + "f /1 2 3\n",
     "part, line 4: the corner '/1' is none of v, v/vt, v//vn and v/vt/vn"},
    {"five numbers", "v 0 0 0 1 1\n", "part, line 1: a vertex has 3, 4, 6 or 7 numbers, this one has 5"},
    {"a comment joined to a number", "v 0 0 1#\n", "part, line 1: the z coordinate '1#' is no number"},
    {"free-form surface", V3 + "cstype bezier\n", "part, line 4: the statement 'cstype' is not read"},
    {"lines counted over continuations", "v 0 \\\n 0 \\\n x\n",
     "part, line 3: the z coordinate 'x' is no number"},

    {"keyword alone", "OFF\n", "part, line 2: the number of vertices is missing"},
    {"no faces", "OFF\n3 0 0\n" + P3, "part: the file holds no triangle"},
    {"count that is no number", "OFF\n3 many 0\n" + P3,
     "part, line 2: the number of faces 'many' is no count"},
    {"more than counts", "OFF\n3 1 0 0\n" + P3,
     "part, line 2: '0' stands behind the numbers of vertices, faces and edges"},
    {"vertices that do not fit", "OFF\n1000000000000 1 0\n" + P3 + "3 0 1 2\n",
     "part, line 2: 1000000000000 vertices and 1 faces do not fit into the 27 bytes that follow"},
    {"a vertex too few", "OFF\n4 1 0\n" + P3 + "3 0 1 2\n",
     "part, line 6: a vertex has 4 numbers where its keyword asks for 3"},
    {"a face of more corners than memory", "OFF\n3 1 0\n" + P3 + "9223372036854775807 0 1 2\n",
     "part, line 6: a face of 9223372036854775807 corners ends after 3"},
    {"index past the end", "OFF\n3 1 0\n" + P3 + "3 0 1 3\n",
     "part, line 6: the vertex index '3' is out of range, the file has 3 vertices, counted from 0"},
    {"more behind a face than a colour", "OFF\n3 1 0\n" + P3 + "3 0 1 2 1 1 1 1 1\n",
     "part, line 6: '1' behind a face's corners belongs to no colour"},
    {"a face too many", "OFF\n3 1 0\n" + P3 + "3 0 1 2\n3 0 1 2\n",
     "part, line 7: '3' stands behind the last of 1 faces"},
    {"a word behind a vertex", "NOFF\n3 1 0\n0 0 0 0 0 up\n1 0 0\n0 1 0\n3 0 1 2\n",
     "part, line 3: 'up' behind a vertex is no number"},
    {"binary", "OFF BINARY\n\0\0\0\3"s, "part, line 1: binary OFF is not read, only OFF in text is"},
};

TEST(MeshReaderRefuses, InAWholeSentence)
{
    for (const BadRow& row : ROWS)
        try
        {
            const bat_TriangleMesh mesh = bat_ParseMesh(row.bytes, "part");
            ADD_FAILURE() << row.what << ": " << mesh.Length() << " triangles were read";
        }
        catch (const bat_MeshError& error)
        {
            EXPECT_EQ(error.what(), row.sentence) << row.what;
        }
}
}
