// Numbers, complex numbers, types, paths and wrapped exceptions: what each has for itself.

#include <omu_NameErrorException.h>
#include <omu_PrimComplex.h>
#include <omu_PrimException.h>
#include <omu_PrimPath.h>
#include <omu_PrimType.h>
#include <omu_ValueErrorException.h>
#include <testing/ValueTesting.h>

namespace
{
constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

TEST(PrimNumber, EqualityLooksAtBothFieldsAndNotAtTheDataType)
{
    using enum omu_PrimNumber::DataTypeEnm;
    const struct
    {
        omu_PrimNumber a, b;
        bool equal;
    } rows[] = {{omu_PrimNumber(2), omu_PrimNumber(2.0), true},
                {omu_PrimNumber(static_cast<short>(2)), omu_PrimNumber(2.0f), true},
                {omu_PrimNumber(2.5, INT), omu_PrimNumber(2), false}, // an int holds the whole double
                // The unsigned value stands in the other field, on purpose.
                {omu_PrimNumber(5u), omu_PrimNumber(5), false},
                {omu_PrimNumber(5u), omu_PrimNumber(5.9, UINT), true},
                {omu_PrimNumber(5u), omu_PrimNumber(6u), false},
                {omu_PrimNumber(5u), omu_PrimNumber(0), false},
                {omu_PrimNumber(0u), omu_PrimNumber(0), true},
                {omu_PrimNumber(0.0), omu_PrimNumber(-0.0), true},
                {omu_PrimNumber(NOT_A_NUMBER), omu_PrimNumber(NOT_A_NUMBER), false}};
    for (const auto& [a, b, equal] : rows)
    {
        EXPECT_EQ(a == b, equal) << Text(a) << ' ' << Text(b);
        EXPECT_EQ(b != a, !equal);
    }
    EXPECT_EQ(omu_PrimNumber(5u).Value(), 0.0);
    EXPECT_EQ(omu_PrimNumber(5u).AsDouble(), 5.0);
    EXPECT_EQ(omu_PrimNumber(2.5).UnsignedValue(), 0u);
    for (const auto dataType : {SCHAR, SHORT, INT, FLOAT, DOUBLE, UINT})
        EXPECT_TRUE(
            omu_PrimNumber(1.0, dataType).IsType(dataType == FLOAT || dataType == DOUBLE ? 'f' : 'i'));
}

TEST(PrimNumber, AssignmentKeepsTheIdentity)
{
    omu_PrimNumber number(1);
    const cls_Uid before = number.Uid();
    const omu_PrimNumber other(2.5);
    number = other;
    EXPECT_TRUE(number == other && number.IsType('f'));
    EXPECT_EQ(number.Uid(), before);
    EXPECT_NE(omu_PrimNumber(std::move(number)).Uid(), before);
}

TEST(PrimComplex, TextAndEquality)
{
    const struct
    {
        double real, imaginary;
        const char* text;
    } rows[] = {
        {1.0, 2.0, "(1+2j)"},        {1.5, -0.25, "(1.5-0.25j)"},
        {-0.0, -1.0, "(-0-1j)"}, // a real part of exactly zero is left out, but not this one
        {0.0, -2.0, "-2j"},          {0.0, -0.0, "-0j"},
        {1.0, -0.0, "(1-0j)"},       {INF, NOT_A_NUMBER, "(inf+nanj)"},
        {-INF, -INF, "(-inf-infj)"}, {-1.23456789012345e-300, 1e20, "(-1.23456789012345e-300+1e+20j)"}};
    for (const auto& [real, imaginary, text] : rows)
        EXPECT_EQ(Text(omu_PrimComplex(omi_complex(real, imaginary))), text);
    const omu_PrimComplex value(omi_complex(1.0, 2.0));
    EXPECT_TRUE(value == omu_PrimComplex(omi_complex(1.0, 2.0)));
    EXPECT_FALSE(value == omu_PrimComplex(omi_complex(1.0, 3.0)));
    EXPECT_FALSE(value == omu_PrimComplex(omi_complex(0.0, 2.0)));
}

TEST(PrimType, KnowsTheDisplayableTypes)
{
    const char* names[] = {"Part", "Sketch", "XYPlot", "Stub", "DetailPlot", "Assembly", "None"};
    for (int value = 0; value <= 6; ++value)
    {
        const auto type = static_cast<omu_ObjectToDisplayTypeEnm>(value);
        EXPECT_EQ(omu_PrimType::ConverTypeToString(type), names[value]);
        EXPECT_EQ(omu_PrimType::ConverStringToType(names[value]), type);
    }
    for (const cow_String& unknown : {cow_String("part"), cow_String("Part\0x", 6)})
        EXPECT_EQ(omu_PrimType::ConverStringToType(unknown), omu_ObjectToDisplayTypeEnm::NONE);
    for (const int unknown : {7, -1})
        EXPECT_EQ(omu_PrimType::ConverTypeToString(static_cast<omu_ObjectToDisplayTypeEnm>(unknown)), "None");
    EXPECT_TRUE(omu_PrimType("Odb").SameType(omu_PrimType("Odb")));
    EXPECT_FALSE(omu_PrimType("Odb").SameType(omu_PrimType()));
}

TEST(PrimPath, OfAFileOrOfAnObject)
{
    const omu_PrimPath file("/tmp/a.b");
    EXPECT_EQ(file.ContextType(), omu_PrimPath::FILE_PATH);
    const cow_List<cow_String> steps = {"mdb", "models", "beam"};
    const omu_PrimPath object(steps);
    EXPECT_EQ(object.PathText(), "mdb.models.beam");
    EXPECT_EQ(omu_PrimPath(steps, omu_PrimPath::FILE_PATH).PathText(), "mdb");
    EXPECT_EQ(omu_PrimPath(cow_List<cow_String>()).PathText(), "");
    EXPECT_FALSE(object == omu_PrimPath(steps, omu_PrimPath::FILE_PATH));
    EXPECT_FALSE(object == omu_PrimPath("mdb.models.beam"));
}

TEST(PrimException, KeepsACopyAndItsTraceback)
{
    omu_ValueErrorException error(atr_String("bad value"));
    error.SetTraceback("line 1");
    const omu_PrimException value(error);
    ASSERT_NE(value.Exception(), nullptr);
    EXPECT_NE(value.Exception(), &error);
    EXPECT_EQ(value.Traceback(), "line 1");
    EXPECT_THROW(value.Exception()->Propagate(), omu_ValueErrorException);
    const omu_ValueErrorException again(atr_String("bad value"));
    EXPECT_TRUE(value == omu_PrimException(again, "line 1"));
    EXPECT_FALSE(value == omu_PrimException(again, "line 2"));
    EXPECT_FALSE(value == omu_PrimException(omu_ValueErrorException(atr_String("worse")), "line 1"));
    EXPECT_FALSE(value == omu_PrimException(omu_NameErrorException(atr_String("bad value")), "line 1"));
}
}
