// Tuples and lists as containers: construction, text, slicing and combining, equality, limits.

#include <nex_InternalException.h>
#include <omu_NestingDepth.h>
#include <omu_PrimArray.h>
#include <omu_PrimPath.h>
#include <omu_PrimWrapper.h>
#include <omu_RangeChecker.h>
#include <random>
#include <testing/ValueTesting.h>
#include <thread>
#include <vector>

namespace
{
using Ints = cow_List<int>;
using DataTypeEnm = omu_PrimNumber::DataTypeEnm;

TEST(PrimTuple, FillsFromPlainValues)
{
    const int ints[] = {1, 2};
    const float floats[] = {0.5F};
    const omu_PrimString text("t");
    EXPECT_EQ(Text(omu_PrimTuple(5)), "()") << "room, no items";
    EXPECT_EQ(Text(omu_PrimTuple(ints, 2)), "(1, 2)");
    EXPECT_EQ(Text(omu_PrimTuple(floats, 1)), "(0.5,)");
    EXPECT_EQ(Text(omu_PrimTuple(cow_List<cow_String>{"a", "it's"})), "('a', \"it's\")");
    EXPECT_EQ(Text(omu_PrimTuple(cow_List<omu_PrimEnumBase>{omu_PrimEnumBase("ON")})), "(ON,)");
    EXPECT_EQ(Text(omu_PrimTuple(cow_2DArray<cow_String>(1, 2, "x"))), "(('x', 'x'),)");
    EXPECT_EQ(Text(omu_PrimTuple(omu_PrimArray(Ints{2, 1}, Ints{1, 2}))), "((1,), (2,))");
    EXPECT_EQ(Text(omu_PrimTuple(cow_List<const omu_Primitive*>{&text, nullptr})), "('t', None)");
    EXPECT_EQ(Text(omu_PrimList(Ints{1})), "[1]");
    EXPECT_EQ(Text(TupleOf(Ints{1}, cow_2DArray<double>(1, 1, 2.0), cow_Map<cow_String, float>{{"k", 1.0F}},
                           omu_PrimPath("/f"), omi_complex(0.0, 2.0), atr_String("m"), "s", true)),
              "((1,), ((2.0,),), (('k', 1.0),), '/f', 2j, 'm', 's', True)");
    EXPECT_ERROR(omu_PrimTuple('s'), "nex_InternalException: a sequence's kind code must be ( or L");
}

TEST(PrimTuple, NumbersKeepTheirDataType)
{
    const omu_PrimTuple tuple = TupleOf(static_cast<signed char>(1), static_cast<short>(2), 3, 6.0F, 5.0, 4u);
    // A single float is promoted; a list of floats says what it holds.
    for (int i = 0; i < tuple.Length(); ++i)
        EXPECT_EQ(dynamic_cast<const omu_PrimNumber&>(*tuple[i]).DataType(), DataTypeEnm(i == 3 ? 4 : i));
    const omu_PrimTuple floats(cow_List<float>{6.0F});
    EXPECT_EQ(dynamic_cast<const omu_PrimNumber&>(*floats[0]).DataType(), DataTypeEnm::FLOAT);
}

TEST(PrimTuple, ItemsByPosition)
{
    auto* const owned = new omu_PrimString("x");
    omu_PrimTuple tuple = TupleOf(1);
    tuple.Put(owned);
    EXPECT_EQ(tuple[1], owned);
    EXPECT_EQ(Text(tuple.Index(1)), "'x'");
    constexpr const char* OUTSIDE = "nex_RangeException: index 2 out of range, length 2";
    EXPECT_ERROR(tuple.Index(2), OUTSIDE);
    EXPECT_ERROR(tuple[2], OUTSIDE);
    EXPECT_ERROR(omu_PrimTuple(Ints{1, 2}).Index(2), OUTSIDE);
    EXPECT_ERROR(tuple.Index(-1), "nex_RangeException: index -1 out of range, length 2");
}

TEST(PrimTuple, NullItemsCannotBeCopiedAlong)
{
    omu_PrimList list(Ints{1});
    list.Set(0, nullptr);
    const omu_PrimTuple tuple = TupleOf(std::string("a").c_str(), list.Index(0));
    EXPECT_EQ(Text(tuple), "('a', None)");
    EXPECT_EQ(Text(tuple.Slice(0, 1)), "('a',)");
    EXPECT_ERROR(tuple.Slice(0, 2), "nex_InternalException: Tuple Index returned NULL");
    EXPECT_ERROR(tuple.Repeat(2), "nex_InternalException: Tuple Index returned NULL");
    EXPECT_ERROR(TupleOf(1).Concat(&tuple), "nex_InternalException: Tuple Index returned NULL");
    EXPECT_ERROR(list.Slice(0, 1), "nex_InternalException: List Index returned NULL");
    EXPECT_ERROR(list.Repeat(1), "nex_InternalException: List Index returned NULL");
    EXPECT_ERROR(list.Concat(&list), "nex_InternalException: List Index returned NULL");
}

template <class F>
std::string SourceOf(F raise)
{
    try
    {
        raise();
    }
    catch (const KTLBasException& raised)
    {
        return std::string(raised.Source().View());
    }
    return "nothing was raised";
}

TEST(PrimTuple, FaultsTellWhereTheyWereRaised)
{
    const omu_PrimTuple tuple(cow_List<const omu_Primitive*>{nullptr});
    EXPECT_EQ(SourceOf([&] { tuple.Slice(0, 1); }), "KTLOxuOmu.m/src/omu_PrimTuple");
    EXPECT_EQ(SourceOf([&] { omu_PrimTuple(tuple).End(); }), "KTLOxuOmu.m/src/omu_PrimTuple");
    EXPECT_EQ(SourceOf([&] { omu_Arguments(tuple).End(); }), "KTLOxuOmu.m/src/omu_Arguments");
    EXPECT_EQ(SourceOf([] { omu_RangeChecker::CheckInRange("k", 0, true, 2, 1, true); }),
              "KTLOxuOmu.m/src/omu_RangeChecker");
    omu_PrimList list;
    list.Put(static_cast<omu_Primitive*>(nullptr));
    EXPECT_EQ(SourceOf([&] { list.Slice(0, 1); }), "KTLOxuOmu.m/src/omu_PrimList");
}

TEST(PrimTuple, CombinesWithOtherClasses)
{
    const omu_PrimTuple tuple(Ints{1});
    const omu_PrimList list(Ints{2});
    const omu_PrimArray array(Ints{2, 1}, Ints{3, 4});
    EXPECT_EQ(Text(tuple.Concat(&list)), "(1, 2)") << "the class of the left";
    EXPECT_EQ(Text(list.Concat(&tuple)), "[2, 1]");
    EXPECT_EQ(Text(tuple.Concat(&array)), "(1, (3,), (4,))") << "an array gives its outermost items";
    EXPECT_ERROR(tuple.Concat(nullptr), "TypeError: illegal argument type for built-in operation");
    constexpr int MOST = std::numeric_limits<int>::max();
    const omu_PrimTuple two(Ints{1, 2});
    EXPECT_ERROR(two.Repeat(MOST), "OverflowError: repeated tuple is too long");
    EXPECT_ERROR(omu_PrimList(Ints{1, 2}).Repeat(MOST), "OverflowError: repeated list is too long");
    EXPECT_EQ(Text(omu_PrimTuple().Repeat(MOST)), "()");
}

TEST(PrimTuple, EqualityTellsTheClassesApart)
{
    EXPECT_TRUE(TupleOf(1, "a") == TupleOf(1.0, "a"));
    EXPECT_FALSE(TupleOf(1) == TupleOf(1, 1));
    EXPECT_FALSE(omu_PrimTuple() == omu_PrimList());
    EXPECT_FALSE(omu_PrimList() == omu_PrimTuple());
    EXPECT_FALSE(omu_PrimTuple() == omu_Arguments());
    EXPECT_FALSE(TupleOf(0) == omu_PrimTuple(cow_List<const omu_Primitive*>{nullptr}));
}

TEST(PrimList, RefusesMoreThanItsMaximum)
{
    constexpr const char* FULL = "OverflowError: list is full; maximum size is 2";
    omu_PrimList list(9, 2);
    list.Put(1);
    list.Put("b");
    const std::unique_ptr<omu_PrimList> copy(list.Copy());
    EXPECT_ERROR(list.Put(3), FULL);
    EXPECT_ERROR(copy->Put(new omu_PrimString("c")), FULL);
    EXPECT_EQ(Text(list), "[1, 'b']");
    const std::unique_ptr<omu_PrimList> twice(list.Repeat(2));
    twice->Put(3);
    EXPECT_EQ(Text(*twice), "[1, 'b', 1, 'b', 3]") << "what it makes is not limited";
}

// Deeper values cannot be made, so that nothing that goes down level by level runs out of stack.
TEST(PrimTuple, DepthIsLimited)
{
    constexpr const char* TOO_DEEP = "OverflowError: values are nested too deep; maximum depth is 1000";
    auto deep = std::make_unique<omu_PrimTuple>();
    while (deep->Depth() < omu_NestingDepth::LIMIT)
    {
        auto outer =
            deep->Depth() % 2 != 0 ? std::make_unique<omu_PrimTuple>() : std::make_unique<omu_PrimList>();
        outer->Put(std::move(deep));
        deep = std::move(outer);
    }
    omu_PrimTuple tuple;
    EXPECT_ERROR(tuple.Put(*deep), TOO_DEEP);
    EXPECT_EQ(tuple.Length(), 0);
    omu_PrimDictionary<int> dictionary;
    EXPECT_ERROR(dictionary.Put(1, *deep), TOO_DEEP);
    EXPECT_TRUE(*deep == *std::unique_ptr<omu_PrimTuple>(deep->Copy()));

    omu_PrimWrapper::Members members;
    members.Put("m", TupleOf(1));
    EXPECT_EQ(TupleOf(omu_PrimWrapper(0, nullptr, members)).Depth(), 4);
}

// Numbers are kept plain until something asks for more, which must not show. A model of texts goes along.
TEST(PrimList, PlainNumbersDoNotShow)
{
    std::mt19937 random(1);
    const auto below = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    omu_PrimList list, kept;
    std::vector<std::string> model, keptModel;
    const auto expectTexts = [](const omu_PrimList& found, auto from, auto to) {
        std::string text;
        for (auto at = from; at != to; ++at)
            text += (at == from ? "" : ", ") + *at;
        ASSERT_EQ(Text(found), "[" + text + "]");
    };
    const auto put = [&](const auto& item) {
        list.Put(item);
        model.push_back(Text(TupleOf(item).Index(0)));
    };
    for (int step = 0; step < 2000 && !HasFailure(); ++step)
    {
        const int length = list.Length();
        const int at = below(length + 1) - 1;
        switch (below(at < 0 ? 3 : 9))
        {
        case 0:
            put(step);
            break;
        case 1:
            put(step + 0.5);
            break;
        case 2:
            below(4) == 0 ? put("s") : put(-step);
            break;
        case 3:
            ASSERT_EQ(Text(*list[at]), model[std::size_t(at)]) << "now there are objects";
            break;
        case 4:
            list.Set(at, new omu_PrimNumber(-1));
            model[std::size_t(at)] = "-1";
            break;
        case 5:
            list = *std::unique_ptr<omu_PrimList>(list.Slice(at, length + 2 - below(9)));
            model.resize(std::size_t(std::max(at + list.Length(), 0)));
            model.erase(model.begin(), model.begin() + at);
            break;
        case 6:
            list = *std::unique_ptr<omu_PrimList>(list.Concat(&kept));
            model.insert(model.end(), keptModel.begin(), keptModel.end());
            break;
        default:
            list.Remove(at);
            model.erase(model.begin() + at);
        }
        if (below(9) == 0 && list.Length() < 40)
        {
            kept = list;
            keptModel = model;
        }
        expectTexts(list, model.begin(), model.end());
        expectTexts(kept, keptModel.begin(), keptModel.end());
    }
}

TEST(PrimTuple, ObjectsOfPlainNumbersAreMadeOnce)
{
    const omu_PrimTuple tuple(Ints{1, 2});
    const omu_PrimTuple copy(tuple);
    const omu_Primitive* seen = nullptr;
    {
        const std::jthread other([&] { seen = tuple[1]; });
        EXPECT_EQ(copy[1], copy[1]);
    }
    EXPECT_EQ(copy[1], seen);
    omu_PrimTuple longer(tuple);
    longer.Put(3);
    EXPECT_EQ(longer[1], seen) << "a pointer given out stays the item";
}
}
