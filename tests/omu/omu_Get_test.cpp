// Nested sequences as arguments: the places that faults name, and outputs that keep their defaults.

#include <functional>
#include <omu_Get.h>
#include <omu_GetIrregular.h>
#include <omu_PrimList.h>
#include <omu_PrimString.h>
#include <omu_ReturnPrim.h>
#include <ostream>
#include <testing/Outcome.h>

#include <gtest/gtest.h>

namespace
{
template <class... Items>
omu_PrimTuple T(const Items&... items)
{
    omu_PrimTuple tuple;
    (tuple.Put(items), ...);
    return tuple;
}

template <class V>
std::string Text(const cow_List<V>& values)
{
    return omu_PrimTuple(values).AsString(0).AsCharPtr();
}

template <class V>
std::string Text(const cow_2DArray<V>& values)
{
    const std::unique_ptr<omu_PrimList> list(omu_ReturnPrim(values));
    return list->AsString(0).AsCharPtr();
}

std::string Text(const cow_Map<cow_String, cls_xp2DArrayDouble>& values)
{
    std::string text;
    for (const auto& [key, rows] : values)
        text += key.AsCharPtr() + Text(static_cast<const cow_2DArray<double>&>(rows));
    return text;
}

struct ByGet
{
    template <class Out, class... Keyword>
    static bool Read(Out& out, omu_Arguments& arguments, const Keyword&... keyword)
    {
        if constexpr (sizeof...(Keyword) == 0)
            return omu_Get(static_cast<omu_PrimTuple&>(arguments), out);
        else
            return omu_Get(arguments, out, keyword...);
    }
};

struct ByGetIrregular
{
    template <class Out, class... Keyword>
    static bool Read(Out& out, omu_Arguments& arguments, const Keyword&... keyword)
    {
        if constexpr (sizeof...(Keyword) == 0)
            return omu_GetIrregular(static_cast<omu_PrimTuple&>(arguments), out);
        else
            return omu_GetIrregular(arguments, out, keyword...);
    }
};

// Reads one value, by position or under the keyword "points"; answers with the text of what was read.
template <class Out, class By = ByGet>
std::string Read(omu_Arguments& arguments, bool byKeyword)
{
    Out out;
    arguments.Begin();
    const bool delivered =
        byKeyword ? By::Read(out, arguments, cow_String("points")) : By::Read(out, arguments);
    arguments.End();
    return delivered ? Text(out) : "not delivered";
}

struct Row
{
    const char* name;
    std::string (*read)(omu_Arguments&, bool);
    std::shared_ptr<omu_Primitive> value;
    std::string outcome; // by keyword; "points" is "arg1" by position
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

template <class V>
std::shared_ptr<omu_Primitive> Given(const V& value)
{
    return std::make_shared<V>(value);
}

std::shared_ptr<omu_Primitive> Map(const omu_Primitive& value)
{
    omu_PrimDictionary<cow_String> dictionary;
    dictionary.Put("a", value);
    return Given(dictionary);
}

class NestedArgument : public testing::TestWithParam<Row>
{};

TEST_P(NestedArgument, ComesToItsOutcome)
{
    const Row& row = GetParam();
    omu_Arguments byKeyword;
    byKeyword.Put("points", *row.value);
    EXPECT_EQ(Outcome([&] { return row.read(byKeyword, true); }), row.outcome);

    std::string positional = row.outcome;
    if (const auto at = positional.find("points"); at != std::string::npos)
        positional.replace(at, 6, "arg1");
    omu_Arguments byPosition;
    byPosition.Put(*row.value);
    EXPECT_EQ(Outcome([&] { return row.read(byPosition, false); }), positional);
    // The keyword is known, so it is what faults inside name; the argument's own type is told by position.
    const bool inside = row.outcome.find("points[") != std::string::npos ||
                        row.outcome.find("arguments") != std::string::npos;
    EXPECT_EQ(Outcome([&] { return row.read(byPosition, true); }), inside ? row.outcome : positional);
}

using Doubles = cow_List<double>;
using Rows = cow_2DArray<double>;
using Maps = cow_Map<cow_String, cls_xp2DArrayDouble>;
INSTANTIATE_TEST_SUITE_P(
    Rows, NestedArgument,
    testing::Values(Row{"List", Read<Doubles>, Given(T(1, 2.5)), "(1.0, 2.5)"},
                    Row{"EmptyList", Read<Doubles>, Given(T()), "()"},
                    Row{"OfAList", Read<cow_List<int>>, Given(omu_PrimList(cow_List<int>{1})), "(1,)"},
                    Row{"Texts", Read<cow_List<cow_String>>, Given(T("a", "b")), "('a', 'b')"},
                    Row{"WrongElement", Read<Doubles>, Given(T(1, "a")),
                        "TypeError: points[1]; found string, expecting float"},
                    Row{"NoSequence", Read<Doubles>, Given(omu_PrimString("a")),
                        "TypeError: points; found string, expecting tuple"},
                    Row{"Rows", Read<Rows>, Given(T(T(1, 2), T(3, 4))), "[[1.0, 2.0], [3.0, 4.0]]"},
                    Row{"NoRows", Read<Rows>, Given(T()), "[]"},
                    Row{"EmptyRows", Read<Rows>, Given(T(T(), T())), "[[], []]"},
                    Row{"TextRows", Read<cow_2DArray<cow_String>>, Given(T(T("a"), T("b"))),
                        "[['a'], ['b']]"},
                    Row{"IntRows", Read<cow_2DArray<int>>, Given(T(T(1))), "[[1]]"},
                    Row{"WrongCell", Read<Rows>, Given(T(T(1), T("a"))),
                        "TypeError: points[1][0]; found string, expecting float"},
                    Row{"WrongRow", Read<Rows>, Given(T(T(1), "a", T("b"))),
                        "TypeError: points[1]; found string, expecting tuple"},
                    Row{"FaultInAnEarlierRow", Read<Rows>, Given(T(T("b"), "a")),
                        "TypeError: points[0][0]; found string, expecting float"},
                    Row{"LongRow", Read<Rows>, Given(T(T(1, 2), T(3, 4, 5))),
                        "TypeError: points[1]; too many arguments; expected 2, got 3"},
                    Row{"ShortRow", Read<Rows>, Given(T(T(1, 2), T(3))),
                        "TypeError: points[1]; not all required arguments specified; expected 2, got 1"},
                    Row{"Irregular", Read<Rows, ByGetIrregular>, Given(T(T(1), T(2, 3, 4), T())),
                        "[[1.0, 0.0, 0.0], [2.0, 3.0, 4.0], [0.0, 0.0, 0.0]]"},
                    Row{"IrregularInts", Read<cow_2DArray<int>, ByGetIrregular>, Given(T(T(1, 2), T(3))),
                        "[[1, 2], [3, 0]]"},
                    Row{"IrregularWrongCell", Read<Rows, ByGetIrregular>, Given(T(T(1), T(2, "a"))),
                        "TypeError: points[1][1]; found string, expecting float"},
                    Row{"IrregularWrongRow", Read<Rows, ByGetIrregular>, Given(T(T(1), 2)),
                        "TypeError: points[1]; found int, expecting tuple"},
                    Row{"Map", Read<Maps>, Map(T(T(1, 2))), "a[[1.0, 2.0]]"},
                    Row{"NoMap", Read<Maps>, Given(T()),
                        "TypeError: points; found tuple, expecting Map of string to 2D sequence of Floats"},
                    Row{"MapOfNoRows", Read<Maps>, Map(omu_PrimString("x")),
                        "TypeError: points['a']; found string, expecting tuple"},
                    Row{"MapWithAWrongCell", Read<Maps>, Map(T(T(1), T("x"))),
                        "TypeError: points['a'][1][0]; found string, expecting float"}),
    [](const auto& row) { return row.param.name; });

// Nothing but a sequence that this very read delivered touches the output.
TEST(NestedArgument, DefaultStays)
{
    cow_List<int> list = {7};
    cow_2DArray<int> rows(1, 1, 7);
    omu_Arguments absent;
    absent.Begin();
    absent.Optional();
    EXPECT_FALSE(omu_Get(absent, list, "list"));
    EXPECT_FALSE(omu_GetIrregular(absent, rows, "rows"));
    absent.End();

    omu_PrimTuple exhausted;
    exhausted.Begin();
    exhausted.Optional();
    EXPECT_FALSE(omu_Get(exhausted, list));
    exhausted.End();

    omu_Arguments faulty;
    faulty.Put("a");
    faulty.Put(T(1, 2));
    faulty.Begin();
    EXPECT_FALSE(omu_Get(faulty, list, "first"));
    EXPECT_TRUE(faulty.ErrorOnPrevious()) << "the fault is left pending";
    EXPECT_FALSE(omu_Get(faulty, list, "second"));
    EXPECT_EQ(Outcome([&] {
                  faulty.End();
                  return std::string();
              }),
              "TypeError: arg1; found string, expecting tuple");
    EXPECT_EQ(list, cow_List<int>{7});
    EXPECT_EQ(rows(0, 0), 7);
}

TEST(ReturnPrim, GivesListsOfTheRightTypes)
{
    const std::unique_ptr<omu_PrimList> ints(omu_ReturnPrim(cow_List<int>{1}));
    const std::unique_ptr<omu_PrimList> doubles(omu_ReturnPrim(cow_List<double>{1.0}));
    const std::unique_ptr<omu_PrimList> texts(omu_ReturnPrim(cow_List<cow_String>{"a"}));
    EXPECT_TRUE(ints->IsType('('));
    const auto typeOf = [](const omu_PrimList& list) {
        return dynamic_cast<const omu_PrimNumber&>(*list[0]).DataType();
    };
    EXPECT_EQ(typeOf(*ints), omu_PrimNumber::DataTypeEnm::INT);
    EXPECT_EQ(typeOf(*doubles), omu_PrimNumber::DataTypeEnm::DOUBLE);
    EXPECT_EQ(texts->AsString(0), "['a']");
}
}
