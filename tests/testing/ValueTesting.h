#pragma once

// What the tests of values share: their texts, tuples and calls in one expression, tables of named rows.

#include <limits>
#include <memory>
#include <omu_Arguments.h>
#include <omu_PrimList.h>
#include <omu_PrimString.h>
#include <ostream>
#include <string>
#include <testing/Outcome.h>

#include <gtest/gtest.h>

/// Expects that `call` raises what a script is told as "TypeError: ...", or its class where it is none of the
/// scripting exceptions.
#define EXPECT_ERROR(call, text)                                                                             \
    EXPECT_EQ(Outcome([&] {                                                                                  \
                  static_cast<void>(call);                                                                   \
                  return "nothing was raised";                                                               \
              }),                                                                                            \
              text)

inline std::string Text(const omu_Primitive& value)
{
    return std::string(value.AsString(0).View());
}

/// What a call that gives a new value gives; null is "None".
inline std::string Text(omu_Primitive* owned)
{
    const std::unique_ptr<omu_Primitive> value(owned);
    return value ? Text(*value) : "None";
}

template <class... Items>
omu_PrimTuple TupleOf(const Items&... items)
{
    omu_PrimTuple tuple;
    (tuple.Put(items), ...);
    return tuple;
}

struct Keyword
{
    template <class T>
    Keyword(const char* keyword, const T& value) : name(keyword)
    {
        item.Put(value);
    }

    const char* name;
    omu_PrimTuple item;
};

/// Positional values and keywords.
template <class... Values>
omu_Arguments Args(const Values&... values)
{
    omu_Arguments arguments;
    [[maybe_unused]] const auto supply = [&](const auto& value) {
        if constexpr (std::is_same_v<decltype(value), const Keyword&>)
            arguments.Put(value.name, value.item.Index(0));
        else
            arguments.Put(value);
    };
    (supply(values), ...);
    return arguments;
}

/// The first base of a table's rows, which go by their names.
struct NamedRow
{
    const char* name;

    friend std::ostream& operator<<(std::ostream& out, const NamedRow& row) { return out << row.name; }
};

#define INSTANTIATE_ROWS(Suite, ...)                                                                         \
    INSTANTIATE_TEST_SUITE_P(Rows, Suite, testing::Values(__VA_ARGS__),                                      \
                             [](const auto& row) { return std::string(row.param.name); })
