#pragma once

#include <array>
#include <bat_Numbering.h>
#include <cstddef>
#include <cstdint>
#include <vector>

/// The edges of triangles over numbered points, each once, with how often triangles run along it either way.
/// Edges are numbered in the order in which they come.
class bat_EdgeTable
{
public:
    using Ends = std::array<std::uint32_t, 2>; ///< the lower point first

    explicit bat_EdgeTable(std::size_t expected = 0) : ends_(expected) { uses_.reserve(expected); }

    /// A triangle runs from one point to another; answers the number of that edge.
    std::uint32_t Add(std::uint32_t from, std::uint32_t to)
    {
        const bool rises = from < to;
        const std::uint32_t number = ends_.Add(rises ? Ends{from, to} : Ends{to, from});
        if (number == uses_.size())
            uses_.push_back({0, 0});
        ++uses_[number][rises];
        return number;
    }

    std::size_t Length() const { return uses_.size(); }
    const Ends& operator[](std::size_t edge) const { return ends_[edge]; }

    /// One triangle alone.
    bool IsOpen(std::size_t edge) const { return Uses(edge) == 1; }
    /// More than two.
    bool IsNonManifold(std::size_t edge) const { return Uses(edge) > 2; }
    /// Two that run the same way: the surface has its front on one side of the edge, its back on the other.
    bool IsMisturned(std::size_t edge) const { return Uses(edge) == 2 && !IsBalanced(edge); }
    /// As many triangles run one way as the other.
    bool IsBalanced(std::size_t edge) const { return uses_[edge][0] == uses_[edge][1]; }

private:
    std::size_t Uses(std::size_t edge) const { return std::size_t{uses_[edge][0]} + uses_[edge][1]; }

    bat_Numbering<Ends> ends_;
    std::vector<std::array<std::uint32_t, 2>> uses_; ///< falling, rising
};
