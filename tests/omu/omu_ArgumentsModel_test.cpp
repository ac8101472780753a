// Random calls and random reads against a small model of the protocol. The model undoes a read by going back
// to the state before it, which is what an alternative is meant to be.

#include <omu_Arguments.h>
#include <omu_PrimString.h>
#include <optional>
#include <random>
#include <string>
#include <testing/Outcome.h>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

namespace
{
using Value = std::variant<int, double, std::string>;
constexpr const char* TYPES[] = {"int", "float", "string"};

std::string TextOf(const Value& value)
{
    return std::visit(
        [](const auto& held) {
            omu_PrimTuple tuple;
            if constexpr (std::is_same_v<decltype(held), const std::string&>)
                tuple.Put(held.c_str());
            else
                tuple.Put(held);
            return std::string(tuple[0]->AsString(0).AsCharPtr());
        },
        value);
}

struct State
{
    std::vector<std::string> pending;
    int cursor = 0;
    int required = 0;
    int byKeyword = 0;
    int errorArg = 0;
    bool missing = false;
    std::string error; // the whole message, where the fault is one of type
};

class Model
{
public:
    std::vector<Value> items;
    std::vector<std::pair<std::string, Value>> keywords;

    void Begin()
    {
        now_ = State();
        for (const auto& [keyword, value] : keywords)
            now_.pending.push_back(keyword);
    }
    void Optional() { optional_ = true; }
    // The text of what was read; nothing where nothing was.
    std::optional<std::string> Read(std::size_t type, const std::string& keyword)
    {
        before_ = now_;
        std::optional<std::string> read;
        const bool positional = now_.cursor < int(items.size());
        const bool faulty = now_.errorArg != 0;
        const bool supplied =
            std::find(now_.pending.begin(), now_.pending.end(), keyword) != now_.pending.end();
        if (!faulty && positional)
            read = Convert(items[std::size_t(now_.cursor)], type, "arg" + std::to_string(now_.cursor + 1));
        else if (!faulty && supplied)
            read = Convert(Supplied(keyword), type, keyword);
        else if (!faulty && !keyword.empty() && !optional_)
        {
            now_.errorArg = now_.cursor + 1;
            now_.missing = true;
        }
        ++now_.cursor;
        now_.required += !optional_;
        if (supplied && (faulty || !positional))
        {
            std::erase(now_.pending, keyword);
            now_.byKeyword += !optional_;
        }
        return read;
    }
    bool Failed() const { return now_.errorArg != 0 && now_.errorArg == now_.cursor; }
    void Undo() { now_ = before_; }
    std::string End() const
    {
        const int given = int(items.size());
        const int present = given + now_.byKeyword;
        const int supplied = given + int(keywords.size());
        if (!now_.pending.empty())
            return "TypeError: keyword error on " + now_.pending.front();
        if (now_.errorArg != 0 && !now_.missing)
            return "TypeError: " + now_.error;
        if (present < now_.required)
            return "TypeError: not all required arguments specified; expected " +
                   std::to_string(now_.required) + ", got " + std::to_string(present);
        if (supplied > now_.cursor)
            return "TypeError: too many arguments; expected " + std::to_string(now_.cursor) + ", got " +
                   std::to_string(supplied);
        return "";
    }
    const std::vector<std::string>& Pending() const { return now_.pending; }

private:
    const Value& Supplied(const std::string& keyword) const
    {
        return std::find_if(keywords.begin(), keywords.end(),
                            [&](const auto& one) { return one.first == keyword; })
            ->second;
    }
    std::optional<std::string> Convert(const Value& value, std::size_t type, const std::string& where)
    {
        if (value.index() == type)
            return TextOf(value);
        if (type == 1 && value.index() == 0)
            return TextOf(double(std::get<int>(value)));
        now_.errorArg = now_.cursor + 1;
        now_.error = where + "; found " + TYPES[value.index()] + ", expecting " + TYPES[type];
        return {};
    }

