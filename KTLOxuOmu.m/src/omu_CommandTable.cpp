#include <nex_Raise.h>
#include <nex_RaiseWith.h>
#include <omu_CommandTable.h>
#include <omu_NameErrorException.h>
#include <oxu_FormatMessage.h>
#include <utility>

namespace
{
constexpr const char* SOURCE = "KTLOxuOmu.m/src/omu_CommandTable";
constexpr const char* UNKNOWN_NAME = "name '%s' is not defined";

template <class Map>
cow_List<cow_String> NamesOf(const Map& map)
{
    cow_List<cow_String> names;
    for (const auto& entry : map)
        names.Append(entry.first);
    return names;
}
}

omu_CommandTable::omu_CommandTable() = default;

omu_CommandTable::~omu_CommandTable() = default;

void omu_CommandTable::Register(const cow_String& name, Command command)
{
    if (name.IsEmpty() || !command)
        nex_RaiseInternal("a command needs a name and a function", SOURCE, __LINE__);
    commands_.insert_or_assign(name, std::move(command));
}

void omu_CommandTable::RegisterRoot(const cow_String& name, std::shared_ptr<omu_InterfaceObj> root)
{
    if (name.IsEmpty() || !root)
        nex_RaiseInternal("a root needs a name and an object", SOURCE, __LINE__);
    roots_.insert_or_assign(name, std::move(root));
}

bool omu_CommandTable::Remove(const cow_String& name)
{
    return commands_.erase(name) + roots_.erase(name) > 0;
}

cow_List<cow_String> omu_CommandTable::CommandNames() const
{
    return NamesOf(commands_);
}

cow_List<cow_String> omu_CommandTable::RootNames() const
{
    return NamesOf(roots_);
}

std::shared_ptr<omu_InterfaceObj> omu_CommandTable::Root(const cow_String& name) const
{
    const auto found = roots_.find(name);
    return found == roots_.end() ? nullptr : found->second;
}

omu_Primitive* omu_CommandTable::Call(const cow_String& name, omu_Arguments& arguments) const
{
    const auto found = commands_.find(name);
    if (found == commands_.end())
        nex_Raise(omu_NameErrorException(oxu_FormatMessage(UNKNOWN_NAME, name)), SOURCE, __LINE__);
    const Command command = found->second;
    return command(arguments);
}
