#pragma once

#include <cstddef>
#include <functional>
#include <gtest/gtest.h>
#include <initializer_list>
#include <new>

namespace orvex_testing
{
/// A value that counts its objects, and on demand refuses to be copied. Moving may throw (it is a copy), so
/// containers cannot count on it: the hardest kind of element.
class Tracked
{
public:
    Tracked(int v = 0) : value(v) { ++live; }
    Tracked(const Tracked& other) : value((CountCopy(), other.value)) { ++live; }
    Tracked& operator=(const Tracked& other)
    {
        CountCopy();
        value = other.value;
        return *this;
    }
    ~Tracked() { --live; }

    friend bool operator==(const Tracked& a, const Tracked& b) { return a.value == b.value; }
    friend bool operator<(const Tracked& a, const Tracked& b) { return a.value < b.value; }

    int value;

    static inline int live = 0;
    static inline int copiesLeft = -1; // the copy after so many throws; below zero: none does

private:
    static void CountCopy()
    {
        if (copiesLeft == 0)
            throw std::bad_alloc();
        copiesLeft -= copiesLeft > 0 ? 1 : 0;
    }
};

/// Expects that each write, on a container of its own and on one that shares, changes nothing when the first,
/// second, third ... copy of an element fails, and that no element is lost.
template <class Container>
void ExpectAllOrNothing(const std::function<Container()>& fill,
                        std::initializer_list<std::function<void(Container&)>> writes)
{
    const int before = Tracked::live;
    for (const auto& write : writes)
        for (const bool shared : {true, false})
            for (int failing = 0, done = false; !done; ++failing)
            {
                const Container original = fill();
                Container container = shared ? original : fill();
                try
                {
                    Tracked::copiesLeft = failing;
                    write(container);
                    done = true;
                    EXPECT_TRUE(failing > 0 || !shared);
                }
                catch (const std::bad_alloc&)
                {
                    Tracked::copiesLeft = -1;
                    EXPECT_TRUE(container == original) << "write " << &write - writes.begin();
                    if constexpr (requires { container.KeyAt(0); })
                    {
                        for (int i = 0; i < container.Length(); ++i)
                            ASSERT_EQ(container.Find(container.KeyAt(i)), &container.ValueAt(i));
                    }
                }
                Tracked::copiesLeft = -1;
            }
    EXPECT_EQ(Tracked::live, before);
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
