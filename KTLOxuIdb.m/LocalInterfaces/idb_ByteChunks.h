#pragma once

#include <bio_Ofilter.h>

#include <cstddef>
#include <span>
#include <vector>

/// Bytes in pieces, so that a long run is never moved: short ones are put together, long ones stay the blocks
/// that they came as.
class idb_ByteChunks
{
public:
    /// Takes the bytes over and clears the stream.
    void Append(bio_Ofilter& from);
    void Append(std::span<const unsigned char> bytes);

    std::size_t Length() const { return length_; }
    /// All pieces in order.
    std::vector<std::span<const unsigned char>> Pieces() const;
    /// Gives all bytes away as one block between `front` and `back`, and ends empty. Where one piece makes
    /// out most of it, the others are put around it in its own memory.
    std::vector<unsigned char> Take(std::span<const unsigned char> front,
                                    std::span<const unsigned char> back);

private:
    std::vector<std::vector<unsigned char>> chunks_;
    std::size_t length_ = 0;
    bool lastIsOpen_ = false;
};
