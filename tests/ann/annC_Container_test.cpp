// The order of annotations, the deltas that tell of it, and what copies share.

#include <algorithm>
#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <annC_Text.h>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <testing/AnnotationHistory.h>
#include <testing/ExpectRaise.h>

namespace
{
using Names = std::vector<std::string>;

Names Order(const annC_AnnotationContainer& container)
{
    Names names;
    for (const cow_String& name : container.Keys())
        names.emplace_back(name.View());
    return names;
}

/// The container with these names, the first in front.
annC_AnnotationContainer Filled(const Names& names)
{
    annC_AnnotationContainer container;
    for (auto name = names.rbegin(); name != names.rend(); ++name)
        container.Insert(name->c_str(), new annC_Arrow);
    return container;
}

struct DeltaCase
{
    const char* name;
    bool (*edit)(annC_AnnotationContainer&);
    bool done;
    const char* deltas;
    Names order;
};

class Delta : public testing::TestWithParam<DeltaCase>
{};

TEST_P(Delta, TellsTheFinalPlace)
{
    annC_AnnotationContainer container = Filled({"a", "b", "c", "d"});
    AnnotationHistory history;
    EXPECT_EQ(GetParam().edit(container), GetParam().done);
    EXPECT_EQ(history.Take(), GetParam().deltas);
    EXPECT_EQ(Order(container), GetParam().order);
}

using C = annC_AnnotationContainer;
const Names UNCHANGED = {"a", "b", "c", "d"};
INSTANTIATE_TEST_SUITE_P(
    Edits, Delta,
    testing::Values(
        DeltaCase{"InsertOver",
                  [](C& c) { return c.Insert("c", annC_Text()); },
                  true,
                  "('Remove', 'c') ('Insert', 'c', 0)",
                  {"c", "a", "b", "d"}},
        DeltaCase{"InsertNull", [](C& c) { return c.Insert("c", nullptr); }, false, "", UNCHANGED},
        DeltaCase{"RenameOver",
                  [](C& c) { return c.ChangeKey("d", "b"); },
                  true,
                  "('Remove', 'b') ('Rename', 'd', 'b', 2)",
                  {"a", "c", "b"}},
        DeltaCase{"RenameToItself", [](C& c) { return c.ChangeKey("b", "b"); }, true,
                  "('Rename', 'b', 'b', 1)", UNCHANGED},
        DeltaCase{"RenameUnknownKeepsThePartner", [](C& c) { return c.ChangeKey("x", "b"); }, false, "",
                  UNCHANGED},
        DeltaCase{"MoveTowardsTheBack",
                  [](C& c) { return c.MoveBefore("a", "d"); },
                  true,
                  "('Remove', 'a') ('Insert', 'a', 2)",
                  {"b", "c", "a", "d"}},
        DeltaCase{"MoveAfter",
                  [](C& c) { return c.MoveAfter("d", "a"); },
                  true,
                  "('Remove', 'd') ('Insert', 'd', 1)",
                  {"a", "d", "b", "c"}},
        DeltaCase{"MoveBehindItself", [](C& c) { return c.MoveAfter("b", "b"); }, true,
                  "('Remove', 'b') ('Insert', 'b', 1)", UNCHANGED},
        DeltaCase{"MoveByAnUnknown", [](C& c) { return c.MoveAfter("b", "x"); }, false, "", UNCHANGED},
        DeltaCase{"ForwardFromTheFront", [](C& c) { return c.BringForward("a"); }, true, "", UNCHANGED},
        DeltaCase{"Forward",
                  [](C& c) { return c.BringForward("c"); },
                  true,
                  "('Remove', 'c') ('Insert', 'c', 1)",
                  {"a", "c", "b", "d"}},
        DeltaCase{"BackwardFromTheBack", [](C& c) { return c.SendBackward("d"); }, true, "", UNCHANGED},
        DeltaCase{"Backward",
                  [](C& c) { return c.SendBackward("a"); },
                  true,
                  "('Remove', 'a') ('Insert', 'a', 1)",
                  {"b", "a", "c", "d"}},
        DeltaCase{"FrontOfTheFirst", [](C& c) { return c.BringToFront("a"); }, true,
                  "('Remove', 'a') ('Insert', 'a', 0)", UNCHANGED},
        DeltaCase{"BackOfTheLast", [](C& c) { return c.SendToBack("d"); }, true,
                  "('Remove', 'd') ('Insert', 'd', 3)", UNCHANGED},
        DeltaCase{"RemoveUnknown", [](C& c) { return c.Remove("x"); }, false, "", UNCHANGED},
        DeltaCase{"GetPostsBeforeItLooks", [](C& c) { return c.Get("x") != nullptr; }, false,
                  "('Modify', 'x')", UNCHANGED},
        DeltaCase{"GetByIndex", [](C& c) { return c.Get(1) != nullptr && c.Get(4) == nullptr; }, true,
                  "('Modify', 'b')", UNCHANGED},
        DeltaCase{"ReadingPostsNothing",
                  [](C& c) { return c.ConstGet("b") == c.ConstGet(1) && c.ConstGet(9) == nullptr; }, true, "",
                  UNCHANGED},
        DeltaCase{"ClearPostsNothing",
                  [](C& c) {
                      c.Clear();
                      return c.Size() == 0;
                  },
                  true,
                  "",
                  {}}),
    [](const auto& row) { return row.param.name; });

/// Random edits against a plain list; a follower of the deltas has its order; identifiers stay with their
/// entries and are never used again; a copy made on the way keeps what it had.
TEST(Container, RandomEditsAgreeWithAPlainList)
{
    std::mt19937 random(3);
    const auto below = [&random](std::size_t n) { return static_cast<std::size_t>(random()) % n; };
    annC_AnnotationContainer container;
    AnnotationHistory history;
    Names model;
    Names follower;
    std::map<std::string, int> ids;
    int nextId = 0;
    annC_AnnotationContainer copy;
    Names copied;
    for (int step = 0; step < 20000; ++step)
    {
        const std::string name = "n" + std::to_string(below(60));
        const std::string other = "n" + std::to_string(below(60));
        const auto at = [&model](const std::string& n) { return std::find(model.begin(), model.end(), n); };
        const bool hasName = at(name) != model.end();
        const bool hasBoth = hasName && at(other) != model.end();
        const auto place = [&](std::ptrdiff_t index) {
            model.erase(at(name));
            model.insert(model.begin() + index, name);
        };
        const std::ptrdiff_t index = at(name) - model.begin();
        const auto last = static_cast<std::ptrdiff_t>(model.size()) - 1;
        switch (below(9))
        {
        case 0:
            if (hasName)
                model.erase(at(name));
            model.insert(model.begin(), name);
            ids[name] = nextId++;
            ASSERT_TRUE(container.Insert(name.c_str(), new annC_Arrow));
            break;
        case 1:
            if (hasName)
                model.erase(at(name));
            ASSERT_EQ(container.Remove(name.c_str()), hasName);
            break;
        case 2:
            if (hasName && name != other)
            {
                if (hasBoth)
                    model.erase(at(other));
                *at(name) = other;
                ids[other] = ids[name];
            }
            ASSERT_EQ(container.ChangeKey(name.c_str(), other.c_str()), hasName);
            break;
        case 3:
        case 4:
        {
            const bool after = below(2) == 0;
            if (hasBoth && name != other)
            {
                model.erase(at(name));
                model.insert(at(other) + (after ? 1 : 0), name);
            }
            ASSERT_EQ(after ? container.MoveAfter(name.c_str(), other.c_str())
                            : container.MoveBefore(name.c_str(), other.c_str()),
                      hasBoth);
            break;
        }
        case 5:
            if (hasName)
                place(std::max<std::ptrdiff_t>(index - 1, 0));
            ASSERT_EQ(container.BringForward(name.c_str()), hasName);
            break;
        case 6:
            if (hasName)
                place(std::min(index + 1, last));
            ASSERT_EQ(container.SendBackward(name.c_str()), hasName);
            break;
        case 7:
            if (hasName)
                place(below(2) == 0 ? 0 : last);
            ASSERT_EQ(at(name) == model.begin() && hasName ? container.BringToFront(name.c_str())
                                                           : container.SendToBack(name.c_str()),
                      hasName);
            break;
        default:
            ASSERT_EQ(Order(copy), copied);
            copy = container;
            copied = model;
        }
        history.Follow(follower);
        ASSERT_EQ(Order(container), model) << step;
        ASSERT_EQ(follower, model) << step;
        for (std::size_t i = 0; i < model.size(); ++i)
        {
            ASSERT_EQ(container.IndexOf(model[i].c_str()), static_cast<int>(i));
            ASSERT_EQ(container.GetId(model[i].c_str()), ids[model[i]]);
        }
    }
    EXPECT_EQ(container.GetId("never"), -1);
    EXPECT_EQ(container.IndexOf("never"), -1);
}

TEST(Container, ACopySharesAnnotationsUntilOneIsTakenForWriting)
{
    annC_AnnotationContainer container = Filled({"a", "b"});
    annC_AnnotationContainer copy = container;
    EXPECT_EQ(copy.ConstGet("a"), container.ConstGet("a"));
    copy.Get("a")->Translate(1.0, 2.0);
    EXPECT_NE(copy.ConstGet("a"), container.ConstGet("a"));
    EXPECT_EQ(copy.ConstGet("b"), container.ConstGet("b"));
    EXPECT_EQ(dynamic_cast<const annC_Arrow*>(container.ConstGet("a"))->endPointY, 0.0);
}

TEST(Container, NewUidRenewsEveryPart)
{
    annC_AnnotationContainer container = Filled({"a"});
    const std::unique_ptr<annC_AnnotationContainer> copy(container.Copy());
    EXPECT_EQ(copy->Uid(), container.Uid());
    EXPECT_EQ(copy->RepositoryUid(), container.RepositoryUid());
    copy->NewUid();
    EXPECT_FALSE(copy->Uid() == container.Uid());
    EXPECT_FALSE(copy->RepositoryUid() == container.RepositoryUid());
    EXPECT_FALSE(copy->ExtensionUid() == container.ExtensionUid());
}

TEST(Repository, KeepsObjectsByNameInOrderAndSharesThem)
{
    mdl_Repository outer("outer");
    ASSERT_TRUE(outer.Insert("x", new mdl_Repository("inner")));
    ASSERT_TRUE(outer.Insert("y", new mdl_Repository));
    EXPECT_FALSE(outer.Insert("z", nullptr));
    ASSERT_TRUE(outer.ChangeKey("x", "z"));
    EXPECT_FALSE(outer.ChangeKey("x", "y"));
    EXPECT_EQ(outer.Keys(), (cow_List<cow_String>{"y", "z"}));
    mdl_Repository copy(outer);
    EXPECT_EQ(copy.ConstGet("z"), outer.ConstGet("z"));
    EXPECT_NE(copy.Get("z"), outer.ConstGet("z"));
    EXPECT_EQ(dynamic_cast<const mdl_Repository*>(copy.ConstGet("z")->ConstGetValue())->Name(), "inner");
    EXPECT_TRUE(copy.Remove("y"));
    EXPECT_FALSE(copy.Remove("y"));
    EXPECT_EQ(copy.Get("y"), nullptr);
}
}
