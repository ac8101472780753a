#pragma once

#include <array>
#include <bat_MeshQuestion.h>
#include <cstddef>
#include <cstdint>
#include <gsl_BBox.h>
#include <optional>
#include <string>
#include <vector>

/// What is known of a mesh once its points are merged, and whether it is fit for use.
///
/// Triangles are counted from 0, in the order of the file. Points are numbered in the order in which corners
/// first lie on them.
struct bat_MeshHealth
{
    /// The first ones make a triangle degenerate; it has the first that applies. A COINCIDENT one has no
    /// edges and no duplicates.
    enum Flaw : std::uint8_t {
        COINCIDENT,   ///< two of its corners are one point
        COLLINEAR,    ///< the corners lie on a line: it has no normal
        OUT_OF_SCALE, ///< so small or large that its shape factor cannot be measured
        SLIVER,       ///< the shape factor is below the question's limit
        DUPLICATE,    ///< the same three points as an earlier one, turned either way
        OPEN,         ///< has an edge that no other triangle has
        NON_MANIFOLD, ///< has an edge that two others have at least
        MISTURNED,    ///< has an edge along which it and another triangle run the same way
        FLAWS
    };
    static constexpr std::size_t DEGENERATE = 4; ///< so many at the front
    static constexpr std::size_t CLASSES = 10;

    struct Finding
    {
        std::size_t count = 0;                ///< triangles; of the last three kinds edges
        std::vector<std::uint32_t> triangles; ///< the first ones that have it
        bool hasMore = false;                 ///< others have it too
    };
    struct Shape
    {
        std::uint32_t triangle;
        double factor;
    };

    /// "coincident" to "misturned".
    static const char* Name(Flaw flaw);
    /// 0 to CLASSES - 1.
    static std::size_t ClassOf(double factor)
    {
        const auto number = static_cast<std::size_t>(CLASSES * factor);
        return number < CLASSES ? number : CLASSES - 1;
    }

    std::string file;
    bat_MeshQuestion question;
    gsl_BBox box;
    double area = 0.0;
    bool closed = false;          ///< there are edges, and none is open
    std::optional<double> volume; ///< of a closed mesh whose triangles are turned alike; below 0 inside out

    std::vector<std::array<double, 3>> points;           ///< merged
    std::vector<std::array<std::uint32_t, 3>> triangles; ///< their points
    std::vector<double> factors;                         ///< of every triangle
    std::vector<std::uint32_t> groups;                   ///< of every triangle, in the order of their first
    std::vector<std::size_t> groupSizes;                 ///< of every group
    std::vector<std::array<std::uint32_t, 2>> openEdges; ///< points
    std::vector<std::array<std::uint32_t, 2>> crowdedEdges; ///< of the non-manifold ones
    std::vector<std::array<std::uint32_t, 2>> misturnedEdges;
    std::size_t edges = 0;

    std::array<Finding, FLAWS> findings;
    std::array<std::size_t, CLASSES>
        histogram{};          ///< of shape factors, each class a tenth wide; 1 is in the last
    std::vector<Shape> worst; ///< the lowest, rising, as many as the question names
    double meanFactor = 0.0;

    std::size_t Corners() const { return 3 * triangles.size(); }
    /// The sizes of the largest groups, falling, as many as the question names.
    std::vector<std::size_t> LargestGroups() const;
    bool IsInsideOut() const { return volume && *volume < 0.0; }
    /// Whether there is that flaw, and it makes the mesh unfit.
    bool Hinders(Flaw flaw) const;
    /// The names of the flaws that hinder, and "inside out"; none for a mesh fit for use.
    std::vector<std::string> Hindrances() const;
    bool IsFit() const { return Hindrances().empty(); }
};
