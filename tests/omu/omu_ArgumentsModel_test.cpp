// Random calls and random reads against a small model of the protocol. The model undoes a read by going back
// to the state before it, which is what an alternative is meant to be.

#include <optional>
#include <random>
#include <testing/ValueTesting.h>
#include <vector>

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
    bool optional = false;
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
    bool plain = false; // read as a tuple, which knows no keywords
    State now;

    void Begin()
    {
        now = State();
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
            read = Convert(std::find_if(keywords.begin(), keywords.end(),
                                        [&](const auto& one) { return one.first == keyword; })
                               ->second,
                           type, keyword);
        else if (!faulty && !keyword.empty() && !now.optional)
            now.errorArg = now.cursor + 1;
        ++now.cursor;
        now.required += !now.optional;
        // Once a fault is pending even the keyword of a positional argument is taken for read, on purpose.
        if (supplied && (faulty || !positional))
        {
            std::erase(now.pending, keyword);
            now.byKeyword += !now.optional;
        }
        return read;
    }
    bool Failed() const { return now.errorArg != 0 && now.errorArg == now.cursor; }
    void Undo()
    {
        before_.optional = now.optional;
        now = before_;
    }
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
        if (present < now.required) // a missing keyword is a missing argument, on purpose
            return count("not all required arguments specified", now.required, present);
        // A tuple tells the required number here, a call the number of all, on purpose.
        const int expected = plain ? now.required : now.cursor;
        return supplied > now.cursor ? count("too many arguments", expected, supplied) : "";
    }

private:
    Read Convert(const Value& value, Type type, const std::string& where)
    {
        if (value.type == type)
            return Text(*value.value);
        if (type == DOUBLE && value.type == INT)
            return Text(*value.value) + ".0";
        now.errorArg = now.cursor + 1;
        now.error = where + "; found " + TYPES[value.type] + ", expecting " + TYPES[type];
        return {};
    }

    State before_;
};

// By position alone where the keyword is empty.
template <class T>
Read Get(omu_PrimTuple& tuple, const std::string& keyword)
{
    T out{};
    const bool read = keyword.empty()
                          ? tuple.Get(out)
                          : dynamic_cast<omu_Arguments&>(tuple).Get(out, cow_String(keyword.c_str()));
    return read ? Read(Text(TupleOf(out).Index(0))) : Read();
}

class RandomCalls : public testing::Test
{
protected:
    int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
    Value AnyValue()
    {
        const Type type = Type(Below(3));
        const omu_PrimTuple tuple = type == INT      ? TupleOf(Below(9))
                                    : type == DOUBLE ? TupleOf(Below(9) + 0.5)
                                                     : TupleOf("t");
        return {type, std::shared_ptr<const omu_Primitive>(tuple.Index(0))};
    }
    void MaybeOptional(omu_PrimTuple& tuple)
    {
        if (Below(4) > 0)
            return;
        model_.now.optional = true;
        tuple.Optional();
    }
    void ReadBoth(omu_PrimTuple& tuple, const std::string& keyword)
    {
        const Type type = Type(Below(3));
        const Read read = type == INT      ? Get<int>(tuple, keyword)
                          : type == DOUBLE ? Get<double>(tuple, keyword)
                                           : Get<cow_String>(tuple, keyword);
        ASSERT_EQ(read, model_.Get(type, keyword)) << keyword;
        ExpectAgreement(tuple);
    }
    void ExpectAgreement(const omu_PrimTuple& tuple)
    {
        const auto* arguments = dynamic_cast<const omu_Arguments*>(&tuple);
        if (arguments == nullptr)
            return;
        std::vector<std::string> pending;
        for (const cow_String& one : arguments->PendingKeywords())
            pending.emplace_back(one.View());
        ASSERT_EQ(pending, model_.now.pending);
        ASSERT_EQ(arguments->ErrorOnPrevious(), model_.Failed());
    }
    void Supply(omu_Arguments& arguments)
    {
        for (int i = Below(4); i > 0; --i)
        {
            model_.items.push_back(AnyValue());
            arguments.Put(*model_.items.back().value);
        }
        std::string names = "abcz";
        std::shuffle(names.begin(), names.end(), random_);
        for (int i = model_.plain ? 0 : Below(4); i > 0; --i)
        {
            model_.keywords.emplace_back(std::string(1, names[std::size_t(i)]), AnyValue());
            arguments.Put(model_.keywords.back().first.c_str(), *model_.keywords.back().second.value);
        }
    }
    void ReadCall(omu_PrimTuple& tuple)
    {
        model_.Begin();
        tuple.Begin();
        for (int i = 0, reads = Below(5); i < reads; ++i)
        {
            MaybeOptional(tuple);
            // Most often the argument's own keyword; now and then one that was read, or none.
            const std::string keyword = model_.plain   ? ""
                                        : Below(8) > 0 ? std::string(1, char('a' + i))
                                        : Below(2)     ? "a"
                                                       : "";
            ReadBoth(tuple, keyword);
            while (model_.Failed() && Below(3) > 0)
            {
                MaybeOptional(tuple);
                model_.Undo();
                ASSERT_TRUE(tuple.Alternative());
                ExpectAgreement(tuple);
                ReadBoth(tuple, keyword);
            }
            ASSERT_TRUE(model_.Failed() || !tuple.Alternative());
        }
        EXPECT_EQ(tuple.Error(), !model_.End().empty());
        EXPECT_EQ(Outcome([&] {
                      tuple.End();
                      return "";
                  }),
                  model_.End());
    }

    std::mt19937 random_{1};
    Model model_;
};

TEST_F(RandomCalls, AgreeWithTheModel)
{
    for (int call = 0; call < 2000 && !HasFailure(); ++call)
    {
        model_ = Model();
        model_.plain = Below(3) == 0;
        omu_Arguments arguments;
        Supply(arguments);
        SCOPED_TRACE(Text(arguments));
        omu_PrimTuple tuple;
        tuple.TakeItems(arguments);
        for (int pass = 0; pass < 2; ++pass) // a second reading starts over, whatever became of the first
            ReadCall(model_.plain ? tuple : arguments);
    }
}
}
