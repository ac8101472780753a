#pragma once

#include <bio_Ofilter.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

/// Bytes in pieces, so that a long run is never moved: short ones are put together, long ones stay the blocks
/// that they came as.
class idb_ByteChunks
{
public:
    /// A run of bytes that belongs to others, and what keeps it as it is.
    struct Lent
    {
        std::size_t at; ///< in the stream that it is a part of, whose own bytes alone count
        std::span<const unsigned char> bytes;
        std::shared_ptr<const void> keep;
    };

    void Append(std::span<const unsigned char> bytes);
    /// Takes over the stream's bytes, with the runs that stand between them, in order; clears both.
    void Append(bio_Ofilter& from, std::vector<Lent>& runs);

    std::size_t Length() const { return length_; }
    /// All pieces in order.
    std::vector<std::span<const unsigned char>> Pieces() const;
    /// The CRC-32C of all, `before` being that of what goes before.
    std::uint32_t Checksum(std::uint32_t before) const;
    /// Puts all behind what `to` holds, which has the room, and ends empty. The checksum, in the same pass.
    std::uint32_t MoveTo(std::vector<unsigned char>& to, std::uint32_t before);

private:
    struct Chunk
    {
        std::span<const unsigned char> Bytes() const
        {
            return keep != nullptr ? lent : std::span<const unsigned char>(own);
        }

        std::vector<unsigned char> own = {};
        std::span<const unsigned char> lent = {};
        std::shared_ptr<const void> keep = nullptr;
    };

    std::vector<Chunk> chunks_;
    std::size_t length_ = 0;
    bool lastIsOpen_ = false;
};
