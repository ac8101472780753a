// Random calls and random reads against a small model of the protocol. The model undoes a read by going back
// to the state before it, which is what an alternative is meant to be.

#include <omu_Arguments.h>
#include <omu_PrimString.h>
#include <optional>
#include <random>
#include <string>
#include <testing/Outcome.h>
#include <vector>

#include <gtest/gtest.h>

namespace
{
enum Type { INT, DOUBLE, TEXT };
constexpr const char* TYPES[] = {"int", "float", "string"};
using Read = std::optional<std::string>; // what was read, as text

struct Value
{
    Type type;
    std::shared_ptr<const omu_Primitive> value;
};

struct State
{
    std::vector<std::string> pending;
    int cursor = 0;
    int required = 0;
    int byKeyword = 0;
    int errorArg = 0;
    std::string error; // the message of a type error; empty for a missing argument
};

class Model
{
public:
    std::vector<Value> items;
    std::vector<std::pair<std::string, Value>> keywords;
    bool optional = false;
    State now;

    void Begin()
    {
        for (const auto& [keyword, value] : keywords)
            now.pending.push_back(keyword);
    }
    Read Get(Type type, const std::string& keyword)
    {
        before_ = now;
        Read read;
        const bool positional = now.cursor < int(items.size());
        const bool faulty = now.errorArg != 0;
        const bool supplied = std::count(now.pending.begin(), now.pending.end(), keyword) > 0;
        if (!faulty && positional)
            read = Convert(items[std::size_t(now.cursor)], type, "arg" + std::to_string(now.cursor + 1));
        else if (!faulty && supplied)
            read = Convert(Supplied(keyword), type, keyword);
        else if (!faulty && !keyword.empty() && !optional)
            now.errorArg = now.cursor + 1;
        ++now.cursor;
        now.required += !optional;
        if (supplied && (faulty || !positional))
        {
            std::erase(now.pending, keyword);
            now.byKeyword += !optional;
        }
        return read;
    }
    bool Failed() const { return now.errorArg != 0 && now.errorArg == now.cursor; }
    void Undo() { now = before_; }
    std::string End() const
    {
        const auto count = [](const char* what, int expected, int got) {
            return "TypeError: " + std::string(what) + "; expected " + std::to_string(expected) + ", got " +
                   std::to_string(got);
        };
        const int present = int(items.size()) + now.byKeyword;
        const int supplied = int(items.size() + keywords.size());
        if (!now.pending.empty())
            return "TypeError: keyword error on " + now.pending.front();
        if (!now.error.empty())
            return "TypeError: " + now.error;
        if (present < now.required)
            return count("not all required arguments specified", now.required, present);
        return supplied > now.cursor ? count("too many arguments", now.cursor, supplied) : "";
    }

private:
    const Value& Supplied(const std::string& keyword) const
    {
        const auto named = [&](const auto& one) { return one.first == keyword; };
        return std::find_if(keywords.begin(), keywords.end(), named)->second;
    }
    Read Convert(const Value& value, Type type, const std::string& where)
    {
        const std::string text = value.value->AsString(0).AsCharPtr();
        if (value.type == type)
            return text;
        if (type == DOUBLE && value.type == INT)
            return text + ".0";
        now.errorArg = now.cursor + 1;
        now.error = where + "; found " + TYPES[value.type] + ", expecting " + TYPES[type];
        return {};
    }

    State before_;
};

// By position alone where the keyword is empty.
template <class T>
Read Get(omu_Arguments& arguments, const std::string& keyword)
{
    T out{};
    omu_PrimTuple text;
    if (!(keyword.empty() ? arguments.Get(out) : arguments.Get(out, cow_String(keyword.c_str()))))
        return {};
    text.Put(out);
    return text[0]->AsString(0).AsCharPtr();
}

class RandomCalls : public testing::TestWithParam<unsigned>
{
protected:
    int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
    Value AnyValue()
    {
        omu_PrimTuple tuple;
        const Type type = Type(Below(3));
        if (type == INT)
            tuple.Put(Below(9));
        else if (type == DOUBLE)
            tuple.Put(Below(9) + 0.5);
        else
            tuple.Put("t");
        return {type, std::shared_ptr<const omu_Primitive>(tuple.Index(0))};
    }
    void MaybeOptional()
    {
        if (Below(4) > 0)
            return;
        model_.optional = true;
        arguments_.Optional();
    }
    void ExpectPending()
    {
        std::vector<std::string> pending;
        for (const cow_String& one : arguments_.PendingKeywords())
            pending.emplace_back(one.AsCharPtr());
        ASSERT_EQ(pending, model_.now.pending);
    }
    void ReadBoth(const std::string& keyword)
    {
        const Type type = Type(Below(3));
        const Read read = type == INT      ? Get<int>(arguments_, keyword)
                          : type == DOUBLE ? Get<double>(arguments_, keyword)
                                           : Get<cow_String>(arguments_, keyword);
        ASSERT_EQ(read, model_.Get(type, keyword)) << keyword;
        ASSERT_EQ(arguments_.ErrorOnPrevious(), model_.Failed());
        ExpectPending();
    }

    void RunCall()
    {
        for (int i = Below(4); i > 0; --i)
        {
            model_.items.push_back(AnyValue());
            arguments_.Put(*model_.items.back().value);
        }
        std::string names = "abcz";
        std::shuffle(names.begin(), names.end(), random_);
        for (int i = Below(4); i > 0; --i)
        {
            model_.keywords.emplace_back(std::string(1, names[std::size_t(i)]), AnyValue());
            arguments_.Put(model_.keywords.back().first.c_str(), *model_.keywords.back().second.value);
        }
        SCOPED_TRACE(arguments_.AsString(0).AsCharPtr());
        model_.Begin();
        arguments_.Begin();
        for (int i = 0, reads = Below(5); i < reads; ++i)
        {
            MaybeOptional();
            // Most often the argument's own keyword; now and then one that was read, or none.
            const std::string keyword = Below(8) > 0 ? std::string(1, char('a' + i)) : Below(2) ? "a" : "";
            ReadBoth(keyword);
            while (model_.Failed() && Below(3) > 0)
            {
                MaybeOptional();
                model_.Undo();
                ASSERT_TRUE(arguments_.Alternative());
                ExpectPending();
                ReadBoth(keyword);
            }
            ASSERT_TRUE(model_.Failed() || !arguments_.Alternative());
        }
        EXPECT_EQ(arguments_.Error(), !model_.End().empty());
        EXPECT_EQ(Outcome([&] {
                      arguments_.End();
                      return "";
                  }),
                  model_.End());
    }

    std::mt19937 random_{GetParam()};
    Model model_;
    omu_Arguments arguments_;
};

TEST_P(RandomCalls, AgreeWithTheModel)
{
    for (int call = 0; call < 100 && !HasFailure(); ++call)
    {
        model_ = Model();
        arguments_ = omu_Arguments();
        RunCall();
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomCalls, testing::Range(1u, 11u));
}
