#include <bat_MeshError.h>

#include <cmath>

bat_MeshError::bat_MeshError(const std::string& file, const std::string& place, const std::string& reason)
    : file_(file), reason_(reason), sentence_(file + place + ": " + reason)
{}

bat_MeshError::bat_MeshError(const std::string& file, const std::string& reason)
    : bat_MeshError(file, "", reason)
{}

bat_MeshError bat_MeshError::AtLine(const std::string& file, std::uint64_t line, const std::string& reason)
{
    bat_MeshError error(file, ", line " + std::to_string(line), reason);
    error.line_ = line;
    return error;
}

bat_MeshError bat_MeshError::AtByte(const std::string& file, std::uint64_t byte, const std::string& reason)
{
    bat_MeshError error(file, ", byte " + std::to_string(byte), reason);
    error.byte_ = byte;
    return error;
}

bat_MeshError bat_MeshError::OfSystem(const std::string& file, int number, const std::string& reason)
{
    bat_MeshError error(file, reason);
    error.systemNumber_ = number;
    return error;
}

std::string bat_MeshError::NotFinite(std::size_t axis, double coordinate, const char* what, std::size_t index)
{
    return std::string("the ") + "xyz"[axis] + " coordinate of a corner of " + what + " " +
           std::to_string(index) + " is " + (std::isnan(coordinate) ? "not a number (NaN)" : "infinite");
}
