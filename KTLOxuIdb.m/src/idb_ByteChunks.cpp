#include <idb_ByteChunks.h>

namespace
{
// A run from this length on stays a block of its own; a block of short ones has this room.
constexpr std::size_t LONG_RUN = 1u << 16;
constexpr std::size_t BLOCK = 1u << 20;
}

void idb_ByteChunks::Append(bio_Ofilter& from)
{
    const std::vector<unsigned char>& bytes = from.Bytes();
    length_ += bytes.size();
    if (bytes.size() >= LONG_RUN)
    {
        chunks_.push_back(from.Take());
        lastIsOpen_ = false;
        return;
    }
    if (!lastIsOpen_ || chunks_.back().capacity() - chunks_.back().size() < bytes.size())
    {
        chunks_.emplace_back().reserve(length_ < BLOCK ? LONG_RUN : BLOCK);
        lastIsOpen_ = true;
    }
    chunks_.back().insert(chunks_.back().end(), bytes.begin(), bytes.end());
    from.Clear();
}

std::vector<std::span<const unsigned char>> idb_ByteChunks::Pieces() const
{
    return {chunks_.begin(), chunks_.end()};
}
