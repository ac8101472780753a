// Which values each argument reader takes, and what it says of the others: by position, by keyword, in the
// whole-tuple conversions.

#include <functional>
#include <omu_DictStrPyObjectWrapper.h>
#include <omu_ListPyObjectWrapper.h>
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
        const omu_PrimString a("a");
        const omu_PrimString b("b");
        const omu_PrimNumber one(1.5);
        const omu_PrimTuple texts = TupleOf(a, b);
        const omu_PrimTuple pair = TupleOf(a, one);
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
        auto* textKeys = new omu_PrimDictionary<cow_String>;
        textKeys->Put("a", one);
        add("{s}", textKeys, "dictionary");
        auto* badKeys = new omu_PrimDictionary<cow_String>;
        badKeys->Put("a", a);
        add("{bad}", badKeys, "dictionary");
        add("{i}", new omu_PrimDictionary<int>, "dictionary");
        add("script", new omu_PyObjectWrapper(), "scripting object");
        add("scriptList", new omu_ListPyObjectWrapper(), "scripting object");
        add("scriptDict", new omu_DictStrPyObjectWrapper(), "scripting object");
        return made;
    }();
    return items;
}

struct Reader : NamedRow
{
    std::string expected;
    std::string byKeyword; // empty: the same
    std::string taken;     // names of the items it takes, blanks around
    std::function<bool(omu_PrimTuple&)> get;
    std::function<bool(omu_Arguments&)> getKeyword;
};

template <class T>
Reader Row(const char* name, const char* expected, const char* taken, const char* byKeyword = "")
{
    return {{name},
            expected,
            byKeyword,
            std::string(" ") + taken + " ",
            [](omu_PrimTuple& tuple) {
                T out{};
                return tuple.Get(out);
            },
            [](omu_Arguments& arguments) {
                T out{};
                return arguments.Get(out, "k");
            }};
}

using EveryReader = testing::TestWithParam<Reader>;

TEST_P(EveryReader, TakesWhatItsRowSays)
{
    const Reader& row = GetParam();
    int taken = 0;
    for (const Item& item : Items())
    {
        SCOPED_TRACE(item.name);
        const bool takes = row.taken.find(std::string(" ") + item.name + " ") != std::string::npos;
        taken += takes;
        const auto message = [&](const char* where, const std::string& expected) {
            return takes ? "read"
                         : std::string("TypeError: ") + where + "; found " + item.found + ", expecting " +
                               expected;
        };
        omu_PrimTuple tuple;
        tuple.Put(item.value ? item.value->Copy() : nullptr);
        EXPECT_EQ(Outcome([&] {
                      tuple.Begin();
                      EXPECT_EQ(row.get(tuple), takes);
                      tuple.End();
                      return "read";
                  }),
                  message("arg1", row.expected));

        omu_Arguments arguments;
        arguments.Put("k", item.value ? item.value->Copy() : nullptr);
        EXPECT_EQ(Outcome([&] {
                      arguments.Begin();
                      EXPECT_EQ(row.getKeyword(arguments), takes);
                      arguments.End();
                      return "read";
                  }),
                  message("k", row.byKeyword.empty() ? row.expected : row.byKeyword));
    }
    EXPECT_EQ(taken, std::count(row.taken.begin(), row.taken.end(), ' ') - 1) << "a name that no item has";
}

