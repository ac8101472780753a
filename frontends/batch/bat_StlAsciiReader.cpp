#include <bat_StlAsciiReader.h>

#include <algorithm>

bat_StlAsciiReader::bat_StlAsciiReader(std::string_view text, const std::string& file, bat_Task& task)
    : cursor_(text, file, bat_TextCursor::Comments::NONE)
{
    cursor_.CountFor(task);
}

bool bat_StlAsciiReader::IsKeyword(std::string_view word, std::string_view keyword)
{
    // The keywords are letters: setting the bit of lower case is enough.
    return std::equal(word.begin(), word.end(), keyword.begin(), keyword.end(),
                      [](char c, char lower) { return (c | 0x20) == lower; });
}

void bat_StlAsciiReader::Expect(std::string_view keyword)
{
    const std::string_view word = cursor_.Next();
    if (!IsKeyword(word, keyword))
    {
        cursor_.Refuse((word.empty() ? "the file ends" : bat_TextCursor::Quoted(word) + " stands") +
                       " where \"" + std::string(keyword) + "\" is due");
    }
}

bat_TriangleMesh bat_StlAsciiReader::Read()
{
    Expect("solid");
    ReadSolid();
    for (bat_TextCursor start = cursor_; !cursor_.Next().empty(); start = cursor_)
    {
        cursor_ = start;
        Expect("solid");
        ReadSolid();
    }
    normals_.Report(mesh_);
    return std::move(mesh_);
}

// A name goes to the end of its line; in a file written without line ends, to the words "facet normal".
std::string_view bat_StlAsciiReader::ReadName()
{
    bat_TextCursor start = cursor_;
    const std::string_view whole = cursor_.RestOfLine();
    bat_TextCursor end = start;
    for (std::string_view word = start.NextOnLine(); !word.empty(); word = start.NextOnLine())
    {
        bat_TextCursor next = start;
        if (IsKeyword(word, "facet") && IsKeyword(next.NextOnLine(), "normal"))
        {
            cursor_ = end;
            return whole.substr(0, static_cast<std::size_t>(word.data() - whole.data()));
        }
        end = start;
    }
    return whole;
}

void bat_StlAsciiReader::ReadSolid()
{
    const std::string_view name = ReadName();
    for (;;)
    {
        const std::string_view word = cursor_.Next();
        if (IsKeyword(word, "facet"))
        {
            ReadFacet();
        }
        else if (IsKeyword(word, "endsolid"))
        {
            break;
        }
        else if (word.empty())
        {
            cursor_.Refuse("the file ends inside the solid " + bat_TextCursor::Quoted(name) +
                           ", before its \"endsolid\"");
        }
        else
        {
            cursor_.Refuse(bat_TextCursor::Quoted(word) + " stands where \"facet\" or \"endsolid\" is due");
        }
    }
    const std::string_view endName = cursor_.RestOfLine();
    if (!endName.empty() && endName != name)
    {
        mesh_.Note("the solid " + bat_TextCursor::Quoted(name) + " ends under the name " +
                   bat_TextCursor::Quoted(endName));
    }
}

void bat_StlAsciiReader::ReadFacet()
{
    Expect("normal");
    double normal[3];
    for (double& component : normal)
    {
        const std::string_view word = cursor_.Next();
        const std::optional<double> number = bat_TextCursor::Number(word);
        if (!number)
        {
            cursor_.Refuse("a facet's normal needs three numbers, " + bat_TextCursor::Quoted(word) +
                           " is none");
        }
        component = *number;
    }
    Expect("outer");
    Expect("loop");
    double corners[9];
    std::size_t count = 0;
    std::string_view word = cursor_.Next();
    for (; IsKeyword(word, "vertex"); word = cursor_.Next())
    {
        if (count == 3)
        {
            cursor_.Refuse("a facet has three corners, here is a fourth");
        }
        double* coordinate = corners + 3 * count++;
        for (const char* name : bat_TextCursor::COORDINATES)
        {
            *coordinate++ = cursor_.Finite(cursor_.Next(), name);
        }
    }
    if (!IsKeyword(word, "endloop"))
    {
        cursor_.Refuse((word.empty() ? "the file ends" : bat_TextCursor::Quoted(word) + " stands") +
                       " where \"vertex\" or \"endloop\" is due");
    }
    if (count < 3)
    {
        cursor_.Refuse("a facet has three corners, this one has " + std::to_string(count));
    }
    Expect("endfacet");
    normals_.Compare(normal, corners);
    mesh_.Add(corners);
}
