#pragma once

#include <bat_Corners.h>
#include <cstddef>
#include <cstdint>
#include <span>

class bat_TriangleMesh;

/// Triangles that lie in somebody else's memory, which must outlive the view.
///
/// Either the triangles of a mesh, or vertices with three indices a triangle. Such vertices belong to a
/// stranger, who may change them at any time, also from another thread: what Corners() answers is one reading
/// of them, not checked.
class bat_TriangleView
{
public:
    /// Where the vertices stand: three doubles each, in any order and at any distance, aligned or not.
    struct Vertices
    {
        const std::byte* first;       ///< x of vertex 0
        std::ptrdiff_t toNext;        ///< bytes from a vertex to the next
        std::ptrdiff_t toNextOfThree; ///< and from x to y and from y to z
    };

    explicit bat_TriangleView(const bat_TriangleMesh& mesh);
    /// All indices are below the number of vertices.
    bat_TriangleView(const Vertices& vertices, std::span<const std::uint32_t> indices);

    std::size_t Length() const { return length_; }
    bool MayChange() const { return indices_ != nullptr; }
    bat_Corners Corners(std::size_t triangle) const;
    /// The nine numbers of this triangle with those of all later ones behind them; null for vertices with
    /// indices.
    const double* InARow(std::size_t triangle) const
    {
        return indices_ ? nullptr : reinterpret_cast<const double*>(vertices_.first) + 9 * triangle;
    }

private:
    Vertices vertices_;
    const std::uint32_t* indices_; ///< null: a triangle has three vertices of its own
    std::size_t length_;
};
