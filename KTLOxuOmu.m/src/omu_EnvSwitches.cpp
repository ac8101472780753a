#include <cstdlib>
#include <cstring>
#include <omu_EnvSwitches.h>

namespace
{
bool IsPresent(const char* name) noexcept
{
    return std::getenv(name) != nullptr;
}

// Read while the library is loaded, on purpose: what the program sets later does not count.
const bool symConstAtLoad = IsPresent(omu_EnvSwitches::DBG_SYMCONST);
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
