#include <bio_Crc32c.h>
#include <idb_ByteChunks.h>

#include <algorithm>

namespace
{
// A run from this length on stays a block of its own.
constexpr std::size_t LONG_RUN = 1u << 16;
// A block of short ones has twice the room of the one right before it: little stays empty between long runs.
constexpr std::size_t FIRST_BLOCK = 1u << 12;
constexpr std::size_t LARGEST_BLOCK = 1u << 20;
// What is copied and summed at a time: it fits into the first cache.
constexpr std::size_t PASS = 1u << 14;
}

void idb_ByteChunks::Append(std::span<const unsigned char> bytes)
{
    if (bytes.empty())
        return;
    length_ += bytes.size();
    if (!lastIsOpen_ || chunks_.back().own.capacity() - chunks_.back().own.size() < bytes.size())
    {
        const std::size_t room =
            lastIsOpen_ ? std::min(2 * chunks_.back().own.capacity(), LARGEST_BLOCK) : FIRST_BLOCK;
        chunks_.emplace_back().own.reserve(std::max(bytes.size(), room));
        lastIsOpen_ = true;
    }
    chunks_.back().own.insert(chunks_.back().own.end(), bytes.begin(), bytes.end());
}

void idb_ByteChunks::Append(bio_Ofilter& from, std::vector<Lent>& runs)
{
    const std::span<const unsigned char> own(from.Bytes());
    std::size_t next = 0;
    for (Lent& run : runs)
    {
        Append(own.subspan(next, run.at - next));
        next = run.at;
        length_ += run.bytes.size();
        chunks_.push_back({{}, run.bytes, std::move(run.keep)});
        lastIsOpen_ = false;
    }
    runs.clear();
    if (next == 0 && own.size() >= LONG_RUN)
    {
        length_ += own.size();
        chunks_.push_back({from.Take()});
        lastIsOpen_ = false;
        return;
    }
    Append(own.subspan(next));
    from.Clear();
}

std::vector<std::span<const unsigned char>> idb_ByteChunks::Pieces() const
{
    std::vector<std::span<const unsigned char>> pieces(chunks_.size());
    std::transform(chunks_.begin(), chunks_.end(), pieces.begin(), [](const Chunk& c) { return c.Bytes(); });
    return pieces;
}

std::uint32_t idb_ByteChunks::Checksum(std::uint32_t before) const
{
    for (const Chunk& chunk : chunks_)
        before = bio_Crc32c(chunk.Bytes(), before);
    return before;
}

std::uint32_t idb_ByteChunks::MoveTo(std::vector<unsigned char>& to, std::uint32_t before)
{
    for (Chunk& chunk : chunks_)
    {
        for (std::span<const unsigned char> left = chunk.Bytes(); !left.empty();)
        {
            const std::span<const unsigned char> some = left.first(std::min(left.size(), PASS));
            before = bio_Crc32c(some, before);
            to.insert(to.end(), some.begin(), some.end());
            left = left.subspan(some.size());
        }
        chunk = Chunk(); // so that not all is there twice
    }
    *this = idb_ByteChunks();
    return before;
}
