#include <KTLOxuGeom.h>
#include <annC_AnnotatedIntObj.h>
#include <memory>
#include <omu_CommandTable.h>
#include <omu_PrimBool.h>
#include <omu_SimpleTermShortcutImpl.h>
#include <scr_ConstantTable.h>
#include <scr_Library.h>
#include <scr_Pictures.h>
#include <scr_Running.h>
#include <scr_ScriptObjects.h>

namespace py = pybind11;

namespace
{
// A root of paths that has no members until the application puts its own in its place.
class PlainRoot : public omu_InterfaceObj
{
public:
    explicit PlainRoot(const char* name) : omu_InterfaceObj(omu_SimpleTermShortcutImpl(name, true)) {}
    PlainRoot* Copy() const override { return new PlainRoot(*this); }
};

std::unique_ptr<scr_ConstantTable> constants;
int partsRunning = 0;

void Stop()
{
    scr_Running::CancelAll();
    {
        const py::gil_scoped_release released;
        scr_Running::WaitForAll();
    }
    scr_Pictures::Stop();
    KTLOxuGeom_finalize(partsRunning);
    constants.reset();
    scr_ScriptObjects::Uninstall();
}
}

void scr_Library::Start()
{
    scr_ScriptObjects::Install();
    // Before the start, which would make a table that knows no Python.
    constants = std::make_unique<scr_ConstantTable>();
    KTLOxuGeom_initialize(partsRunning);
    // The names that every script has; an application adds those of its own enumerations.
    for (const omu_EnumEntry* names :
         {omu_OnOffConst::table, omu_TrueFalseConst::table, omu_YesNoConst::table})
        constants->AddNames(names);
    omu_CommandTable& table = omu_CommandTable::Instance();
    if (table.Root("mdb") == nullptr)
        table.RegisterRoot(
            "mdb", std::make_shared<annC_AnnotatedIntObj>(omu_SimpleTermShortcutImpl("mdb", true),
                                                          std::make_shared<annC_AnnotationContainer>()));
    if (table.Root("session") == nullptr)
        table.RegisterRoot("session", std::make_shared<PlainRoot>("session"));
    scr_Pictures::Start();
}

void scr_Library::StopAtExit()
{
    py::module_::import("atexit").attr("register")(py::cpp_function(&Stop));
}
