#pragma once

#include <array>
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

/// Of no particular length; exact where the corners need no rounding, so of parts on a grid.
inline std::array<double, 3> Normal(const double* a)
{
    std::array<double, 3> normal;
    for (std::size_t k = 0; k < 3; ++k)
    {
        const std::size_t l = (k + 1) % 3;
        const std::size_t m = (k + 2) % 3;
        normal[k] = (a[3 + l] - a[l]) * (a[6 + m] - a[m]) - (a[3 + m] - a[m]) * (a[6 + l] - a[l]);
    }
    return normal;
}

inline std::string StlBinary(const std::vector<double>& corners, std::string bytes = "")
{
    bytes.resize(80);
    AppendBytes(bytes, static_cast<std::uint32_t>(corners.size() / 9));
    for (std::size_t i = 0; i < corners.size(); i += 9)
    {
        for (const double x : Normal(&corners[i]))
            AppendBytes(bytes, static_cast<float>(x));
        for (std::size_t k = 0; k < 9; ++k)
            AppendBytes(bytes, static_cast<float>(corners[i + k]));
        AppendBytes(bytes, std::uint16_t(0));
    }
    return bytes;
}

inline std::string StlAscii(const std::vector<double>& corners)
{
    std::string text = "solid part\n";
    for (std::size_t i = 0; i < corners.size(); i += 9)
    {
        text += "facet normal " + Point(Normal(&corners[i]).data()) + "\n outer loop\n";
        for (std::size_t k = 0; k < 9; k += 3)
            text += "  vertex " + Point(&corners[i + k]) + "\n";
        text += " endloop\nendfacet\n";
    }
    return text + "endsolid part\n";
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
