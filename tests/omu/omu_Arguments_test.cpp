// The protocol by which a command reads its arguments, by position (omu_PrimTuple) and by keyword
// (omu_Arguments), as tables: what is given, what is read, what it comes to.

#include <omu_ArgNumberErrorException.h>
#include <omu_Arguments.h>
#include <omu_InterfaceObj.h>
#include <omu_KeywordErrorException.h>
#include <omu_OverflowErrorException.h>
#include <omu_PrimList.h>
#include <omu_PrimString.h>
#include <ostream>
#include <sstream>
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

// Positional values, then keywords.
template <class... Values>
omu_Arguments Call(const Values&... values)
{
    omu_Arguments arguments;
    [[maybe_unused]] const auto supply = [&](const auto& value) {
        if constexpr (std::is_same_v<decltype(value), const Keyword&>)
            arguments.Put(value.name, value.item.Index(0));
        else
            arguments.Put(value);
    };
    (supply(values), ...);
    return arguments;
}

template <class T>
std::string Get(omu_PrimTuple& tuple, const std::string& keyword)
{
    T out{};
    auto* arguments = dynamic_cast<omu_Arguments*>(&tuple);
    const bool delivered =
        keyword.empty() ? tuple.Get(out) : arguments->Get(out, cow_String(keyword.c_str()));
    omu_PrimTuple text;
    text.Put(out);
    return delivered ? text[0]->AsString(0).AsCharPtr() : "-";
}

// A point: a tuple of two, read at once.
std::string GetPoint(omu_PrimTuple& tuple, const std::string& keyword)
{
    omu_PrimTuple point;
    auto* arguments = dynamic_cast<omu_Arguments*>(&tuple);
    if (!(keyword.empty() ? tuple.Get(point) : arguments->Get(point, cow_String(keyword.c_str()))))
        return "-";
    double x = 0.0;
    double y = 0.0;
    point.Begin();
    point.Get(x);
    point.Get(y);
    point.End();
    return point.AsString(0).AsCharPtr();
}

// Reads what the words say, then ends: "i:x" is an int under keyword x, "i" one by position alone; d is a
// double, c a constant, p a point; "?" makes the rest optional; "~" undoes the read before, if it failed, and
// else skips the next word. Answers with what was read.
std::string Read(omu_PrimTuple& tuple, const char* words)
{
    std::string read;
    tuple.Begin();
    std::istringstream stream(words);
    for (std::string word; stream >> word;)
    {
        const std::string keyword = word.size() > 2 ? word.substr(2) : "";
        if (word == "?")
            tuple.Optional();
        else if (word == "~" && !tuple.Alternative())
            stream >> word;
        else if (word != "~")
            read += (read.empty() ? "" : " ") + (word[0] == 'i'   ? Get<int>(tuple, keyword)
                                                 : word[0] == 'd' ? Get<double>(tuple, keyword)
                                                 : word[0] == 'c' ? Get<DataTypeConst>(tuple, keyword)
                                                                  : GetPoint(tuple, keyword));
    }
    const bool error = tuple.Error();
    const std::string outcome = Outcome([&] {
        tuple.End();
        return read;
    });
    EXPECT_EQ(error, outcome.find("Error") != std::string::npos) << "Error foretells End";
    return outcome;
}

