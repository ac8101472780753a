// This program and the library are two: what one throws the other must catch by its exact type.

#include <g3d_ColorErrorException.h>
#include <gtest/gtest.h>
#include <memory>
#include <nex_RaiseWith.h>
#include <omu_ArgNumberErrorException.h>
#include <omu_IndexErrorException.h>
#include <omu_KeyErrorException.h>
#include <omu_KeywordTypeErrorException.h>

namespace
{
/// Propagate is the library's code, nex_Raise is this program's.
template <class E>
void ExpectCaught(const E& exception)
{
    const KTLBasException& thrower = exception;
    EXPECT_THROW(thrower.Propagate(), E);
    EXPECT_THROW(thrower.Propagate(), nex_CommandException);
    try
    {
        thrower.Propagate();
    }
    catch (const std::exception& caught)
    {
        EXPECT_EQ(typeid(caught), typeid(E));
        EXPECT_NE(dynamic_cast<const cls_Persistent*>(&caught), nullptr);
    }
    try
    {
        nex_Raise(E(exception), "tests/geom", 1);
    }
    catch (const KTLBasException& e)
    {
        const std::unique_ptr<const KTLBasException> copy(e.Copy());
        EXPECT_NE(dynamic_cast<const E*>(copy.get()), nullptr);
        EXPECT_TRUE(typeid(e) == typeid(g3d_ColorErrorException) ||
                    dynamic_cast<const g3d_ColorErrorException*>(copy.get()) == nullptr)
            << "classes with another tag stay apart";
    }
}

TEST(ExceptionBorder, IsCrossedBothWays)
{
    ExpectCaught(omu_KeyErrorException("k"));
    ExpectCaught(omu_IndexErrorException(1));
    ExpectCaught(g3d_ColorErrorException("c"));
    ExpectCaught(omu_ArgNumberErrorException(1, 2, "s"));
    ExpectCaught(omu_KeywordTypeErrorException());
}
}
