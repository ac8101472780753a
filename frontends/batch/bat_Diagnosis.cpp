#include <bat_BruteForce.h>
#include <bat_Console.h>
#include <bat_Diagnosis.h>
#include <bat_Part.h>
#include <bat_TravelQuestion.h>
#include <bat_Version.h>
#include <bio_Crc32c.h>
#include <clocale>
#include <cstdlib>
#include <gsl_Util.h>
#include <idb_MementoFormat.h>
#include <idb_MementoLimits.h>
#include <locale>
#include <omu_ChangeHistory.h>
#include <omu_EnvSwitches.h>
#include <omu_NestingDepth.h>
#include <sys/utsname.h>

#ifdef ORVEX_WITH_VIEWER
#include <vwr_CairoCanvas.h>
#include <vwr_Font.h>
#include <vwr_Picture.h>
#endif

#ifdef __GLIBC__
#include <gnu/libc-version.h>
#endif

#include <KTLOxuGeom.h>
#include <dlfcn.h>

namespace
{
using Json = bat_Diagnosis::Json;
using Row = bat_Diagnosis::Row;

/// The file that the library was loaded from; its name ends with the version.
Json LibraryFile()
{
    Dl_info info = {};
    if (dladdr(reinterpret_cast<const void*>(&KTLOxuGeom_initialize), &info) == 0 ||
        info.dli_fname == nullptr)
        return {};
    char* path = realpath(info.dli_fname, nullptr);
    const std::string file = path != nullptr ? path : info.dli_fname;
    std::free(path);
    return file;
}

std::vector<Row> Versions()
{
    std::vector<Row> rows = {{"orvex", BAT_VERSION, ""}, {"library", LibraryFile(), "as loaded"}};
#ifdef __clang__
    rows.push_back({"compiler", "clang " __clang_version__, ""});
#else
    rows.push_back({"compiler", "g++ " __VERSION__, ""});
#endif
#ifdef __GLIBCXX__
    rows.push_back({"C++ library",
                    "libstdc++ " + std::to_string(_GLIBCXX_RELEASE) + ", " + std::to_string(__GLIBCXX__),
                    ""});
#endif
#ifdef __GLIBC__
    rows.push_back({"C library", std::string("glibc ") + gnu_get_libc_version(), "as loaded"});
#endif
    rows.push_back({"memento format",
                    std::to_string(idb_MementoFormat::MAJOR) + "." + std::to_string(idb_MementoFormat::MINOR),
                    "written; minor formats above are read"});
#ifdef ORVEX_WITH_VIEWER
    rows.push_back({"cairo", vwr_CairoCanvas::LibraryVersion(), "draws the pictures"});
#else
    rows.push_back({"cairo", Json(), "built without pictures"});
#endif
#ifdef ORVEX_PYTHON_VERSION
    rows.push_back({"Python", ORVEX_PYTHON_VERSION, "for which the module orvex was built"});
#else
    rows.push_back({"Python", Json(), "built without the module orvex"});
#endif
    return rows;
}

std::vector<Row> Build()
{
    std::string sanitizers;
#ifdef __SANITIZE_ADDRESS__
    sanitizers = "address";
#endif
#ifdef __SANITIZE_THREAD__
    sanitizers = "thread";
#endif
#ifdef NDEBUG
    constexpr bool ASSERTS = false;
#else
    constexpr bool ASSERTS = true;
#endif
#ifdef _GLIBCXX_ASSERTIONS
    constexpr bool CHECKS_LIBRARY = true;
#else
    constexpr bool CHECKS_LIBRARY = false;
#endif
#ifdef ORVEX_WITH_VIEWER
    constexpr bool DRAWS = true;
#else
    constexpr bool DRAWS = false;
#endif
    return {{"kind", ORVEX_BUILD_KIND, ""},
            {"assertions", ASSERTS, ""},
            {"library checks", CHECKS_LIBRARY, "indices of standard containers"},
            {"sanitizer", sanitizers.empty() ? Json() : Json(sanitizers), ""},
            {"pictures", DRAWS, ""}};
}

Row Switch(const char* name, const char* effect)
{
    const char* value = std::getenv(name);
    return {name, value != nullptr ? Json(value) : Json(), effect};
}

std::vector<Row> Environment()
{
    std::vector<Row> rows;
    for (const omu_EnvSwitches::Switch& one : omu_EnvSwitches::All())
        rows.push_back(Switch(one.name, one.effect));
    rows.push_back(Switch(bat_Console::TERMINAL_KIND, "kind of the terminal; dumb or none: no bar"));
    rows.push_back(Switch(bat_Console::TRUE_COLOR, "truecolor or 24bit: the terminal shows every colour"));
    rows.push_back(Switch(bat_Console::NO_COLOR, "no colours in the output"));
    return rows;
}

std::vector<Row> Limits()
{
    const idb_MementoLimits memento;
    std::vector<Row> rows = {
        {"memento bytes", memento.bytes, ""},
        {"memento objects", memento.objects, ""},
        {"memento classes", memento.classes, ""},
        {"memento attributes", memento.attributes, "of one class"},
        {"memento depth", memento.depth, "objects in objects"},
        {"memento text", memento.text, "bytes of one text"},
        {"memento budget factor", memento.budgetFactor, "memory for reading, times the memento's bytes"},
        {"memento budget base", memento.budgetBase, "bytes of memory on top of that"},
        {"value depth", omu_NestingDepth::LIMIT, "values in values"},
        {"change history", omu_ChangeHistory::LIMIT, "changes kept"},
        {"tree depth", bat_TravelQuestion::GREATEST_DEPTH, "levels"},
        {"usual tree depth", bat_TravelQuestion::DEFAULT_DEPTH, "levels"},
        {"part triangles", bat_Part::MOST_TRIANGLES, "of one part"},
        {"part coordinate", bat_Part::LARGEST_COORDINATE, "without its sign"},
        {"check pairs", bat_BruteForce::LIMIT, "pairs of triangles that --check looks at"},
        {"check travels", bat_BruteForce::COMPUTED_LIMIT, "pairs whose travel it computes"},
    };
#ifdef ORVEX_WITH_VIEWER
    rows.push_back({"picture size", vwr_Picture::LARGEST, "pixels in width and in height"});
    rows.push_back({"font size", vwr_Font::LARGEST_SIZE, "pixels"});
#endif
    return rows;
}

std::vector<Row> Tolerances()
{
    const gsl_Util& util = gsl_Util::Instance();
    return {{"linear", util.LinearTolerance(), "model units"},
            {"squared", util.SquaredTolerance(), "of squared distances"},
            {"parallel", util.ParallelTolerance(), ""},
            {"coarse", util.CoarseTolerance(), ""}};
}

std::vector<Row> Machine(const bat_Console& console)
{
    utsname system = {};
    (void)uname(&system);
    return {{"system", std::string(system.sysname) + " " + system.release, ""},
            {"processor", system.machine, ""},
            {"checksum instruction", bio_Crc32cHasInstruction(), "used for the checksums of mementos"},
            {"C locale", std::setlocale(LC_ALL, nullptr), "results do not depend on it"},
            {"C++ locale", std::locale().name(), "results do not depend on it"},
            {"terminal", console.errIsTerminal, "the error stream draws a bar"},
            {"columns", console.columns, ""},
            {"colours", console.outHasColor, "the output shows patches of colour"}};
}
}

std::vector<bat_Diagnosis::Section> bat_Diagnosis::Take(const bat_Console& console)
{
    return {{"versions", Versions()}, {"build", Build()},           {"environment", Environment()},
            {"limits", Limits()},     {"tolerances", Tolerances()}, {"machine", Machine(console)}};
}
