#pragma once

#include <oxu_Export.h>

// Groups of connected nodes in an adjacency matrix of n x n truth values, row by row: adjacency[i * n + j]
// says that j can be reached from i. The diagonal is not read. Only the row of the node that stands at hand
// is read, so that the groups of a matrix that is not symmetric depend on the order of the nodes: with 1 -> 0
// alone there are two, with 0 -> 1 alone there is one.

/// Numbers the groups from 0 in the order of their lowest nodes: group[i] is that of node i. No nodes, or n
/// below 0, give no groups. Takes time as the matrix is large; the depth of a chain costs memory, never
/// stack.
OXU_EXPORT void gsl_DepthFirstSearch(const bool* adjacency, int n, int* group, int& groupCount);

/// The lowest node that is not visited, -1 when there is none.
[[nodiscard]] OXU_EXPORT int gsl_GetPivot(const bool* visited, int n);

/// Visits the pivot, also when it was visited, and everything that is not visited and can be reached from it
/// through such nodes: marks it, gives it the group and counts it. From each node lower neighbours come
/// first.
OXU_EXPORT void gsl_SearchFromPivot(const bool* adjacency, int n, int pivot, int group, bool* visited,
                                    int* groupOf, int& visitedCount);
