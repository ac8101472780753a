#include <limits>
#include <nex_RangeException.h>
#include <omu_OverflowErrorException.h>
#include <omu_PrimBool.h>
#include <omu_PrimExpr.h>
#include <omu_PrimNumber.h>
#include <omu_PrimPath.h>
#include <omu_PrimString.h>
#include <omu_PrimTranslatedString.h>
#include <ostream>

#include <gtest/gtest.h>

namespace
{
struct QuoteRow
{
    const char* name;
    const char* text;
    const char* quoted;
};

void PrintTo(const QuoteRow& row, std::ostream* out)
{
    *out << row.name;
}

class Quoting : public testing::TestWithParam<QuoteRow>
{};

TEST_P(Quoting, MatchesTable)
{
    const QuoteRow& row = GetParam();
    EXPECT_STREQ(omu_PrimString(row.text).AsString(0).AsCharPtr(), row.quoted);
    EXPECT_STREQ(omu_PrimTranslatedString(row.text).AsString(0).AsCharPtr(), row.quoted);
    EXPECT_STREQ(omu_PrimPath(cow_String(row.text)).AsString(0).AsCharPtr(), row.quoted);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Quoting,
    testing::Values(
        QuoteRow{"Plain", "abc", "'abc'"}, QuoteRow{"Empty", "", "''"},
        QuoteRow{"SingleQuote", "it's", "\"it's\""}, QuoteRow{"DoubleQuotes", "a \"b\"", "'a \"b\"'"},
        QuoteRow{"BothQuotes", "it's \"b\"", "'it\\'s \"b\"'"}, QuoteRow{"Backslash", "a\\b", "'a\\\\b'"},
        QuoteRow{"BackslashAtTheEnd", "a\\", "'a\\\\'"}, QuoteRow{"Newline", "a\nb", "'a\\nb'"},
        // Backslashes are doubled before quotes and newlines are escaped, so those stay single.
        QuoteRow{"BackslashBeforeQuotes", "\\'\"", "'\\\\\\'\"'"},
        QuoteRow{"BackslashBeforeNewline", "\\\n", "'\\\\\\n'"}, QuoteRow{"BackslashAndN", "\\n", "'\\\\n'"},
        QuoteRow{"BackslashInDoubleQuotes", "it's\\", "\"it's\\\\\""},
        QuoteRow{"NewlineInDoubleQuotes", "it's\n", "\"it's\\n\""},
        QuoteRow{"OtherControlsStayRaw", "a\tb\rc", "'a\tb\rc'"}, QuoteRow{"OnlyAQuote", "'", "\"'\""},
        QuoteRow{"BytesStayRaw", "\xc3\xa9", "'\xc3\xa9'"}),
    [](const auto& row) { return row.param.name; });

TEST(PrimString, QuotesBehindAZeroByteToo)
{
    EXPECT_EQ(omu_PrimString::Quoted(cow_String("a\0'", 3)), cow_String("\"a\0'\"", 5));
}

TEST(PrimString, TakesTheTextOfNumbersAndConstants)
{
    EXPECT_EQ(omu_PrimString(-3).Value(), "-3");
    EXPECT_EQ(omu_PrimString(4294967295u).Value(), "4294967295");
    EXPECT_EQ(omu_PrimString(2.0).Value(), "2.0");
    EXPECT_EQ(omu_PrimString(1e-7).Value(), "1e-07");
    EXPECT_EQ(omu_PrimString(omu_OnOffConst(false)).Value(), "OFF");
    EXPECT_EQ(omu_PrimString(static_cast<const char*>(nullptr)).Value(), "");
}

TEST(PrimString, CopiesShareTheText)
{
    const omu_PrimString text("a text of some length");
    const omu_PrimString copy(text);
    EXPECT_TRUE(copy.Value().SharesWith(text.Value()));
    const std::unique_ptr<omu_PrimString> heap(text.Copy());
    EXPECT_TRUE(heap->Value().SharesWith(text.Value()));
}

TEST(PrimString, ComparesUpToTheFirstZeroByte)
{
    const omu_PrimString shorter(cow_String("ab", 2));
    const omu_PrimString longer(cow_String("ab\0cd", 5));
    EXPECT_TRUE(shorter == longer);
    EXPECT_TRUE(longer == shorter);
    EXPECT_NE(shorter.Value(), longer.Value());
    EXPECT_TRUE(omu_PrimString() == omu_PrimString(cow_String("\0x", 2)));
    EXPECT_TRUE(shorter != omu_PrimString("abc"));
    EXPECT_FALSE(shorter == omu_PrimString("AB"));
    // Expressions and translated texts are compared whole.
    EXPECT_FALSE(omu_PrimExpr(shorter.Value()) == omu_PrimExpr(longer.Value()));
}

TEST(PrimString, ConcatAppendsInPlace)
{
    omu_PrimString text("ab");
    const omu_PrimString before(text);
    text.Concat(omu_PrimString("cd"));
    EXPECT_EQ(text.Value(), "abcd");
    text.Concat(text);
    EXPECT_EQ(text.Value(), "abcdabcd");
    text.Concat(omu_PrimString());
    EXPECT_EQ(text.Length(), 8);
    EXPECT_EQ(before.Value(), "ab");
}

TEST(PrimString, IndexIsChecked)
{
    const omu_PrimString text("abc");
    EXPECT_EQ(text[0], 'a');
    EXPECT_EQ(text[2], 'c');
    for (const int outside : {-1, 3, 100})
        EXPECT_THROW(static_cast<void>(text[outside]), nex_RangeException) << outside;
    EXPECT_THROW(static_cast<void>(omu_PrimString()[0]), nex_RangeException);
}

struct SliceRow
{
    const char* name;
    int from, to;
    const char* text;
};

void PrintTo(const SliceRow& row, std::ostream* out)
{
    *out << row.name;
}

class StringSlice : public testing::TestWithParam<SliceRow>
{};

TEST_P(StringSlice, MatchesTable)
{
    const omu_PrimString text("abcde");
    EXPECT_STREQ(text.Slice(GetParam().from, GetParam().to).AsCharPtr(), GetParam().text);
    EXPECT_EQ(text.Value(), "abcde");
    EXPECT_EQ(omu_PrimString().Slice(GetParam().from, GetParam().to).Length(), 0);
}

constexpr int LEAST = std::numeric_limits<int>::min();
constexpr int MOST = std::numeric_limits<int>::max();
INSTANTIATE_TEST_SUITE_P(Rows, StringSlice,
                         testing::Values(SliceRow{"Inside", 1, 3, "bc"}, SliceRow{"All", 0, 5, "abcde"},
                                         SliceRow{"EndBeyond", 3, 99, "de"},
                                         SliceRow{"StartNegative", -2, 2, "ab"},
                                         SliceRow{"EndNegative", 0, -1, ""}, SliceRow{"Equal", 2, 2, ""},
                                         SliceRow{"Crossed", 3, 1, ""}, SliceRow{"StartBeyond", 9, 12, ""},
                                         SliceRow{"Extremes", LEAST, MOST, "abcde"},
                                         SliceRow{"ExtremesCrossed", MOST, LEAST, ""}),
                         [](const auto& row) { return row.param.name; });

TEST(PrimString, Repeats)
{
    const omu_PrimString text("ab");
    EXPECT_EQ(text.Repeat(3).Value(), "ababab");
    EXPECT_EQ(text.Repeat(1).Value(), "ab");
    for (const int none : {0, -1, LEAST})
        EXPECT_EQ(text.Repeat(none).Value(), "") << none;
    EXPECT_EQ(omu_PrimString().Repeat(MOST).Value(), "");
}

TEST(PrimString, RepeatRefusesWhatIsTooLong)
{
    const omu_PrimString text("ab");
    try
    {
        // The longest allowed is 2147483647 bytes; this would be one more.
        static_cast<void>(text.Repeat(1073741824));
        FAIL() << "a text of 2147483648 bytes was made";
    }
    catch (const omu_OverflowErrorException& error)
    {
        EXPECT_EQ(error.JournalMessage(), "repeated string is too long");
        EXPECT_EQ(error.Source(), "KTLOxuOmu.m/src/omu_PrimString");
        EXPECT_GT(error.Line(), 0);
    }
    EXPECT_EQ(text.Value(), "ab");
}
}
