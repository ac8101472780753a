// Nested sequences as arguments: the places that faults name, and outputs that keep their defaults.

#include <omu_Get.h>
#include <omu_GetIrregular.h>
#include <omu_ReturnPrim.h>
#include <testing/ValueTesting.h>

namespace
{
using Doubles = cow_List<double>;
using Doubles2D = cow_2DArray<double>;
using Maps = cow_Map<cow_String, cls_xp2DArrayDouble>;

template <class V>
std::string Text(const V& values)
{
    return Text(static_cast<omu_Primitive*>(omu_ReturnPrim(values)));
}

std::string Text(const Maps& values)
{
    return values.KeyAt(0).AsCharPtr() + Text(static_cast<const Doubles2D&>(values.ValueAt(0)));
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
struct Row
{
    Reads reads;
    omu_PrimTuple value; // its one item
    std::string outcome; // by keyword; by position "points" is "arg1"
};

omu_PrimTuple Map(const omu_PrimTuple& value)
{
    return TupleOf(DictionaryOf(cow_List<cow_String>{"a"}, value));
}

TEST(NestedArguments, ComeToTheirOutcome)
{
    const Row rows[] = {
        {ByGet<Doubles>, TupleOf(TupleOf(1, "a")), "TypeError: points[1]; found string, expecting float"},
        {ByGet<Doubles2D>, TupleOf(TupleOf(TupleOf(1, 2), TupleOf(3, 4))), "[[1.0, 2.0], [3.0, 4.0]]"},
        {ByGet<Doubles2D>, TupleOf(TupleOf(TupleOf(1), TupleOf("a"))),
         "TypeError: points[1][0]; found string, expecting float"},
        {ByGet<cow_2DArray<cow_String>>, TupleOf(TupleOf(TupleOf("a"), "a", TupleOf(1))),
         "TypeError: points[1]; found string, expecting tuple"},
        {ByGet<Doubles2D>, TupleOf(TupleOf(TupleOf(1, 2), TupleOf(3, 4, 5))),
         "TypeError: points[1]; too many arguments; expected 2, got 3"},
        {ByGet<Doubles2D>, TupleOf(TupleOf(TupleOf(1, 2), TupleOf(3))),
         "TypeError: points[1]; not all required arguments specified; expected 2, got 1"},
        {ByGetIrregular<double>, TupleOf(TupleOf(TupleOf(1), TupleOf(2, 3, 4), TupleOf())),
         "[[1.0, 0.0, 0.0], [2.0, 3.0, 4.0], [0.0, 0.0, 0.0]]"},
        {ByGet<Maps>, Map(TupleOf(TupleOf(TupleOf(1, 2)))), "a[[1.0, 2.0]]"},
        {ByGet<Maps>, TupleOf(TupleOf()),
         "TypeError: points; found tuple, expecting Map of string to 2D sequence of Floats"},
        {ByGet<Maps>, Map(TupleOf("x")), "TypeError: points['a']; found string, expecting tuple"},
        {ByGet<Maps>, Map(TupleOf(TupleOf(TupleOf(1), TupleOf("x")))),
         "TypeError: points['a'][1][0]; found string, expecting float"}};
    for (const auto& [reads, value, wanted] : rows)
    {
        omu_Arguments keyword;
        keyword.Put("points", value.Index(0));
        const auto expectOutcome = [&, &reads = reads, &wanted = wanted](omu_Arguments arguments,
                                                                         bool byKeyword, const char* nesting,
                                                                         const char* place) {
            arguments.SetNesting(nesting);
            std::string outcome = wanted;
            if (const auto at = outcome.find("points"); at != std::string::npos)
                outcome.replace(at, 6, place);
            EXPECT_EQ(Outcome([&] {
                          arguments.Begin();
                          const std::string text = reads(arguments, byKeyword);
                          arguments.End();
                          return text;
                      }),
                      outcome);
        };
        expectOutcome(keyword, true, "s.f", "s.f['points']");
        expectOutcome(omu_Arguments(value), false, "", "arg1");
    }
}

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
    omu_Arguments faulty(TupleOf("a", TupleOf(1, 2)));
    faulty.Begin();
    EXPECT_FALSE(omu_Get(faulty, list, "first"));
    EXPECT_FALSE(omu_Get(faulty, list, "second"));
    EXPECT_TRUE(list == cow_List<int>{7} && rows(0, 0) == 7);
}
}
