// What all values have in common: kind code, type name, text, identity, equality across kinds, visiting, type
// id.

#include <KTLOxuOmu.h>
#include <functional>
#include <limits>
#include <memory>
#include <omu_DictIntPyObjectWrapper.h>
#include <omu_DictPyObjectWrapper.h>
#include <omu_DictStrPyObjectWrapper.h>
#include <omu_ListPyObjectWrapper.h>
#include <omu_NameErrorException.h>
#include <omu_PrimArray.h>
#include <omu_PrimBool.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimComplex.h>
#include <omu_PrimDictionary.h>
#include <omu_PrimException.h>
#include <omu_PrimExpr.h>
#include <omu_PrimNone.h>
#include <omu_PrimNumber.h>
#include <omu_PrimPath.h>
#include <omu_PrimString.h>
#include <omu_PrimTranslatedString.h>
#include <omu_PrimType.h>
#include <omu_PrimVisitor.h>
#include <omu_PrimWrapper.h>
#include <omu_PyObjectWrapper.h>
#include <omu_ValueErrorException.h>
#include <ostream>
#include <string>
#include <testing/StartGuard.h>
#include <vector>

#include <gtest/gtest.h>

namespace
{
using DataTypeConst = omu_PrimEnum<omu_PrimNumber::DataTypeEnm, 1>;

using Make = std::function<std::unique_ptr<omu_Primitive>()>;

template <class T, class... Arguments>
Make Maker(Arguments... arguments)
{
    return [=] { return std::make_unique<T>(arguments...); };
}

std::unique_ptr<omu_Primitive> MakeDictionary()
{
    auto dictionary = std::make_unique<omu_PrimDictionary<cow_String>>();
    dictionary->Put("a", omu_PrimNumber(1));
    return dictionary;
}

std::unique_ptr<omu_Primitive> MakeIntDictionary()
{
    auto dictionary = std::make_unique<omu_PrimDictionary<int>>();
    dictionary->Put(1, omu_PrimString("x"));
    return dictionary;
}

struct Kind
{
    const char* name;
    Make make;
    char code;
    const char* typeString;
    const char* text;
    unsigned typeId;
    const char* visit;
};

void PrintTo(const Kind& kind, std::ostream* out)
{
    *out << kind.name;
}

// Unequal among themselves, one for each class and a few beside.
const std::vector<Kind>& Kinds()
{
    static const std::vector<Kind> kinds = {
        {"Int", Maker<omu_PrimNumber>(7), 'i', "int", "7", 0x00130016, "Number"},
        {"Double", Maker<omu_PrimNumber>(2.5), 'f', "float", "2.5", 0x00130016, "Number"},
        {"String", Maker<omu_PrimString>("a'b"), 's', "string", "\"a'b\"", 0x00130018, "String"},
        {"TranslatedString", Maker<omu_PrimTranslatedString>(atr_String("a'b")), 'l', "tran_string",
         "\"a'b\"", 0x00130030, "TranslatedString"},
        {"True", Maker<omu_PrimBoolean>(true), 'b', "Boolean", "True", 0x00130031, "Boolean"},
        {"False", Maker<omu_PrimBoolean>(false), 'b', "Boolean", "False", 0x00130031, "Boolean"},
        {"None", Maker<omu_PrimNone>(), 'n', "None", "None", 0x0013001D, "None"},
        {"UnsetNone", Maker<omu_PrimNone>(false), 'n', "None", "None", 0x0013001D, "None"},
        {"Complex", Maker<omu_PrimComplex>(omi_complex(1.0, 2.0)), 'x', "complex", "(1+2j)", 0x00130022,
         "Complex"},
        {"Expression", Maker<omu_PrimExpr>(cow_String("a'b")), 'e', "expression", "a'b", 0x0013001A, "Expr"},
        {"Type", Maker<omu_PrimType>(cow_String("Part")), 't', "type", "Part", 0x0013001F, "Type"},
        {"Path", Maker<omu_PrimPath>(cow_String("a'b")), 'p', "path", "\"a'b\"", 0x00130017, "Path"},
        {"Exception", Maker<omu_PrimException>(omu_ValueErrorException(atr_String("no"))), 'E', "exception",
         "omu_PrimException object", 0x0013002F, "Exception"},
        {"Constant", Maker<omu_PrimEnumBase>(cow_String("SOLID")), 'c', "", "SOLID", 0x0013001B, "Enum"},
        {"Enumeration", Maker<DataTypeConst>(omu_PrimNumber::DataTypeEnm::INT), 'c',
         "SCHAR or SHORT or INT or FLOAT or DOUBLE or UINT", "INT", 0x0013001B, "Enum"},
        {"OnOff", Maker<omu_OnOffConst>(true), 'c', "ON or OFF", "ON", 0x00130025, "Enum"},
        {"TrueFalse", Maker<omu_TrueFalseConst>(true), 'c', "TRUE or FALSE", "TRUE", 0x00130026, "Enum"},
        {"YesNo", Maker<omu_YesNoConst>(false), 'c', "YES or NO", "NO", 0x00130027, "Enum"},
        {"StrDictionary", MakeDictionary, '{', "dictionary", "{'a': 1}", 0x00130014, "Dictionary"},
        {"IntDictionary", MakeIntDictionary, '{', "dictionary", "{1: 'x'}", 0x00130013, "Dictionary"},
        {"Tuple", Maker<omu_PrimTuple>(cow_List<int>{1}), '(', "tuple", "(1,)", 0x00130019, "Tuple"},
        {"List", Maker<omu_PrimList>(cow_List<int>{1}), '(', "list", "[1]", 0x00130015, "List"},
        {"EmptyTuple", Maker<omu_PrimTuple>(), '(', "tuple", "()", 0x00130019, "Tuple"},
        {"Array", Maker<omu_PrimArray>(cow_List<int>{1}), 'o', "array", "(1,)", 0x00130021, "Array"},
        {"ScriptObject", Maker<omu_PyObjectWrapper>(), 'W', "scripting object", "<scripting object>",
         0x00130029, "ScriptObject"},
        {"ScriptDictionary", Maker<omu_DictPyObjectWrapper>(), '{', "scripting object", "<scripting object>",
         0x0013002A, "ScriptObject"},
        {"ScriptIntDictionary", Maker<omu_DictIntPyObjectWrapper>(), '{', "scripting object",
         "<scripting object>", 0x0013002B, "ScriptObject"},
        {"ScriptStrDictionary", Maker<omu_DictStrPyObjectWrapper>(), '{', "scripting object",
         "<scripting object>", 0x0013002C, "ScriptObject"},
        {"ScriptList", Maker<omu_ListPyObjectWrapper>(), 'L', "scripting object", "<scripting object>",
         0x0013002E, "ScriptObject"},
        {"Wrapper", Maker<omu_PrimWrapper>(), '<', "wrapper", "<wrapper object>", 0x0013001E, "Wrapper"},
    };
    return kinds;
}

// Answers with the operation that was called.
class NamingVisitor : public omu_PrimVisitor
{
public:
    void VisitNumber(omu_PrimNumber&) override { called = "Number"; }
    void VisitString(omu_PrimString&) override { called = "String"; }
    void VisitTranslatedString(omu_PrimTranslatedString&) override { called = "TranslatedString"; }
    void VisitBoolean(omu_PrimBoolean&) override { called = "Boolean"; }
    void VisitNone(omu_PrimNone&) override { called = "None"; }
    void VisitComplex(omu_PrimComplex&) override { called = "Complex"; }
    void VisitExpr(omu_PrimExpr&) override { called = "Expr"; }
    void VisitType(omu_PrimType&) override { called = "Type"; }
    void VisitPath(omu_PrimPath&) override { called = "Path"; }
    void VisitWrapper(omu_PrimWrapper&) override { called = "Wrapper"; }
    void VisitException(omu_PrimException&) override { called = "Exception"; }
    void VisitEnum(omu_PrimEnumBase&) override { called = "Enum"; }
    void VisitDictionary(omu_PrimDictionaryBase&) override { called = "Dictionary"; }
    void VisitTuple(omu_PrimTuple&) override { called = "Tuple"; }
    void VisitList(omu_PrimList&) override { called = "List"; }
    void VisitArray(omu_PrimArray&) override { called = "Array"; }
    void VisitScriptObject(omu_Primitive&, const omu_PyObjectHandle&) override { called = "ScriptObject"; }

