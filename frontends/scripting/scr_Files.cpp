#include <annC_AnnotatedIntObj.h>
#include <idb_MementoException.h>
#include <idb_MementoRead.h>
#include <idb_MementoWrite.h>
#include <omu_CommandTable.h>
#include <scr_Exceptions.h>
#include <scr_Files.h>
#include <scr_Pictures.h>
#include <scr_Running.h>
#include <scr_Text.h>
#include <scr_TravelRefusal.h>

namespace py = pybind11;

namespace
{
// The name of the one object in the memento.
constexpr const char* ANNOTATIONS = "annotations";

// An application's own root counts when it derives from the class that has annotations.
std::shared_ptr<annC_AnnotationContainer> Annotations()
{
    const auto root =
        std::dynamic_pointer_cast<annC_AnnotatedIntObj>(omu_CommandTable::Instance().Root("mdb"));
    if (root == nullptr)
        scr_Exceptions::Throw("AttributeError", "mdb has no annotations in this application");
    return root->Container();
}

/// Runs what reads or writes the file; a refusal by the system becomes Python's.
template <class F>
void WithFile(const std::string& path, F work)
{
    try
    {
        work(cow_String(std::string_view(path)));
    }
    catch (const idb_MementoException& error)
    {
        if (error.SystemNumber() != 0)
            scr_Exceptions::ThrowSystem(error.SystemNumber(), path);
        throw;
    }
}

void Save(const py::object& path)
{
    const scr_Running running;
    const auto annotations = Annotations();
    WithFile(scr_Text::PathOf(path.ptr()), [&](const cow_String& file) {
        idb_MementoWrite memento(file);
        memento.Add(ANNOTATIONS, *annotations);
        memento.Finish();
    });
}

/// The sentences on what is odd about the file.
void Open(const py::object& path, const py::function& warn)
{
    const scr_Running running;
    const auto annotations = Annotations();
    WithFile(scr_Text::PathOf(path.ptr()), [&](const cow_String& file) {
        idb_MementoRead memento(file);
        annC_AnnotationContainer opened;
        memento.Root(ANNOTATIONS, opened);
        // Before anything changes: a warning may be made an error.
        for (const cow_String& sentence : memento.Warnings())
            warn(scr_Text::ToPython(sentence));
        // Nothing is posted: whoever follows the changes sees by its identity that it is another one, also
        // when it was saved from this very container.
        opened.NewUid();
        *annotations = std::move(opened);
    });
}

int Pixels(const py::object& given, const char* name)
{
    const scr_TravelRefusal refusal(name,
                                    "a whole number from 1 to " + std::to_string(scr_Pictures::LARGEST));
    return static_cast<int>(refusal.WholeNumber(given, 1, scr_Pictures::LARGEST));
}

void Picture(const py::object& path, const py::object& width, const py::object& height)
{
    const scr_Running running;
    const auto annotations = Annotations();
    scr_Pictures::Save(scr_Text::PathOf(path.ptr()), Pixels(width, "width"), Pixels(height, "height"),
                       *annotations);
}
}

void scr_RegisterFiles(py::module_& module)
{
    module.def("_save", &Save);
    module.def("_open", &Open);
    module.def("_picture", &Picture);
}
