#include <algorithm>
#include <cstring>
#include <gsl_ConnectedGroups.h>
#include <memory>
#include <vector>

namespace
{
// A node whose neighbours are being visited, and the first one that was not looked at.
struct Place
{
    int node;
    int next;
};

// The first node from `from` on that the row reaches, n when there is none.
int NextReached(const bool* row, int from, int n)
{
    static_assert(sizeof(bool) == 1);
    const void* found = std::memchr(row + from, 1, static_cast<std::size_t>(n - from));
    return found != nullptr ? static_cast<int>(static_cast<const bool*>(found) - row) : n;
}
}

void gsl_DepthFirstSearch(const bool* adjacency, int n, int* group, int& groupCount)
{
    groupCount = 0;
    if (n <= 0)
        return;
    const auto visited = std::make_unique<bool[]>(static_cast<std::size_t>(n));
    std::fill_n(group, n, 0);
    int found = 0;
    for (int visitedCount = 0; visitedCount < n; ++found)
        gsl_SearchFromPivot(adjacency, n, gsl_GetPivot(visited.get(), n), found, visited.get(), group,
                            visitedCount);
    groupCount = found;
}

int gsl_GetPivot(const bool* visited, int n)
{
    const bool* const end = visited + std::max(n, 0);
    const bool* const pivot = std::find(visited, end, false);
    return pivot != end ? static_cast<int>(pivot - visited) : -1;
}

void gsl_SearchFromPivot(const bool* adjacency, int n, int pivot, int group, bool* visited, int* groupOf,
                         int& visitedCount)
{
    std::vector<Place> path; // to the node at hand; a stack of its own, since chains may be long
    const auto visit = [&](int node) {
        visited[node] = true;
        groupOf[node] = group;
        ++visitedCount;
        path.push_back({node, 0});
    };
    visit(pivot);
    while (!path.empty())
    {
        Place& here = path.back();
        const bool* row = adjacency + static_cast<std::ptrdiff_t>(here.node) * n;
        do
            here.next = here.next < n ? NextReached(row, here.next, n) + 1 : n + 1;
        while (here.next <= n && visited[here.next - 1]);
        if (here.next > n)
            path.pop_back();
        else
            visit(here.next - 1);
    }
}
