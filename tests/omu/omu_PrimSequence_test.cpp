// Tuples and lists as containers: construction, text, slicing and combining, equality, limits.

#include <limits>
#include <nex_InternalException.h>
#include <nex_RangeException.h>
#include <omu_Arguments.h>
#include <omu_GenericTypeErrorException.h>
#include <omu_NestingDepth.h>
#include <omu_OverflowErrorException.h>
#include <omu_PrimArray.h>
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
    EXPECT_RAISE(omu_PrimTuple('s'), nex_InternalException, "a sequence's kind code must be ( or L");
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
    for (const int outside : {-1, 2})
    {
        const std::string message = "index " + std::to_string(outside) + " out of range, length 2";
        EXPECT_RAISE(tuple.Index(outside), nex_RangeException, message.c_str());
        EXPECT_RAISE(tuple[outside], nex_RangeException, message.c_str());
        EXPECT_RAISE(omu_PrimTuple(Ints{1, 2}).Index(outside), nex_RangeException, message.c_str());
    }
}

TEST(PrimTuple, NullItemsCannotBeCopiedAlong)
{
    omu_PrimList list(Ints{1});
    list.Set(0, nullptr);
    const omu_PrimTuple tuple = TupleOf(std::string("a").c_str(), list.Index(0));
    EXPECT_EQ(Text(tuple), "('a', None)");
    EXPECT_EQ(Text(tuple.Slice(0, 1)), "('a',)");
    EXPECT_RAISE(tuple.Slice(0, 2), nex_InternalException, "Tuple Index returned NULL");
    EXPECT_RAISE(tuple.Repeat(2), nex_InternalException, "Tuple Index returned NULL");
    EXPECT_RAISE(TupleOf(1).Concat(&tuple), nex_InternalException, "Tuple Index returned NULL");
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
    const omu_PrimTuple two(Ints{1, 2});
    EXPECT_RAISE(two.Repeat(MOST), omu_OverflowErrorException, "repeated tuple is too long");
    EXPECT_RAISE(omu_PrimList(Ints{1, 2}).Repeat(MOST), omu_OverflowErrorException,
                 "repeated list is too long");
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
    constexpr const char* FULL = "list is full; maximum size is 2";
    omu_PrimList list(9, 2);
    list.Put(1);
    list.Put("b");
    const std::unique_ptr<omu_PrimList> copy(list.Copy());
    EXPECT_RAISE(list.Put(3), omu_OverflowErrorException, FULL);
    EXPECT_RAISE(copy->Put(new omu_PrimString("c")), omu_OverflowErrorException, FULL);
    EXPECT_EQ(Text(list), "[1, 'b']");
    const std::unique_ptr<omu_PrimList> twice(list.Repeat(2));
    twice->Put(3);
    EXPECT_EQ(Text(*twice), "[1, 'b', 1, 'b', 3]") << "what it makes is not limited";
}

// Deeper values cannot be made, so that nothing that goes down level by level runs out of stack.
TEST(PrimTuple, DepthIsLimited)
{
    constexpr const char* TOO_DEEP = "values are nested too deep; maximum depth is 1000";
    auto deep = std::make_unique<omu_PrimTuple>();
    while (deep->Depth() < omu_NestingDepth::LIMIT)
    {
        auto outer =
            deep->Depth() % 2 != 0 ? std::make_unique<omu_PrimTuple>() : std::make_unique<omu_PrimList>();
        outer->Put(std::move(deep));
        deep = std::move(outer);
    }
    omu_PrimTuple tuple;
    EXPECT_RAISE(tuple.Put(*deep), omu_OverflowErrorException, TOO_DEEP);
    EXPECT_EQ(tuple.Length(), 0);
    omu_PrimDictionary<int> dictionary;
    EXPECT_RAISE(dictionary.Put(1, *deep), omu_OverflowErrorException, TOO_DEEP);
    EXPECT_EQ(Text(*deep).size(), 2500U) << "1000 pairs of brackets, a comma in each outer tuple";
    EXPECT_TRUE(*deep == *std::unique_ptr<omu_PrimTuple>(deep->Copy()));

    omu_PrimWrapper::Members members;
    members.Put("m", TupleOf(1));
    EXPECT_EQ(TupleOf(omu_PrimWrapper(0, nullptr, members)).Depth(), 4);
}

// Numbers are kept plain until something asks for more, which must not show. A model of texts goes along.
class PlainNumbers : public testing::TestWithParam<unsigned>
{
protected:
    using Texts = std::vector<std::string>;

    int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
    static std::string Joined(const Texts& texts)
    {
        std::string text = "[";
        for (std::size_t i = 0; i < texts.size(); ++i)
            text += (i > 0 ? ", " : "") + texts[i];
        return text + "]";
    }
    template <class Item>
    void Put(const Item& item)
    {
        list_.Put(item);
        model_.push_back(Text(TupleOf(item).Index(0)));
    }
    void ExpectSlice()
    {
        const int length = list_.Length();
        const int from = Below(length + 4) - 2;
        const int to = Below(length + 4) - 2;
        const int first = std::clamp(from, 0, length);
        const int last = std::max(first, std::clamp(to, 0, length));
        ASSERT_EQ(Text(list_.Slice(from, to)), Joined(Texts(model_.begin() + first, model_.begin() + last)));
    }
    void Change(int at)
    {
        switch (Below(5))
        {
        case 0:
            ASSERT_EQ(Text(*list_[at]), model_[std::size_t(at)]) << "now there are objects";
            break;
        case 1:
            list_.Remove(at);
            model_.erase(model_.begin() + at);
            break;
        case 2:
            if (Below(3) == 0)
            {
                list_.Set(at, new omu_PrimNumber(-1));
                model_[std::size_t(at)] = "-1";
            }
            break;
        case 3:
            ExpectSlice();
            break;
        default:
            if (list_.Length() < 40)
            {
                list_ = *std::unique_ptr<omu_PrimList>(list_.Concat(&list_));
                model_.reserve(2 * model_.size());
                model_.insert(model_.end(), model_.begin(), model_.end());
            }
        }
    }

    std::mt19937 random_{GetParam()};
    omu_PrimList list_;
    Texts model_;
};

TEST_P(PlainNumbers, DoNotShow)
{
    omu_PrimList kept;
    std::string keptText = "[]";
    for (int step = 0; step < 200; ++step)
    {
        if (Below(2) == 0)
            Put(step);
        else if (Below(3) == 0)
            Put(step + 0.5);
        else if (Below(8) == 0)
            Put("s");
        else if (list_.Length() > 0)
            Change(Below(list_.Length()));
        if (Below(9) == 0)
        {
            kept = list_;
            keptText = Joined(model_);
        }
        ASSERT_EQ(Text(list_), Joined(model_));
        ASSERT_EQ(Text(kept), keptText) << "a copy was changed through the other";
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, PlainNumbers, testing::Range(1u, 11u));

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
