// Tuples, lists and argument lists as containers: combining, limits, what is read of them, what stays plain.

#include <omu_NestingDepth.h>
#include <omu_PrimArray.h>
#include <random>
#include <testing/ValueTesting.h>
#include <thread>
#include <vector>

namespace
{
using Ints = cow_List<int>;

TEST(PrimTuple, Combines)
{
    const omu_PrimTuple tuple(Ints{1});
    const omu_PrimList list(Ints{2});
    const omu_PrimArray array(Ints{2, 1}, Ints{3, 4});
    EXPECT_EQ(Text(tuple.Concat(&list)), "(1, 2)") << "the class of the left";
    EXPECT_EQ(Text(tuple.Concat(&array)), "(1, (3,), (4,))") << "an array gives its outermost items";
    EXPECT_ERROR(tuple.Concat(nullptr), "TypeError: illegal argument type for built-in operation");
    constexpr int MOST = std::numeric_limits<int>::max();
    EXPECT_ERROR(omu_PrimTuple(Ints{1, 2}).Repeat(MOST), "OverflowError: repeated tuple is too long");
    EXPECT_ERROR(omu_PrimList(Ints{1, 2}).Repeat(MOST), "OverflowError: repeated list is too long");
    // Null items cannot be copied along.
    const omu_PrimTuple holed(cow_List<const omu_Primitive*>{&tuple, nullptr});
    EXPECT_ERROR(holed.Slice(0, 2), "nex_InternalException: Tuple Index returned NULL");
    EXPECT_ERROR(tuple.Concat(&holed), "nex_InternalException: Tuple Index returned NULL");
    EXPECT_ERROR(list.Concat(&holed), "nex_InternalException: List Index returned NULL");
}

TEST(PrimList, RefusesMoreThanItsMaximum)
{
    omu_PrimList list(9, 2);
    list.Put(1);
    list.Put("b");
    EXPECT_ERROR(std::unique_ptr<omu_PrimList>(list.Copy())->Put(new omu_PrimString("c")),
                 "OverflowError: list is full; maximum size is 2");
    const std::unique_ptr<omu_PrimList> twice(list.Repeat(2));
    twice->Put(3);
    EXPECT_EQ(Text(*twice), "[1, 'b', 1, 'b', 3]") << "what it makes is not limited";
}

// A tuple that was read holds the items alone: not the cursor, not the faults of the one it came from.
TEST(PrimTuple, ReadTupleStartsAfresh)
{
    omu_PrimTuple inner(Ints{1, 2, 3});
    cow_String text;
    EXPECT_FALSE(inner.Get(text));
    omu_PrimTuple outer = TupleOf(inner);
    omu_PrimTuple found;
    EXPECT_TRUE(outer.Get(found));
    EXPECT_ERROR(found.End("s.v"), "TypeError: s.v; too many arguments; expected 0, got 3");
}

TEST(Arguments, AreSharedWithCopies)
{
    omu_Arguments arguments = Args("a", Keyword("flag", true));
    EXPECT_ERROR(arguments.Put("flag", 0), "TypeError: keyword error on flag");
    const std::unique_ptr<omu_Arguments> copy(arguments.Copy());
    EXPECT_EQ(copy->Keywords().Get("flag"), arguments.Keywords().Get("flag"));
    copy->Put("more", 1);
    EXPECT_FALSE(*copy == arguments);
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
    omu_PrimDictionary<int> dictionary;
    EXPECT_ERROR(dictionary.Put(1, *deep), TOO_DEEP);
    EXPECT_TRUE(*deep == *std::unique_ptr<omu_PrimTuple>(deep->Copy()));
}

// Numbers are kept plain until something asks for more, which must not show. A model of texts goes along.
TEST(PrimList, PlainNumbersDoNotShow)
{
    std::mt19937 random(1);
    const auto below = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    omu_PrimList list, kept;
    std::vector<std::string> model, keptModel;
    const auto expectTexts = [](const omu_PrimList& found, const std::vector<std::string>& wanted) {
        std::string text;
        for (const std::string& one : wanted)
            text += (text.empty() ? "" : ", ") + one;
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
        case 1:
            below(2) == 0 ? put(step) : put(step + 0.5);
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
        expectTexts(list, model);
        expectTexts(kept, keptModel);
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
