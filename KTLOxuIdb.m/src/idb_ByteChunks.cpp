#include <idb_ByteChunks.h>

#include <algorithm>

namespace
{
// A run from this length on stays a block of its own; a block of short ones has this room.
constexpr std::size_t LONG_RUN = 1u << 16;
constexpr std::size_t BLOCK = 1u << 20;
}

void idb_ByteChunks::Append(bio_Ofilter& from)
{
    if (from.Bytes().size() >= LONG_RUN)
    {
        length_ += from.Bytes().size();
        chunks_.push_back(from.Take());
        lastIsOpen_ = false;
        return;
    }
    Append(std::span(from.Bytes()));
    from.Clear();
}

void idb_ByteChunks::Append(std::span<const unsigned char> bytes)
{
    length_ += bytes.size();
    if (!lastIsOpen_ || chunks_.back().capacity() - chunks_.back().size() < bytes.size())
    {
        chunks_.emplace_back().reserve(length_ < BLOCK ? LONG_RUN : BLOCK);
        lastIsOpen_ = true;
    }
    chunks_.back().insert(chunks_.back().end(), bytes.begin(), bytes.end());
}

std::vector<std::span<const unsigned char>> idb_ByteChunks::Pieces() const
{
    return {chunks_.begin(), chunks_.end()};
}

std::vector<unsigned char> idb_ByteChunks::Take(std::span<const unsigned char> front,
                                                std::span<const unsigned char> back)
{
    const auto longest = std::max_element(chunks_.begin(), chunks_.end(),
                                          [](const auto& a, const auto& b) { return a.size() < b.size(); });
    std::vector<unsigned char> all;
    auto next = chunks_.begin();
    if (longest != chunks_.end() && longest->size() > length_ / 2)
    {
        std::vector<unsigned char> before(front.begin(), front.end());
        for (; next != longest; ++next)
            before.insert(before.end(), next->begin(), next->end());
        all = std::move(*next++);
        all.reserve(front.size() + length_ + back.size());
        all.insert(all.begin(), before.begin(), before.end());
    }
    else
    {
        all.reserve(front.size() + length_ + back.size());
        all.insert(all.end(), front.begin(), front.end());
    }
    for (; next != chunks_.end(); ++next)
        all.insert(all.end(), next->begin(), next->end());
    all.insert(all.end(), back.begin(), back.end());
    *this = idb_ByteChunks();
    return all;
}