struct Row
{
    const char* name;
    omu_Arguments given;
    const char* reads;
    const char* outcome;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

class ReadingTuple : public testing::TestWithParam<Row>
{};

TEST_P(ReadingTuple, ComesToItsOutcome)
{
    omu_PrimTuple tuple;
    tuple.TakeItems(GetParam().given);
    for (int pass = 0; pass < 2; ++pass) // a second reading starts over, whatever became of the first
        EXPECT_EQ(Read(tuple, GetParam().reads), GetParam().outcome);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ReadingTuple,
    testing::Values(
        Row{"OptionalKeepsItsDefault", Call(1, 2), "i i ? i", "1 2 -"},
        Row{"RequiredMissing", Call(1), "i i ? i",
            "TypeError: not all required arguments specified; expected 2, got 1"},
        // What is expected is the required number also when there are too many, on purpose.
        Row{"TooMany", Call(1, 2, 3, 4), "i ? i i", "TypeError: too many arguments; expected 1, got 4"},
        Row{"FirstWrongTypeStays", Call(1, "a", 2.5), "i i i",
            "TypeError: arg2; found string, expecting int"},
        Row{"Alternative", Call(2.5, 1), "i ~ d i ~ d", "- 2.5 1"},
        Row{"SecondAlternativeFails", Call("a"), "i ~ d", "TypeError: arg1; found string, expecting float"},
        // Only the argument just read is undone.
        Row{"AlternativeTooLate", Call("a", 2), "i i ~ d", "TypeError: arg1; found string, expecting int"},
        // The undone read had counted as required, though Optional came in between.
        Row{"OptionalBeforeAlternative", Call(2.5), "i ? ~ d", "- 2.5"}),
    [](const auto& row) { return row.param.name; });

class ReadingArguments : public testing::TestWithParam<Row>
{};

TEST_P(ReadingArguments, ComesToItsOutcome)
{
    omu_Arguments arguments = GetParam().given;
    for (int pass = 0; pass < 2; ++pass)
        EXPECT_EQ(Outcome([&] { return Read(arguments, GetParam().reads); }), GetParam().outcome);
}

const cow_List<int> THREE = {1, 2, 3};
INSTANTIATE_TEST_SUITE_P(
    Rows, ReadingArguments,
    testing::Values(
        Row{"ByKeyword", Call(Keyword("y", 2), Keyword("x", 1)), "i:x ? i:y", "1 2"},
        // A missing keyword is a missing argument, on purpose.
        Row{"NothingGiven", Call(), "i:x ? i:y",
            "TypeError: not all required arguments specified; expected 1, got 0"},
        Row{"FirstUnknownAsWritten", Call(1, Keyword("z", 1), Keyword("v", 1)), "i:x ? i:y",
            "TypeError: keyword error on z"},
        Row{"KeywordOfAPositional", Call(1, Keyword("x", 1)), "i:x ? i:y", "TypeError: keyword error on x"},
        Row{"WrongType", Call(1, Keyword("y", "a")), "i:x ? i:y",
            "TypeError: y; found string, expecting int"},
        Row{"UnreadKeywordBeforeWrongType", Call("a", Keyword("z", 1)), "i:x ? i:y",
            "TypeError: keyword error on z"},
        // Here the number of all arguments is what was expected.
        Row{"TooMany", Call(1, 2, 3, 4), "i:a ? i:b i:c", "TypeError: too many arguments; expected 3, got 4"},
        // After a missing argument later ones are not looked at, and their keywords still count as read.
        Row{"WrongTypeBehindTheMissing", Call(Keyword("b", "x"), Keyword("c", "y")), "i:a i:b ? i:c",
            "TypeError: not all required arguments specified; expected 2, got 1"},
        // Once a fault is pending even the keyword of a positional argument is taken for read.
        Row{"DuplicateBehindAFault", Call("x", 2, Keyword("b", 1)), "i:a i:b",
            "TypeError: arg1; found string, expecting int"},
        Row{"SecondForm", Call(Keyword("anchor", cow_List<int>{5, 6}), Keyword("last", 7)),
            "c:anchor ~ p:anchor i:last", "- (5, 6) 7"},
        Row{"NeitherForm", Call(Keyword("anchor", 5)), "c:anchor ~ p:anchor",
            "TypeError: anchor; found int, expecting tuple"},
        Row{"MissingInBothForms", Call(Keyword("last", 7)), "c:anchor ~ p:anchor i:last",
            "TypeError: not all required arguments specified; expected 2, got 1"},
        Row{"PointOmitted", Call(), "? p:startPoint", "-"},
        Row{"PointTooLong", Call(Keyword("startPoint", THREE)), "? p:startPoint",
            "TypeError: startPoint; too many arguments; expected 2, got 3"},
        Row{"PointTooLongByPosition", Call(THREE), "? p:startPoint",
            "TypeError: startPoint; too many arguments; expected 2, got 3"}),
    [](const auto& row) { return row.param.name; });

TEST(Arguments, NestingTextOfEveryFault)
{
    const auto outcome = [](omu_Arguments arguments, const char* reads) {
        arguments.SetNesting("s.f");
        return Outcome([&] { return Read(arguments, reads); });
    };
    // The text runs straight into "keyword".
    EXPECT_EQ(outcome(Call(Keyword("z", 1)), "i:x"), "TypeError: s.fkeyword error on z");
    EXPECT_EQ(outcome(Call(Keyword("x", "a")), "i:x"), "TypeError: s.f['x']; found string, expecting int");
    EXPECT_EQ(outcome(Call("a"), "i:x"), "TypeError: s.f[0]; found string, expecting int");
    EXPECT_EQ(outcome(Call(), "i:x"),
              "TypeError: s.f; not all required arguments specified; expected 1, got 0");
    EXPECT_EQ(outcome(Call(THREE), "p"), "TypeError: s.f[0]; too many arguments; expected 2, got 3");
    EXPECT_EQ(outcome(Call(Keyword("p", THREE)), "p:p"),
              "TypeError: s.f['p']; too many arguments; expected 2, got 3");
    omu_PrimTuple tuple(THREE);
    EXPECT_RAISE(tuple.End("s.v"), omu_ArgNumberErrorException, "s.v; too many arguments; expected 0, got 3");
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
    EXPECT_EQ(Call(Keyword("n", 1)).AsString(0), "(n=1)");
    EXPECT_RAISE(arguments.Put("flag", 0), omu_KeywordErrorException, "keyword error on flag");

    const std::unique_ptr<omu_Arguments> copy(arguments.Copy());
    EXPECT_TRUE(*copy == arguments);
    EXPECT_EQ(copy->Keywords().Get("name"), arguments.Keywords().Get("name")) << "shared";
    copy->Put("more", 1);
    EXPECT_FALSE(*copy == arguments);
    EXPECT_EQ(arguments.DynTypeId(), omu_PrimTuple::TypeId());
}

// A tuple that was read holds the items alone: not the cursor, not the faults of the one it came from.
TEST(PrimTuple, ReadTupleStartsAfresh)
{
    omu_PrimTuple inner(THREE);
    Read(inner, "d");
    omu_PrimTuple outer;
    outer.Put(inner);
    omu_PrimList taken(0, 1);
    outer.Begin();
    EXPECT_RAISE(outer.Get(taken), omu_OverflowErrorException, "list is full; maximum size is 1");
    EXPECT_EQ(taken.Length(), 0);
    omu_PrimTuple found;
    outer.Begin();
    EXPECT_TRUE(outer.Get(found));
    EXPECT_EQ(found.Cursor(), 0);
    EXPECT_EQ(found.Nesting(), "arg1");
}

class Handle : public omu_InterfaceObj
{
public:
    Handle* Copy() const override { return new Handle(*this); }
    cow_String AsRepr() const override { return "mdb.x"; }
};

TEST(PrimTuple, InterfaceObjectsAreLookedAt)
{
    auto* const handle = new Handle;
    omu_Arguments arguments = Call("a");
    arguments.Put(handle);
    EXPECT_EQ(arguments.AsString(0), "('a', mdb.x)");
    const omu_InterfaceObj* found = nullptr;
    std::unique_ptr<omu_Primitive> any;
    arguments.Begin();
    EXPECT_FALSE(arguments.Get(found, "object"));
    EXPECT_TRUE(arguments.Alternative());
    EXPECT_TRUE(arguments.Get(any));
    EXPECT_EQ(any->AsString(0), "'a'");
    EXPECT_TRUE(arguments.Get(found, "object"));
    EXPECT_EQ(found, handle);
}
}
