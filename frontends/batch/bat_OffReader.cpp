#include <bat_OffReader.h>

namespace
{
// The shortest lines: "0 0 0" and "1 0", each with its end.
constexpr std::size_t LEAST_VERTEX_BYTES = 6;
constexpr std::size_t LEAST_FACE_BYTES = 4;
constexpr int MOST_COLOUR_NUMBERS = 4;

bool Take(std::string_view& text, std::string_view prefix)
{
    const bool there = text.starts_with(prefix);
    text.remove_prefix(there ? prefix.size() : 0);
    return there;
}
}

bat_OffReader::bat_OffReader(std::string_view text, const std::string& file, bat_Task& task)
    : cursor_(text, file, bat_TextCursor::Comments::HASH), cutter_(&task)
{
    cursor_.CountFor(task);
}

std::optional<bat_OffReader::Header> bat_OffReader::Parse(std::string_view word)
{
    Header header;
    header.texture = Take(word, "ST");
    header.colour = Take(word, "C");
    header.normal = Take(word, "N");
    header.fourth = Take(word, "4");
    header.dimension = Take(word, "n");
    if (!Take(word, "OFF") && !Take(word, "off"))
    {
        return std::nullopt;
    }
    if (word.find_first_not_of("0123456789") != std::string_view::npos)
    {
        return std::nullopt;
    }
    header.digits = word;
    return header;
}

bool bat_OffReader::IsKeyword(std::string_view word)
{
    return Parse(word).has_value();
}

bat_TriangleMesh bat_OffReader::Read()
{
    ReadHeader();
    vertices_.reserve(3 * vertexCount_);
    for (std::size_t i = 0; i < vertexCount_; ++i)
    {
        ReadVertex();
    }
    for (std::size_t i = 0; i < faceCount_; ++i)
    {
        ReadFace();
    }
    ReadEnd();
    return std::move(mesh_);
}

std::size_t bat_OffReader::ReadCount(std::string_view word, const char* name) const
{
    const std::optional<std::int64_t> count = bat_TextCursor::Integer(word);
    if (word.empty())
    {
        cursor_.Refuse(std::string("the number of ") + name + " is missing");
    }
    if (!count || *count < 0)
    {
        cursor_.Refuse(std::string("the number of ") + name + " " + bat_TextCursor::Quoted(word) +
                       " is no count");
    }
    return static_cast<std::size_t>(*count);
}

void bat_OffReader::ReadHeader()
{
    const std::string_view keyword = cursor_.Next();
    const std::optional<Header> header = Parse(keyword);
    if (!header)
    {
        cursor_.Refuse(bat_TextCursor::Quoted(keyword) + " stands where \"OFF\" is due");
    }
    header_ = *header;
    if (header_.fourth || header_.dimension)
    {
        cursor_.Refuse(bat_TextCursor::Quoted(keyword) +
                       " is not read, only points of three coordinates are");
    }
    const std::string_view first = header_.digits.empty() ? cursor_.Next() : header_.digits;
    if (first == "BINARY")
    {
        cursor_.Refuse("binary OFF is not read, only OFF in text is");
    }
    vertexCount_ = ReadCount(first, "vertices");
    faceCount_ = ReadCount(cursor_.NextOnLine(), "faces");
    const std::string_view edges = cursor_.NextOnLine();
    if (!edges.empty())
    {
        static_cast<void>(ReadCount(edges, "edges"));
    }
    const std::string_view surplus = cursor_.NextOnLine();
    if (!surplus.empty())
    {
        cursor_.Refuse(bat_TextCursor::Quoted(surplus) +
                       " stands behind the numbers of vertices, faces and edges");
    }
    // The last line may lack its end.
    const std::size_t left = cursor_.BytesLeft() + 1;
    if (vertexCount_ > left / LEAST_VERTEX_BYTES ||
        faceCount_ > (left - vertexCount_ * LEAST_VERTEX_BYTES) / LEAST_FACE_BYTES)
    {
        cursor_.Refuse(std::to_string(vertexCount_) + " vertices and " + std::to_string(faceCount_) +
                       " faces do not fit into the " + std::to_string(cursor_.BytesLeft()) +
                       " bytes that follow");
    }
}

void bat_OffReader::ReadVertex()
{
    std::string_view word = cursor_.Next();
    if (word.empty())
    {
        cursor_.Refuse("the file ends after " + std::to_string(vertices_.size() / 3) + " of " +
                       std::to_string(vertexCount_) + " vertices");
    }
    for (const char* name : bat_TextCursor::COORDINATES)
    {
        vertices_.push_back(cursor_.Finite(word, name));
        word = cursor_.NextOnLine();
    }
    int further = 0;
    for (; !word.empty(); word = cursor_.NextOnLine(), ++further)
    {
        if (!bat_TextCursor::Number(word))
        {
            cursor_.Refuse(bat_TextCursor::Quoted(word) + " behind a vertex is no number");
        }
    }
    // Colours have four components; three are common.
    const int others = (header_.normal ? 3 : 0) + (header_.texture ? 2 : 0);
    const bool fits = header_.colour ? further == others + 3 || further == others + 4 : further == others;
    if (!fits)
    {
        cursor_.Refuse("a vertex has " + std::to_string(3 + further) +
                       " numbers where its keyword asks for " +
                       (header_.colour ? std::to_string(6 + others) + " or " + std::to_string(7 + others)
                                       : std::to_string(3 + others)));
    }
}

void bat_OffReader::ReadFace()
{
    const std::string_view first = cursor_.Next();
    if (first.empty())
    {
        cursor_.Refuse("the file ends before the last of " + std::to_string(faceCount_) + " faces");
    }
    const std::size_t count = ReadCount(first, "corners");
    if (count == 0)
    {
        cursor_.Refuse("a face has no corners");
    }
    polygon_.clear();
    for (std::size_t i = 0; i < count; ++i)
    {
        const std::string_view word = cursor_.NextOnLine();
        if (word.empty())
        {
            cursor_.Refuse("a face of " + std::to_string(count) + " corners ends after " + std::to_string(i));
        }
        const std::optional<std::int64_t> index = bat_TextCursor::Integer(word);
        if (!index)
        {
            cursor_.Refuse("the vertex index " + bat_TextCursor::Quoted(word) + " is no whole number");
        }
        if (*index < 0 || static_cast<std::size_t>(*index) >= vertexCount_)
        {
            cursor_.Refuse("the vertex index " + bat_TextCursor::Quoted(word) +
                           " is out of range, the file has " + std::to_string(vertexCount_) +
                           " vertices, counted from 0");
        }
        const double* vertex = vertices_.data() + 3 * static_cast<std::size_t>(*index);
        polygon_.insert(polygon_.end(), vertex, vertex + 3);
    }
    int further = 0;
    for (std::string_view word = cursor_.NextOnLine(); !word.empty(); word = cursor_.NextOnLine(), ++further)
    {
        if (!bat_TextCursor::Number(word) || further == MOST_COLOUR_NUMBERS)
        {
            cursor_.Refuse(bat_TextCursor::Quoted(word) + " behind a face's corners belongs to no colour");
        }
    }
    if (count > 2)
    {
        cutter_.Cut(polygon_, mesh_);
    }
}

void bat_OffReader::ReadEnd()
{
    const std::string_view word = cursor_.Next();
    if (!word.empty())
    {
        cursor_.Refuse(bat_TextCursor::Quoted(word) + " stands behind the last of " +
                       std::to_string(faceCount_) + " faces");
    }
}
