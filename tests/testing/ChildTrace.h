#pragma once

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

/// Expects that `statement` writes `wanted`, a text or a matcher of it, to the standard error stream of a
/// program of its own, which is started with the environment variable `name` set to `value`.
#define EXPECT_CHILD_TRACE(name, value, statement, wanted)                                                   \
    do                                                                                                       \
    {                                                                                                        \
        GTEST_FLAG_SET(death_test_style, "threadsafe");                                                      \
        setenv(name, value, 1);                                                                              \
        EXPECT_EXIT((static_cast<void>(statement), std::_Exit(0)), testing::ExitedWithCode(0),               \
                    testing::Matcher<const std::string&>(wanted));                                           \
        unsetenv(name);                                                                                      \
    } while (false)
