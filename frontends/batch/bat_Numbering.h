#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

/// Numbers keys from 0 in the order in which they first come; an open-addressing hash table.
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
        Resize(static_cast<int>(std::bit_width(2 * expected)));
    }

    /// The number of the key, a new one when it never came. Raises std::length_error beyond 2^32 - 1 keys.
    std::uint32_t Add(const Key& key)
    {
        const std::uint32_t mark = Mark(key);
        std::size_t at = Home(mark);
        for (; slots_[at].number != NONE; at = Next(at))
            if (slots_[at].mark == mark && keys_[slots_[at].number] == key)
                return slots_[at].number;
        if (keys_.size() == NONE)
            throw std::length_error("bat_Numbering: more keys than 32 bits can number");
        const auto number = static_cast<std::uint32_t>(keys_.size());
        keys_.push_back(key);
        slots_[at] = {mark, number};
        if (2 * keys_.size() > slots_.size() && bits_ < MOST_BITS)
            Resize(bits_ + 1);
        return number;
    }

    /// NONE for a key that never came.
    std::uint32_t Find(const Key& key) const
    {
        const std::uint32_t mark = Mark(key);
        for (std::size_t at = Home(mark); slots_[at].number != NONE; at = Next(at))
            if (slots_[at].mark == mark && keys_[slots_[at].number] == key)
                return slots_[at].number;
        return NONE;
    }

    std::size_t Length() const { return keys_.size(); }
    const Key& operator[](std::size_t number) const { return keys_[number]; }

private:
    static constexpr int LEAST_BITS = 6;
    static constexpr int MOST_BITS = 32; // as many as a mark has

    struct Slot
    {
        std::uint32_t mark = 0;
        std::uint32_t number = NONE;
    };

    static std::uint32_t Mark(const Key& key)
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
        return static_cast<std::uint32_t>(mixed * 0xBF58476D1CE4E5B9 >> 32);
    }

    std::size_t Home(std::uint32_t mark) const { return mark >> (32 - bits_); }
    std::size_t Next(std::size_t at) const { return (at + 1) & (slots_.size() - 1); }

    void Resize(int bits)
    {
        bits_ = std::clamp(bits, LEAST_BITS, MOST_BITS);
        std::vector<Slot> former(std::size_t{1} << bits_);
        former.swap(slots_);
        for (const Slot& slot : former)
        {
            if (slot.number == NONE)
                continue;
            std::size_t at = Home(slot.mark);
            while (slots_[at].number != NONE)
                at = Next(at);
            slots_[at] = slot;
        }
    }

    std::vector<Key> keys_;
    std::vector<Slot> slots_;
    int bits_ = 0;
};
