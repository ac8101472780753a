#pragma once

#include <iosfwd>

/// Where a run of the driver writes, and what it knows of the other end.
struct bat_Console
{
    std::ostream& out;          ///< results, nothing else
    std::ostream& err;          ///< progress, notes, errors
    bool errIsTerminal = false; ///< err can move its cursor: a bar may be drawn
    int columns = 80;           ///< width of that terminal

    /// The process's own streams.
    static bat_Console Standard();
};
