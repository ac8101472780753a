#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <vector>

/// Axis-parallel boxes in a tree of boxes, to find those that meet a given one.
///
/// Built once, then read-only. Answers come in an order that depends on the boxes alone.
class bat_BoxTree
{
public:
    struct Box
    {
        std::array<double, 3> low;
        std::array<double, 3> high;

        /// Sharing a point is enough.
        bool Meets(const Box& other) const
        {
            return low[0] <= other.high[0] && other.low[0] <= high[0] && low[1] <= other.high[1] &&
                   other.low[1] <= high[1] && low[2] <= other.high[2] && other.low[2] <= high[2];
        }
        void Add(const Box& other)
        {
            for (std::size_t k = 0; k < 3; ++k)
            {
                low[k] = std::min(low[k], other.low[k]);
                high[k] = std::max(high[k], other.high[k]);
            }
        }
    };

    /// proceed is called now and then while the tree is built, and may throw to put an end to it.
    explicit bat_BoxTree(
        std::vector<Box> boxes, const std::function<void()>& proceed = [] {});

    /// Calls visit(index) for every box that meets this one.
    template <typename Visit>
    void Find(const Box& box, Visit visit) const
    {
        // Halving leaves at most 64 levels, and a level adds one entry.
        std::array<std::size_t, 72> stack;
        std::size_t waiting = 0;
        if (!nodes_.empty())
            stack[waiting++] = 0;
        while (waiting > 0)
        {
            const Node& node = nodes_[stack[--waiting]];
            if (!node.box.Meets(box))
                continue;
            if (node.second != 0)
            {
                stack[waiting++] = node.second;
                stack[waiting++] = static_cast<std::size_t>(&node - nodes_.data()) + 1;
                continue;
            }
            for (std::size_t i = node.begin; i < node.end; ++i)
                if (boxes_[order_[i]].Meets(box))
                    visit(order_[i]);
        }
    }

private:
    struct Node
    {
        Box box;
        std::size_t begin, end; ///< of order_
        std::size_t second;     ///< the second child, the first one follows its parent; 0 for a leaf
    };

    void Build(std::size_t begin, std::size_t end, const std::function<void()>& proceed);

    std::vector<Box> boxes_;
    std::vector<std::size_t> order_;
    std::vector<Node> nodes_;
};
