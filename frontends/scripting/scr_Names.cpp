#include <omu_CommandTable.h>
#include <omu_SymbolicConstantTable.h>
#include <scr_Call.h>
#include <scr_Constants.h>
#include <scr_Names.h>
#include <scr_Object.h>
#include <scr_Running.h>
#include <scr_Text.h>

namespace py = pybind11;

namespace
{
// A root, else a command, else a constant; as they are registered now.
py::object LookUp(const py::str& text)
{
    const scr_Running running;
    const cow_String name = scr_Text::FromPython(text.ptr());
    const omu_CommandTable& table = omu_CommandTable::Instance();
    if (const std::shared_ptr<omu_InterfaceObj> root = table.Root(name))
        return scr_Object::MakeRoot(root);
    if (table.HasCommand(name))
        return scr_Call::OfCommand(name);
    const omu_SymbolicConstantTable& constants = omu_SymbolicConstantTable::Instance();
    if (constants.IsMember(name) && omu_SymbolicConstantTable::IsValidSymConstName(name))
        return scr_Constants::Make(name);
    throw py::attribute_error(std::string(py::str("module 'orvex' has no attribute {!r}").format(text)));
}

py::list AllNames()
{
    const scr_Running running;
    py::list names;
    scr_Text::Append(names, omu_CommandTable::Instance().RootNames());
    scr_Text::Append(names, omu_CommandTable::Instance().CommandNames());
    const omu_SymbolicConstantTable& constants = omu_SymbolicConstantTable::Instance();
    for (unsigned id = 0; id < constants.Size(); ++id)
        if (const cow_String& name = constants.GetString(id);
            omu_SymbolicConstantTable::IsValidSymConstName(name))
            names.append(scr_Text::ToPython(name));
    return names;
}
}

void scr_RegisterNames(py::module_& module)
{
    module.def("look_up", &LookUp, py::arg("name"));
    module.def("all_names", &AllNames);
}
