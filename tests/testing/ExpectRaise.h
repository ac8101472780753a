#pragma once

#include <KTLBasException.h>
#include <string>

#include <gtest/gtest.h>

/// Expects `call` to raise exactly an E, with this whole text as its report.
#define EXPECT_RAISE(call, E, text)                                                                          \
    EXPECT_EQ(orvex_testing::Raised<E>([&] { static_cast<void>(call); }), text)

namespace orvex_testing
{
template <class E, class F>
std::string Raised(F&& call)
{
    try
    {
        call();
    }
    catch (const KTLBasException& raised)
    {
        const std::string report(raised.UserReport().View());
        return typeid(raised) == typeid(E) ? report : std::string("other class: ") + typeid(raised).name();
    }
    return "nothing was raised";
}
}
