#include <cstdlib>
#include <cstring>
#include <omu_EnvSwitches.h>

namespace
{
bool IsPresent(const char* name) noexcept
{
    return std::getenv(name) != nullptr;
}

constexpr omu_EnvSwitches::Switch SWITCHES[] = {
    {omu_EnvSwitches::DBG_SYMCONST, "traces every registration of a symbolic constant"},
    {omu_EnvSwitches::TRITRIDIRDIST_DEBUG,
     "runs the search in its nested form and traces it in TriTriDirDist.dat"},
    {omu_EnvSwitches::STALEHANDLE_INFO, "traces questions about stale objects; with 2 their paths, too"},
    {omu_EnvSwitches::DBG_OMUPATHSTRING, "traces how path strings are split"},
    {omu_EnvSwitches::PATHREPR_SIMPLEPATH, "traces the paths that shortcuts build"},
    {omu_EnvSwitches::DBG_CMDHISTORYADD, "traces the commands added to the history"},
};

// Read while the library is loaded, on purpose: what the program sets later does not count.
const bool symConstAtLoad = IsPresent(omu_EnvSwitches::DBG_SYMCONST);
}

std::span<const omu_EnvSwitches::Switch> omu_EnvSwitches::All() noexcept
{
    return SWITCHES;
}

bool omu_EnvSwitches::TraceSymbolicConstants() noexcept
{
    return symConstAtLoad;
}

bool omu_EnvSwitches::TraceDirectionalDistance() noexcept
{
    return IsPresent(TRITRIDIRDIST_DEBUG);
}

bool omu_EnvSwitches::TraceStaleHandles() noexcept
{
    static const bool on = IsPresent(STALEHANDLE_INFO);
    return on;
}

bool omu_EnvSwitches::TraceStaleHandlePaths() noexcept
{
    static const bool on = [] {
        const char* value = std::getenv(STALEHANDLE_INFO);
        return value != nullptr && std::strcmp(value, "2") == 0;
    }();
    return on;
}

bool omu_EnvSwitches::TracePathStrings() noexcept
{
    static const bool on = IsPresent(DBG_OMUPATHSTRING);
    return on;
}

bool omu_EnvSwitches::TraceShortcutPaths() noexcept
{
    static const bool on = IsPresent(PATHREPR_SIMPLEPATH);
    return on;
}

bool omu_EnvSwitches::TraceCommandHistory() noexcept
{
    static const bool on = IsPresent(DBG_CMDHISTORYADD);
    return on;
}
