#pragma once

#include <cstddef>
#include <initializer_list>
#include <type_traits>
#include <utility>

/// The part of std::vector's interface that the containers need, for bool: one object an element, so that
/// references and bool pointers into it work, which std::vector<bool> refuses.
///
/// Over an array of its own. Nothing is checked here.
class cow_BoolVector
{
public:
    using value_type = bool;
    using iterator = bool*;
    using const_iterator = const bool*;

    cow_BoolVector() noexcept = default;
    explicit cow_BoolVector(std::size_t size, bool value = false) : cow_BoolVector() { resize(size, value); }
    cow_BoolVector(std::initializer_list<bool> items) : cow_BoolVector(items.begin(), items.end()) {}
    template <class Iterator>
    requires(!std::is_integral_v<Iterator>) cow_BoolVector(Iterator first, Iterator last) : cow_BoolVector()
    {
        for (; first != last; ++first)
            push_back(*first);
    }
    cow_BoolVector(const cow_BoolVector& other) : cow_BoolVector(other.begin(), other.end()) {}
    cow_BoolVector(cow_BoolVector&& other) noexcept { swap(other); }
    cow_BoolVector& operator=(cow_BoolVector other) noexcept
    {
        swap(other);
        return *this;
    }
    ~cow_BoolVector() { delete[] items_; }

    void push_back(bool value)
    {
        if (size_ == capacity_)
            reserve(capacity_ < 8 ? 16 : 2 * capacity_);
        items_[size_++] = value;
    }
    iterator insert(const_iterator at, bool value)
    {
        const std::ptrdiff_t index = at - begin();
        push_back(value);
        for (iterator slot = end() - 1; slot != begin() + index; --slot)
            *slot = slot[-1];
        begin()[index] = value;
        return begin() + index;
    }
    iterator erase(const_iterator at)
    {
        const iterator hole = begin() + (at - begin());
        for (iterator slot = hole + 1; slot != end(); ++slot)
            slot[-1] = *slot;
        --size_;
        return hole;
    }
    void pop_back() noexcept { --size_; }
    void resize(std::size_t size, bool value = false)
    {
        reserve(size);
        while (size_ < size)
            items_[size_++] = value;
        size_ = size;
    }
    void reserve(std::size_t capacity)
    {
        if (capacity <= capacity_)
            return;
        bool* larger = new bool[capacity];
        for (std::size_t i = 0; i < size_; ++i)
            larger[i] = items_[i];
        delete[] items_;
        items_ = larger;
        capacity_ = capacity;
    }
    void clear() noexcept { size_ = 0; }
    void swap(cow_BoolVector& other) noexcept
    {
        std::swap(items_, other.items_);
        std::swap(size_, other.size_);
        std::swap(capacity_, other.capacity_);
    }

    std::size_t size() const noexcept { return size_; }
    std::size_t capacity() const noexcept { return capacity_; }
    bool empty() const noexcept { return size_ == 0; }
    bool& operator[](std::size_t index) noexcept { return items_[index]; }
    const bool& operator[](std::size_t index) const noexcept { return items_[index]; }
    const bool& back() const noexcept { return items_[size_ - 1]; }
    bool& back() noexcept { return items_[size_ - 1]; }
    bool* data() noexcept { return items_; }
    const bool* data() const noexcept { return items_; }
    iterator begin() noexcept { return items_; }
    iterator end() noexcept { return items_ + size_; }
    const_iterator begin() const noexcept { return items_; }
    const_iterator end() const noexcept { return items_ + size_; }

    friend bool operator==(const cow_BoolVector& a, const cow_BoolVector& b) noexcept
    {
        std::size_t same = 0;
        while (same < a.size_ && same < b.size_ && a.items_[same] == b.items_[same])
            ++same;
        return same == a.size_ && same == b.size_;
    }

private:
    bool* items_ = nullptr;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};
