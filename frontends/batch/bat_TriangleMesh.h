#pragma once

#include <bat_Watcher.h>

#include <cstddef>
#include <span>
#include <string>
#include <vector>

/// A part's surface as the triangles of its file, in the file's order and units.
///
/// Corners are not shared or merged and degenerate triangles are kept: triangle i of the mesh is
/// triangle i of the file. Every coordinate is finite. Notes are sentences about what is odd in the
/// file yet no reason to refuse it.
class bat_TriangleMesh
{
public:
    static constexpr std::size_t DOUBLES_PER_TRIANGLE = 9;

    void Reserve(std::size_t triangles) { coordinates_.reserve(DOUBLES_PER_TRIANGLE * triangles); }
    /// Three corners of x, y, z.
    void Add(std::span<const double, DOUBLES_PER_TRIANGLE> corners)
    {
        coordinates_.insert(coordinates_.end(), corners.begin(), corners.end());
    }
    void Note(std::string sentence) { notes_.push_back(std::move(sentence)); }

    std::size_t Length() const { return coordinates_.size() / DOUBLES_PER_TRIANGLE; }
    bool IsEmpty() const { return coordinates_.empty(); }
    /// The x, y, z of a corner 0, 1 or 2; the indices are not checked.
    const double* Corner(std::size_t triangle, std::size_t corner) const
    {
        return coordinates_.data() + DOUBLES_PER_TRIANGLE * triangle + 3 * corner;
    }
    /// Nine numbers a triangle.
    const std::vector<double>& Coordinates() const { return coordinates_; }
    const std::vector<std::string>& Notes() const { return notes_; }

    /// True when the area vectors of the triangles do not add up to zero, as those of every closed,
    /// consistently turned surface do. False proves nothing: openings may cancel out.
    bool IsSurelyOpen(bat_Watcher& watcher = bat_Watcher::Nobody()) const;

private:
    std::vector<double> coordinates_;
    std::vector<std::string> notes_;
};
