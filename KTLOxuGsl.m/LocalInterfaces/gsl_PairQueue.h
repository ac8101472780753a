#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

/// Pairs of nodes that wait to be looked at, the one that can meet soonest first. Of pairs that can meet
/// equally soon the one that came last goes first: it is the smaller one, and finding some contact early
/// saves most.
class gsl_PairQueue
{
public:
    struct Item
    {
        double soonest = 0.0; // no contact of the pair comes before this travel
        std::int32_t movable = 0;
        std::int32_t fixed = 0;
        std::uint32_t number = 0;
        float share = 0.0F; // of the whole search, for progress
    };

    void Clear() noexcept
    {
        items_.clear();
        number_ = 0;
    }
    /// Gives the item a new number.
    void Push(const Item& item)
    {
        items_.push_back(item);
        items_.back().number = number_++;
        std::push_heap(items_.begin(), items_.end(), After);
    }
    Item Pop()
    {
        std::pop_heap(items_.begin(), items_.end(), After);
        const Item item = items_.back();
        items_.pop_back();
        return item;
    }
    const Item& Top() const { return items_.front(); }
    bool IsEmpty() const noexcept { return items_.empty(); }
    std::size_t Size() const noexcept { return items_.size(); }

private:
    static bool After(const Item& a, const Item& b) noexcept
    {
        return a.soonest != b.soonest ? a.soonest > b.soonest : a.number < b.number;
    }

    std::vector<Item> items_;
    std::uint32_t number_ = 0;
};
