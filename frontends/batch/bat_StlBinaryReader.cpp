#include <bat_StlBinaryReader.h>

#include <bat_FacetNormals.h>
#include <bat_MeshError.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace
{
constexpr std::size_t HEADER = 80;
constexpr std::size_t PREFIX = HEADER + 4;
constexpr std::size_t FACET = 50;
constexpr std::size_t FACET_NUMBERS = 12;
constexpr std::size_t NORMAL_NUMBERS = 3;

std::uint32_t LittleEndian(const char* at)
{
    std::uint32_t word = 0;
    std::memcpy(&word, at, sizeof word);
    if constexpr (std::endian::native == std::endian::big)
    {
        word = (word >> 24) | ((word >> 8) & 0xff00U) | ((word << 8) & 0xff0000U) | (word << 24);
    }
    return word;
}

// No overflow: less than 2^32 facets of 50 bytes.
std::uint64_t LengthFor(std::uint32_t facets)
{
    return PREFIX + FACET * std::uint64_t(facets);
}

[[noreturn]] void RefuseNumber(const std::string& file, std::size_t facet, const float* numbers)
{
    std::size_t k = NORMAL_NUMBERS;
    while (std::isfinite(numbers[k]))
    {
        ++k;
    }
    throw bat_MeshError::AtByte(file, PREFIX + FACET * facet + sizeof(float) * k,
                                bat_MeshError::NotFinite(k % 3, double(numbers[k]), "facet", facet));
}
}

bool bat_StlBinaryReader::Fits(std::string_view bytes)
{
    return bytes.size() >= PREFIX && bytes.size() == LengthFor(LittleEndian(bytes.data() + HEADER));
}

bat_TriangleMesh bat_StlBinaryReader::Read(bat_Task& task) const
{
    if (bytes_.size() < PREFIX)
    {
        throw bat_MeshError(*file_, "the content is binary and shorter than the " + std::to_string(PREFIX) +
                                        " bytes that begin a binary STL file: it has " +
                                        std::to_string(bytes_.size()));
    }
    const std::uint32_t facets = LittleEndian(bytes_.data() + HEADER);
    if (!Fits(bytes_))
    {
        throw bat_MeshError::AtByte(*file_, HEADER,
                                    "read as binary STL, " + std::to_string(facets) + " facets make " +
                                        std::to_string(LengthFor(facets)) + " bytes, the file has " +
                                        std::to_string(bytes_.size()));
    }
    bat_TriangleMesh mesh;
    mesh.Reserve(facets);
    bat_FacetNormals normals;
    const char* at = bytes_.data() + PREFIX;
    for (std::size_t i = 0; i < facets; ++i, at += FACET, task.Step())
    {
        float numbers[FACET_NUMBERS];
        double wide[FACET_NUMBERS];
        bool finite = true;
        for (std::size_t k = 0; k < FACET_NUMBERS; ++k)
        {
            numbers[k] = std::bit_cast<float>(LittleEndian(at + sizeof(float) * k));
            wide[k] = double(numbers[k]);
        }
        for (std::size_t k = NORMAL_NUMBERS; k < FACET_NUMBERS; ++k)
        {
            finite &= std::isfinite(numbers[k]);
        }
        if (!finite)
        {
            RefuseNumber(*file_, i, numbers);
        }
        const std::span<const double, 9> corners(wide + NORMAL_NUMBERS, 9);
        normals.Compare(std::span<const double, 3>(wide, 3), corners);
        mesh.Add(corners);
    }
    normals.Report(mesh);
    if (bytes_.starts_with("solid"))
    {
        mesh.Note("the header begins with \"solid\" as text does, the content is binary STL");
    }
    return mesh;
}
