#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <optional>
#include <string>

/// A mesh file was refused: which file, where in it, and why.
///
/// The only exception of the mesh readers. what() is the whole sentence, "FILE, line N: REASON",
/// "FILE, byte N: REASON" or, for what concerns the whole file, "FILE: REASON". Text taken from the
/// file is quoted printable and shortened, so that the sentence can go to a terminal as it is.
class bat_MeshError : public std::exception
{
public:
    bat_MeshError(const std::string& file, const std::string& reason);
    /// line counts from 1.
    static bat_MeshError AtLine(const std::string& file, std::uint64_t line, const std::string& reason);
    /// byte counts from 0, as file offsets do.
    static bat_MeshError AtByte(const std::string& file, std::uint64_t byte, const std::string& reason);
    /// The system refused the file, with that number of errno.
    static bat_MeshError OfSystem(const std::string& file, int number, const std::string& reason);

    /// A reason: "the y coordinate of a corner of facet 7 is infinite". axis: 0 to 2; what: "facet".
    static std::string NotFinite(std::size_t axis, double coordinate, const char* what, std::size_t index);

    const char* what() const noexcept override { return sentence_.c_str(); }
    const std::string& File() const { return file_; }
    const std::string& Reason() const { return reason_; }
    std::optional<std::uint64_t> Line() const { return line_; }
    std::optional<std::uint64_t> Byte() const { return byte_; }
    /// Why the file could not even be read, as errno says it.
    std::optional<int> SystemNumber() const { return systemNumber_; }

private:
    bat_MeshError(const std::string& file, const std::string& place, const std::string& reason);

    std::string file_;
    std::string reason_;
    std::string sentence_;
    std::optional<std::uint64_t> line_;
    std::optional<std::uint64_t> byte_;
    std::optional<int> systemNumber_;
};
