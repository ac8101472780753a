#pragma once

#include <cow_List.h>
#include <cow_String.h>
#include <functional>
#include <map>
#include <memory>
#include <omi_Singleton.h>
#include <omu_InterfaceObj.h>
#include <oxu_Export.h>

/// What a host of the scripting language offers: commands by name and the roots of paths ("mdb", "session").
/// One table serves every host, and a host knows no command by name.
///
/// One a process: omi_Singleton<omu_CommandTable>::Instance(). Not locked: filled and used on the scripting
/// thread.
class OXU_EXPORT omu_CommandTable : public omi_Singleton<omu_CommandTable>
{
public:
    /// Runs a command with its arguments, on which Begin was not called yet. The result is owned by the
    /// caller; null is None.
    using Command = std::function<omu_Primitive*(omu_Arguments& arguments)>;

    omu_CommandTable();
    virtual ~omu_CommandTable();

    /// A command of that name is replaced. An empty name or command is an internal error.
    void Register(const cow_String& name, Command command);
    /// A root of that name is replaced; what hosts have of the old one stays valid. A null root is an
    /// internal error.
    void RegisterRoot(const cow_String& name, std::shared_ptr<omu_InterfaceObj> root);
    /// Takes out the command and the root of that name; false when there is neither.
    bool Remove(const cow_String& name);

    bool HasCommand(const cow_String& name) const { return commands_.count(name) > 0; }
    /// In alphabetical order.
    cow_List<cow_String> CommandNames() const;
    cow_List<cow_String> RootNames() const;
    /// Null when there is no root of that name.
    std::shared_ptr<omu_InterfaceObj> Root(const cow_String& name) const;

    /// Runs the command; an unknown name raises omu_NameErrorException. The command may change the table.
    omu_Primitive* Call(const cow_String& name, omu_Arguments& arguments) const;

private:
    std::map<cow_String, Command> commands_;
    std::map<cow_String, std::shared_ptr<omu_InterfaceObj>> roots_;
};
