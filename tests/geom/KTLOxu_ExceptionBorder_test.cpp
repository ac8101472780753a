// This program and the library are two: what one throws the other must catch by its exact type.

#include <g3d_ColorErrorException.h>
#include <gtest/gtest.h>
#include <memory>
#include <nex_RaiseWith.h>
#include <omu_AccessErrorException.h>
#include <omu_ArgNumberErrorException.h>
#include <omu_IndexErrorException.h>
#include <omu_KeyErrorException.h>
#include <omu_KeywordTypeErrorException.h>
#include <omu_PrimEnum.h>
#include <omu_PrimNumber.h>
#include <omu_RangeErrorException.h>
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
    EXPECT_THROW(thrower.Propagate(), KTLBasException);
    EXPECT_THROW(thrower.Propagate(), std::exception);
    try
    {
        thrower.Propagate();
    }
    catch (const std::exception& caught)
    {
        EXPECT_EQ(typeid(caught), typeid(E));
        EXPECT_NE(dynamic_cast<const E*>(&caught), nullptr);
        EXPECT_NE(dynamic_cast<const cls_Persistent*>(&caught), nullptr);
        EXPECT_EQ(exception.UserReport(), cow_String(caught.what()));
    }
}

TEST(ExceptionBorder, WhatTheLibraryThrowsIsCaughtHere)
{
    ThrownInside(omu_KeyErrorException("k"));
    ThrownInside(omu_ValueErrorException("v"));
    ThrownInside(omu_IndexErrorException(1));
    ThrownInside(omu_AccessErrorException("p"));
    ThrownInside(g3d_ColorErrorException("c"));
    ThrownInside(omu_ArgNumberErrorException(1, 2, "s"));
    ThrownInside(omu_KeywordTypeErrorException());
    ThrownInside(omu_RangeErrorException());
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
    catch (const KTLBasException& e)
    {
        const std::unique_ptr<const KTLBasException> copy(e.Copy());
        EXPECT_NE(dynamic_cast<const omu_KeyErrorException*>(copy.get()), nullptr);
        EXPECT_EQ(copy->DynTypeId(), omu_KeyErrorException::TypeId());
    }
}

TEST(ExceptionBorder, TagsStayApart)
{
    const omu_KeyErrorException key("k");
    try
    {
        key.Propagate();
    }
    catch (const g3d_ColorErrorException&)
    {
        ADD_FAILURE() << "a key error was caught as a colour error";
    }
    catch (const omu_KeyErrorException& e)
    {
        EXPECT_EQ(e.Value(), cow_String("k"));
    }
}
}
