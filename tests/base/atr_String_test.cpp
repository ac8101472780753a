#include <atr_Catalogue.h>
#include <atr_String.h>
#include <atr_SubstituteFormat.h>
#include <atr_translate.h>
#include <nex_RangeException.h>

#include <testing/ExpectRaise.h>

#include <gtest/gtest.h>

#include <climits>
#include <tuple>
#include <vector>

namespace
{
const std::tuple<const char*, std::vector<const char*>, const char*> FORMATS[] = {
    {"%s has %d", {"a", "3"}, "a has 3"},
    {"%s and %s", {"%s", "%1$s%%"}, "%s and %1$s%%"}, // inserted text is not read again
    {"100%% of %%%s", {"x"}, "100% of %x"},
    {"%2$s before %1$s %1$d", {"a", "b"}, "b before a a"},
    {"%2$s %s %s", {"a", "b"}, "b a b"}, // numbered ones do not count
    {"%10$s|%1$s0", {"a", "", "", "", "", "", "", "", "", "j"}, "j|a0"},
    {"<%s> <%s>", {"a"}, "<a> <>"},
    {"<%s>", {"a", "b"}, "<a>"},
    {"5 % of %s %d%", {"x", "y"}, "5 % of x y%"},
    {"%u<%u %f %-5s %ld", {"x"}, "%u<%u %f %-5s %ld"}, // other letters stay
    {"%1$ %1$x %1 %0$s %s", {"x"}, "%1$ %1$x %1 %0$s x"}};

TEST(atr_SubstituteFormat, MatchesTableThoughTheLastArgumentComesFirst)
{
    for (const auto& [format, arguments, text] : FORMATS)
    {
        atr_String message = atr_translate(format);
        for (std::size_t i = arguments.size(); i > 0; --i)
            atr_SubstituteFormat(message, static_cast<int>(i), arguments[i - 1]);
        EXPECT_EQ(message.AsString(), text);
    }
}

// A text that was not translated is final as it stands, and becomes the template when it is filled.
TEST(atr_String, ATextIsFinalUntilItIsFilledAndKeepsTemplateAndArguments)
{
    atr_String message("%s: %d%%");
    EXPECT_EQ(message.AsString(), "%s: %d%%");
    atr_SubstituteFormat(message, 2, INT_MIN);
    EXPECT_EQ(message.AsString(), ": -2147483648%");
    EXPECT_EQ(message.Template(), "%s: %d%%");
    EXPECT_EQ(message.Arguments(), (cow_List<cow_String>{"", "-2147483648"}));
    atr_SubstituteFormat(message, 2, 8);
    atr_SubstituteFormat(message, 1, message);
    EXPECT_EQ(message, atr_String(": 8%: 8%")) << "given again, and its own argument";
    atr_SubstituteFormat(message, 1, cow_String("a\0b", 3));
    EXPECT_EQ(message.AsString(), cow_String("a\0b: 8%", 7));
    for (const auto& [position, text] :
         {std::pair{0, "index 0 out of range, length 99"}, {100, "index 100 out of range, length 99"}})
        EXPECT_RAISE(atr_SubstituteFormat(message, position, "x"), nex_RangeException, text);
}

class German : public atr_Catalogue
{
public:
    bool Lookup(const cow_String& messageTemplate, cow_String& translation) const override
    {
        translation = "Laenge %2$d, Index %1$d";
        return messageTemplate == "index %d out of range, length %d";
    }
};

TEST(atr_Catalogue, TranslatesAndReorders)
{
    const German german;
    const atr_Catalogue* former = atr_InstallCatalogue(&german);
    EXPECT_EQ(nex_RangeException(4, 3).UserReport(), "Laenge 3, Index 4");
    EXPECT_EQ(atr_translate("index %d out of range, length %d").Template(),
              "index %d out of range, length %d");
    EXPECT_EQ(atr_InstallCatalogue(former), &german);
    EXPECT_EQ(nex_RangeException(4, 3).UserReport(), "index 4 out of range, length 3");
}
}
