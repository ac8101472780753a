#pragma once

#include <KTLBasException.h>
#include <cow_String.h>

#include <gtest/gtest.h>

/// Expects `call` to raise exactly an E, with this whole text as its report.
#define EXPECT_RAISE(call, E, text)                                                                          \
    orvex_testing::ExpectRaise<E>([&] { static_cast<void>(call); }, text, __FILE__, __LINE__)

namespace orvex_testing
{
template <class E, class F>
void ExpectRaise(F&& call, const char* text, const char* file, int line)
{
    const testing::ScopedTrace trace(file, line, "raised here");
    try
    {
        call();
    }
    catch (const KTLBasException& raised)
    {
        EXPECT_EQ(typeid(raised), typeid(E));
        EXPECT_EQ(raised.UserReport(), text);
        return;
    }
    ADD_FAILURE() << "nothing was raised";
}
}
