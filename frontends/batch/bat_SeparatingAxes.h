#pragma once

#include <array>
#include <bat_Corners.h>
#include <cstddef>

/// The unit directions along which two triangles can be told apart, with the stretch of each triangle along
/// them.
///
/// Triangles that do not meet are apart along one of these: the two normals, the products of their edges,
/// and, for triangles in one plane, the edge normals within the plane (separating axis theorem; for the
/// products of edges see Gottschalk, Lin, Manocha, "OBBTree", SIGGRAPH 1996). Directions without length are
/// left out. Stretches are measured from the first triangle's first corner, so that a large offset of both
/// does not cost accuracy, and in extended precision, because the normal of a needle loses as many digits as
/// the needle is longer than wide.
class bat_SeparatingAxes
{
public:
    using Real = long double;

    struct Axis
    {
        Real x, y, z;
        Real aLow, aHigh;
        Real bLow, bHigh;
    };

    bat_SeparatingAxes(const bat_Corners& a, const bat_Corners& b);

    /// Calls visit(axis) for one after the other, the normals first, until it answers false; whether it never
    /// did.
    template <typename Visit>
    bool Each(Visit visit) const
    {
        const Vec normalA = Cross(edge_[0], edge_[1]);
        const Vec normalB = Cross(edge_[3], edge_[4]);
        const auto look = [&](const Vec& direction) {
            Axis axis;
            return !Measure(direction, axis) || visit(axis);
        };
        if (!look(normalA) || !look(normalB))
            return false;
        for (std::size_t i = 0; i < 3; ++i)
            for (std::size_t j = 3; j < 6; ++j)
                if (!look(Cross(edge_[i], edge_[j])))
                    return false;
        for (std::size_t i = 0; i < 3; ++i)
            if (!look(Cross(normalA, edge_[i])) || !look(Cross(normalB, edge_[3 + i])))
                return false;
        return true;
    }

private:
    struct Vec
    {
        Real x, y, z;
    };
    static Vec Cross(const Vec& a, const Vec& b)
    {
        return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
    }

    /// false for a direction without length.
    bool Measure(const Vec& direction, Axis& axis) const;

    std::array<Vec, 6> corner_; ///< of a, then of b, from a's first corner
    std::array<Vec, 6> edge_;
};
