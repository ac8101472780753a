#pragma once

#include <cstddef>
#include <cstdint>
#include <numeric>
#include <utility>
#include <vector>

/// Nodes that are joined to groups (R. E. Tarjan, "Efficiency of a good but not linear set union algorithm",
/// Journal of the ACM 22, 1975, with halved paths).
class bat_Groups
{
public:
    /// Each node for itself.
    explicit bat_Groups(std::size_t nodes) : above_(nodes)
    {
        std::iota(above_.begin(), above_.end(), std::uint32_t{0});
    }

    void Join(std::uint32_t one, std::uint32_t other)
    {
        one = Root(one);
        other = Root(other);
        if (one > other)
            std::swap(one, other);
        above_[other] = one;
    }

    /// The lowest node of the group: two nodes have the same one when they are in one group.
    std::uint32_t Root(std::uint32_t node)
    {
        for (; above_[node] != node; node = above_[node])
            above_[node] = above_[above_[node]];
        return node;
    }

private:
    std::vector<std::uint32_t> above_; ///< towards the root, which is above itself
};
