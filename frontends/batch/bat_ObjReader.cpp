#include <bat_ObjReader.h>

#include <algorithm>

namespace
{
// What has no surface of its own, or only says how a surface looks.
constexpr std::string_view PASSED_OVER[] = {
    "vt",     "vn",  "vp",    "p",        "l",        "g",      "o",      "s",          "mg",       "mtllib",
    "usemtl", "lod", "bevel", "c_interp", "d_interp", "maplib", "usemap", "shadow_obj", "trace_obj"};
constexpr const char* KIND_NAMES[] = {"vertex", "texture", "normal"};
constexpr const char* KIND_PLURALS[] = {"vertices", "texture coordinates", "normals"};
}

bool bat_ObjReader::IsStatement(std::string_view word)
{
    return word == "v" || word == "f" ||
           std::find(std::begin(PASSED_OVER), std::end(PASSED_OVER), word) != std::end(PASSED_OVER);
}

bat_TextCursor bat_ObjReader::Start() const
{
    bat_TextCursor cursor(text_, *file_, bat_TextCursor::Comments::HASH,
                          bat_TextCursor::Continuation::BACKSLASH);
    cursor.CountFor(*task_);
    return cursor;
}

void bat_ObjReader::Count(std::string_view statement, Counts& counts)
{
    counts[VERTEX] += statement == "v";
    counts[TEXTURE] += statement == "vt";
    counts[NORMAL] += statement == "vn";
}

bat_TriangleMesh bat_ObjReader::Read()
{
    CollectVertices();
    Counts before = {};
    bat_TextCursor cursor = Start();
    for (std::string_view word = cursor.Next(); !word.empty(); word = cursor.Next())
    {
        Count(word, before);
        if (word == "f")
        {
            ReadFace(cursor, before);
        }
        cursor.SkipLine();
    }
    return std::move(mesh_);
}

void bat_ObjReader::CollectVertices()
{
    bat_TextCursor cursor = Start();
    for (std::string_view word = cursor.Next(); !word.empty(); word = cursor.Next())
    {
        if (!IsStatement(word))
        {
            cursor.Refuse("the statement " + bat_TextCursor::Quoted(word) + " is not read");
        }
        Count(word, whole_);
        if (word == "v")
        {
            ReadVertex(cursor);
        }
        cursor.SkipLine();
    }
}

void bat_ObjReader::ReadVertex(bat_TextCursor& cursor)
{
    for (const char* name : bat_TextCursor::COORDINATES)
    {
        vertices_.push_back(cursor.Finite(cursor.NextOnLine(), name));
    }
    int further = 0;
    for (std::string_view word = cursor.NextOnLine(); !word.empty(); word = cursor.NextOnLine(), ++further)
    {
        static_cast<void>(cursor.Finite(word, "weight or colour"));
    }
    // One weight, three or four components of a colour.
    if (further != 0 && further != 1 && further != 3 && further != 4)
    {
        cursor.Refuse("a vertex has 3, 4, 6 or 7 numbers, this one has " + std::to_string(3 + further));
    }
}

void bat_ObjReader::ReadFace(bat_TextCursor& cursor, const Counts& before)
{
    polygon_.clear();
    for (std::string_view word = cursor.NextOnLine(); !word.empty(); word = cursor.NextOnLine())
    {
        const double* vertex = vertices_.data() + 3 * ReadCorner(cursor, word, before);
        polygon_.insert(polygon_.end(), vertex, vertex + 3);
    }
    if (polygon_.size() < 9)
    {
        cursor.Refuse("a face needs three corners at least, this one has " +
                      std::to_string(polygon_.size() / 3));
    }
    cutter_.Cut(polygon_, mesh_);
}

std::size_t bat_ObjReader::ReadCorner(const bat_TextCursor& cursor, std::string_view corner,
                                      const Counts& before) const
{
    std::size_t vertex = 0;
    std::string_view rest = corner;
    for (const Kind kind : {VERTEX, TEXTURE, NORMAL})
    {
        const std::size_t slash = std::min(rest.find('/'), rest.size());
        const std::string_view index = rest.substr(0, slash);
        const bool last = slash == rest.size();
        if ((index.empty() && kind == VERTEX) || (!last && kind == NORMAL))
        {
            cursor.Refuse("the corner " + bat_TextCursor::Quoted(corner) +
                          " is none of v, v/vt, v//vn and v/vt/vn");
        }
        if (!index.empty())
        {
            const std::size_t resolved = Resolve(cursor, index, kind, before);
            vertex = kind == VERTEX ? resolved : vertex;
        }
        if (last)
        {
            break;
        }
        rest.remove_prefix(slash + 1);
    }
    return vertex;
}

std::size_t bat_ObjReader::Resolve(const bat_TextCursor& cursor, std::string_view index, Kind kind,
                                   const Counts& before) const
{
    const std::optional<std::int64_t> value = bat_TextCursor::Integer(index);
    const std::string name =
        std::string("the ") + KIND_NAMES[kind] + " index " + bat_TextCursor::Quoted(index);
    if (!value)
    {
        cursor.Refuse(name + " is no whole number");
    }
    if (*value == 0)
    {
        cursor.Refuse(name + " is 0, indices count from 1");
    }
    // Of the smallest integer there is no opposite; its distance from -1 there is.
    const std::size_t distance = static_cast<std::size_t>(*value > 0 ? *value - 1 : -1 - *value);
    const std::size_t available = *value > 0 ? whole_[kind] : before[kind];
    if (distance >= available)
    {
        cursor.Refuse(name + " is out of range, " + (*value > 0 ? "the file has " : "before it stand ") +
                      std::to_string(available) + " " + KIND_PLURALS[kind]);
    }
    return *value > 0 ? distance : available - 1 - distance;
}
