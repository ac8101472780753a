#pragma once

#include <bat_Point2d.h>

#include <cstddef>
#include <vector>

/// Answers whether a triangle holds one of a set of points, from which points can be taken away: a
/// two-dimensional tree of boxes over the points, each halved along its longer side.
///
/// A question costs about the square root of the number of points where a plain loop costs the number:
/// that is what keeps polygons of a hundred thousand corners from taking minutes.
class bat_CornerTree
{
public:
    /// points must outlive the tree; members are the indices of those in the set.
    bat_CornerTree(const std::vector<bat_Point2d>& points, std::vector<std::size_t> members);

    void Remove(std::size_t member);
    /// Whether a member lies in the triangle a, b, c, which turns left; on its border counts when
    /// borderToo is set. Members at the very place of a, b or c never count.
    bool HoldsOne(std::size_t a, std::size_t b, std::size_t c, bool borderToo) const;

private:
    struct Node
    {
        double low[2];
        double high[2];
        std::size_t first;
        std::size_t count;
        std::size_t alive;
    };
    struct Question
    {
        bat_Point2d corners[3];
        double low[2];
        double high[2];
        bool borderToo;
    };

    void Build(std::size_t node, std::size_t first, std::size_t count);
    bool Search(std::size_t node, const Question& question) const;
    static bool MayMeet(const Node& node, const Question& question);
    bool Holds(const Question& question, const bat_Point2d& p) const;

    const std::vector<bat_Point2d>* points_;
    std::vector<std::size_t> members_;
    std::vector<std::size_t> places_; // of every point in members_
    std::vector<bool> removed_;
    std::vector<Node> nodes_; // children of i: 2 i + 1, 2 i + 2
};
