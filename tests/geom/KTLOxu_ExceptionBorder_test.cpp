// This program and the library are two: what one throws the other must catch by its exact type.

#include <g3d_ColorErrorException.h>
#include <gtest/gtest.h>
#include <memory>
#include <nex_RaiseWith.h>
#include <omu_ArgNumberErrorException.h>
#include <omu_IndexErrorException.h>
#include <omu_KeyErrorException.h>
#include <omu_KeywordTypeErrorException.h>
#include <omu_PrimEnum.h>
#include <omu_PrimNumber.h>
#include <omu_ValueErrorException.h>
#include <testing/LibraryGuard.h>

namespace
{
/// Thrown inside the library: Propagate is the library's code.
template <class E>
void ThrownInside(const E& exception)
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
        EXPECT_EQ(exception.UserReport(), cow_String(caught.what()));
    }
}

TEST(ExceptionBorder, WhatTheLibraryThrowsIsCaughtHere)
{
    ThrownInside(omu_KeyErrorException("k"));
    ThrownInside(omu_IndexErrorException(1));
    ThrownInside(g3d_ColorErrorException("c"));
    ThrownInside(omu_ArgNumberErrorException(1, 2, "s"));
    ThrownInside(omu_KeywordTypeErrorException());
}

TEST(ExceptionBorder, WhatTheLibraryMadeIsCaughtHere)
{
    const LibraryGuard library;
    try
    {
        static_cast<void>(omu_PrimEnum<omu_PrimNumber::DataTypeEnm, 1>(cow_String("int")));
        ADD_FAILURE() << "a name that the enumeration lacks was taken";
    }
    catch (const omu_ValueErrorException& e)
    {
        EXPECT_STREQ(e.PythonType(), "ValueError");
        EXPECT_EQ(e.Source(), cow_String("ProtectedInterfaces/omu_PrimEnum"));
    }
}

TEST(ExceptionBorder, WhatThisProgramThrowsIsOneOfTheLibrarysClasses)
{
    try
    {
        nex_Raise(omu_KeyErrorException("k"), "tests/geom", 1);
    }
    catch (const g3d_ColorErrorException&)
    {
        ADD_FAILURE() << "classes with another tag stay apart";
    }
    catch (const KTLBasException& e)
    {
        const std::unique_ptr<const KTLBasException> copy(e.Copy());
        EXPECT_NE(dynamic_cast<const omu_KeyErrorException*>(copy.get()), nullptr);
    }
}
}
