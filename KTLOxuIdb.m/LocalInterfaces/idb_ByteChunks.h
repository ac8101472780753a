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

    std::size_t Length() const { return length_; }
    /// All pieces in order.
    std::vector<std::span<const unsigned char>> Pieces() const;

private:
    std::vector<std::vector<unsigned char>> chunks_;
    std::size_t length_ = 0;
    bool lastIsOpen_ = false;
};
