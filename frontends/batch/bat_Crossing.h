#pragma once

#include <array>
#include <bat_Watcher.h>
#include <optional>

class bat_Part;

/// A pair of triangles that cross where the parts stand.
struct bat_Crossing
{
    int fixed;
    int movable;
    std::array<double, 3> point; ///< the middle of the line in which they cross

    /// Looks through all pairs whose boxes overlap for one that crosses beyond the tolerance: that of the
    /// lowest movable triangle, with the lowest fixed one. Degenerate triangles are passed over.
    /// Interruptible.
    static std::optional<bat_Crossing> Find(const bat_Part& fixed, const bat_Part& movable, double tolerance,
                                            bat_Watcher& watcher = bat_Watcher::Nobody());
};
