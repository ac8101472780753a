// The protocol by which positional and keyword arguments are read together.

#include <functional>
#include <omu_Arguments.h>
#include <omu_KeywordErrorException.h>
#include <omu_OrvexName.h>
#include <omu_PrimString.h>
#include <ostream>
#include <testing/ExpectRaise.h>
#include <testing/Outcome.h>

#include <gtest/gtest.h>

namespace
{
using DataTypeConst = omu_PrimEnum<omu_PrimNumber::DataTypeEnm, 1>;

struct Keyword
{
    template <class T>
    Keyword(const char* keyword, const T& value) : name(keyword)
    {
        item.Put(value);
    }

    const char* name;
    omu_PrimTuple item;
};

template <class T>
void Supply(omu_Arguments& arguments, const T& value)
{
    if constexpr (std::is_same_v<T, Keyword>)
        arguments.Put(value.name, value.item.Index(0));
    else
        arguments.Put(value);
}

template <class... Values>
omu_Arguments Call(const Values&... values)
{
    omu_Arguments arguments;
    (Supply(arguments, values), ...);
    return arguments;
}

using Command = std::function<std::string(omu_Arguments&)>; // Begin to End; answers with what it read

struct Row
{
    const char* name;
    omu_Arguments arguments;
    Command command;
    const char* outcome;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

class ReadingArguments : public testing::TestWithParam<Row>
{};

TEST_P(ReadingArguments, ComesToItsOutcome)
{
    omu_Arguments arguments = GetParam().arguments;
    for (int pass = 0; pass < 2; ++pass)
        EXPECT_EQ(Outcome([&] { return GetParam().command(arguments); }), GetParam().outcome);
}

// x required, y optional.
std::string XAndY(omu_Arguments& arguments)
{
    int x = -1;
    int y = -2;
    arguments.Begin();
    arguments.Get(x, "x");
    arguments.Optional();
    arguments.Get(y, "y");
    arguments.End();
    return std::to_string(x) + " " + std::to_string(y);
}

// a and b required, c optional.
std::string ABC(omu_Arguments& arguments)
{
    int a = -1;
    int b = -2;
    int c = -3;
    arguments.Begin();
    arguments.Get(a, "a");
    arguments.Get(b, "b");
    arguments.Optional();
    arguments.Get(c, "c");
    const bool error = arguments.Error();
    const std::string outcome = Outcome([&] {
        arguments.End();
        return std::to_string(a) + " " + std::to_string(b) + " " + std::to_string(c);
    });
    EXPECT_EQ(error, outcome.find("Error") != std::string::npos) << "Error foretells End";
    return outcome;
}

// A constant, or a point, under one keyword; then one more.
std::string Anchor(omu_Arguments& arguments)
{
    std::string read;
    DataTypeConst constant;
    omu_PrimTuple point;
    int last = 0;
    arguments.Begin();
    if (arguments.Get(constant, "anchor"))
        read = constant.GetString().AsCharPtr();
    else if (arguments.Alternative() && arguments.Get(point, "anchor"))
        read = point.AsString(0).AsCharPtr();
    read += arguments.ErrorOnPrevious() ? "!" : ".";
    arguments.Get(last, "last");
    arguments.End();
    return read + std::to_string(last);
}

// A point is read as a tuple of two; what is wrong with it is told before End.
std::string StartPoint(omu_Arguments& arguments)
{
    omu_PrimTuple point;
    double x = 1.0;
    double y = 2.0;
    arguments.Begin();
    arguments.Optional();
    if (arguments.Get(point, "startPoint"))
    {
        point.Begin();
        point.Get(x);
        point.Get(y);
        point.End();
    }
    arguments.End();
    return std::to_string(int(x)) + " " + std::to_string(int(y));
}

const cow_List<int> THREE = {1, 2, 3};

INSTANTIATE_TEST_SUITE_P(
    Rows, ReadingArguments,
    testing::Values(
        Row{"Positional", Call(1, 2), XAndY, "1 2"},
        Row{"ByKeyword", Call(Keyword("y", 2), Keyword("x", 1)), XAndY, "1 2"},
        Row{"Mixed", Call(1, Keyword("y", 2)), XAndY, "1 2"},
        Row{"OptionalKeepsItsDefault", Call(1), XAndY, "1 -2"},
        Row{"OptionalKeepsItsDefaultByKeyword", Call(Keyword("x", 1)), XAndY, "1 -2"},
        // A missing keyword is a missing argument, on purpose.
        Row{"NothingGiven", Call(), XAndY,
            "TypeError: not all required arguments specified; expected 1, got 0"},
        Row{"UnknownKeyword", Call(Keyword("z", 1)), XAndY, "TypeError: keyword error on z"},
        Row{"FirstUnknownAsWritten", Call(1, Keyword("w", 1), Keyword("v", 1)), XAndY,
            "TypeError: keyword error on w"},
        Row{"KeywordOfAPositional", Call(1, Keyword("x", 1)), XAndY, "TypeError: keyword error on x"},
        Row{"TooMany", Call(1, 2, 3), XAndY, "TypeError: too many arguments; expected 2, got 3"},
        Row{"WrongTypeByPosition", Call(1, "a"), XAndY, "TypeError: arg2; found string, expecting int"},
        Row{"WrongTypeByKeyword", Call(1, Keyword("y", "a")), XAndY,
            "TypeError: y; found string, expecting int"},
        Row{"ConstantByKeyword", Call(Keyword("x", omu_PrimEnumBase("DASHED"))), XAndY,
            "TypeError: x; found DASHED, expecting int"},
        Row{"UnreadKeywordBeforeWrongType", Call("a", Keyword("z", 1)), XAndY,
            "TypeError: keyword error on z"},
        Row{"Three", Call(1, Keyword("c", 3), Keyword("b", 2)), ABC, "1 2 3"},
        Row{"SecondMissing", Call(1, Keyword("c", 3)), ABC,
            "TypeError: not all required arguments specified; expected 2, got 1"},
        // After a missing argument later ones are not looked at, and their keywords still count as read.
        Row{"WrongTypeBehindTheMissing", Call(Keyword("b", "x"), Keyword("c", "y")), ABC,
            "TypeError: not all required arguments specified; expected 2, got 1"},
        Row{"FirstWrongTypeStays", Call(Keyword("a", 1.5), Keyword("b", "x")), ABC,
            "TypeError: a; found float, expecting int"},
        // Once a fault is pending even the keyword of a positional argument is taken for read.
        Row{"DuplicateBehindAFault", Call("x", 2, Keyword("b", 1)), ABC,
            "TypeError: arg1; found string, expecting int"},
        Row{"DuplicateWithoutAFault", Call(1, 2, Keyword("b", 1)), ABC, "TypeError: keyword error on b"},
        Row{"TooManyByBothWays", Call(1, 2, 3, 4), ABC, "TypeError: too many arguments; expected 3, got 4"},
        Row{"OptionalMissingIsNoFault", Call(1, 2), ABC, "1 2 -3"},
        Row{"FirstForm", Call(Keyword("anchor", DataTypeConst()), Keyword("last", 7)), Anchor, "SCHAR.7"},
        Row{"SecondForm", Call(Keyword("anchor", THREE), Keyword("last", 7)), Anchor, "(1, 2, 3).7"},
        Row{"SecondFormByPosition", Call(THREE, 7), Anchor, "(1, 2, 3).7"},
        Row{"NeitherForm", Call(Keyword("last", 7), Keyword("anchor", 5)), Anchor,
            "TypeError: anchor; found int, expecting tuple"},
        Row{"NeitherFormByPosition", Call(5, 7), Anchor, "TypeError: arg1; found int, expecting tuple"},
        Row{"MissingInBothForms", Call(Keyword("last", 7)), Anchor,
            "TypeError: not all required arguments specified; expected 2, got 1"},
        Row{"PointGiven", Call(Keyword("startPoint", cow_List<int>{5, 6})), StartPoint, "5 6"},
        Row{"PointOmitted", Call(), StartPoint, "1 2"},
        Row{"PointTooLong", Call(Keyword("startPoint", THREE)), StartPoint,
            "TypeError: startPoint; too many arguments; expected 2, got 3"},
        Row{"PointTooLongByPosition", Call(THREE), StartPoint,
            "TypeError: startPoint; too many arguments; expected 2, got 3"},
        Row{"PointOfTexts", Call(Keyword("startPoint", cow_List<cow_String>{"a", "b"})), StartPoint,
            "TypeError: startPoint[0]; found string, expecting float"}),
    [](const auto& row) { return row.param.name; });

TEST(Arguments, NestingTextOfEveryFault)
{
    const auto outcome = [](omu_Arguments arguments) {
        arguments.SetNesting("s.f");
        return Outcome([&] { return XAndY(arguments); });
    };
    // The text runs straight into "keyword".
    EXPECT_EQ(outcome(Call(Keyword("z", 1))), "TypeError: s.fkeyword error on z");
    EXPECT_EQ(outcome(Call(Keyword("x", "a"))), "TypeError: s.f['x']; found string, expecting int");
    EXPECT_EQ(outcome(Call("a")), "TypeError: s.f[0]; found string, expecting int");
    EXPECT_EQ(outcome(Call()), "TypeError: s.f; not all required arguments specified; expected 1, got 0");
    EXPECT_EQ(outcome(Call(1, 2, 3)), "TypeError: s.f; too many arguments; expected 2, got 3");

    omu_Arguments arguments = Call(Keyword("p", THREE));
    arguments.SetNesting("s.f");
    omu_PrimTuple point;
    arguments.Begin();
    EXPECT_TRUE(arguments.Get(point, "p"));
    EXPECT_EQ(point.Nesting(), "s.f['p']");
}

// The keyword goes back to where it was: had End to name one, it would still be the first.
TEST(Arguments, AlternativePutsTheKeywordBack)
{
    omu_Arguments arguments = Call(Keyword("a", 1), Keyword("b", 2), Keyword("c", 3));
    double number = 0.0;
    cow_String text;
    arguments.Begin();
    EXPECT_FALSE(arguments.Get(text, "b"));
    EXPECT_TRUE(arguments.ErrorOnPrevious());
    EXPECT_EQ(arguments.PendingKeywords(), (cow_List<cow_String>{"a", "c"}));
    EXPECT_TRUE(arguments.Alternative());
    EXPECT_FALSE(arguments.ErrorOnPrevious());
    EXPECT_EQ(arguments.PendingKeywords(), (cow_List<cow_String>{"a", "b", "c"}));
    EXPECT_TRUE(arguments.Get(number, "b"));
    EXPECT_RAISE(arguments.End(), omu_KeywordErrorException, "keyword error on a");
}

TEST(Arguments, PutFillsBothKinds)
{
    omu_Arguments arguments;
    EXPECT_EQ(arguments.AsString(0), "()");
    arguments.Put(1);
    EXPECT_EQ(arguments.AsString(0), "(1)") << "no comma, unlike a tuple";
    arguments.Put(2.0f);
    arguments.Put("name", "x");
    arguments.Put("flag", true);
    arguments.Put("none", static_cast<omu_Primitive*>(nullptr));
    EXPECT_EQ(arguments.AsString(0), "(1, 2.0, name='x', flag=True, none=None)");
    EXPECT_EQ(arguments.AsRepr(), arguments.AsString(0));
    EXPECT_EQ(Call(Keyword("n", 1)).AsString(0), "(n=1)");
    EXPECT_RAISE(arguments.Put("flag", 0), omu_KeywordErrorException, "keyword error on flag");

    const std::unique_ptr<omu_Arguments> copy(arguments.Copy());
    EXPECT_TRUE(*copy == arguments);
    EXPECT_TRUE(copy->Keywords().Get("name") == arguments.Keywords().Get("name")) << "shared";
    copy->Put("more", 1);
    EXPECT_FALSE(*copy == arguments);
    EXPECT_EQ(arguments.DynTypeId(), omu_PrimTuple::TypeId());
}

TEST(Arguments, SharesWhatItIsBuiltOver)
{
    omu_PrimTuple tuple;
    tuple.Put("a");
    tuple.SetNesting("s.f");
    omu_Arguments::Keyworded keywords;
    keywords.Put("k", omu_PrimString("b"));
    const omu_Arguments arguments(tuple, keywords);
    EXPECT_EQ(arguments[0], tuple[0]);
    EXPECT_EQ(arguments.Keywords().Get("k"), keywords.Get("k"));
    EXPECT_EQ(arguments.Nesting(), "s.f");
}

TEST(Arguments, NamesAreCheckedAtOnce)
{
    omu_Arguments arguments = Call(Keyword("name", "a b"));
    omu_OrvexName name("old", omu_OrvexName::FormEnm::JOB);
    arguments.Begin();
    EXPECT_EQ(Outcome([&] {
                  arguments.Get(name, "name");
                  return std::string();
              }),
              "OrvexNameError: invalid job name");
    EXPECT_EQ(name.Value(), "old");
    EXPECT_EQ(Outcome([&] {
                  omu_Arguments wrong = Call(1);
                  wrong.Begin();
                  wrong.Get(name, "name");
                  wrong.End();
                  return std::string();
              }),
              "TypeError: arg1; found int, expecting string");
}
}
