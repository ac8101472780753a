// Tuples and lists as containers: construction, text, slicing and combining, equality, limits.

#include <limits>
#include <nex_InternalException.h>
#include <nex_RangeException.h>
#include <omu_Arguments.h>
#include <omu_GenericTypeErrorException.h>
#include <omu_NestingDepth.h>
#include <omu_OverflowErrorException.h>
#include <omu_PrimArray.h>
#include <omu_PrimDictionary.h>
#include <omu_PrimList.h>
#include <omu_PrimPath.h>
#include <omu_PrimString.h>
#include <omu_PrimWrapper.h>
#include <random>
#include <string>
#include <testing/ExpectRaise.h>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace
{
using Ints = cow_List<int>;
using DataTypeEnm = omu_PrimNumber::DataTypeEnm;

std::string Text(const omu_Primitive& value)
{
    return value.AsString(0).AsCharPtr();
}

// What a call that gives a new value gives, as text.
std::string Text(omu_Primitive* owned)
{
    return Text(*std::unique_ptr<omu_Primitive>(owned));
}

template <class... Items>
omu_PrimTuple TupleOf(const Items&... items)
{
    omu_PrimTuple tuple;
    (tuple.Put(items), ...);
    return tuple;
}

TEST(PrimTuple, FillsFromPlainValues)
{
    const int ints[] = {1, 2};
    const float floats[] = {0.5F};
    const omu_PrimString text("t");
    EXPECT_EQ(Text(omu_PrimTuple()), "()");
    EXPECT_EQ(Text(omu_PrimTuple(5)), "()") << "room, no items";
    EXPECT_TRUE(omu_PrimTuple('(').IsType('('));
    EXPECT_RAISE(omu_PrimTuple('s'), nex_InternalException, "a sequence's kind code must be ( or L");
    EXPECT_EQ(Text(omu_PrimTuple(Ints{1})), "(1,)");
    EXPECT_EQ(Text(omu_PrimTuple(ints, 2)), "(1, 2)");
    EXPECT_EQ(Text(omu_PrimTuple(floats, 1)), "(0.5,)");
    EXPECT_EQ(Text(omu_PrimTuple(cow_List<bool>{true, false})), "(True, False)");
    EXPECT_EQ(Text(omu_PrimTuple(cow_List<float>{0.1F})), "(0.100000001490116,)");
    EXPECT_EQ(Text(omu_PrimTuple(cow_List<cow_String>{"a", "it's"})), "('a', \"it's\")");
    EXPECT_EQ(Text(omu_PrimTuple(cow_List<atr_String>{"a"})), "('a',)");
    EXPECT_EQ(Text(omu_PrimTuple(cow_List<omu_PrimEnumBase>{omu_PrimEnumBase("ON")})), "(ON,)");
    EXPECT_EQ(Text(omu_PrimTuple(cow_2DArray<double>(2, 1, 1.0))), "((1.0,), (1.0,))");
    EXPECT_EQ(Text(omu_PrimTuple(cow_2DArray<cow_String>(1, 2, "x"))), "(('x', 'x'),)");
    EXPECT_EQ(Text(omu_PrimTuple(cow_Map<cow_String, float>{{"b", 1.0F}, {"a", 2.0F}})),
              "(('b', 1.0), ('a', 2.0))");
    EXPECT_EQ(Text(omu_PrimTuple(omu_PrimArray(Ints{2, 1}, Ints{1, 2}))), "((1,), (2,))");
    EXPECT_EQ(Text(omu_PrimTuple(cow_List<const omu_Primitive*>{&text, nullptr})), "('t', None)");
    EXPECT_EQ(Text(omu_PrimList(Ints{1})), "[1]");
    EXPECT_EQ(Text(omu_PrimList(cow_2DArray<double>(1, 1, 1.0))), "[(1.0,)]");
    const omu_PrimList room(3, 4);
    EXPECT_EQ(room.MaxSize(), 4);
    EXPECT_EQ(room.Length(), 0);

    const omu_PrimTuple nested =
        TupleOf(Ints{1}, cow_2DArray<double>(1, 1, 2.0), cow_Map<cow_String, float>{{"k", 1.0F}},
                omu_PrimPath("/f"), omi_complex(0.0, 2.0), atr_String("m"), "s", 2.5F, true);
    EXPECT_EQ(Text(nested), "((1,), ((2.0,),), (('k', 1.0),), '/f', 2j, 'm', 's', 2.5, True)");
}

TEST(PrimTuple, NumbersKeepTheirDataType)
{
    const omu_PrimTuple tuple = TupleOf(static_cast<signed char>(1), static_cast<short>(2), 3, 4u, 5.0, 6.0F);
    const DataTypeEnm types[] = {DataTypeEnm::SCHAR, DataTypeEnm::SHORT,  DataTypeEnm::INT,
                                 DataTypeEnm::UINT,  DataTypeEnm::DOUBLE, DataTypeEnm::DOUBLE};
    for (int i = 0; i < tuple.Length(); ++i)
        EXPECT_EQ(dynamic_cast<const omu_PrimNumber&>(*tuple[i]).DataType(), types[i]) << i;
    // A single float is promoted; a list of floats says what it holds.
    const omu_PrimTuple floats(cow_List<float>{6.0F});
    EXPECT_EQ(dynamic_cast<const omu_PrimNumber&>(*floats[0]).DataType(), DataTypeEnm::FLOAT);
}

TEST(PrimTuple, ItemsByPosition)
{
    auto* const owned = new omu_PrimString("x");
    omu_PrimTuple tuple = TupleOf(1);
    tuple.Put(owned);
    EXPECT_EQ(tuple[1], owned);
    const std::unique_ptr<omu_Primitive> item(tuple.Index(1));
    EXPECT_NE(item.get(), owned);
    EXPECT_TRUE(*item == *owned);
    for (const int outside : {-1, 2})
    {
        const std::string message = "index " + std::to_string(outside) + " out of range, length 2";
        EXPECT_RAISE(tuple.Index(outside), nex_RangeException, message.c_str());
        EXPECT_RAISE(tuple[outside], nex_RangeException, message.c_str());
        EXPECT_RAISE(omu_PrimTuple(Ints{1, 2})[outside], nex_RangeException, message.c_str());
        EXPECT_RAISE(omu_PrimTuple(Ints{1, 2}).Index(outside), nex_RangeException, message.c_str());
    }
}

TEST(PrimTuple, NullItemsCannotBeCopiedAlong)
{
    omu_PrimTuple tuple = TupleOf("a");
    tuple.Put(static_cast<omu_Primitive*>(nullptr));
    EXPECT_EQ(Text(tuple), "('a', None)");
    EXPECT_EQ(tuple.Index(1), nullptr);
    EXPECT_EQ(Text(tuple.Slice(0, 1)), "('a',)");
    EXPECT_RAISE(tuple.Slice(0, 2), nex_InternalException, "Tuple Index returned NULL");
    EXPECT_RAISE(tuple.Repeat(2), nex_InternalException, "Tuple Index returned NULL");
    EXPECT_RAISE(TupleOf(1).Concat(&tuple), nex_InternalException, "Tuple Index returned NULL");
    omu_PrimList list(Ints{1});
    list.Set(0, nullptr);
    EXPECT_RAISE(list.Slice(0, 1), nex_InternalException, "List Index returned NULL");
    EXPECT_RAISE(list.Repeat(1), nex_InternalException, "List Index returned NULL");
    EXPECT_RAISE(list.Concat(&list), nex_InternalException, "List Index returned NULL");
}

TEST(PrimTuple, CombinesWithOtherClasses)
{
    const omu_PrimTuple tuple(Ints{1});
    const omu_PrimList list(Ints{2});
    const omu_PrimArray array(Ints{2, 1}, Ints{3, 4});
    EXPECT_EQ(Text(tuple.Concat(&list)), "(1, 2)") << "the class of the left";
    EXPECT_EQ(Text(list.Concat(&tuple)), "[2, 1]");
    EXPECT_EQ(Text(tuple.Concat(&array)), "(1, (3,), (4,))") << "an array gives its outermost items";
    EXPECT_RAISE(tuple.Concat(nullptr), omu_GenericTypeErrorException,
                 "illegal argument type for built-in operation");
    constexpr int MOST = std::numeric_limits<int>::max();
    EXPECT_RAISE(omu_PrimTuple(Ints{1, 2}).Repeat(MOST), omu_OverflowErrorException,
                 "repeated tuple is too long");
    EXPECT_RAISE(omu_PrimList(Ints{1, 2}).Repeat(MOST), omu_OverflowErrorException,
                 "repeated list is too long");
    EXPECT_EQ(Text(omu_PrimTuple().Repeat(MOST)), "()");
}

TEST(PrimTuple, EqualityTellsTuplesFromLists)
{
    EXPECT_TRUE(TupleOf(1, "a") == TupleOf(1.0, "a"));
    EXPECT_FALSE(TupleOf(1, "a") == TupleOf(1, "b"));
    EXPECT_FALSE(TupleOf(1) == TupleOf(1, 1));
    EXPECT_FALSE(omu_PrimTuple() == omu_PrimList());
    EXPECT_FALSE(omu_PrimTuple() == omu_Arguments());
    EXPECT_FALSE(omu_Arguments() == omu_PrimTuple());
    EXPECT_FALSE(omu_PrimList() == omu_PrimTuple());
    EXPECT_FALSE(omu_PrimTuple(Ints{1}) == omu_PrimArray(Ints{1}));
    EXPECT_FALSE(TupleOf(omu_PrimNumber(0)) == omu_PrimTuple(cow_List<const omu_Primitive*>{nullptr}));
}

TEST(PrimList, RefusesMoreThanItsMaximum)
{
    constexpr const char* FULL = "list is full; maximum size is 2";
    omu_PrimList list(9, 2);
    list.Put(1);
    list.Put("b");
    EXPECT_RAISE(list.Put(3), omu_OverflowErrorException, FULL);
    EXPECT_RAISE(list.Put(new omu_PrimString("c")), omu_OverflowErrorException, FULL);
    EXPECT_EQ(Text(list), "[1, 'b']");
    const std::unique_ptr<omu_PrimList> copy(list.Copy());
    EXPECT_RAISE(copy->Put(3), omu_OverflowErrorException, FULL);
    const std::unique_ptr<omu_PrimList> twice(list.Repeat(2));
    twice->Put(3);
    EXPECT_EQ(Text(*twice), "[1, 'b', 1, 'b', 3]") << "what it makes is not limited";
    list.Remove(0);
    list.Put(2.5);
    EXPECT_EQ(Text(list), "['b', 2.5]");
    list.Clear();
    EXPECT_EQ(Text(list), "[]");
    omu_PrimList unlimited(1, -1);
    unlimited.Put(1);
    unlimited.Put(2);
    EXPECT_EQ(unlimited.Length(), 2);
}

// Deeper values cannot be made, so that nothing that goes down level by level runs out of stack.
TEST(PrimTuple, DepthIsLimited)
{
    constexpr const char* TOO_DEEP = "values are nested too deep; maximum depth is 1000";
    auto deep = std::make_unique<omu_PrimTuple>();
    for (int depth = 1; depth < omu_NestingDepth::LIMIT; ++depth)
    {
        ASSERT_EQ(deep->Depth(), depth);
        // By turns in a tuple, a list and a wrapper's dictionary, which is two levels.
        std::unique_ptr<omu_PrimTuple> outer = std::make_unique<omu_PrimTuple>();
        if (depth % 2 == 0)
            outer = std::make_unique<omu_PrimList>();
        outer->Put(std::move(deep));
        deep = std::move(outer);
    }
    omu_PrimTuple tuple;
    EXPECT_RAISE(tuple.Put(*deep), omu_OverflowErrorException, TOO_DEEP);
    EXPECT_EQ(tuple.Length(), 0);
    omu_PrimDictionary<int> dictionary;
    EXPECT_RAISE(dictionary.Put(1, *deep), omu_OverflowErrorException, TOO_DEEP);
    EXPECT_FALSE(dictionary.Has(1));
    EXPECT_EQ(Text(*deep).size(), std::size_t{2 * 1000 + 500})
        << "1000 pairs of brackets, a comma in each tuple but one";
    EXPECT_TRUE(*deep == *std::unique_ptr<omu_PrimTuple>(deep->Copy()));

    omu_PrimDictionary<cow_String> members;
    members.Put("m", TupleOf(1));
    EXPECT_EQ(TupleOf(omu_PrimWrapper(0, nullptr, members)).Depth(), 4);
}

// Numbers are kept plain until something asks for more, which must not show. A model of texts goes along.
class PlainNumbers : public testing::TestWithParam<unsigned>
{};

TEST_P(PlainNumbers, DoNotShow)
{
    std::mt19937 random(GetParam());
    const auto below = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    const auto joined = [](const std::vector<std::string>& texts) {
        std::string text = "[";
        for (std::size_t i = 0; i < texts.size(); ++i)
            text += (i > 0 ? ", " : "") + texts[i];
        return text + "]";
    };
    omu_PrimList list;
    std::vector<std::string> model;
    omu_PrimList kept;
    std::string keptText = "[]";
    for (int step = 0; step < 60; ++step)
    {
        const int length = list.Length();
        switch (below(12))
        {
        case 0:
        case 1:
        case 2:
            list.Put(step);
            model.push_back(std::to_string(step));
            break;
        case 3:
            list.Put(step + 0.5);
            model.push_back(std::to_string(step) + ".5");
            break;
        case 4:
            if (below(4) == 0)
            {
                list.Put("s");
                model.emplace_back("'s'");
            }
            break;
        case 5:
            if (length > 0)
            {
                const int at = below(length);
                ASSERT_EQ(Text(*list[at]), model[static_cast<std::size_t>(at)]) << "now there are objects";
                ASSERT_EQ(list[at], list[at]);
            }
            break;
        case 6:
            kept = list;
            keptText = joined(model);
            break;
        case 7:
            if (length > 0)
            {
                const int at = below(length);
                list.Remove(at);
                model.erase(model.begin() + at);
            }
            break;
        case 8:
            if (length > 0 && below(3) == 0)
            {
                const int at = below(length);
                list.Set(at, new omu_PrimNumber(-1));
                model[static_cast<std::size_t>(at)] = "-1";
            }
            break;
        case 9:
        {
            const int from = below(length + 4) - 2;
            const int to = below(length + 4) - 2;
            const int first = std::clamp(from, 0, length);
            const int last = std::max(first, std::clamp(to, 0, length));
            ASSERT_EQ(Text(list.Slice(from, to)),
                      joined(std::vector<std::string>(model.begin() + first, model.begin() + last)));
            break;
        }
        case 10:
        {
            const int count = below(4) - 1;
            std::vector<std::string> repeated;
            for (int i = 0; i < count; ++i)
                repeated.insert(repeated.end(), model.begin(), model.end());
            ASSERT_EQ(Text(list.Repeat(count)), joined(repeated));
            break;
        }
        default:
            if (length < 40)
            {
                const std::unique_ptr<omu_PrimList> twice(list.Concat(&list));
                list = *twice;
                const std::vector<std::string> once = model;
                model.insert(model.end(), once.begin(), once.end());
            }
        }
        ASSERT_EQ(Text(list), joined(model));
        ASSERT_EQ(Text(kept), keptText) << "a copy was changed through the other";
        ASSERT_TRUE(list == omu_PrimList(list));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, PlainNumbers, testing::Range(1u, 41u));

TEST(PrimTuple, ObjectsOfPlainNumbersAreMadeOnce)
{
    const omu_PrimTuple tuple(Ints{1, 2});
    const omu_PrimTuple copy(tuple);
    const omu_Primitive* seen[2] = {};
    {
        std::jthread other([&] { seen[0] = tuple[1]; });
        seen[1] = copy[1];
    }
    EXPECT_EQ(seen[0], seen[1]);
    EXPECT_EQ(tuple[1], seen[0]);
    omu_PrimTuple longer(tuple);
    longer.Put(3);
    EXPECT_EQ(longer[1], seen[0]) << "a pointer given out stays the item";
}
}