    std::string called;
};

class FallbackVisitor : public omu_PrimVisitor
{
public:
    void VisitPrimitive(omu_Primitive& value) override { seen = &value; }

    omu_Primitive* seen = nullptr;
};

class EveryKind : public testing::TestWithParam<Kind>
{
protected:
    const std::unique_ptr<omu_Primitive> value_ = GetParam().make();
};

TEST_P(EveryKind, HasItsCodeNameTextAndTypeId)
{
    const Kind& kind = GetParam();
    EXPECT_TRUE(value_->IsType(kind.code));
    for (const char other :
         {'i', 'f', 's', 'l', 'b', 'n', 'x', 'e', 't', 'p', 'E', 'c', '(', 'o', '{', 'W', 'L', '<'})
        EXPECT_EQ(value_->IsType(other), other == kind.code) << other;
    EXPECT_STREQ(value_->TypeString().AsCharPtr(), kind.typeString);
    EXPECT_STREQ(value_->AsString(0).AsCharPtr(), kind.text);
    EXPECT_EQ(value_->AsString(3), value_->AsString(0));
    EXPECT_EQ(value_->AsRepr(), value_->AsString(0));
    EXPECT_EQ(value_->DynTypeId(), kind.typeId);
}

TEST_P(EveryKind, CopyIsEqualWithAnIdentityOfItsOwn)
{
    const std::unique_ptr<omu_Primitive> copy(value_->Copy());
    EXPECT_TRUE(*copy == *value_);
    EXPECT_FALSE(*copy != *value_);
    EXPECT_TRUE(copy->IsType(GetParam().code));
    EXPECT_EQ(copy->DynTypeId(), GetParam().typeId);
    EXPECT_EQ(copy->TypeString(), value_->TypeString());
    EXPECT_NE(copy->Uid(), value_->Uid());
    EXPECT_FALSE(copy->Uid().IsNull());
}

TEST_P(EveryKind, EqualsItselfAlone)
{
    for (const Kind& other : Kinds())
    {
        const bool same = GetParam().name == std::string(other.name);
        EXPECT_EQ(*value_ == *other.make(), same) << other.name;
        EXPECT_EQ(*value_ != *other.make(), !same) << other.name;
    }
}

TEST_P(EveryKind, IsVisitedByItsOwnOperation)
{
    NamingVisitor visitor;
    value_->Accept(&visitor);
    EXPECT_EQ(visitor.called, GetParam().visit);

    FallbackVisitor fallback;
    value_->Accept(&fallback);
    EXPECT_EQ(fallback.seen, value_.get());

    omu_PrimVisitor nothing;
    value_->Accept(&nothing);
}

TEST_P(EveryKind, DescendsFromThePrimitive)
{
    const StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> guard;
    EXPECT_TRUE(value_->IsA(omu_Primitive::TypeId()));
    EXPECT_TRUE(value_->IsA(GetParam().typeId));
    EXPECT_EQ(value_->IsA(omu_PrimString::TypeId()), GetParam().code == 's');
    EXPECT_EQ(value_->IsA(omu_PrimEnumBase::TypeId()), GetParam().code == 'c');
    EXPECT_EQ(value_->IsA(omu_PrimDictionaryBase::TypeId()), GetParam().code == '{');
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryKind, testing::ValuesIn(Kinds()),
                         [](const auto& kind) { return kind.param.name; });

TEST(Primitive, TypeIds)
{
    EXPECT_EQ(omu_Primitive::TypeId(), 0x00130011u);
    EXPECT_EQ(omu_PrimNumber::TypeId(), 0x00130016u);
    EXPECT_EQ(omu_PrimDictionaryBase::TypeId(), 0x00130012u);
}

TEST(Primitive, AssignmentKeepsTheIdentity)
{
    omu_PrimNumber number(1);
    const cls_Uid before = number.Uid();
    const omu_PrimNumber other(2.5);
    number = other;
    EXPECT_TRUE(number == other);
    EXPECT_TRUE(number.IsType('f'));
    EXPECT_EQ(number.Uid(), before);

    const omu_PrimNumber moved(std::move(number));
    EXPECT_NE(moved.Uid(), before);
}

TEST(Primitive, ConcreteClassesCompareInEitherOrder)
{
    const omu_PrimNumber number(1);
    const omu_PrimString text("1");
    EXPECT_FALSE(number == text);
    EXPECT_FALSE(text == number);
    EXPECT_TRUE(number != text);
    EXPECT_TRUE(number == omu_PrimNumber(1.0));
}

struct NumberPair
{
    const char* name;
    omu_PrimNumber a, b;
    bool equal;
};

void PrintTo(const NumberPair& row, std::ostream* out)
{
    *out << row.name;
}

class NumberEquality : public testing::TestWithParam<NumberPair>
{};

TEST_P(NumberEquality, MatchesTable)
{
    EXPECT_EQ(GetParam().a == GetParam().b, GetParam().equal);
    EXPECT_EQ(GetParam().b == GetParam().a, GetParam().equal);
    EXPECT_EQ(GetParam().a != GetParam().b, !GetParam().equal);
}

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
INSTANTIATE_TEST_SUITE_P(
    Rows, NumberEquality,
    testing::Values(
        NumberPair{"IntAndDouble", omu_PrimNumber(2), omu_PrimNumber(2.0), true},
        NumberPair{"ShortAndFloat", omu_PrimNumber(static_cast<short>(2)), omu_PrimNumber(2.0f), true},
        NumberPair{"IntHoldsTheWholeDouble", omu_PrimNumber(2.5, omu_PrimNumber::DataTypeEnm::INT),
                   omu_PrimNumber(2), false},
        // The unsigned value stands in the other field, on purpose.
        NumberPair{"UnsignedAndInt", omu_PrimNumber(5u), omu_PrimNumber(5), false},
        NumberPair{"UnsignedAndUnsigned", omu_PrimNumber(5u), omu_PrimNumber(5u), true},
        NumberPair{"TwoUnsigned", omu_PrimNumber(5u), omu_PrimNumber(6u), false},
        NumberPair{"UnsignedAndZero", omu_PrimNumber(5u), omu_PrimNumber(0), false},
        NumberPair{"ZeroOfEither", omu_PrimNumber(0u), omu_PrimNumber(0), true},
        NumberPair{"SignedZeros", omu_PrimNumber(0.0), omu_PrimNumber(-0.0), true},
        NumberPair{"NaN", omu_PrimNumber(NOT_A_NUMBER), omu_PrimNumber(NOT_A_NUMBER), false}),
    [](const auto& row) { return row.param.name; });

TEST(PrimNumber, UnsignedStandsInItsOwnField)
{
    const omu_PrimNumber number(5u);
    EXPECT_EQ(number.Value(), 0.0);
    EXPECT_EQ(number.UnsignedValue(), 5u);
    EXPECT_EQ(number.AsDouble(), 5.0);
    EXPECT_EQ(number.DataType(), omu_PrimNumber::DataTypeEnm::UINT);
    EXPECT_TRUE(number.IsType('i'));

    const omu_PrimNumber fromDouble(5.9, omu_PrimNumber::DataTypeEnm::UINT);
    EXPECT_TRUE(fromDouble == number);
    EXPECT_EQ(omu_PrimNumber(2.5).AsDouble(), 2.5);
    EXPECT_EQ(omu_PrimNumber(2.5).UnsignedValue(), 0u);
}

TEST(PrimNumber, DataTypeOfEachConstructor)
{
    using enum omu_PrimNumber::DataTypeEnm;
    EXPECT_EQ(omu_PrimNumber(static_cast<signed char>(1)).DataType(), SCHAR);
    EXPECT_EQ(omu_PrimNumber(static_cast<short>(1)).DataType(), SHORT);
    EXPECT_EQ(omu_PrimNumber(1).DataType(), INT);
    EXPECT_EQ(omu_PrimNumber(1.0f).DataType(), FLOAT);
    EXPECT_EQ(omu_PrimNumber(1.0).DataType(), DOUBLE);
    for (const auto dataType : {SCHAR, SHORT, INT, UINT})
        EXPECT_TRUE(omu_PrimNumber(1.0, dataType).IsType('i')) << int(dataType);
    for (const auto dataType : {FLOAT, DOUBLE})
        EXPECT_TRUE(omu_PrimNumber(1.0, dataType).IsType('f')) << int(dataType);
}

struct ComplexRow
{
    const char* name;
    double real, imaginary;
    const char* text;
};

void PrintTo(const ComplexRow& row, std::ostream* out)
{
    *out << row.name;
}

class ComplexText : public testing::TestWithParam<ComplexRow>
{};

TEST_P(ComplexText, MatchesTable)
{
    const omu_PrimComplex value(omi_complex(GetParam().real, GetParam().imaginary));
    EXPECT_STREQ(value.AsString(0).AsCharPtr(), GetParam().text);
}

constexpr double INF = std::numeric_limits<double>::infinity();
INSTANTIATE_TEST_SUITE_P(Rows, ComplexText,
                         testing::Values(ComplexRow{"Integers", 1.0, 2.0, "(1+2j)"},
                                         ComplexRow{"Fractions", 1.5, -0.25, "(1.5-0.25j)"},
                                         ComplexRow{"NegativeZeroReal", -0.0, -1.0, "(-0-1j)"},
                                         ComplexRow{"Imaginary", 0.0, 2.0, "2j"},
                                         ComplexRow{"NegativeImaginary", 0.0, -2.0, "-2j"},
                                         ComplexRow{"Zero", 0.0, 0.0, "0j"},
                                         ComplexRow{"NegativeZeroImaginary", 0.0, -0.0, "-0j"},
                                         ComplexRow{"NegativeZeroBehindReal", 1.0, -0.0, "(1-0j)"},
                                         ComplexRow{"NotFinite", INF, NOT_A_NUMBER, "(inf+nanj)"},
                                         ComplexRow{"NegativeInfinity", -INF, -INF, "(-inf-infj)"},
                                         ComplexRow{"Exponents", 1e20, 1e-7, "(1e+20+1e-07j)"},
                                         ComplexRow{"Longest", -1.23456789012345e-300, -1.23456789012345e-300,
                                                    "(-1.23456789012345e-300-1.23456789012345e-300j)"}),
                         [](const auto& row) { return row.param.name; });

TEST(PrimComplex, EqualInBothParts)
{
    EXPECT_TRUE(omu_PrimComplex(omi_complex(1.0, 2.0)) == omu_PrimComplex(omi_complex(1.0, 2.0)));
    EXPECT_FALSE(omu_PrimComplex(omi_complex(1.0, 2.0)) == omu_PrimComplex(omi_complex(1.0, 3.0)));
    EXPECT_FALSE(omu_PrimComplex(omi_complex(1.0, 2.0)) == omu_PrimComplex(omi_complex(0.0, 2.0)));
}

TEST(PrimType, KnowsTheDisplayableTypes)
{
    const char* names[] = {"Part", "Sketch", "XYPlot", "Stub", "DetailPlot", "Assembly", "None"};
    for (int value = 0; value <= 6; ++value)
    {
        const auto type = static_cast<omu_ObjectToDisplayTypeEnm>(value);
        EXPECT_EQ(omu_PrimType::ConverTypeToString(type), names[value]);
        EXPECT_EQ(omu_PrimType::ConverStringToType(names[value]), type);
        EXPECT_EQ(omu_PrimType(type).Value(), names[value]);
    }
    EXPECT_EQ(omu_PrimType::ConverStringToType("part"), omu_ObjectToDisplayTypeEnm::NONE);
    EXPECT_EQ(omu_PrimType::ConverStringToType(cow_String("Part\0x", 6)), omu_ObjectToDisplayTypeEnm::NONE);
    EXPECT_EQ(omu_PrimType::ConverTypeToString(static_cast<omu_ObjectToDisplayTypeEnm>(7)), "None");
    EXPECT_EQ(omu_PrimType::ConverTypeToString(static_cast<omu_ObjectToDisplayTypeEnm>(-1)), "None");
}

TEST(PrimType, HoldsAnyTypeString)
{
    const omu_PrimType odb("Odb");
    EXPECT_EQ(odb.AsString(0), "Odb");
    EXPECT_TRUE(odb.SameType(omu_PrimType("Odb")));
    EXPECT_FALSE(odb.SameType(omu_PrimType("None")));
    EXPECT_EQ(omu_PrimType().Value(), "None");
}

TEST(PrimPath, OfAFileOrOfAnObject)
{
    const omu_PrimPath file("/tmp/a.b");
    EXPECT_EQ(file.ContextType(), omu_PrimPath::FILE_PATH);
    EXPECT_EQ(file.AsString(0), "'/tmp/a.b'");

    const cow_List<cow_String> steps = {"mdb", "models", "beam"};
    const omu_PrimPath object(steps);
    EXPECT_EQ(object.PathText(), "mdb.models.beam");
    EXPECT_EQ(object.AsString(0), "'mdb.models.beam'");
    EXPECT_EQ(omu_PrimPath(steps, omu_PrimPath::FILE_PATH).PathText(), "mdb");
    EXPECT_EQ(omu_PrimPath(cow_List<cow_String>()).PathText(), "");
    EXPECT_FALSE(object == omu_PrimPath(steps, omu_PrimPath::FILE_PATH));
    EXPECT_FALSE(object == omu_PrimPath(cow_String("mdb.models.beam")));
    EXPECT_TRUE(object == omu_PrimPath(steps));
}

TEST(PrimException, KeepsACopyAndItsTraceback)
{
    std::unique_ptr<omu_PrimException> value;
    {
        omu_ValueErrorException error(atr_String("bad value"));
        error.SetTraceback("line 1");
        value = std::make_unique<omu_PrimException>(error);
    }
    ASSERT_NE(value->Exception(), nullptr);
    EXPECT_EQ(value->Exception()->UserReport(), "bad value");
    EXPECT_EQ(value->Traceback(), "line 1");
    EXPECT_THROW(value->Exception()->Propagate(), omu_ValueErrorException);

    const omu_ValueErrorException again(atr_String("bad value"));
    EXPECT_TRUE(*value == omu_PrimException(again, "line 1"));
    EXPECT_FALSE(*value == omu_PrimException(again, "line 2"));
    EXPECT_FALSE(*value == omu_PrimException(omu_ValueErrorException(atr_String("worse")), "line 1"));
    EXPECT_FALSE(*value == omu_PrimException(omu_NameErrorException(atr_String("bad value")), "line 1"));
    EXPECT_FALSE(*value == omu_PrimException());
    EXPECT_TRUE(omu_PrimException() == omu_PrimException());
}
}
