// What the mesh readers refuse, and in which words.

#include <bat_MeshError.h>
#include <bat_MeshReader.h>

#include <gmock/gmock.h>
#include <testing/MeshWriter.h>

#include <cmath>
#include <cstring>

namespace
{
using namespace std::string_literals;

std::string Facet(const std::string& vertices)
{
    return "solid a\nfacet normal 0 0 1\nouter loop\n" + vertices + "endloop\nendfacet\nendsolid a\n";
}

/// Two facets in binary, a number written over at the offset.
template <class T>
std::string BinaryWith(std::size_t offset, T value, const char* header = "")
{
    std::string bytes = MeshWriter::StlBinary({0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 1, 0}, header);
    std::memcpy(bytes.data() + offset, &value, sizeof value);
    return bytes;
}

struct BadRow
{
    std::string bytes;
    std::string sentence; // behind "part"
};

const std::string TWO_VERTICES = "vertex 0 0 0\nvertex 1 0 0\n";
const std::string V3 = "v 0 0 0\nv 1 0 0\nv 0 1 0\n";
const std::string P3 = "0 0 0\n1 0 0\n0 1 0\n";

const BadRow ROWS[] = {
    {"", ": the file is empty"},
    {" \n\t\r\n", ": the file holds nothing but blanks and comments"},
    {std::string(3, '\x1b') + std::string(50, 'x'), ": the content begins with '\\x1b\\x1b\\x1b" +
                                                        std::string(37, 'x') +
                                                        "...' and is none of STL, OBJ and OFF"},
    {"\xff\xfes\0o\0l\0i\0d\0"s, ": the content is UTF-16 text, read are STL, OBJ and OFF"},
    {"\x01\0\x02"s,
     ": the content is binary and shorter than the 84 bytes that begin a binary STL file: it has 3"},
    {BinaryWith(80, 9U, "solid of steel"),
     ", byte 80: read as binary STL, 9 facets make 534 bytes, the file has 184"},
    {BinaryWith(96, std::nanf("")),
     ", byte 96: the x coordinate of a corner of facet 0 is not a number (NaN)"},

    {"solid a\nendsolid a", ": the file holds no triangle"},
    {Facet(TWO_VERTICES + "vertex 0 1 0\n").substr(0, 94),
     ", line 9: the file ends inside the solid 'a', before its \"endsolid\""},
    {"solid a\ncolour red\n", ", line 2: 'colour' stands where \"facet\" or \"endsolid\" is due"},
    {Facet(TWO_VERTICES), ", line 6: a facet has three corners, this one has 2"},
    {Facet(TWO_VERTICES + TWO_VERTICES), ", line 7: a facet has three corners, here is a fourth"},
    {Facet("vertex nan 0 0\n"), ", line 4: the x coordinate is not a number (NaN)"},
    {Facet("vertex 0 0 -1e309\n"),
     ", line 4: the z coordinate '-1e309' is infinite or too large for a double"},
    {"solid a\r\nfacet normal 0 0 1\router loop\nvertex x", ", line 4: the x coordinate 'x' is no number"},

    {V3 + "f 0 1 2\n", ", line 4: the vertex index '0' is 0, indices count from 1"},
    {V3 + "f 1 2 4\n", ", line 4: the vertex index '4' is out of range, the file has 3 vertices"},
    {V3 + "f 1 2 -4\n", ", line 4: the vertex index '-4' is out of range, before it stand 3 vertices"},
    {V3 + "f 1//1 2//1 3//1\n", ", line 4: the normal index '1' is out of range, the file has 0 normals"},
    {V3 + "f /1 2 3\n", ", line 4: the corner '/1' is none of v, v/vt, v//vn and v/vt/vn"},
    {"v 0 0 0 1 1\n", ", line 1: a vertex has 3, 4, 6 or 7 numbers, this one has 5"},
    {V3 + "cstype bezier\n", ", line 4: the statement 'cstype' is not read"},
    {"v 0 \\\n 0 \\\n 1#\n", ", line 3: the z coordinate '1#' is no number"},

    {"OFF\n", ", line 2: the number of vertices is missing"},
    {"OFF\n3 many 0\n" + P3, ", line 2: the number of faces 'many' is no count"},
    {"OFF\n3 1 0 0\n" + P3, ", line 2: '0' stands behind the numbers of vertices, faces and edges"},
    {"OFF\n1000000000000 1 0\n" + P3 + "3 0 1 2\n",
     ", line 2: 1000000000000 vertices and 1 faces do not fit into the 27 bytes that follow"},
    {"OFF\n4 1 0\n" + P3 + "3 0 1 2\n", ", line 6: a vertex has 4 numbers where its keyword asks for 3"},
    {"OFF\n3 1 0\n" + P3 + "9223372036854775807 0 1 2\n",
     ", line 6: a face of 9223372036854775807 corners ends after 3"},
    {"OFF\n3 1 0\n" + P3 + "3 0 1 3\n",
     ", line 6: the vertex index '3' is out of range, the file has 3 vertices, counted from 0"},
    {"OFF\n3 1 0\n" + P3 + "3 0 1 2 1 1 1 1 1\n",
     ", line 6: '1' behind a face's corners belongs to no colour"},
    {"OFF\n3 1 0\n" + P3 + "3 0 1 2\n3 0 1 2\n", ", line 7: '3' stands behind the last of 1 faces"},
    {"OFF BINARY\n\0\0\0\3"s, ", line 1: binary OFF is not read, only OFF in text is"}};

TEST(MeshReaderRefuses, InAWholeSentence)
{
    for (const BadRow& row : ROWS)
        EXPECT_THAT([&row] { (void)bat_ParseMesh(row.bytes, "part"); },
                    testing::ThrowsMessage<bat_MeshError>("part" + row.sentence));
}
}
