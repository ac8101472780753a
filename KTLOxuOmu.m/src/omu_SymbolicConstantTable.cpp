#include <cstdio>
#include <nex_Raise.h>
#include <omu_EnumEntry.h>
#include <omu_EnvSwitches.h>
#include <omu_ProcessId.h>
#include <omu_SymbolicConstantData.h>
#include <omu_SymbolicConstantTable.h>
#include <string>

namespace
{
constexpr const char* UNSPECIFIED = "_UNSPECIFIED";
constexpr unsigned NO_ID = 0xFFFFFFFFu; // what an unknown name is told to have

template <class... Arguments>
void AppendFormat(std::string& text, const char* format, Arguments... arguments)
{
    char piece[80];
    const int length = std::snprintf(piece, sizeof piece, format, arguments...);
    text.append(piece, static_cast<std::size_t>(length));
}
}

omu_SymbolicConstantTable::omu_SymbolicConstantTable()
{
    Append(UNSPECIFIED);
}

omu_SymbolicConstantTable::~omu_SymbolicConstantTable() = default;

// Names and constants come by value: callers are linked to these signatures.
// NOLINTBEGIN(performance-unnecessary-value-param)
unsigned int omu_SymbolicConstantTable::AddString(cow_String key)
{
    if (key.IsEmpty())
    {
        std::fprintf(stderr, "omu_SymbolicConstantTable::AddString(key=%s) key is EMPTY  pid=%X\n",
                     key.AsCharPtr(), omu_ProcessId());
        return 0;
    }
    if (const unsigned int* id = ids_.Find(key))
    {
        std::fprintf(stderr,
                     "omu_SymbolicConstantTable::AddString(%s) name already in table: %u/%u  pid=%X\n",
                     key.AsCharPtr(), *id, Size(), omu_ProcessId());
        return *id;
    }
    const unsigned int id = Append(key);
    if (omu_EnvSwitches::TraceSymbolicConstants())
        std::fprintf(stderr, "%s:omu_SCTable::AddStr('%s') id:%d\n", omu_ProcessIdText().c_str(),
                     key.AsCharPtr(), static_cast<int>(id));
    return id;
}

unsigned int omu_SymbolicConstantTable::AddSCD(omu_SymbolicConstantData constant)
{
    const cow_String& name = constant.getText();
    const unsigned int* present = ids_.Find(name);
    unsigned int id = 0;
    if (present != nullptr)
        id = *present;
    else if (!name.IsEmpty())
        id = Append(name);
    if (omu_EnvSwitches::TraceSymbolicConstants())
        std::fprintf(stderr, "%s:omu_SCTable::AddSCD(scd) '%s' id:%d  getId:%d\n",
                     omu_ProcessIdText().c_str(), name.AsCharPtr(), static_cast<int>(id),
                     static_cast<int>(constant.getId()));
    return id;
}

void omu_SymbolicConstantTable::AddNames(const omu_EnumEntry* table)
{
    for (; table->name != nullptr; ++table)
        if (!IsMember(table->name))
            AddString(table->name);
}

const cow_String& omu_SymbolicConstantTable::GetString(unsigned int id) const
{
    if (id >= Size())
    {
        std::fprintf(stderr, "omu_SymbolicConstantTable::GetString(%u)  id>Size (%u)  %X\n", id, Size(),
                     omu_ProcessId());
        nex_RaiseRange(id, Size(), "KTLOxuOmu.m/src/omu_SymbolicConstantTable", __LINE__);
    }
    return ids_.KeyAt(static_cast<int>(id));
}

unsigned int omu_SymbolicConstantTable::GetId(cow_String key) const
{
    const unsigned int* id = ids_.Find(key);
    if (id != nullptr)
        return *id;
    std::fprintf(stderr, "omu_SymbolicConstantTable::GetId(key=%s)  id>Size (%u<%u)\n", key.AsCharPtr(),
                 Size(), NO_ID);
    return 0;
}

bool omu_SymbolicConstantTable::IsValidSymConstName(const cow_String& name)
{
    // The whole text against ^[A-Z_][A-Z_0-9]*$, where an end-of-text mark of a regular expression might let
    // a last line feed pass.
    const std::string_view text = name.View();
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || c == '_'; };
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (text.empty() || !isLetter(text.front()))
        return false;
    for (const char c : text)
        if (!isLetter(c) && !isDigit(c))
            return false;
    return true;
}

cow_String omu_SymbolicConstantTable::AsString() const
{
    std::string text;
    // A letter O above, a zero below, on purpose: readers of these dumps know them so.
    AppendFormat(text, "CONTENTS of omu_SymbolicConstantTable  pid:Ox%X\n", omu_ProcessId());
    for (const auto& [name, id] : ids_)
    {
        // The line "%5u   %s\n", whatever the length of the name.
        AppendFormat(text, "%5u   ", id);
        text.append(name.View()).append("\n");
    }
    AppendFormat(text, "--------------------omu------------ pid:0x%X\n", omu_ProcessId());
    return cow_String(text);
}

void omu_SymbolicConstantTable::CreatePythonSymbolicConstant(cow_String name, int id)
{
    std::fprintf(stderr, "omu_SymbolicConstantTable::CreatePythonSymbolicConstant('%s', %d) ignored\n",
                 name.AsCharPtr(), id);
}
// NOLINTEND(performance-unnecessary-value-param)

unsigned int omu_SymbolicConstantTable::Append(const cow_String& key)
{
    const unsigned int id = Size();
    ids_.Insert(key, id);
    return id;
}
