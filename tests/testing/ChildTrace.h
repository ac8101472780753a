#pragma once

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

/// Expects that `statement` writes exactly `wanted` to the standard error stream of a program of its own,
/// which is started with the environment variable `name` set to `value`.
#define EXPECT_CHILD_TRACE(name, value, statement, wanted)                                                   \
    do                                                                                                       \
    {                                                                                                        \
        const orvex_testing::ChildSwitch childSwitch(name, value);                                           \
        EXPECT_EXIT(                                                                                         \
            {                                                                                                \
                static_cast<void>(statement);                                                                \
                std::_Exit(0);                                                                               \
            },                                                                                               \
            testing::ExitedWithCode(0), testing::Eq(std::string(wanted)));                                   \
    } while (false)

namespace orvex_testing
{
/// For the length of a scope death tests start the program anew, with a variable set.
class ChildSwitch
{
public:
    ChildSwitch(const char* name, const char* value) : name_(name)
    {
        testing::FLAGS_gtest_death_test_style = "threadsafe";
        setenv(name, value, 1);
    }
    ~ChildSwitch()
    {
        unsetenv(name_);
        testing::FLAGS_gtest_death_test_style = style_;
    }
    ChildSwitch(const ChildSwitch&) = delete;
    ChildSwitch& operator=(const ChildSwitch&) = delete;

private:
    const char* name_;
    const std::string style_ = testing::FLAGS_gtest_death_test_style;
};
}
