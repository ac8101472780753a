// A viewer's list of names follows the deltas of the change history, and knows when they do not suffice.

#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <functional>
#include <gtest/gtest.h>
#include <new>
#include <omu_ChangeHistory.h>
#include <omu_ChangeListener.h>
#include <random>
#include <thread>
#include <vwr_AnnotationList.h>

namespace
{
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

// What leaves the deltas short of the truth.
void Disturb(annC_AnnotationContainer& container, const annC_AnnotationContainer& other, std::mt19937& random)
{
    const auto overflow = [] {
        for (int i = 0; i <= omu_ChangeHistory::LIMIT; ++i)
            omu_ChangeHistory::Instance().addChange(omu_PrimTuple());
    };
    const auto reorderElsewhere = [&container] {
        std::thread([&container] {
            if (container.Size() > 1)
                container.SendToBack(container.Keys().Get(0));
        }).join();
    };
    // The removal is posted, and the insertion that follows it is not.
    const auto moveHalf = [&container] {
        struct : omu_ChangeListener
        {
            void Changed(const omu_PrimTuple&) override { throw std::bad_alloc(); }
        } failing;
        omu_ChangeHistory::Instance().Listen(&failing);
        for (const cow_String& name : container.Keys())
            EXPECT_THROW(container.BringToFront(name), std::bad_alloc);
        omu_ChangeHistory::Instance().Listen(nullptr);
    };
    const std::function<void()> ways[] = {[&] { container.Clear(); },
                                          [&] { container = other; },
                                          [] { omu_ChangeHistory::Instance().Clear(); },
                                          overflow,
                                          reorderElsewhere,
                                          moveHalf};
    ways[random() % 6]();
}

TEST(AnnotationList, DeltasOfRandomEditsGiveTheContainersOrder)
{
    std::mt19937 random(11);
    // On its own nothing is ever looked up afresh; beside another container, and disturbed, the order is
    // right all the same.
    for (const bool disturbed : {false, true})
    {
        annC_AnnotationContainer container;
        annC_AnnotationContainer other;
        for (const char* const name : {"a", "b", "c"})
            container.Insert(name, new annC_Arrow);
        vwr_AnnotationList list;
        for (int round = 0; round < 3000; ++round)
        {
            for (auto edits = random() % 5; edits > 0; --edits)
                Edit(disturbed && random() % 4 == 0 ? other : container, random);
            if (disturbed && random() % 30 == 0)
            {
                Disturb(container, other, random);
                if (random() % 2 == 0)
                    Edit(container, random);
            }
            list.Follow(container);
            ASSERT_EQ(list.Names(), container.Keys()) << round;
        }
        EXPECT_EQ(list.Rebuilds() == 1, !disturbed);
        EXPECT_LT(list.Rebuilds(), 2900);
    }
}
}
