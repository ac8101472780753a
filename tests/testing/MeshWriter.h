#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Writes triangles, nine numbers each, in the formats that the driver reads. Numbers are the shortest that
/// read back the same; binary STL rounds to single precision.
namespace MeshWriter
{
inline std::string Text(double value)
{
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

inline std::string Point(const double* p)
{
    return Text(p[0]) + " " + Text(p[1]) + " " + Text(p[2]);
}

template <class T>
void AppendBytes(std::string& bytes, T value)
{
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

inline std::string StlBinary(const std::vector<double>& corners, std::string header = "")
{
    header.resize(80);
    AppendBytes(header, static_cast<std::uint32_t>(corners.size() / 9));
    for (std::size_t i = 0; i < corners.size(); i += 9)
    {
        const double* a = &corners[i];
        const double u[3] = {a[3] - a[0], a[4] - a[1], a[5] - a[2]};
        const double v[3] = {a[6] - a[0], a[7] - a[1], a[8] - a[2]};
        for (int k = 0; k < 3; ++k)
        {
            const int l = (k + 1) % 3;
            const int m = (k + 2) % 3;
            AppendBytes(header, static_cast<float>(u[l] * v[m] - u[m] * v[l]));
        }
        for (int k = 0; k < 9; ++k)
        {
            AppendBytes(header, static_cast<float>(a[k]));
        }
        AppendBytes(header, std::uint16_t(0));
    }
    return header;
}

/// The normals are those of the corners where they need no rounding, so of parts on a grid.
inline std::string StlAscii(const std::vector<double>& corners, const std::string& name = "part")
{
    std::string text = "solid " + name + "\n";
    for (std::size_t i = 0; i < corners.size(); i += 9)
    {
        const double* a = &corners[i];
        const double u[3] = {a[3] - a[0], a[4] - a[1], a[5] - a[2]};
        const double v[3] = {a[6] - a[0], a[7] - a[1], a[8] - a[2]};
        const double normal[3] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2],
                                  u[0] * v[1] - u[1] * v[0]};
        text += "facet normal " + Point(normal) + "\n outer loop\n";
        for (int k = 0; k < 9; k += 3)
        {
            text += "  vertex " + Point(a + k) + "\n";
        }
        text += " endloop\nendfacet\n";
    }
    return text + "endsolid " + name + "\n";
}

inline std::string Obj(const std::vector<double>& corners)
{
    std::string vertices;
    std::string faces;
    for (std::size_t i = 0; i < corners.size(); i += 3)
    {
        vertices += "v " + Point(&corners[i]) + "\n";
        faces += (i % 9 == 0 ? "f " : " ") + std::to_string(i / 3 + 1) + (i % 9 == 6 ? "\n" : "");
    }
    return vertices + faces;
}

inline std::string Off(const std::vector<double>& corners)
{
    std::string text =
        "OFF\n" + std::to_string(corners.size() / 3) + " " + std::to_string(corners.size() / 9) + " 0\n";
    for (std::size_t i = 0; i < corners.size(); i += 3)
    {
        text += Point(&corners[i]) + "\n";
    }
    for (std::size_t i = 0; i < corners.size() / 3; i += 3)
    {
        text += "3 " + std::to_string(i) + " " + std::to_string(i + 1) + " " + std::to_string(i + 2) + "\n";
    }
    return text;
}
}
