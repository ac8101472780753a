#include <atr_Catalogue.h>
#include <atr_String.h>
#include <atr_SubstituteFormat.h>
#include <atr_translate.h>
#include <nex_RangeException.h>

#include <testing/ExpectRaise.h>

#include <gmock/gmock.h>

#include <climits>
#include <string>
#include <type_traits>
#include <vector>

namespace
{
using testing::ElementsAre;

static_assert(std::is_convertible_v<atr_String, cow_String>);
static_assert(!std::is_convertible_v<cow_String, atr_String>);
static_assert(std::is_constructible_v<atr_String, cow_String>);

// A catalogue that lives in a test and takes itself out again.
class Catalogue : public atr_Catalogue
{
public:
    Catalogue(const char* original, const char* translation)
        : original_(original), translation_(translation), former_(atr_InstallCatalogue(this))
    {}
    ~Catalogue() override { EXPECT_EQ(atr_InstallCatalogue(former_), this); }

    bool Lookup(const cow_String& messageTemplate, cow_String& translation) const override
    {
        if (messageTemplate != original_)
            return false;
        translation = translation_;
        return true;
    }

private:
    cow_String original_;
    cow_String translation_;
    const atr_Catalogue* former_;
};

struct FormatRow
{
    const char* what;
    const char* format;
    std::vector<const char*> arguments;
    const char* text;
};

const FormatRow FORMATS[] = {
    {"empty", "", {"x"}, ""},
    {"text_and_number", "%s has %d", {"a", "3"}, "a has 3"},
    {"inserted_text_is_not_read_again", "%s and %s", {"%s", "%1$s%%"}, "%s and %1$s%%"},
    {"two_percent_signs", "100%% of %s", {"x"}, "100% of x"},
    {"three_percent_signs", "%%%s", {"x"}, "%x"},
    {"reordered", "%2$s before %1$s", {"a", "b"}, "b before a"},
    {"numbered_twice", "%1$s %1$s %1$d", {"a"}, "a a a"},
    {"numbered_ones_do_not_count", "%2$s %s %s", {"a", "b"}, "b a b"},
    {"two_digits", "%10$s|%1$s0", {"a", "", "", "", "", "", "", "", "", "j"}, "j|a0"},
    {"missing_argument", "<%s> <%s>", {"a"}, "<a> <>"},
    {"surplus_argument", "<%s>", {"a", "b"}, "<a>"},
    {"lone_percent", "5 % of %s", {"x"}, "5 % of x"},
    {"other_letters_stay", "%u<%u %f %-5s %ld", {"x"}, "%u<%u %f %-5s %ld"},
    {"position_without_letter", "%1$ %1$x %1", {"x"}, "%1$ %1$x %1"},
    {"position_zero", "%0$s %s", {"x"}, "%0$s x"},
    {"percent_before_mark", "% %s %d%", {"a", "b"}, "% a b%"}};

TEST(atr_SubstituteFormat, MatchesTable)
{
    for (const FormatRow& row : FORMATS)
    {
        // The order in which arguments are given does not matter.
        atr_String message = atr_translate(row.format);
        atr_String backwards = message;
        const int count = static_cast<int>(row.arguments.size());
        for (int i = 0; i < count; ++i)
        {
            atr_SubstituteFormat(message, i + 1, row.arguments[static_cast<std::size_t>(i)]);
            atr_SubstituteFormat(backwards, count - i,
                                 row.arguments[static_cast<std::size_t>(count - i - 1)]);
        }
        EXPECT_EQ(message.AsString(), row.text) << row.what;
        EXPECT_EQ(backwards, message) << row.what;
    }
}

// A text that was not translated is final as it stands, and becomes the template when it is filled.
TEST(atr_String, ATextIsFinalUntilItIsFilled)
{
    atr_String message("%s: 5%%");
    EXPECT_EQ(message.AsString(), "%s: 5%%");
    EXPECT_EQ(message.Template(), "");
    atr_SubstituteFormat(message, 1, "x");
    EXPECT_EQ(message, atr_String("x: 5%"));
    EXPECT_EQ(message.Template(), "%s: 5%%");
    EXPECT_TRUE(atr_String(nullptr).IsEmpty());
    EXPECT_STREQ(atr_String("100%%").AsCharPtr(), "100%%");
    EXPECT_LT(message, atr_String("x: 6"));
}

TEST(atr_String, KeepsTemplateAndArguments)
{
    const atr_String unfilled = atr_translate("%s of %d");
    atr_String message = unfilled;
    atr_SubstituteFormat(message, 2, 7);
    EXPECT_EQ(message.AsString(), " of 7");
    EXPECT_EQ(message.Template(), "%s of %d");
    EXPECT_THAT(message.Arguments(), ElementsAre("", "7"));
    EXPECT_EQ(unfilled.AsString(), " of ") << "a copy filled leaves the other alone";
    EXPECT_TRUE(unfilled.Arguments().IsEmpty());

    atr_SubstituteFormat(message, 2, 8);
    atr_SubstituteFormat(message, 1, message);
    EXPECT_EQ(message.AsString(), " of 8 of 8") << "given again, and its own argument";
}

TEST(atr_String, TakesEveryKindOfArgument)
{
    const auto filled = [](const auto& value) {
        atr_String message = atr_translate("<%s>");
        atr_SubstituteFormat(message, 1, value);
        return message.AsString();
    };
    EXPECT_EQ(filled(cow_String("a\0b", 3)), cow_String("<a\0b>", 5));
    EXPECT_EQ(filled(atr_translate("100%%")), "<100%>");
    EXPECT_EQ(filled(static_cast<const char*>(nullptr)), "<>");
    EXPECT_EQ(filled(INT_MIN), "<-2147483648>");
}

TEST(atr_String, PositionsAreChecked)
{
    atr_String message = atr_translate("%s");
    EXPECT_RAISE(atr_SubstituteFormat(message, 0, "x"), nex_RangeException,
                 "index 0 out of range, length 99");
    EXPECT_RAISE(atr_SubstituteFormat(message, 100, "x"), nex_RangeException,
                 "index 100 out of range, length 99");
    atr_SubstituteFormat(message, 99, "far");
    EXPECT_EQ(message.Arguments().Length(), 99);
    EXPECT_EQ(message.AsString(), "");
}

TEST(atr_Catalogue, TranslatesAndReorders)
{
    const atr_String before = atr_translate("%s of %s");
    {
        const Catalogue german("%s of %s", "von %2$s: %1$s");
        atr_String message = atr_translate("%s of %s");
        atr_SubstituteFormat(message, 1, "point");
        atr_SubstituteFormat(message, 2, "line");
        EXPECT_EQ(message.AsString(), "von line: point");
        EXPECT_EQ(message.Template(), "%s of %s") << "the template as the code has it";
        EXPECT_EQ(atr_translate("unknown").AsString(), "unknown");
    }
    EXPECT_EQ(atr_translate("%s of %s"), before);
    const Catalogue german("index %d out of range, length %d", "Laenge %2$d, Index %1$d");
    EXPECT_EQ(nex_RangeException(4, 3).UserReport(), "Laenge 3, Index 4");
    EXPECT_EQ(atr_translate(nullptr).AsString(), "");
}
}
