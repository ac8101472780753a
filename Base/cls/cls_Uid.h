#pragma once

#include <bas_Export.h>
#include <cow_String.h>

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>

/// Unique identifier of a persistent object: 128 bits, a nonce of the process and a counter.
///
/// A default-constructed one is fresh; a copy is the same. The null value has all bits zero and is
/// never made fresh. Counter values are drawn from blocks that belong to a thread, so making one costs
/// no shared write; a forked child draws a nonce of its own. Ordered by its bytes, which says nothing
/// about age.
class BAS_EXPORT cls_Uid
{
public:
    using Bytes = std::array<unsigned char, 16>;

    cls_Uid() noexcept;
    /// The identifier with these bytes, in the order of AsBytes().
    explicit constexpr cls_Uid(const Bytes& bytes) noexcept
    {
        for (std::size_t i = 0; i < 8; ++i)
        {
            nonce_ = (nonce_ << 8) | bytes[i];
            count_ = (count_ << 8) | bytes[i + 8];
        }
    }
    static constexpr cls_Uid Null() noexcept { return cls_Uid(Bytes{}); }

    constexpr bool IsNull() const noexcept { return nonce_ == 0 && count_ == 0; }
    constexpr std::size_t Hash() const noexcept
    {
        // Counters run in sequence: spread them over all bits (Fibonacci hashing).
        std::uint64_t mixed = (count_ ^ nonce_) * 0x9E3779B97F4A7C15u;
        return static_cast<std::size_t>(mixed ^ (mixed >> 32));
    }

    /// The 16 bytes, nonce first, each half from its most significant byte down.
    constexpr Bytes AsBytes() const noexcept
    {
        Bytes bytes{};
        for (std::size_t i = 0; i < 8; ++i)
        {
            bytes[i] = static_cast<unsigned char>(nonce_ >> (56 - 8 * i));
            bytes[i + 8] = static_cast<unsigned char>(count_ >> (56 - 8 * i));
        }
        return bytes;
    }
    /// 32 lower-case hexadecimal digits, the bytes in their order.
    cow_String AsString() const;

    friend constexpr bool operator==(const cls_Uid&, const cls_Uid&) noexcept = default;
    friend constexpr auto operator<=>(const cls_Uid&, const cls_Uid&) noexcept = default;

private:
    std::uint64_t nonce_ = 0;
    std::uint64_t count_ = 0;
};

template <>
struct std::hash<cls_Uid>
{
    std::size_t operator()(const cls_Uid& uid) const noexcept { return uid.Hash(); }
};
