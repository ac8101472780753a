#pragma once

#include <cstddef>
#include <functional>
#include <new>
#include <ostream>

namespace orvex_testing
{
/// A value that counts its objects and its copies, and on demand refuses to be copied. Moving may throw
/// (it is a copy), so containers cannot count on it: the hardest kind of element.
class Tracked
{
public:
    Tracked(int v = 0) : value(v) { ++live; }
    Tracked(const Tracked& other) : value(other.value)
    {
        CountCopy();
        ++live;
    }
    Tracked& operator=(const Tracked& other)
    {
        CountCopy();
        value = other.value;
        return *this;
    }
    ~Tracked() { --live; }

    friend bool operator==(const Tracked& a, const Tracked& b) { return a.value == b.value; }
    friend bool operator<(const Tracked& a, const Tracked& b) { return a.value < b.value; }
    friend std::ostream& operator<<(std::ostream& out, const Tracked& t) { return out << t.value; }

    int value;

    static inline int live = 0;
    static inline int copies = 0;
    static inline int copiesLeft = -1; // the copy after so many throws; below zero: none does

private:
    static void CountCopy()
    {
        if (copiesLeft == 0)
            throw std::bad_alloc();
        if (copiesLeft > 0)
            --copiesLeft;
        ++copies;
    }
};

/// Runs `write` on a copy of `sample` again and again, with the first, second, third ... copy of an element
/// failing, until it succeeds; `unchanged` judges the container after each failure. Returns the number of
/// failures: a test expects some.
template <class Container, class Write, class Unchanged>
int FailEveryCopy(const std::function<Container()>& make, Write write, Unchanged unchanged)
{
    for (int failing = 0;; ++failing)
    {
        Container container = make();
        Tracked::copiesLeft = failing;
        try
        {
            write(container);
            Tracked::copiesLeft = -1;
            return failing;
        }
        catch (const std::bad_alloc&)
        {
            Tracked::copiesLeft = -1;
            unchanged(container);
        }
    }
}
}

template <>
struct std::hash<orvex_testing::Tracked>
{
    std::size_t operator()(const orvex_testing::Tracked& t) const noexcept
    {
        return static_cast<std::size_t>(t.value);
    }
};
