// A viewer's list of names follows the deltas of the change history, and knows when they do not suffice.

#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <gtest/gtest.h>
#include <omu_ChangeHistory.h>
#include <random>
#include <thread>
#include <vwr_AnnotationList.h>

namespace
{
void Fill(annC_AnnotationContainer& container, std::initializer_list<const char*> names)
{
    for (const char* const name : names)
        container.Insert(name, new annC_Arrow);
}

// One random edit among a few names; Clear is none of them.
void Edit(annC_AnnotationContainer& container, std::mt19937& random)
{
    const auto name = [&random] {
        return cow_String(std::string_view("abcdefghij").substr(random() % 10, 1));
    };
    using Move = bool (annC_AnnotationContainer::*)(const cow_String&);
    using Pair = bool (annC_AnnotationContainer::*)(const cow_String&, const cow_String&);
    using C = annC_AnnotationContainer;
    constexpr Move MOVES[] = {&C::Remove, &C::BringForward, &C::SendBackward, &C::BringToFront,
                              &C::SendToBack};
    constexpr Pair PAIRS[] = {&C::ChangeKey, &C::MoveAfter, &C::MoveBefore};
    const auto which = random() % 11;
    if (which < 5)
        (container.*MOVES[which])(name());
    else if (which < 8)
        (container.*PAIRS[which - 5])(name(), name());
    else if (which < 10)
        container.Insert(name(), new annC_Arrow);
    else
        container.Get(name());
}

TEST(AnnotationList, DeltasOfRandomEditsGiveTheContainersOrder)
{
    std::mt19937 random(11);
    // On its own nothing is ever looked up afresh; beside another container, and after Clear, the order is
    // right all the same.
    for (const bool disturbed : {false, true})
    {
        annC_AnnotationContainer container;
        annC_AnnotationContainer other;
        Fill(container, {"a", "b", "c"});
        vwr_AnnotationList list;
        for (int round = 0; round < 3000; ++round)
        {
            for (auto edits = random() % 5; edits > 0; --edits)
                Edit(disturbed && random() % 4 == 0 ? other : container, random);
            if (disturbed && random() % 10 == 0)
            {
                container.Clear();
                Edit(container, random);
            }
            list.Follow(container);
            ASSERT_EQ(list.Names(), container.Keys()) << round;
        }
        EXPECT_EQ(list.Rebuilds() == 1, !disturbed);
        EXPECT_LT(list.Rebuilds(), 2900);
    }
}

TEST(AnnotationList, TakesTheNamesAfreshOnlyWhenItMust)
{
    annC_AnnotationContainer c;
    Fill(c, {"a", "b", "c"});
    vwr_AnnotationList list;
    int rebuilds = 0;
    const auto expect = [&](const annC_AnnotationContainer& container, bool afresh, const char* what) {
        list.Follow(container);
        EXPECT_EQ(list.Names(), container.Keys()) << what;
        rebuilds += afresh ? 1 : 0;
        EXPECT_EQ(list.Rebuilds(), rebuilds) << what;
    };
    omu_ChangeHistory& history = omu_ChangeHistory::Instance();
    expect(c, true, "the first time");
    c.BringToFront("a");
    expect(c, false, "a move");
    c.NewUid();
    expect(c, true, "another uid");
    history.Clear();
    c.BringToFront("b");
    expect(c, false, "history emptied before the change");
    c.BringToFront("a");
    history.Clear();
    expect(c, true, "history emptied after the change");
    for (int i = 0; i <= omu_ChangeHistory::LIMIT; ++i)
        history.addChange(omu_PrimTuple());
    expect(c, true, "history overflown");
    history.addChange(omu_PrimTuple());
    expect(c, true, "a change of something else");
    std::thread([&c] { Fill(c, {"z"}); }).join();
    expect(c, true, "a change by another thread");
    annC_AnnotationContainer copy(c);
    c.BringToFront("a");
    expect(c, false, "the original of a copy");
    expect(copy, true, "the copy");
}
}
