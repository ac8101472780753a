// The order of annotations, the deltas that tell of it, and what copies share.

#include <algorithm>
#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <annC_Text.h>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <testing/AnnotationHistory.h>

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

using C = annC_AnnotationContainer;

TEST(Container, DeltasTellTheFinalPlace)
{
    const struct
    {
        const char* name;
        bool (*edit)(C&);
        bool done;
        const char* deltas;
    } rows[] = {
        {"insert over", [](C& c) { return c.Insert("c", annC_Text()); }, true,
         "('Remove', 'c') ('Insert', 'c', 0)"},
        {"rename over", [](C& c) { return c.ChangeKey("d", "b"); }, true,
         "('Remove', 'b') ('Rename', 'd', 'b', 2)"},
        {"rename to itself", [](C& c) { return c.ChangeKey("b", "b"); }, true, "('Rename', 'b', 'b', 1)"},
        {"rename of an unknown one", [](C& c) { return c.ChangeKey("x", "b"); }, false, ""},
        {"move towards the back", [](C& c) { return c.MoveBefore("a", "d"); }, true,
         "('Remove', 'a') ('Insert', 'a', 2)"},
        {"move behind itself", [](C& c) { return c.MoveAfter("b", "b"); }, true,
         "('Remove', 'b') ('Insert', 'b', 1)"},
        {"forward from the front", [](C& c) { return c.BringForward("a"); }, true, ""},
        {"the first to the front", [](C& c) { return c.BringToFront("a"); }, true,
         "('Remove', 'a') ('Insert', 'a', 0)"},
        {"get posts before it looks", [](C& c) { return c.Get("x") != nullptr; }, false, "('Modify', 'x')"},
        {"get by index", [](C& c) { return c.Get(1) != nullptr && c.Get(4) == nullptr; }, true,
         "('Modify', 'b')"},
        {"identifiers go on after clear",
         [](C& c) { return c.Clear(), c.Insert("a", new annC_Arrow), c.GetId("a") > 0; }, true,
         "('Insert', 'a', 0)"},
        {"clear posts nothing", [](C& c) { return c.Clear(), c.Size() == 0; }, true, ""}};
    for (const auto& row : rows)
    {
        C container = Filled({"a", "b", "c", "d"});
        AnnotationHistory history;
        EXPECT_EQ(row.edit(container), row.done) << row.name;
        EXPECT_EQ(history.Take(), row.deltas) << row.name;
    }
}

/// Random edits against a plain list; identifiers stay with their entries and are never used again; a copy
/// made on the way keeps what it had.
TEST(Container, RandomEditsAgreeWithAPlainList)
{
    std::mt19937 random(3);
    const auto below = [&random](std::size_t n) { return static_cast<std::size_t>(random()) % n; };
    C container, copy;
    Names model, copied;
    std::map<std::string, int> ids;
    int nextId = 0;
    for (int step = 0; step < 20000; ++step)
    {
        const std::string name = "n" + std::to_string(below(60)), other = "n" + std::to_string(below(60));
        const auto at = [&model](const std::string& n) { return std::find(model.begin(), model.end(), n); };
        const bool hasName = at(name) != model.end(), hasBoth = hasName && at(other) != model.end();
        const std::ptrdiff_t index = at(name) - model.begin(), last = std::ssize(model) - 1;
        // Puts the name there alone, or, at -1, nowhere.
        const auto place = [&](std::ptrdiff_t to) {
            if (hasName)
                model.erase(at(name));
            if (to >= 0)
                model.insert(model.begin() + to, name);
        };
        const auto placeKnown = [&](std::ptrdiff_t to) {
            if (hasName)
                place(to);
            return hasName;
        };
        const cow_String n(name.c_str()), o(other.c_str());
        switch (below(10))
        {
        case 0:
            place(0);
            ids[name] = nextId++;
            ASSERT_TRUE(container.Insert(n, new annC_Arrow));
            break;
        case 1:
            ASSERT_EQ(container.Remove(n), placeKnown(-1));
            break;
        case 2:
            ASSERT_EQ(container.ChangeKey(n, o), hasName);
            if (hasName && name != other)
            {
                if (hasBoth)
                    model.erase(at(other));
                *at(name) = other;
                ids[other] = ids[name];
            }
            break;
        case 3:
            ASSERT_EQ(container.MoveAfter(n, o), hasBoth);
            if (hasBoth && name != other)
                place(-1), model.insert(at(other) + 1, name);
            break;
        case 4:
            ASSERT_EQ(container.MoveBefore(n, o), hasBoth);
            if (hasBoth && name != other)
                place(-1), model.insert(at(other), name);
            break;
        case 5:
            ASSERT_EQ(container.BringForward(n), placeKnown(std::max<std::ptrdiff_t>(index - 1, 0)));
            break;
        case 6:
            ASSERT_EQ(container.SendBackward(n), placeKnown(std::min(index + 1, last)));
            break;
        case 7:
            ASSERT_EQ(container.BringToFront(n), placeKnown(0));
            break;
        case 8:
            ASSERT_EQ(container.SendToBack(n), placeKnown(last));
            break;
        default:
            ASSERT_EQ(Order(copy), copied);
            copy = container;
            copied = model;
        }
        ASSERT_EQ(Order(container), model) << step;
        for (std::size_t i = 0; i < model.size(); ++i)
        {
            ASSERT_EQ(container.IndexOf(model[i].c_str()), static_cast<int>(i));
            ASSERT_EQ(container.GetId(model[i].c_str()), ids[model[i]]);
        }
    }
    EXPECT_TRUE(container.GetId("never") == -1 && container.IndexOf("never") == -1);
}

TEST(Container, ACopySharesAnnotationsUntilOneIsTakenForWriting)
{
    const C container = Filled({"a", "b"});
    C copy = container;
    copy.Get("a")->Translate(1.0, 2.0);
    EXPECT_NE(copy.ConstGet("a"), container.ConstGet("a"));
    EXPECT_EQ(copy.ConstGet("b"), container.ConstGet("b"));
    EXPECT_EQ(dynamic_cast<const annC_Arrow*>(container.ConstGet("a"))->endPointY, 0.0);
}

TEST(Repository, KeepsObjectsByNameInOrderAndSharesThem)
{
    mdl_Repository outer("outer");
    ASSERT_TRUE(outer.Insert("x", new mdl_Repository("inner")));
    ASSERT_TRUE(outer.Insert("y", new mdl_Repository));
    EXPECT_FALSE(outer.Insert("z", nullptr));
    ASSERT_TRUE(outer.ChangeKey("x", "z"));
    EXPECT_FALSE(outer.ChangeKey("x", "y"));
    EXPECT_EQ(outer.Keys(), (cow_List<cow_String>{"z", "y"}));
    mdl_Repository copy(outer);
    EXPECT_EQ(copy.ConstGet("z"), outer.ConstGet("z"));
    EXPECT_NE(copy.Get("z"), outer.ConstGet("z"));
    EXPECT_TRUE(copy.Remove("y") && !copy.Remove("y"));
}
}
