// Which values each argument reader takes, and what it says of the others: by position and by keyword.

#include <omu_PrimArray.h>
#include <omu_PrimBool.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimComplex.h>
#include <omu_PrimNone.h>
#include <omu_PrimPath.h>
#include <omu_PrimTranslatedString.h>
#include <omu_PyObjectWrapper.h>
#include <testing/ValueTesting.h>

namespace
{
using DataTypeEnm = omu_PrimNumber::DataTypeEnm;
using DataTypeConst = omu_PrimEnum<DataTypeEnm, 1>;
using Ints = cow_List<int>;
using Doubles = cow_List<double>;

struct Item
{
    const char* name;
    std::unique_ptr<omu_Primitive> value;
    const char* found; // what an error calls it
};

// A value of every kind, and those at the ends of the ranges.
const std::vector<Item>& Items()
{
    static const std::vector<Item> items = [] {
        std::vector<Item> made;
        const auto add = [&](const char* name, omu_Primitive* value, const char* found) {
            made.push_back({name, std::unique_ptr<omu_Primitive>(value), found});
        };
        const omu_PrimTuple texts = TupleOf("a", "b");
        const omu_PrimTuple pair = TupleOf("a", 1.5);
        for (const char* digits : {"1", "127", "128", "-128", "-129", "32767", "32768"})
            add(digits, new omu_PrimNumber(std::stoi(digits)), "int");
        add("schar", new omu_PrimNumber(static_cast<signed char>(1)), "int");
        add("short", new omu_PrimNumber(static_cast<short>(1)), "int");
        add("uint", new omu_PrimNumber(4294967295u), "int");
        add("ulong", new omu_PrimNumber(4294967296.0, DataTypeEnm::UINT), "int");
        add("float", new omu_PrimNumber(0.5f), "float");
        add("double", new omu_PrimNumber(1.0), "float");
        add("true", new omu_PrimBoolean(true), "Boolean");
        add("text", new omu_PrimString("t"), "string");
        add("message", new omu_PrimTranslatedString("m"), "tran_string");
        add("complex", new omu_PrimComplex(omi_complex(1.0, 2.0)), "complex");
        add("none", new omu_PrimNone(), "None");
        add("null", nullptr, "None");
        add("path", new omu_PrimPath("/tmp"), "path");
        add("INT", new DataTypeConst(DataTypeEnm::INT), "INT");
        add("ON", new omu_OnOffConst(true), "ON");
        add("DASHED", new omu_PrimEnumBase("DASHED"), "DASHED");
        add("()", new omu_PrimTuple(), "tuple");
        add("(i)", new omu_PrimTuple(Ints{1, 0}), "tuple");
        add("[f]", new omu_PrimList(Doubles{1.5}), "list");
        add("(s)", new omu_PrimTuple(texts), "tuple");
        add("(b)", new omu_PrimTuple(cow_List<bool>{true}), "tuple");
        add("(null)", new omu_PrimTuple(cow_List<const omu_Primitive*>{nullptr}), "tuple");
        add("((f))", new omu_PrimTuple(cow_2DArray<double>(2, 3, 0.5)), "tuple");
        add("((s))", new omu_PrimTuple(TupleOf(texts, texts)), "tuple");
        add("((s)(f))", new omu_PrimTuple(TupleOf(texts, pair)), "tuple");
        add("((s,f))", new omu_PrimTuple(TupleOf(pair, pair)), "tuple");
        add("array0", new omu_PrimArray(), "array");
        add("array1i", new omu_PrimArray(Ints{1, 2}), "array");
        add("array1f", new omu_PrimArray(Doubles{1.5}), "array");
        add("array2", new omu_PrimArray(Ints{2, 1}, Ints{1, 2}), "array");
        using Keys = cow_List<cow_String>;
        add("{s}", DictionaryOf(Keys{"a"}, TupleOf(1.5)).Copy(), "dictionary");
        add("{bad}", DictionaryOf(Keys{"a"}, TupleOf("a")).Copy(), "dictionary");
        add("{i}", new omu_PrimDictionary<int>, "dictionary");
        add("script", new omu_PyObjectWrapper(), "scripting object");
        return made;
    }();
    return items;
}

// The argument reader of a T takes the items of those names (blanks between) and no others.
template <class T>
void ExpectReads(const char* expected, const std::string& names, const char* byKeyword = nullptr)
{
    int taken = 0;
    for (const Item& item : Items())
    {
        SCOPED_TRACE(std::string(expected) + " from " + item.name);
        const bool takes = (" " + names + " ").find(std::string(" ") + item.name + " ") != std::string::npos;
        taken += takes;
        const auto message = [&](const char* where, const char* wanted) {
            return takes ? "read"
                         : std::string("TypeError: ") + where + "; found " + item.found + ", expecting " +
                               wanted;
        };
        omu_PrimTuple tuple;
        tuple.Put(item.value ? item.value->Copy() : nullptr);
        EXPECT_EQ(Outcome([&] {
                      T out{};
                      tuple.Begin();
                      EXPECT_EQ(tuple.Get(out), takes);
                      tuple.End();
                      return "read";
                  }),
                  message("arg1", expected));
        omu_Arguments arguments;
        arguments.Put("k", item.value ? item.value->Copy() : nullptr);
        EXPECT_EQ(Outcome([&] {
                      T out{};
                      arguments.Begin();
                      EXPECT_EQ(arguments.Get(out, "k"), takes);
                      arguments.End();
                      return "read";
                  }),
                  message("k", byKeyword ? byKeyword : expected));
    }
    EXPECT_EQ(taken, std::count(names.begin(), names.end(), ' ') + 1) << "a name that no item has";
}

TEST(ItemReader, EveryReader)
{
    const std::string numbers = "1 127 128 -128 -129 32767 32768 schar short uint ulong float double";
    ExpectReads<bool>("False, True, 0 or 1", "true 1");
    ExpectReads<int>("int", "1 127 128 -128 -129 32767 32768");
    ExpectReads<signed char>("int", "1 127 -128 schar");
    ExpectReads<short>("int", "1 127 128 -128 -129 32767 short");
    ExpectReads<unsigned int>("int", "1 127 128 32767 32768 uint");
    ExpectReads<float>("float", numbers);
    ExpectReads<double>("float", numbers);
    ExpectReads<omi_complex>("complex", numbers + " complex");
    ExpectReads<cow_String>("string", "text message");
    ExpectReads<atr_String>("tran_string", "text message");
    ExpectReads<omu_PrimPath>("path", "text message path");
    ExpectReads<omu_PrimNone>("None", "none");
    ExpectReads<omu_PrimArray>("array", "array0 array1i array1f array2");
    ExpectReads<omu_PrimTuple>("tuple", "() (i) [f] (s) (b) (null) ((f)) ((s)) ((s)(f)) ((s,f))");
    ExpectReads<omu_PrimDictionary<cow_String>>("dictionary", "{s} {bad}");
    ExpectReads<omu_PrimDictionary<int>>("dictionary", "{i}");
    ExpectReads<omu_PyObjectWrapper>("scripting object", "script");
    ExpectReads<DataTypeConst>("SCHAR or SHORT or INT or FLOAT or DOUBLE or UINT", "INT");
    ExpectReads<omu_PrimEnumBase>("symbolic constant", "INT ON DASHED");
    ExpectReads<Ints>("sequence of Integers", "() (i) array0 array1i");
    ExpectReads<cow_List<bool>>("sequence of Bool", "() (i) (b)");
    ExpectReads<cow_List<float>>("sequence of Floats", "() (i) [f] array0 array1i array1f");
    ExpectReads<Doubles>("sequence of Doubles", "() (i) [f] array0 array1i array1f", "sequence of Floats");
    ExpectReads<cow_List<cow_String>>("sequence of Strings", "() (s)");
    ExpectReads<cow_List<atr_String>>("sequence of translated Strings", "() (s)",
                                      "sequence of Translated Strings");
    ExpectReads<cow_2DArray<double>>("2D sequence of Doubles", "() ((f)) array0 array2",
                                     "2D sequence of Floats");
    ExpectReads<cow_2DArray<cow_String>>("2D sequence of Strings", "() ((s))");
    ExpectReads<cow_Map<cow_String, float>>("Map of string to float", "() ((s,f)) {s}");
}

template <class T>
T Read(const omu_Primitive& item)
{
    T out{};
    EXPECT_TRUE(TupleOf(item).Get(out));
    return out;
}

TEST(ItemReader, Converts)
{
    EXPECT_EQ(Read<double>(omu_PrimNumber(4294967295u)), 4294967295.0) << "from the unsigned field";
    EXPECT_EQ(Read<int>(omu_PrimNumber(-2.9, DataTypeEnm::INT)), -2) << "truncated toward zero";
    EXPECT_EQ(Read<int>(omu_PrimNumber(1e300, DataTypeEnm::INT)), 0);
    EXPECT_EQ(Read<cow_String>(omu_PrimString(cow_String("a\0b", 3))).Length(), 3);
    const auto rows = Read<cow_2DArray<double>>(omu_PrimArray(Ints{2, 1}, Ints{1, 2}));
    EXPECT_EQ(rows(1, 0), 2.0);
    EXPECT_EQ(Read<cow_2DArray<double>>(TupleOf(TupleOf(), TupleOf())).Rows(), 2) << "rows of no columns";
    EXPECT_ERROR(TupleOf(1).AsListString(), "TypeError: illegal argument type for built-in operation");
}
}
