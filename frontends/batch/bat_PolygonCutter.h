#pragma once

#include <bat_Point2d.h>
#include <bat_Task.h>
#include <bat_TriangleMesh.h>

#include <array>
#include <cstddef>
#include <span>
#include <vector>

/// Cuts polygons in space into triangles that turn as the polygon does: n corners give n - 2 triangles.
///
/// The polygon is laid flat along the axis to which its area vector (M. E. Newell) is nearest; no
/// coordinate is rounded by that. When every triangle from the first corner turns the right way, as in a
/// convex polygon, those are the cut. Otherwise ears are cut off, each clear of all other corners (G. H.
/// Meisters, "Polygons have ears", 1975); corners that coincide, as where a hole is joined to the outline,
/// are allowed. When no ear is clear, first those that others only touch, then any is taken: a polygon
/// that crosses itself has no right answer, but it has n - 2 triangles and an end.
class bat_PolygonCutter
{
public:
    using Triple = std::array<std::size_t, 3>;

    /// Every ear looked at is a step of the task, if there is one.
    explicit bat_PolygonCutter(bat_Task* task = nullptr) : task_(task) {}

    /// corners: x, y, z of at least three corners, all finite. The result holds until the next call.
    const std::vector<Triple>& Cut(std::span<const double> corners);
    /// Adds the triangles to the mesh.
    void Cut(std::span<const double> corners, bat_TriangleMesh& mesh);

private:
    enum class Demand { CLEAR, TOUCHED, CONVEX, ANY };

    bool Flatten(std::span<const double> corners);
    bool CutFan();
    void CutEars();
    double TurnAt(std::size_t corner) const;
    bool DoublesBack(std::size_t corner) const;
    void Link();

    bat_Task* task_;
    std::vector<bat_Point2d> flat_;
    std::vector<std::size_t> next_;
    std::vector<std::size_t> previous_;
    std::vector<Triple> triples_;
};