constexpr const char* NUMBERS = "1 127 128 -128 -129 32767 32768 schar short uint ulong float double";
const std::string REALS = std::string(NUMBERS) + " complex";
INSTANTIATE_ROWS(
    EveryReader, Row<bool>("Bool", "False, True, 0 or 1", "true 1"),
    Row<int>("Int", "int", "1 127 128 -128 -129 32767 32768"),
    Row<signed char>("SignedChar", "int", "1 127 -128 schar"),
    Row<short>("Short", "int", "1 127 128 -128 -129 32767 short"),
    Row<unsigned int>("Unsigned", "int", "1 127 128 32767 32768 uint"), Row<float>("Float", "float", NUMBERS),
    Row<double>("Double", "float", NUMBERS), Row<omi_complex>("Complex", "complex", REALS.c_str()),
    Row<cow_String>("String", "string", "text message"),
    Row<atr_String>("TranslatedString", "tran_string", "text message"),
    Row<omu_PrimPath>("Path", "path", "text message path"), Row<omu_PrimNone>("None", "None", "none"),
    Row<omu_PrimArray>("Array", "array", "array0 array1i array1f array2"),
    Row<omu_PrimTuple>("Tuple", "tuple", "() (i) [f] (s) (b) (null) ((f)) ((s)) ((s)(f)) ((s,f))"),
    Row<omu_PrimDictionary<cow_String>>("StrDictionary", "dictionary", "{s} {bad}"),
    Row<omu_PrimDictionary<int>>("IntDictionary", "dictionary", "{i}"),
    Row<omu_PyObjectWrapper>("ScriptObject", "scripting object", "script"),
    Row<omu_ListPyObjectWrapper>("ScriptList", "scripting list", "scriptList"),
    Row<omu_DictStrPyObjectWrapper>("ScriptDictionary", "scripting dictionary", "scriptDict"),
    Row<DataTypeConst>("Enumeration", "SCHAR or SHORT or INT or FLOAT or DOUBLE or UINT", "INT"),
    Row<omu_OnOffConst>("OnOff", "ON or OFF", "ON"),
    Row<omu_PrimEnumBase>("AnyConstant", "symbolic constant", "INT ON DASHED"),
    Row<Ints>("Ints", "sequence of Integers", "() (i) array0 array1i"),
    Row<cow_List<bool>>("Bools", "sequence of Bool", "() (i) (b)"),
    Row<cow_List<float>>("Floats", "sequence of Floats", "() (i) [f] array0 array1i array1f"),
    Row<Doubles>("Doubles", "sequence of Doubles", "() (i) [f] array0 array1i array1f", "sequence of Floats"),
    Row<cow_List<cow_String>>("Strings", "sequence of Strings", "() (s)"),
    Row<cow_List<atr_String>>("TranslatedStrings", "sequence of translated Strings", "() (s)",
                              "sequence of Translated Strings"),
    Row<cow_2DArray<double>>("Doubles2D", "2D sequence of Doubles", "() ((f)) array0 array2",
                             "2D sequence of Floats"),
    Row<cow_2DArray<cow_String>>("Strings2D", "2D sequence of Strings", "() ((s))"),
    Row<cow_Map<cow_String, float>>("Map", "Map of string to float", "() ((s,f)) {s}"));

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
    EXPECT_EQ(Read<float>(omu_PrimNumber(5u)), 5.0F);
    EXPECT_EQ(Read<unsigned>(omu_PrimNumber(4294967295u)), 4294967295u);
    EXPECT_EQ(Read<int>(omu_PrimNumber(-2.9, DataTypeEnm::INT)), -2) << "truncated toward zero";
    EXPECT_EQ(Read<int>(omu_PrimNumber(1e300, DataTypeEnm::INT)), 0);
    EXPECT_EQ(Read<omi_complex>(omu_PrimNumber(5u)), omi_complex(5.0, 0.0));
    EXPECT_EQ(Read<cow_String>(omu_PrimString(cow_String("a\0b", 3))).Length(), 3);
    EXPECT_EQ(Read<omu_PrimPath>(omu_PrimString("/x")).PathText(), "/x");
    EXPECT_EQ(DataTypeEnm(Read<DataTypeConst>(omu_PrimEnumBase("UINT"))), DataTypeEnm::UINT);
    EXPECT_EQ(Read<Doubles>(omu_PrimArray(Ints{1, 2})), (Doubles{1.0, 2.0}));
    const auto rows = Read<cow_2DArray<double>>(omu_PrimArray(Ints{2, 1}, Ints{1, 2}));
    EXPECT_EQ(rows.Rows(), 2);
    EXPECT_EQ(rows(1, 0), 2.0);
    const omu_PrimTuple none;
    EXPECT_EQ(Read<cow_2DArray<double>>(TupleOf(none, none)).Rows(), 2) << "rows of no columns";
}

TEST(ItemReader, WholeTupleConversions)
{
    const omu_PrimTuple ints(Ints{0, 1});
    EXPECT_EQ(ints.AsListBool(), (cow_List<bool>{false, true}));
    EXPECT_EQ(ints.AsListDouble(), (Doubles{0.0, 1.0}));
    EXPECT_EQ(ints.Cursor(), 0) << "they read no argument";
    const cow_2DArray<cow_String> grid(2, 1, "x");
    EXPECT_EQ(omu_PrimTuple(grid).As2DArrayString(), grid);
    const cow_Map<cow_String, float> map = {{"k", 0.5F}};
    EXPECT_EQ(omu_PrimTuple(map).AsMapString2Float(), map);
    constexpr const char* WRONG = "TypeError: illegal argument type for built-in operation";
    EXPECT_ERROR(ints.AsListString(), WRONG);
    EXPECT_ERROR(ints.As2DArrayDouble(), WRONG);
}
}
