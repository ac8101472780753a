#pragma once

#include <bat_Task.h>
#include <bat_TriangleMesh.h>

#include <string>
#include <string_view>

/// Reads binary STL: a header of 80 bytes, the number of facets (32 bits), then 50 bytes a facet: normal,
/// three corners (12 single precision numbers) and 16 bits that are not used. Little-endian throughout.
class bat_StlBinaryReader
{
public:
    bat_StlBinaryReader(std::string_view bytes, const std::string& file) : bytes_(bytes), file_(&file) {}

    /// Whether the file is exactly as long as its number of facets asks for. Text never is: as a number
    /// of facets four printable characters ask for more than seven gigabytes.
    static bool Fits(std::string_view bytes);

    /// Raises bat_MeshError unless Fits, and for a coordinate that is not finite. Every facet is a step of
    /// the task.
    bat_TriangleMesh Read(bat_Task& task) const;

private:
    std::string_view bytes_;
    const std::string* file_;
};
