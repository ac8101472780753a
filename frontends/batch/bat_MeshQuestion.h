#pragma once

#include <cstddef>

/// How the health of a mesh is asked for.
struct bat_MeshQuestion
{
    static constexpr double DEFAULT_SLIVER = 1e-6;
    static constexpr std::size_t DEFAULT_NAMED = 5;
    static constexpr std::size_t MOST_NAMED = 10000;

    double tolerance = 0.0;            ///< as bat_PointIndex takes it
    double sliver = DEFAULT_SLIVER;    ///< shape factors below it, 0 to 1, are those of slivers
    bool sliversHinder = false;        ///< slivers make the mesh unfit
    bool open = false;                 ///< a sheet is meant: open edges do not make it unfit
    std::size_t named = DEFAULT_NAMED; ///< how many triangles, or groups, are named of each kind
};
