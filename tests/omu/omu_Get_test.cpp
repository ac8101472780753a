// Nested sequences as arguments: the places that faults name, and outputs that keep their defaults.

#include <omu_Get.h>
#include <omu_GetIrregular.h>
#include <omu_ReturnPrim.h>
#include <testing/ValueTesting.h>

namespace
{
template <class V>
std::string Text(const V& values)
{
    return Text(static_cast<omu_Primitive*>(omu_ReturnPrim(values)));
}

std::string Text(const cow_Map<cow_String, cls_xp2DArrayDouble>& values)
{
    return values.KeyAt(0).AsCharPtr() + Text(static_cast<const cow_2DArray<double>&>(values.ValueAt(0)));
}

// What is read under the keyword "points", or by position.
using Reads = std::string (*)(omu_Arguments&, bool byKeyword);
template <class Out>
std::string ByGet(omu_Arguments& arguments, bool byKeyword)
{
    Out out;
    omu_PrimTuple& tuple = arguments;
    return (byKeyword ? omu_Get(arguments, out, "points") : omu_Get(tuple, out)) ? Text(out) : "-";
}
template <class V>
std::string ByGetIrregular(omu_Arguments& arguments, bool byKeyword)
{
    cow_2DArray<V> out;
    omu_PrimTuple& tuple = arguments;
    return (byKeyword ? omu_GetIrregular(arguments, out, "points") : omu_GetIrregular(tuple, out)) ? Text(out)
                                                                                                   : "-";
}

struct Row : NamedRow
{
    Reads reads;
    std::shared_ptr<omu_Primitive> value;
    std::string outcome; // by keyword; by position "points" is "arg1"
};

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

using NestedArgument = testing::TestWithParam<Row>;

TEST_P(NestedArgument, ComesToItsOutcome)
{
    const auto outcome = [](omu_Arguments arguments, bool byKeyword) {
        return Outcome([&] {
            arguments.Begin();
            const std::string text = GetParam().reads(arguments, byKeyword);
            arguments.End();
            return text;
        });
    };
    omu_Arguments keyword;
    keyword.Put("points", *GetParam().value);
    EXPECT_EQ(outcome(keyword, true), GetParam().outcome);

    std::string wanted = GetParam().outcome;
    if (const auto at = wanted.find("points"); at != std::string::npos)
        wanted.replace(at, 6, "arg1");
    EXPECT_EQ(outcome(omu_Arguments(TupleOf(*GetParam().value)), false), wanted);
}

using Doubles = cow_List<double>;
using Doubles2D = cow_2DArray<double>;
using Maps = cow_Map<cow_String, cls_xp2DArrayDouble>;
INSTANTIATE_ROWS(
    NestedArgument, Row{"List", ByGet<Doubles>, Given(omu_PrimList(cow_List<int>{1, 2})), "[1.0, 2.0]"},
    Row{"Texts", ByGet<cow_List<cow_String>>, Given(TupleOf("a", "b")), "['a', 'b']"},
    Row{"WrongElement", ByGet<Doubles>, Given(TupleOf(1, "a")),
        "TypeError: points[1]; found string, expecting float"},
    Row{"NoSequence", ByGet<cow_List<int>>, Given(omu_PrimString("a")),
        "TypeError: points; found string, expecting tuple"},
    Row{"Rows", ByGet<Doubles2D>, Given(TupleOf(TupleOf(1, 2), TupleOf(3, 4))), "[[1.0, 2.0], [3.0, 4.0]]"},
    Row{"NoRows", ByGet<cow_2DArray<int>>, Given(TupleOf()), "[]"},
    Row{"WrongCell", ByGet<Doubles2D>, Given(TupleOf(TupleOf(1), TupleOf("a"))),
        "TypeError: points[1][0]; found string, expecting float"},
    Row{"WrongRow", ByGet<cow_2DArray<cow_String>>, Given(TupleOf(TupleOf("a"), "a", TupleOf(1))),
        "TypeError: points[1]; found string, expecting tuple"},
    Row{"LongRow", ByGet<Doubles2D>, Given(TupleOf(TupleOf(1, 2), TupleOf(3, 4, 5))),
        "TypeError: points[1]; too many arguments; expected 2, got 3"},
    Row{"ShortRow", ByGet<Doubles2D>, Given(TupleOf(TupleOf(1, 2), TupleOf(3))),
        "TypeError: points[1]; not all required arguments specified; expected 2, got 1"},
    Row{"Irregular", ByGetIrregular<double>, Given(TupleOf(TupleOf(1), TupleOf(2, 3, 4), TupleOf())),
        "[[1.0, 0.0, 0.0], [2.0, 3.0, 4.0], [0.0, 0.0, 0.0]]"},
    Row{"IrregularWrongCell", ByGetIrregular<int>, Given(TupleOf(TupleOf(1), TupleOf(2, "a"))),
        "TypeError: points[1][1]; found string, expecting int"},
    Row{"Map", ByGet<Maps>, Map(TupleOf(TupleOf(1, 2))), "a[[1.0, 2.0]]"},
    Row{"NoMap", ByGet<Maps>, Given(TupleOf()),
        "TypeError: points; found tuple, expecting Map of string to 2D sequence of Floats"},
    Row{"MapOfNoRows", ByGet<Maps>, Map(omu_PrimString("x")),
        "TypeError: points['a']; found string, expecting tuple"},
    Row{"MapWithAWrongCell", ByGet<Maps>, Map(TupleOf(TupleOf(1), TupleOf("x"))),
        "TypeError: points['a'][1][0]; found string, expecting float"});

// Nothing but a sequence that this very read delivered touches the output.
TEST(NestedArguments, KeepTheirDefaults)
{
    cow_List<int> list = {7};
    cow_2DArray<int> rows(1, 1, 7);
    omu_Arguments absent;
    absent.Begin();
    absent.Optional();
    EXPECT_FALSE(omu_Get(absent, list, "list"));
    EXPECT_FALSE(omu_GetIrregular(absent, rows, "rows"));
    EXPECT_FALSE(omu_Get(static_cast<omu_PrimTuple&>(absent), list));
    absent.End();

    omu_Arguments faulty(TupleOf("a", TupleOf(1, 2)));
    faulty.Begin();
    EXPECT_FALSE(omu_Get(faulty, list, "first"));
    EXPECT_TRUE(faulty.ErrorOnPrevious()) << "the fault is left pending";
    EXPECT_FALSE(omu_Get(faulty, list, "second"));
    EXPECT_EQ(list, cow_List<int>{7});
    EXPECT_EQ(rows(0, 0), 7);
}
}
