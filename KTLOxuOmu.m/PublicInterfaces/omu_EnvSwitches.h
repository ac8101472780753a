#pragma once

#include <oxu_Export.h>

#include <span>

/// Every environment variable that this library reads, in one place. Each is a trace switch: it is on when
/// the variable is present, whatever its value, the empty one included. Off, nothing is printed and nothing
/// that the trace would show is computed.
class OXU_EXPORT omu_EnvSwitches
{
public:
    omu_EnvSwitches() = delete;

    /// The symbolic-constant table and its constants tell every registration on the standard error stream.
    static constexpr const char* DBG_SYMCONST = "ORX_DBG_SYMCONST";
    /// The directional distance search runs in its literal nested form and tells every step in the file
    /// "TriTriDirDist.dat" of the current directory.
    static constexpr const char* TRITRIDIRDIST_DEBUG = "VDM_TRITRIDIRDIST_DEBUG";

    /// Interface objects tell when they are asked whether they are stale, made stale, or compared with a
    /// path; with the value "2" they also tell their path.
    static constexpr const char* STALEHANDLE_INFO = "ORX_STALEHANDLE_INFO";
    /// Path strings tell each step of their splitting.
    static constexpr const char* DBG_OMUPATHSTRING = "ORX_DBG_OMUPATHSTRING";
    /// Shortcuts tell each path that they build.
    static constexpr const char* PATHREPR_SIMPLEPATH = "ORX_PATHREPR_SIMPLEPATH";
    /// The command history tells each command that is added.
    static constexpr const char* DBG_CMDHISTORYADD = "ORX_DBG_CMDHISTORYADD";

    /// A switch and what it does, in a few words.
    struct Switch
    {
        const char* name;
        const char* effect;
    };
    /// All of them, in the order above.
    static std::span<const Switch> All() noexcept;

    /// ORX_DBG_SYMCONST as it was when the library was loaded.
    static bool TraceSymbolicConstants() noexcept;
    /// VDM_TRITRIDIRDIST_DEBUG as it is now: each search object asks once, in its constructor.
    static bool TraceDirectionalDistance() noexcept;

    // Each of these as it was when it was first asked for.

    static bool TraceStaleHandles() noexcept;
    /// Whether the value of ORX_STALEHANDLE_INFO is exactly "2".
    static bool TraceStaleHandlePaths() noexcept;
    static bool TracePathStrings() noexcept;
    static bool TraceShortcutPaths() noexcept;
    static bool TraceCommandHistory() noexcept;
};
