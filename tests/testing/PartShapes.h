#pragma once

#include <algorithm>
#include <array>
#include <random>
#include <vector>

/// Parts as flat lists of triangles, nine numbers each.
namespace PartShapes
{
using Mesh = std::vector<double>;
using Vec = std::array<double, 3>;

inline void AddTriangle(Mesh& mesh, const Vec& a, const Vec& b, const Vec& c)
{
    for (const Vec* p : {&a, &b, &c})
        mesh.insert(mesh.end(), p->begin(), p->end());
}

inline void AddQuad(Mesh& mesh, const Vec& a, const Vec& b, const Vec& c, const Vec& d)
{
    AddTriangle(mesh, a, b, c);
    AddTriangle(mesh, a, c, d);
}

/// Twelve triangles, normals outward.
inline Mesh Box(const Vec& low, const Vec& high)
{
    const auto corner = [&](int i) {
        return Vec{i & 1 ? high[0] : low[0], i & 2 ? high[1] : low[1], i & 4 ? high[2] : low[2]};
    };
    Mesh mesh;
    for (const auto& [a, b, c, d] :
         {std::array{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}})
        AddQuad(mesh, corner(a), corner(b), corner(c), corner(d));
    return mesh;
}

inline Mesh Cube(const Vec& low, double edge = 1.0)
{
    return Box(low, {low[0] + edge, low[1] + edge, low[2] + edge});
}

/// 2 n n triangles over the square of edge n, heights z to z + roughness.
inline Mesh HeightField(int n, double z, double roughness, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> height(z, z + roughness);
    const auto side = static_cast<std::size_t>(n) + 1;
    std::vector<double> heights(side * side);
    std::generate(heights.begin(), heights.end(), [&] { return height(random); });
    const auto at = [&](int i, int j) {
        return Vec{double(i), double(j), heights[std::size_t(i) * side + std::size_t(j)]};
    };
    Mesh mesh;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            AddQuad(mesh, at(i, j), at(i + 1, j), at(i + 1, j + 1), at(i, j + 1));
    return mesh;
}

inline Mesh Scaled(Mesh mesh, double factor)
{
    for (double& x : mesh)
        x *= factor;
    return mesh;
}
}
