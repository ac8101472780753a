#include <bat_BoxTree.h>
#include <numeric>
#include <utility>

namespace
{
constexpr std::size_t LEAF_BOXES = 8;
constexpr std::size_t ASK_EVERY = 65536; // comparisons

std::size_t LongestAxis(const bat_BoxTree::Box& box)
{
    std::size_t longest = 0;
    for (std::size_t k = 1; k < 3; ++k)
        if (box.high[k] - box.low[k] > box.high[longest] - box.low[longest])
            longest = k;
    return longest;
}
}

bat_BoxTree::bat_BoxTree(std::vector<Box> boxes, const std::function<void()>& proceed)
    : boxes_(std::move(boxes)), order_(boxes_.size())
{
    std::iota(order_.begin(), order_.end(), std::size_t{0});
    nodes_.reserve(boxes_.size() / 2 + 1);
    if (!boxes_.empty())
        Build(0, boxes_.size(), proceed);
}

void bat_BoxTree::Build(std::size_t begin, std::size_t end, const std::function<void()>& proceed)
{
    proceed();
    const std::size_t self = nodes_.size();
    Box box = boxes_[order_[begin]];
    for (std::size_t i = begin + 1; i < end; ++i)
        box.Add(boxes_[order_[i]]);
    nodes_.push_back({box, begin, end, 0});
    if (end - begin <= LEAF_BOXES)
        return;
    const std::size_t axis = LongestAxis(box);
    const auto middle = [this, axis](std::size_t i) {
        return 0.5 * boxes_[i].low[axis] + 0.5 * boxes_[i].high[axis];
    };
    std::size_t compared = 0;
    const auto before = [&](std::size_t i, std::size_t j) {
        if (++compared % ASK_EVERY == 0)
            proceed();
        return std::pair(middle(i), i) < std::pair(middle(j), j); // the index makes it a total order
    };
    const std::size_t half = begin + (end - begin) / 2;
    const auto at = [this](std::size_t i) { return order_.begin() + static_cast<std::ptrdiff_t>(i); };
    std::nth_element(at(begin), at(half), at(end), before);
    Build(begin, half, proceed);
    nodes_[self].second = nodes_.size();
    Build(half, end, proceed);
}
