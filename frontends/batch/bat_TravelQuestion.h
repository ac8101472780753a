#pragma once

#include <gsl_TriOctree.h>
#include <gsl_Vector.h>
#include <limits>

/// What is asked about the travel of one part towards another.
struct bat_TravelQuestion
{
    static constexpr double UNLIMITED = std::numeric_limits<double>::max();
    static constexpr int DEFAULT_DEPTH = 7;
    static constexpr int GREATEST_DEPTH = 20;

    gsl_Vector direction;     ///< of unit length
    double bound = UNLIMITED; ///< above 0; a contact exactly there counts as clear
    gsl_TriOctree::OctreeNodeType tree = gsl_TriOctree::gsl_OCTREE;
    int depth = DEFAULT_DEPTH; ///< 1 to GREATEST_DEPTH
};
