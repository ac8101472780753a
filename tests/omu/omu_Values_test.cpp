// Values one by one where they are odd: their texts, their equality, their items, and what they refuse.

#include <cmath>
#include <omu_NameErrorException.h>
#include <omu_PrimArray.h>
#include <omu_PrimBool.h>
#include <omu_PrimComplex.h>
#include <omu_PrimException.h>
#include <omu_PrimExpr.h>
#include <omu_PrimPath.h>
#include <omu_PrimTranslatedString.h>
#include <omu_PrimType.h>
#include <omu_PrimWrapper.h>
#include <omu_ValueErrorException.h>
#include <testing/ValueTesting.h>

namespace
{
using enum omu_PrimNumber::DataTypeEnm;
using Ints = cow_List<int>;
using Doubles = cow_List<double>;
using Texts = cow_List<cow_String>;
constexpr int LEAST = std::numeric_limits<int>::min();
constexpr int MOST = std::numeric_limits<int>::max();
constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
const omu_PrimType PART("Part");

omu_PrimWrapper Named(const omu_PrimTuple& name, const omu_Primitive* object = &PART)
{
    return omu_PrimWrapper(0, object, DictionaryOf(Texts{"name"}, name));
}

omu_PrimComplex Complex(double real, double imaginary)
{
    return omu_PrimComplex(omi_complex(real, imaginary));
}

TEST(Values, Texts)
{
    const std::pair<Cell, const char*> rows[] = {
        // Integers go through a 32-bit conversion, on purpose.
        {omu_PrimNumber(4294967295.0, INT), "-1"},
        {omu_PrimNumber(NOT_A_NUMBER, INT), "0"},
        {omu_PrimNumber(-0.0), "-0.0"},
        {omu_PrimNumber(0.1f), "0.100000001490116"},
        {omu_PrimNumber(999999999999999.9), "1e+15"},
        {omu_PrimNumber(-INF), "-inf.0"},
        {omu_PrimNumber(std::copysign(NOT_A_NUMBER, -1.0)), "-nan.0"},
        {Complex(-0.0, -1.0), "(-0-1j)"}, // a real part of exactly zero is left out, but not this one
        {Complex(0.0, -0.0), "-0j"},
        {omu_PrimTranslatedString("it's \"b\""), "'it\\'s \"b\"'"},
        // Backslashes are doubled before quotes and newlines are escaped, so those stay single.
        {omu_PrimString("\\'\""), "'\\\\\\'\"'"},
        {omu_PrimPath("it's\\\n"), "\"it's\\\\\\n\""},
        {omu_PrimString("a\tb\r\xc3\xa9"), "'a\tb\r\xc3\xa9'"}, // all else stays raw
        {TupleOf(Ints{1}, cow_2DArray<double>(1, 1, 2.0), cow_Map<cow_String, float>{{"k", 1.0F}},
                 omu_PrimPath("/f"), omi_complex(0.0, 2.0), atr_String("m"), "s", true),
         "((1,), ((2.0,),), (('k', 1.0),), '/f', 2j, 'm', 's', True)"},
        {omu_PrimTuple(omu_PrimArray(Ints{2, 1}, Ints{1, 2})), "((1,), (2,))"},
        {omu_PrimArray(cow_2DArray<double>(2, 1, 3.0)), "((3.0,), (3.0,))"},
        {omu_PrimArray(cow_2DArray<double>(2, 0)), "()"},
        {Args(1), "(1)"}, // no comma, unlike a tuple
        {Args(1, Keyword("n", "x"), Keyword("flag", true)), "(1, n='x', flag=True)"},
        {DictionaryOf(Texts{"b'\""}, TupleOf(DictionaryOf(Ints{-1}, TupleOf("it's")))),
         "{'b\\'\"': {-1: \"it's\"}}"},
        {omu_PrimWrapper(3, &PART), "<type object>"},
        {Named(TupleOf("P1")), "<type object named P1>"},
        {Named(TupleOf(atr_String("P1")), nullptr), "<wrapper object named P1>"},
        {Named(TupleOf(1)), "<type object>"}, // not a text
    };
    for (const auto& [cell, text] : rows)
        EXPECT_EQ(Text(*cell), text);
}

TEST(Values, Equality)
{
    const cow_String withZero("ab\0cd", 5);
    const Texts steps = {"mdb", "models"};
    const omu_PrimType other("Part");
    const omu_ValueErrorException bad(atr_String("bad"));
    const struct
    {
        Cell a, b;
        bool equal;
    } rows[] = {
        {omu_PrimNumber(2), omu_PrimNumber(2.0), true},
        {omu_PrimNumber(2.5, INT), omu_PrimNumber(2), false}, // an int holds the whole double
        // The unsigned value stands in the other field, on purpose.
        {omu_PrimNumber(5u), omu_PrimNumber(5), false},
        {omu_PrimNumber(5u), omu_PrimNumber(6u), false},
        {omu_PrimNumber(NOT_A_NUMBER), omu_PrimNumber(NOT_A_NUMBER), false},
        // Up to the first zero byte, on purpose; all but plain texts are compared whole.
        {omu_PrimString(withZero), omu_PrimString("ab"), true},
        {omu_PrimExpr(withZero), omu_PrimExpr("ab"), false},
        {omu_PrimEnumBase(withZero), omu_PrimEnumBase("ab"), false},
        {Complex(1.0, 2.0), Complex(1.0, 3.0), false},
        {omu_PrimPath(steps), omu_PrimPath(steps, omu_PrimPath::FILE_PATH), false},
        {omu_PrimException(bad, "line 1"), omu_PrimException(bad, "line 2"), false},
        {omu_PrimException(bad), omu_PrimException(omu_NameErrorException(atr_String("bad"))), false},
        {TupleOf(1, "a"), TupleOf(1.0, "a"), true},
        {TupleOf(1), TupleOf(1, 1), false},
        {omu_PrimTuple(), omu_PrimList(), false},
        {omu_PrimTuple(), omu_Arguments(), false},
        {omu_PrimArray(Ints{1, 2}), omu_PrimArray(Doubles{1.0, 2.0}), true},
        {omu_PrimArray(Ints{1, 2}, Ints{1, 2}), omu_PrimArray(Ints{2, 1}, Ints{1, 2}), false},
        // Whatever the order of the keys.
        {DictionaryOf(Texts{"x", "y"}, TupleOf(1, 2)), DictionaryOf(Texts{"y", "x"}, TupleOf(2.0, 1)), true},
        {DictionaryOf(Texts{"x", "y"}, TupleOf(1, 2)), DictionaryOf(Texts{"x", "z"}, TupleOf(1, 2)), false},
        {omu_PrimDictionary<int>(), omu_PrimDictionary<cow_String>(), false},
        // A wrapper that was stored and read back knows no object, and is equal all the same.
        {Named(TupleOf(1)), Named(TupleOf(1), nullptr), true},
        {Named(TupleOf(1)), Named(TupleOf(1), &other), false}, // another object
        {Named(TupleOf(1)), Named(TupleOf(2)), false},
        {omu_PrimWrapper(0, &PART), omu_PrimWrapper(1, &PART), false}};
    for (const auto& [a, b, equal] : rows)
    {
        EXPECT_EQ(*a == *b, equal) << Text(*a) << ' ' << Text(*b);
        EXPECT_EQ(*b != *a, !equal) << Text(*a) << ' ' << Text(*b);
    }
}

TEST(PrimString, IsASequenceOfCharacters)
{
    omu_PrimString text("ab");
    const omu_PrimString before(text);
    text.Concat(omu_PrimString("cd"));
    text.Concat(text);
    EXPECT_EQ(before.Value(), "ab");
    EXPECT_ERROR(text[8], "nex_RangeException: index 8 out of range, length 8");
    EXPECT_EQ(text.Slice(LEAST, 2).Value() + text.Slice(6, MOST).Value(), "abcd");
    EXPECT_EQ(text.Slice(3, 1).Value(), "");
    EXPECT_EQ(before.Repeat(LEAST).Value(), "");
    // The longest allowed is 2147483647 bytes; this would be one more.
    EXPECT_ERROR(before.Repeat(1073741824), "OverflowError: repeated string is too long");
}

TEST(PrimArray, Operations)
{
    omu_PrimArray six(Ints{0, 1, 2, 3, 4, 5});
    const omu_PrimArray half(Doubles{0.5});
    EXPECT_EQ(Text(omu_PrimArray(Ints{1}).Concat(&half)), "(1.0, 0.5)");
    EXPECT_ERROR(six.Reshape(Ints::Filled(17, 1)), "ValueError: array must have 1 to 16 dimensions, got 17");
    EXPECT_ERROR(six.Reshape({-2, -3}), "ValueError: array dimension must be positive, got -2");
    EXPECT_ERROR(six.Reshape({0}), "ValueError: array shape holds 0 elements, got 6");
    // 2 to the 32 times 6: the product wraps round to 0 and to 6 in narrower arithmetic.
    EXPECT_ERROR(six.Reshape({65536, 65536, 6}), "OverflowError: array is too large");
    six.Reshape({1, 3, 2});
    EXPECT_EQ(Text(six), "(((0, 1), (2, 3), (4, 5)),)");
    EXPECT_EQ(Text(six), Text(six.AsTuple()));
    EXPECT_EQ(Text(six.At({0, 1, 1})), "3");
    EXPECT_ERROR(six.At({0, 3, 0}), "nex_RangeException: index 3 out of range, length 3");
    EXPECT_ERROR(six.At({1, 1}), "ValueError: array has 3 dimensions, got 2 indices");
    EXPECT_EQ(Text(six.Repeat(2)), "(((0, 1), (2, 3), (4, 5)), ((0, 1), (2, 3), (4, 5)))");
    EXPECT_ERROR(six.Repeat(MOST), "OverflowError: array is too large");
    const std::unique_ptr<omu_Primitive> inner(six.Index(0));
    const auto& rows = dynamic_cast<const omu_PrimArray&>(*inner);
    EXPECT_ERROR(rows.Index(3), "nex_RangeException: index 3 out of range, length 3");
    EXPECT_EQ(Text(rows.Slice(-5, 2)), "((0, 1), (2, 3))");
    EXPECT_EQ(Text(rows.Slice(2, 9)), "((4, 5),)");
    EXPECT_EQ(Text(rows.Slice(2, 1)), "()");
    EXPECT_EQ(Text(omu_PrimArray().Concat(&rows)), Text(rows));
    EXPECT_ERROR(rows.Concat(&half), "TypeError: illegal argument type for built-in operation");
}

TEST(PrimDictionary, KeepsTheOrderOfInsertionAndWholeKeys)
{
    auto* const given = new omu_PrimNumber(3);
    const cow_String longer("b\0b", 3);
    omu_PrimDictionary<cow_String> dictionary;
    dictionary.Put("b", given);
    dictionary.Put(longer, omu_PrimNumber(1));
    dictionary.Put("a", std::unique_ptr<omu_Primitive>());
    omu_PrimDictionary<cow_String> copy(dictionary);
    EXPECT_EQ(copy.Get("b"), given) << "shared";
    copy.Put("b", omu_PrimString("x"));
    EXPECT_EQ(copy.Keys(), (Texts{"b", longer, "a"})) << "what is replaced keeps its place";
    EXPECT_TRUE(copy.Remove("b") && !copy.Remove("c"));
}
}
