#pragma once

#include <cstddef>
#include <memory>
#include <vector>

/// Objects that never move, made one after the other in blocks; Reset makes room for the next ones in the
/// same blocks. An object taken again is as it was left.
template <class T>
class gsl_BlockStore
{
public:
    /// The next object; its number is Count() before the call.
    T& Take()
    {
        if (count_ == blocks_.size() * BLOCK)
        {
            blocks_.push_back(std::make_unique<T[]>(BLOCK));
        }
        return (*this)[count_++];
    }
    void Reset() noexcept { count_ = 0; }

    std::size_t Count() const noexcept { return count_; }
    T& operator[](std::size_t i) const { return blocks_[i / BLOCK][i % BLOCK]; }

private:
    static constexpr std::size_t BLOCK = 64;

    std::vector<std::unique_ptr<T[]>> blocks_;
    std::size_t count_ = 0;
};
