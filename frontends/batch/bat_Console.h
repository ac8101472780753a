#pragma once

#include <iosfwd>

/// Where a run of the driver writes, and what it knows of the other end.
struct bat_Console
{
    std::ostream& out;          ///< results, nothing else
    std::ostream& err;          ///< progress, notes, errors
    bool errIsTerminal = false; ///< err can move its cursor: a bar may be drawn
    int columns = 80;           ///< width of that terminal
    bool outHasColor = false;   ///< out is a terminal with 24-bit colours, and the user wants them

    // The environment variables by which it knows.
    static constexpr const char* TERMINAL_KIND = "TERM";
    static constexpr const char* TRUE_COLOR = "COLORTERM";
    static constexpr const char* NO_COLOR = "NO_COLOR";

    /// The process's own streams.
    static bat_Console Standard();
};
