#pragma once

#include <array>
#include <bit>
#include <cow_HashTable.h>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

/// Numbers keys from 0 in the order in which they first come.
///
/// A key is an array of whole numbers, or of doubles that compare equal only where their bits do: neither NaN
/// nor minus zero.
template <class Key>
class bat_Numbering
{
public:
    static constexpr std::uint32_t NONE = 0xFFFFFFFF;

    /// Room for so many keys; more only cost time.
    explicit bat_Numbering(std::size_t expected = 0)
    {
        keys_.reserve(expected);
        numbers_.Reserve(expected);
    }

    /// The number of the key, a new one when it never came. Raises std::length_error beyond 2^32 - 1 keys.
    std::uint32_t Add(const Key& key)
    {
        const std::size_t hash = Hash(key);
        const std::uint32_t known = Find(hash, key);
        if (known != NONE)
            return known;
        if (keys_.size() == NONE)
            throw std::length_error("bat_Numbering: more keys than 32 bits can number");
        const auto number = static_cast<std::uint32_t>(keys_.size());
        numbers_.Reserve(keys_.size() + 1);
        keys_.push_back(key);
        numbers_.Add(hash, number);
        return number;
    }

    /// NONE for a key that never came.
    std::uint32_t Find(const Key& key) const { return Find(Hash(key), key); }

    std::size_t Length() const { return keys_.size(); }
    const Key& operator[](std::size_t number) const { return keys_[number]; }

private:
    std::uint32_t Find(std::size_t hash, const Key& key) const
    {
        return numbers_.Find(hash, [&](std::uint32_t number) { return keys_[number] == key; });
    }

    static std::size_t Hash(const Key& key)
    {
        // Coordinates often differ in their highest bits alone, numbers in their lowest: the product carries
        // differences up, the shift carries them down.
        std::uint64_t mixed = 0;
        for (const auto part : key)
        {
            if constexpr (sizeof part == sizeof(std::uint64_t))
                mixed ^= std::bit_cast<std::uint64_t>(part);
            else
                mixed ^= part;
            mixed *= 0x9E3779B97F4A7C15;
            mixed ^= mixed >> 29;
        }
        return mixed;
    }

    std::vector<Key> keys_;
    cow_HashTable<std::uint32_t, NONE> numbers_; ///< of the keys
};
