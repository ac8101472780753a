#pragma once

#include <cstddef>
#include <span>

class bat_TriangleMesh;

/// Compares the normals that an STL file stores with those that follow from the corners. The corners
/// are what counts; a difference is worth a note, since it tells of a careless writer.
class bat_FacetNormals
{
public:
    /// Counts a normal that is zero, not finite, or at a right angle or more to the triangle's own.
    /// Any normal suits a triangle without an area.
    void Compare(std::span<const double, 3> normal, std::span<const double, 9> corners);
    /// Adds a note to the mesh when a normal was counted.
    void Report(bat_TriangleMesh& mesh) const;

private:
    std::size_t wrong_ = 0;
};
