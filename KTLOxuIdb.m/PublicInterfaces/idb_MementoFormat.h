#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

/// The layout of a memento as far as writer and reader must agree on numbers. docs/memento.md describes it.
namespace idb_MementoFormat
{
/// How a memento begins; its line end and 1a catch damage by text modes.
inline constexpr std::array<unsigned char, 8> MAGIC = {0x4F, 0x58, 0x4D, 0x45, 0x4D, 0x0D, 0x0A, 0x1A};
/// The format that is written: a higher major one is refused, a higher minor one read.
inline constexpr std::uint16_t MAJOR = 1;
inline constexpr std::uint16_t MINOR = 0;

/// Magic, u16 major, u16 minor, u32 flags, u64 total length; then their checksum.
inline constexpr std::size_t HEADER_BYTES = 28;
/// Tag, u32 flags, u64 length before the payload of a section; its checksum behind it.
inline constexpr std::size_t SECTION_HEAD_BYTES = 16;
inline constexpr std::size_t CHECKSUM_BYTES = 4;
/// Offset of the total length in the header, of the length in a section.
inline constexpr std::size_t TOTAL_LENGTH_AT = 16;
inline constexpr std::size_t SECTION_LENGTH_AT = 8;

/// The tags of the sections, in their order.
inline constexpr std::size_t TAG_BYTES = 4;
inline constexpr char CLASSES[] = "CLAS";
inline constexpr char OBJECTS[] = "OBJS";
inline constexpr char ROOTS[] = "ROOT";
inline constexpr char END[] = "ENDM";
/// Flag of a section that a reader must not skip.
inline constexpr std::uint32_t MUST_UNDERSTAND = 1;

/// Number, class index, body length of an object.
inline constexpr std::size_t OBJECT_HEAD_BYTES = 16;
/// Class index, identifier, length of a part; its attribute count belongs to the length.
inline constexpr std::size_t PART_HEAD_BYTES = 28;
/// Index, type, collection, length of an attribute.
inline constexpr std::size_t ATTRIBUTE_HEAD_BYTES = 14;

/// The digest of the checksums of the header and of every section before ENDM, in their order: FNV-1a of 64
/// bits over their bytes, little-endian (G. Fowler, L. C. Noll, K.-P. Vo).
class Digest
{
public:
    constexpr void Add(std::uint32_t checksum)
    {
        for (int i = 0; i < 4; ++i)
        {
            value_ ^= (checksum >> (8 * i)) & 0xFFu;
            value_ *= 0x100000001B3u;
        }
    }
    constexpr std::uint64_t Value() const { return value_; }

private:
    std::uint64_t value_ = 0xCBF29CE484222325u;
};
}