    State now_;
    State before_;
    bool optional_ = false;
};

// Reads by position alone where the keyword is empty.
template <class T>
std::optional<std::string> Read(omu_Arguments& arguments, T out, const std::string& keyword)
{
    const bool delivered =
        keyword.empty() ? arguments.Get(out) : arguments.Get(out, cow_String(keyword.c_str()));
    if (!delivered)
        return {};
    omu_PrimTuple tuple;
    tuple.Put(out);
    return tuple[0]->AsString(0).AsCharPtr();
}

std::optional<std::string> Read(omu_Arguments& arguments, std::size_t type, const std::string& keyword)
{
    if (type == 0)
        return Read(arguments, int(), keyword);
    if (type == 1)
        return Read(arguments, double(), keyword);
    return Read(arguments, cow_String(), keyword);
}

class RandomCalls : public testing::TestWithParam<unsigned>
{
protected:
    int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
    Value AnyValue()
    {
        const Value values[] = {Below(9), Below(9) + 0.5, std::string("t")};
        return values[Below(3)];
    }

    std::mt19937 random_{GetParam()};
};

TEST_P(RandomCalls, AgreeWithTheModel)
{
    int faults = 0;
    constexpr int CALLS = 200;
    for (int call = 0; call < CALLS; ++call)
    {
        Model model;
        omu_Arguments arguments;
        for (int i = Below(4); i > 0; --i)
        {
            model.items.push_back(AnyValue());
            std::visit(
                [&](const auto& held) {
                    if constexpr (std::is_same_v<decltype(held), const std::string&>)
                        arguments.Put(held.c_str());
                    else
                        arguments.Put(held);
                },
                model.items.back());
        }
        std::string names = "abcz";
        std::shuffle(names.begin(), names.end(), random_);
        for (int i = Below(4); i > 0; --i)
        {
            const std::string keyword(1, names[std::size_t(i)]);
            model.keywords.emplace_back(keyword, AnyValue());
            std::visit(
                [&](const auto& held) {
                    if constexpr (std::is_same_v<decltype(held), const std::string&>)
                        arguments.Put(keyword.c_str(), held.c_str());
                    else
                        arguments.Put(keyword.c_str(), held);
                },
                model.keywords.back().second);
        }
        SCOPED_TRACE(arguments.AsString(0).AsCharPtr());
        model.Begin();
        arguments.Begin();
        const int reads = Below(5);
        for (int i = 0; i < reads; ++i)
        {
            if (Below(4) == 0)
            {
                model.Optional();
                arguments.Optional();
            }
            // Most often the argument's own keyword; now and then one that was read, none, or a strange one.
            const std::string keyword = Below(8) > 0 ? std::string(1, char('a' + i)) : Below(2) ? "a" : "";
            auto type = std::size_t(Below(3));
            ASSERT_EQ(Read(arguments, type, keyword), model.Read(type, keyword)) << keyword;
            ASSERT_EQ(arguments.ErrorOnPrevious(), model.Failed());
            while (model.Failed() && Below(3) > 0)
            {
                if (Below(4) == 0)
                {
                    model.Optional();
                    arguments.Optional();
                }
                model.Undo();
                ASSERT_TRUE(arguments.Alternative());
                type = std::size_t(Below(3));
                ASSERT_EQ(Read(arguments, type, keyword), model.Read(type, keyword)) << keyword;
            }
            if (!model.Failed())
            {
                ASSERT_FALSE(arguments.Alternative());
            }
            std::vector<std::string> pending;
            for (const cow_String& one : arguments.PendingKeywords())
                pending.emplace_back(one.AsCharPtr());
            ASSERT_EQ(pending, model.Pending());
        }
        const std::string end = model.End();
        faults += !end.empty();
        ASSERT_EQ(arguments.Error(), !end.empty());
        ASSERT_EQ(Outcome([&] {
                      arguments.End();
                      return std::string();
                  }),
                  end);
    }
    EXPECT_GT(faults, CALLS / 4);
    EXPECT_LT(faults, CALLS) << "some calls are right";
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomCalls, testing::Range(1u, 11u));
}
