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

class atr_Substitution : public testing::TestWithParam<FormatRow>
{};

TEST_P(atr_Substitution, MatchesTable)
{
    const FormatRow& row = GetParam();
    atr_String message = atr_translate(row.format);
    int position = 0;
    for (const char* argument : row.arguments)
        atr_SubstituteFormat(message, ++position, argument);
    EXPECT_EQ(message.AsString(), row.text);

    // The order in which arguments are given does not matter.
    atr_String backwards = atr_translate(row.format);
    for (; position > 0; --position)
        atr_SubstituteFormat(backwards, position, row.arguments[static_cast<std::size_t>(position) - 1]);
    EXPECT_EQ(backwards, message);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, atr_Substitution,
    testing::Values(
        FormatRow{"plain_text", "no mark", {}, "no mark"}, FormatRow{"empty", "", {"x"}, ""},
        FormatRow{"text_and_number", "%s has %d", {"a", "3"}, "a has 3"},
        FormatRow{"adjacent", "%s%s%s", {"a", "b", "c"}, "abc"},
        FormatRow{"inserted_text_is_not_read_again", "%s and %s", {"%s", "%1$s%%"}, "%s and %1$s%%"},
        FormatRow{"two_percent_signs", "100%% of %s", {"x"}, "100% of x"},
        FormatRow{"two_percent_signs_then_a_letter", "%%s %s", {"x"}, "%s x"},
        FormatRow{"two_percent_signs_alone", "100%%", {}, "100%"},
        FormatRow{"three_percent_signs", "%%%s", {"x"}, "%x"},
        FormatRow{"reordered", "%2$s before %1$s", {"a", "b"}, "b before a"},
        FormatRow{"numbered_twice", "%1$s %1$s %1$d", {"a"}, "a a a"},
        FormatRow{"numbered_ones_do_not_count", "%2$s %s %s", {"a", "b"}, "b a b"},
        FormatRow{"two_digits", "%10$s|%1$s0", {"a", "", "", "", "", "", "", "", "", "j"}, "j|a0"},
        FormatRow{"missing_argument", "<%s> <%s>", {"a"}, "<a> <>"},
        FormatRow{"no_argument", "<%s> <%3$d>", {}, "<> <>"},
        FormatRow{"surplus_argument", "<%s>", {"a", "b"}, "<a>"},
        FormatRow{"lone_percent", "5 % of %s", {"x"}, "5 % of x"},
        FormatRow{"percent_at_the_end", "%s %", {"x"}, "x %"},
        FormatRow{"other_letters_stay", "%u<%u %f %-5s %ld", {"x"}, "%u<%u %f %-5s %ld"},
        FormatRow{"position_without_letter", "%1$ %1$x %1", {"x"}, "%1$ %1$x %1"},
        FormatRow{"position_zero", "%0$s %s", {"x"}, "%0$s x"},
        FormatRow{"position_of_three_digits", "%123$s %s", {"x"}, "%123$s x"},
        FormatRow{"percent_before_mark", "% %s %d%", {"a", "b"}, "% a b%"}),
    [](const auto& row) { return std::string(row.param.what); });

TEST(atr_String, ATextIsFinalAsItStands)
{
    const atr_String message("100%% %s");
    EXPECT_EQ(message.AsString(), "100%% %s");
    EXPECT_EQ(message.Template(), "");
    EXPECT_TRUE(message.Arguments().IsEmpty());
    EXPECT_STREQ(message.AsCharPtr(), "100%% %s");
    EXPECT_TRUE(atr_String(nullptr).IsEmpty());
    EXPECT_EQ(atr_String(cow_String("a\0b", 3)).AsString().Length(), 3);
}

TEST(atr_String, ATextBecomesTheTemplateWhenItIsFilled)
{
    atr_String message("%s: 5%%");
    atr_SubstituteFormat(message, 1, "x");
    EXPECT_EQ(message, atr_String("x: 5%"));
    EXPECT_EQ(message.Template(), "%s: 5%%");
}

TEST(atr_String, ComparesByFinalText)
{
    atr_String filled = atr_translate("a %s");
    atr_SubstituteFormat(filled, 1, "b");
    EXPECT_EQ(filled, atr_String("a b"));
    EXPECT_LT(filled, atr_String("a c"));
    EXPECT_EQ(filled, "a b");
    const cow_String asText = filled;
    EXPECT_EQ(asText, "a b");
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
    EXPECT_EQ(message.AsString(), " of 8") << "an argument may be given again";
}

TEST(atr_String, TakesEveryKindOfArgument)
{
    const auto filled = [](const auto& value) {
        atr_String message = atr_translate("<%s>");
        atr_SubstituteFormat(message, 1, value);
        return message.AsString();
    };
    EXPECT_EQ(filled("text"), "<text>");
    EXPECT_EQ(filled(cow_String("a\0b", 3)), cow_String("<a\0b>", 5));
    EXPECT_EQ(filled(atr_translate("100%%")), "<100%>");
    EXPECT_EQ(filled(static_cast<const char*>(nullptr)), "<>");
    EXPECT_EQ(filled(0), "<0>");
    EXPECT_EQ(filled(INT_MIN), "<-2147483648>");
    EXPECT_EQ(filled(INT_MAX), "<2147483647>");
}

TEST(atr_String, AMessageMayBeItsOwnArgument)
{
    atr_String message = atr_translate("(%s)");
    for (int i = 0; i < 3; ++i)
        atr_SubstituteFormat(message, 1, message);
    EXPECT_EQ(message.AsString(), "(((())))");
}

TEST(atr_String, PositionsAreChecked)
{
    atr_String message = atr_translate("%s");
    EXPECT_RAISE(atr_SubstituteFormat(message, 0, "x"), nex_RangeException,
                 "index 0 out of range, length 99");
    EXPECT_RAISE(atr_SubstituteFormat(message, 100, "x"), nex_RangeException,
                 "index 100 out of range, length 99");
    EXPECT_EQ(message.AsString(), "");
    atr_SubstituteFormat(message, 99, "far");
    EXPECT_EQ(message.Arguments().Length(), 99);
}

TEST(atr_Catalogue, TranslatesAndReorders)
{
    EXPECT_EQ(atr_InstalledCatalogue(), nullptr);
    const atr_String before = atr_translate("%s of %s");
    {
        const Catalogue german("%s of %s", "von %2$s: %1$s");
        EXPECT_EQ(atr_InstalledCatalogue(), &german);
        atr_String message = atr_translate("%s of %s");
        atr_SubstituteFormat(message, 1, "point");
        atr_SubstituteFormat(message, 2, "line");
        EXPECT_EQ(message.AsString(), "von line: point");
        EXPECT_EQ(message.Template(), "%s of %s") << "the template as the code has it";

        EXPECT_EQ(atr_translate("unknown").AsString(), "unknown");
        {
            const Catalogue inner("unknown", "unbekannt");
            EXPECT_EQ(atr_translate("unknown").AsString(), "unbekannt");
        }
        EXPECT_EQ(atr_translate("unknown").AsString(), "unknown");
    }
    EXPECT_EQ(before.AsString(), " of ");
    EXPECT_EQ(atr_translate("%s of %s"), before);
    EXPECT_EQ(atr_translate(nullptr).AsString(), "");
}
}
