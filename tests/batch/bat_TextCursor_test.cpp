#include <bat_TextCursor.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{
constexpr double INFINITE = std::numeric_limits<double>::infinity();

// Out of range in both directions also with long mantissas, where the exponent alone misleads.
TEST(TextCursor, ReadsNumbers)
{
    const std::string zeros(400, '0');
    const auto expect = [](const std::string& word, double value) {
        const double number = bat_TextCursor::Number(word).value_or(NAN);
        EXPECT_TRUE(number == value && std::signbit(number) == std::signbit(value)) << word << " " << number;
    };
    expect("-0", -0.0);
    expect("+1.5", 1.5);
    expect("1.", 1.0);
    expect(".5E+2", 50.0);
    expect("5e-324", std::numeric_limits<double>::denorm_min());
    expect("-2e-324", -0.0);
    expect("1e-99999999999999999999", 0.0);
    expect("1e99999999999999999999", INFINITE);
    expect("0e99999999999999999999", 0.0);
    expect("10000000000e-320", 1e-310);
    expect("0." + zeros + "1e+50", 0.0);
    expect("-1" + zeros + ".5e-50", -INFINITE);
    expect("1" + zeros + "e-400", 1.0);
    expect("0." + zeros + "1e401", 1.0);
    expect("-Infinity", -INFINITE);
    expect("-1.#INF00", -INFINITE);
    for (const char* word : {"nan", "-NaN", "nan(0x7)", "1.#QNAN", "-1.#IND", "1.#SNAN0"})
        EXPECT_TRUE(std::isnan(bat_TextCursor::Number(word).value_or(0))) << word;
    for (const char* word : {"", "+", ".", "e5", "1e", "++1", "+-1", "1,5", "0x10", "1d5", "1.5f", "1#"})
        EXPECT_FALSE(bat_TextCursor::Number(word)) << word;
}

TEST(TextCursor, ReadsWholeNumbers)
{
    EXPECT_EQ(bat_TextCursor::Integer("+7"), 7);
    EXPECT_EQ(bat_TextCursor::Integer("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
    for (const char* word : {"", "7.", "7e0", "0x7", "9223372036854775808", "seven", "7 "})
        EXPECT_EQ(bat_TextCursor::Integer(word), std::nullopt) << word;
}

std::vector<std::string> Words(const std::string& text, bat_TextCursor::Comments comments,
                               bat_TextCursor::Continuation continuation)
{
    const std::string file = "file";
    bat_TextCursor cursor(text, file, comments, continuation);
    std::vector<std::string> words;
    for (std::string_view word = cursor.Next(); !word.empty(); word = cursor.Next())
        words.emplace_back(word);
    return words;
}

TEST(TextCursor, WalksWordsOverLines)
{
    using Strings = std::vector<std::string>;
    const auto none = bat_TextCursor::Comments::NONE;
    const auto hash = bat_TextCursor::Comments::HASH;
    const auto plain = bat_TextCursor::Continuation::NONE;
    const auto joined = bat_TextCursor::Continuation::BACKSLASH;
    EXPECT_EQ(Words("", none, plain), Strings());
    EXPECT_EQ(Words(" a\tb\r\n\r\nc\rd\n", none, plain), (Strings{"a", "b", "c", "d"}));
    EXPECT_EQ(Words("a #b\nc#d", none, plain), (Strings{"a", "#b", "c#d"}));
    EXPECT_EQ(Words("a #b c\nd#e #", hash, plain), (Strings{"a", "d#e"}));
    EXPECT_EQ(Words("a\\\nb \\c d\\", hash, joined), (Strings{"a", "b", "\\c", "d\\"}));
    EXPECT_EQ(Words("a\\\nb", hash, plain), (Strings{"a\\", "b"}));
}

TEST(TextCursor, ALineEndsAtItsEndAndNotAtABackslash)
{
    const std::string file = "file";
    bat_TextCursor cursor("a b\\\r\nc # d\\\ne\n\nf", file, bat_TextCursor::Comments::HASH,
                          bat_TextCursor::Continuation::BACKSLASH);
    EXPECT_EQ(cursor.NextOnLine(), "a");
    EXPECT_EQ(cursor.NextOnLine(), "b");
    EXPECT_EQ(cursor.NextOnLine(), "c");
    EXPECT_EQ(cursor.NextOnLine(), ""); // a comment is not continued
    EXPECT_EQ(cursor.NextOnLine(), "");
    EXPECT_TRUE(cursor.SkipLine());
    EXPECT_EQ(cursor.NextOnLine(), "e");
    EXPECT_TRUE(cursor.SkipLine());
    EXPECT_EQ(cursor.Next(), "f");
    EXPECT_FALSE(cursor.SkipLine());
    EXPECT_THROW(cursor.Refuse("no"), bat_MeshError);
}

TEST(TextCursor, QuotesPrintableAndShort)
{
    EXPECT_EQ(bat_TextCursor::Quoted(std::string_view("a\0\x1b\xc3", 4)), "'a\\x00\\x1b\\xc3'");
    EXPECT_EQ(bat_TextCursor::Quoted(std::string(40, 'x')), "'" + std::string(40, 'x') + "'");
    EXPECT_EQ(bat_TextCursor::Quoted(std::string(41, 'x')), "'" + std::string(40, 'x') + "...'");
}
}
