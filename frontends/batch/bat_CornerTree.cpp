#include <bat_CornerTree.h>

#include <algorithm>

namespace
{
constexpr std::size_t LEAF = 8;
}

bat_CornerTree::bat_CornerTree(const std::vector<bat_Point2d>& points, std::vector<std::size_t> members)
    : points_(&points), members_(std::move(members)), places_(points.size()), removed_(points.size())
{
    std::size_t nodes = 1;
    for (std::size_t count = members_.size(); count > LEAF; count -= count / 2)
    {
        nodes = 2 * nodes + 1;
    }
    nodes_.resize(nodes);
    Build(0, 0, members_.size());
    for (std::size_t i = 0; i < members_.size(); ++i)
    {
        places_[members_[i]] = i;
    }
}

void bat_CornerTree::Build(std::size_t node, std::size_t first, std::size_t count)
{
    Node& here = nodes_[node];
    here = {{0, 0}, {0, 0}, first, count, count};
    for (std::size_t i = first; i < first + count; ++i)
    {
        const bat_Point2d& p = (*points_)[members_[i]];
        const double at[2] = {p.x, p.y};
        for (int k = 0; k < 2; ++k)
        {
            here.low[k] = i == first ? at[k] : std::min(here.low[k], at[k]);
            here.high[k] = i == first ? at[k] : std::max(here.high[k], at[k]);
        }
    }
    if (count <= LEAF)
    {
        return;
    }
    const bool alongX = here.high[0] - here.low[0] >= here.high[1] - here.low[1];
    const auto start = members_.begin() + static_cast<std::ptrdiff_t>(first);
    std::nth_element(start, start + static_cast<std::ptrdiff_t>(count / 2),
                     start + static_cast<std::ptrdiff_t>(count), [&](std::size_t i, std::size_t j) {
                         const bat_Point2d& p = (*points_)[i];
                         const bat_Point2d& q = (*points_)[j];
                         return alongX ? p.x < q.x : p.y < q.y;
                     });
    Build(2 * node + 1, first, count / 2);
    Build(2 * node + 2, first + count / 2, count - count / 2);
}

void bat_CornerTree::Remove(std::size_t member)
{
    removed_[member] = true;
    std::size_t node = 0;
    while (--nodes_[node].alive, nodes_[node].count > LEAF)
    {
        node = 2 * node + 2;
        if (places_[member] < nodes_[node].first)
        {
            --node;
        }
    }
}

bool bat_CornerTree::HoldsOne(std::size_t a, std::size_t b, std::size_t c, bool borderToo) const
{
    Question question = {{(*points_)[a], (*points_)[b], (*points_)[c]}, {}, {}, borderToo};
    const bat_Point2d* p = question.corners;
    question.low[0] = std::min({p[0].x, p[1].x, p[2].x});
    question.low[1] = std::min({p[0].y, p[1].y, p[2].y});
    question.high[0] = std::max({p[0].x, p[1].x, p[2].x});
    question.high[1] = std::max({p[0].y, p[1].y, p[2].y});
    return Search(0, question);
}

// False only when the box lies beside the triangle's own box or outside of one of its sides.
bool bat_CornerTree::MayMeet(const Node& node, const Question& question)
{
    for (int k = 0; k < 2; ++k)
    {
        if (node.low[k] > question.high[k] || node.high[k] < question.low[k])
        {
            return false;
        }
    }
    for (int side = 0; side < 3; ++side)
    {
        const bat_Point2d& a = question.corners[side];
        const bat_Point2d& b = question.corners[(side + 1) % 3];
        // The corner of the box that lies farthest to the left of the side.
        const bat_Point2d farthest = {b.y > a.y ? node.low[0] : node.high[0],
                                      b.x > a.x ? node.high[1] : node.low[1]};
        if (bat_Turn(a, b, farthest) < 0)
        {
            return false;
        }
    }
    return true;
}

bool bat_CornerTree::Holds(const Question& question, const bat_Point2d& p) const
{
    const bat_Point2d* t = question.corners;
    if (p == t[0] || p == t[1] || p == t[2])
    {
        return false;
    }
    const double least =
        std::min({bat_Turn(t[0], t[1], p), bat_Turn(t[1], t[2], p), bat_Turn(t[2], t[0], p)});
    return question.borderToo ? least >= 0 : least > 0;
}

bool bat_CornerTree::Search(std::size_t node, const Question& question) const
{
    const Node& here = nodes_[node];
    if (here.alive == 0 || !MayMeet(here, question))
    {
        return false;
    }
    if (here.count > LEAF)
    {
        return Search(2 * node + 1, question) || Search(2 * node + 2, question);
    }
    for (std::size_t i = here.first; i < here.first + here.count; ++i)
    {
        if (!removed_[members_[i]] && Holds(question, (*points_)[members_[i]]))
        {
            return true;
        }
    }
    return false;
}
