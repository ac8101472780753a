#pragma once

// What the tests of values share: their texts, tuples, dictionaries and calls in one expression.

#include <limits>
#include <memory>
#include <omu_Arguments.h>
#include <omu_PrimList.h>
#include <omu_PrimString.h>
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

/// What the operation tells on the standard error stream.
template <class F>
std::string ToldBy(F operation)
{
    testing::internal::CaptureStderr();
    operation();
    return testing::internal::GetCapturedStderr();
}

template <class... Items>
omu_PrimTuple TupleOf(const Items&... items)
{
    omu_PrimTuple tuple;
    (tuple.Put(items), ...);
    return tuple;
}

template <class K>
omu_PrimDictionary<K> DictionaryOf(const cow_List<K>& keys, const omu_PrimTuple& values)
{
    omu_PrimDictionary<K> dictionary;
    for (int i = 0; i < keys.Length(); ++i)
        dictionary.Put(keys[i], std::unique_ptr<omu_Primitive>(values.Index(i)));
    return dictionary;
}

/// A copy of any value, as a cell of a table.
struct Cell
{
    template <class T>
    Cell(const T& of) : value(of.Copy())
    {}
    const omu_Primitive& operator*() const { return *value; }

    std::shared_ptr<const omu_Primitive> value;
};

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
