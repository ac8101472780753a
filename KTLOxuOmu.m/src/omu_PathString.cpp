#include <algorithm>
#include <cstdio>
#include <omu_EnvSwitches.h>
#include <omu_PathFunctions.h>
#include <omu_PathScan.h>
#include <omu_PathString.h>
#include <string>
#include <string_view>

namespace
{
constexpr std::string_view FIRST_CHARACTERS = "_ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr std::string_view FROM_MASK = ".getSequenceFromMask";

bool IsQuoted(std::string_view key)
{
    return key.size() > 1 && key.front() == key.back() && (key.front() == '\'' || key.front() == '"');
}

// Where a character stands next. What was found serves until the cursor has passed it, so that each search
// begins where the one before ended: the text is read once in all.
class NextOf
{
public:
    explicit NextOf(char c) : character_(c) {}

    int From(std::string_view path, int from)
    {
        if (!done_ && position_ < from)
        {
            const std::size_t found = path.find(character_, static_cast<std::size_t>(from));
            done_ = found == path.npos;
            position_ = done_ ? -1 : static_cast<int>(found);
        }
        return position_;
    }

private:
    char character_;
    int position_ = -1;
    bool done_ = false;
};

// The parts of one path, cut one by one.
class Splitter
{
public:
    explicit Splitter(std::string_view path) : path_(path) {}

    /// The end of the part that begins at `cut`; -1 when the path is not plain there.
    int EndOfPart(int cut, char separator)
    {
        if (separator == '[' || separator == '(')
        {
            Trace(-1, -1, -1, -1);
            const int closing = omu_PathScan::Closing(path_, cut);
            return closing < 0 ? -1 : closing + 1;
        }
        const int dot = dot_.From(path_, cut + 1);
        const int call = call_.From(path_, cut + 1);
        const int bracket = bracket_.From(path_, cut + 1);
        const int plus = plus_.From(path_, cut);
        Trace(dot, call, bracket, plus);
        int end = static_cast<int>(path_.size());
        for (const int candidate : {dot, call, bracket})
            if (candidate >= 0)
                end = std::min(end, candidate);
        return plus >= 0 && plus < end ? -1 : end;
    }

private:
    static void Trace(int pos1, int pos2, int pos3, int pos4)
    {
        if (omu_EnvSwitches::TracePathStrings())
            std::fprintf(stderr, "omu_PathString::GetPathAsList: pos1:%d  pos2:%d  pos3:%d  pos4:%d\n", pos1,
                         pos2, pos3, pos4);
    }

    std::string_view path_;
    NextOf dot_{'.'};
    NextOf call_{'('};
    NextOf bracket_{'['};
    NextOf plus_{'+'};
};

// A separator as the trace shows it; '\0' is none.
cow_String SeparatorText(char separator)
{
    return separator == '\0' ? cow_String() : cow_String(&separator, 1);
}
}

void omu_PathString::Split() const
{
    isSplit_ = true;
    const std::string_view path = path_.View();
    if (path.empty() || FIRST_CHARACTERS.find(path.front()) == FIRST_CHARACTERS.npos)
    {
        isNotPlain_ = true;
        return;
    }
    Splitter splitter(path);
    const int length = path_.Length();
    char lastSeparator = '\0';
    for (int last = 0; last < length;)
    {
        int end = splitter.EndOfPart(last, lastSeparator);
        if (end < 0)
        {
            isNotPlain_ = true;
            return;
        }
        if (path.substr(static_cast<std::size_t>(last), static_cast<std::size_t>(end - last)) == FROM_MASK)
            end = length;
        const cow_String part = path_.SubString(last, end - last);
        const char separator = end < length ? path[static_cast<std::size_t>(end)] : '\0';
        if (omu_EnvSwitches::TracePathStrings())
            std::fprintf(stderr,
                         "omu_PathString::GetPathAsList: lastPos:%d  pos:%d  lastSep:'%s'  sep:'%s' "
                         "nextPart:\"%s\"\n",
                         last, end, SeparatorText(lastSeparator).AsCharPtr(),
                         SeparatorText(separator).AsCharPtr(), part.AsCharPtr());
        parts_.Append(part);
        if (end < length && separator != '.' && separator != '[' && separator != '(')
        {
            isNotPlain_ = true;
            return;
        }
        last = end;
        lastSeparator = separator;
    }
}

const cow_List<cow_String>& omu_PathString::GetPathAsList() const
{
    if (!isSplit_)
        Split();
    return parts_;
}

bool omu_PathString::IsPlain() const
{
    GetPathAsList();
    return !isNotPlain_;
}

cow_List<cow_String> omu_PathString::GetPathAsDottedList() const
{
    cow_List<cow_String> bare;
    bare.Reserve(GetPathAsList().Length());
    for (const cow_String& part : GetPathAsList())
    {
        const char first = part[0];
        if (first == '.')
        {
            bare.Append(part.SubString(1, part.Length()));
        }
        else if (first == '[' || first == '(')
        {
            const cow_String inner = part.SubString(1, part.Length() - 2);
            if (!inner.IsEmpty())
                bare.Append(IsQuoted(inner.View()) ? omu_StringFromQString(inner) : inner);
        }
        else
        {
            bare.Append(part);
        }
    }
    return bare;
}

cow_String omu_PathString::AsDottedString() const
{
    std::string joined;
    for (const cow_String& part : GetPathAsDottedList())
    {
        if (!joined.empty())
            joined += '.';
        joined += part.View();
    }
    return cow_String(joined);
}

cow_String omu_PathString::AsGenericString() const
{
    if (!IsPlain())
        return path_;
    std::string generic;
    for (const cow_String& part : parts_)
    {
        const std::string_view view = part.View();
        if (view.front() != '[')
            generic += view;
        else
            generic += view.starts_with("['") || view.starts_with("[\"") ? "[name]" : "[i]";
    }
    return cow_String(generic);
}

bool omu_PathString::InObjectModel() const
{
    if (!IsPlain())
        return false;
    const cow_String& root = parts_.Get(0);
    if (root == "mdb")
        return true;
    if (root != "session" || parts_.Length() < 2)
        return false;
    const cow_String& next = parts_.Get(1);
    return next == "openOdb" || next == ".openOdb" || next == ".Odb" || next == ".odbs";
}
