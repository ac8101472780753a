#include <bat_MeshReader.h>

#include <bat_FileBytes.h>
#include <bat_MeshError.h>
#include <bat_ObjReader.h>
#include <bat_OffReader.h>
#include <bat_StlAsciiReader.h>
#include <bat_StlBinaryReader.h>

#include <cerrno>
#include <new>
#include <stdexcept>

namespace
{
using namespace std::string_view_literals;

constexpr std::string_view BYTE_ORDER_MARK = "\xef\xbb\xbf"sv;
// How far into a file to look for what text does not hold.
constexpr std::size_t PROBE = 512;
// Words or facets between two questions whether to go on.
constexpr std::size_t POLL_EVERY = 1024;

struct Foreign
{
    std::string_view start;
    const char* name;
};

// What people are likely to offer, by how it begins.
constexpr Foreign FOREIGN[] = {
    {"\xff\xfe"sv, "UTF-16 text"},
    {"\xfe\xff"sv, "UTF-16 text"},
    {"ply"sv, "PLY"},
    {"glTF"sv, "binary glTF"},
    {"PK\x03\x04"sv, "a ZIP archive"},
    {"\x1f\x8b"sv, "gzip"},
    {"ISO-10303-21"sv, "STEP"},
    {"<"sv, "XML"},
    {"{"sv, "JSON"},
};

std::string_view WithoutMark(std::string_view bytes)
{
    return bytes.substr(bytes.starts_with(BYTE_ORDER_MARK) ? BYTE_ORDER_MARK.size() : 0);
}

bat_TriangleMesh Parse(bat_MeshFormat format, std::string_view bytes, const std::string& file,
                       bat_Watcher& watcher)
{
    bat_Task task(watcher, 0, POLL_EVERY);
    switch (format)
    {
    case bat_MeshFormat::STL_BINARY:
        return bat_StlBinaryReader(bytes, file).Read(task);
    case bat_MeshFormat::STL_ASCII:
        return bat_StlAsciiReader(WithoutMark(bytes), file, task).Read();
    case bat_MeshFormat::OBJ:
        return bat_ObjReader(WithoutMark(bytes), file, task).Read();
    case bat_MeshFormat::OFF:
        break;
    }
    return bat_OffReader(WithoutMark(bytes), file, task).Read();
}
}

bat_MeshFormat bat_TellMeshFormat(std::string_view bytes, const std::string& file)
{
    if (bytes.empty())
    {
        throw bat_MeshError(file, "the file is empty");
    }
    if (bat_StlBinaryReader::Fits(bytes))
    {
        return bat_MeshFormat::STL_BINARY;
    }
    bat_TextCursor cursor(WithoutMark(bytes), file, bat_TextCursor::Comments::HASH,
                          bat_TextCursor::Continuation::BACKSLASH);
    const std::string_view word = cursor.Next();
    const bool isText = bytes.substr(0, PROBE).find('\0') == std::string_view::npos;
    if (isText && bat_StlAsciiReader::IsKeyword(word, "solid"))
    {
        return bat_MeshFormat::STL_ASCII;
    }
    if (bat_OffReader::IsKeyword(word))
    {
        return bat_MeshFormat::OFF;
    }
    if (isText && bat_ObjReader::IsStatement(word))
    {
        return bat_MeshFormat::OBJ;
    }
    for (const Foreign& foreign : FOREIGN)
    {
        if (bytes.starts_with(foreign.start))
        {
            throw bat_MeshError(file, std::string("the content is ") + foreign.name +
                                          ", read are STL, OBJ and OFF");
        }
    }
    if (!isText)
    {
        return bat_MeshFormat::STL_BINARY;
    }
    throw bat_MeshError(file, word.empty() ? "the file holds nothing but blanks and comments"
                                           : "the content begins with " + bat_TextCursor::Quoted(word) +
                                                 " and is none of STL, OBJ and OFF");
}

bat_TriangleMesh bat_ParseMesh(std::string_view bytes, const std::string& file, bat_Watcher& watcher)
{
    bat_TriangleMesh mesh = Parse(bat_TellMeshFormat(bytes, file), bytes, file, watcher);
    if (mesh.IsEmpty())
    {
        throw bat_MeshError(file, "the file holds no triangle");
    }
    if (mesh.IsSurelyOpen(watcher))
    {
        mesh.Note("the surface is open or not turned consistently: its area vectors do not cancel out");
    }
    return mesh;
}

bat_TriangleMesh bat_ReadMesh(const std::string& path, bat_Watcher& watcher)
{
    try
    {
        return bat_ParseMesh(bat_FileBytes(path, watcher).View(), path, watcher);
    }
    catch (const std::bad_alloc&)
    {
        throw bat_MeshError::OfSystem(path, ENOMEM, "memory does not suffice to read it");
    }
    catch (const std::length_error&)
    {
        throw bat_MeshError::OfSystem(path, ENOMEM, "memory does not suffice to read it");
    }
}
