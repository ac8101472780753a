#include <nex_RangeException.h>
#include <omu_PrimBool.h>
#include <omu_PrimExpr.h>
#include <omu_PrimPath.h>
#include <omu_PrimTranslatedString.h>
#include <testing/ValueTesting.h>

namespace
{
TEST(PrimString, Quoting)
{
    const char* const rows[][2] = {
        {"", "''"},
        {"it's", "\"it's\""},
        {"a \"b\"", "'a \"b\"'"},
        {"it's \"b\"", "'it\\'s \"b\"'"},
        {"a\\b", "'a\\\\b'"},
        {"a\nb", "'a\\nb'"},
        // Backslashes are doubled before quotes and newlines are escaped, so those stay single.
        {"\\'\"", "'\\\\\\'\"'"},
        {"\\\n", "'\\\\\\n'"},
        {"it's\\", "\"it's\\\\\""},
        {"it's\n", "\"it's\\n\""},
        {"a\tb\r\xc3\xa9", "'a\tb\r\xc3\xa9'"}, // all else stays raw
    };
    for (const auto& [text, quoted] : rows)
    {
        EXPECT_EQ(Text(omu_PrimString(text)), quoted);
        EXPECT_EQ(Text(omu_PrimTranslatedString(text)), quoted);
        EXPECT_EQ(Text(omu_PrimPath(cow_String(text))), quoted);
    }
    EXPECT_EQ(omu_PrimString::Quoted(cow_String("a\0'", 3)), cow_String("\"a\0'\"", 5));
}

TEST(PrimString, TakesTheTextOfNumbersAndConstants)
{
    EXPECT_EQ(omu_PrimString(-3).Value(), "-3");
    EXPECT_EQ(omu_PrimString(4294967295u).Value(), "4294967295");
    EXPECT_EQ(omu_PrimString(2.0).Value(), "2.0");
    EXPECT_EQ(omu_PrimString(omu_OnOffConst(false)).Value(), "OFF");
    EXPECT_EQ(omu_PrimString(static_cast<const char*>(nullptr)).Value(), "");
}

// Up to the first zero byte, on purpose; expressions and translated texts are compared whole.
TEST(PrimString, ComparesUpToTheFirstZeroByte)
{
    const omu_PrimString shorter(cow_String("ab", 2));
    const omu_PrimString longer(cow_String("ab\0cd", 5));
    EXPECT_TRUE(shorter == longer && longer == shorter);
    EXPECT_TRUE(omu_PrimString() == omu_PrimString(cow_String("\0x", 2)));
    EXPECT_FALSE(shorter == omu_PrimString("abc") || shorter == omu_PrimString("AB"));
    EXPECT_FALSE(omu_PrimExpr(shorter.Value()) == omu_PrimExpr(longer.Value()));
}

TEST(PrimString, IsASequenceOfCharacters)
{
    omu_PrimString text("ab");
    const omu_PrimString before(text);
    EXPECT_TRUE(before.Value().SharesWith(text.Value()));
    text.Concat(omu_PrimString("cd"));
    text.Concat(text);
    EXPECT_EQ(text.Value(), "abcdabcd");
    EXPECT_EQ(before.Value(), "ab");
    EXPECT_EQ(text[7], 'd');
    EXPECT_ERROR(text[-1], "nex_RangeException: index -1 out of range, length 8");
    EXPECT_ERROR(text[8], "nex_RangeException: index 8 out of range, length 8");

    constexpr int LEAST = std::numeric_limits<int>::min();
    constexpr int MOST = std::numeric_limits<int>::max();
    const struct
    {
        int from, to;
        const char* text;
    } slices[] = {{1, 3, "bc"},     {6, 99, "cd"}, {-2, 2, "ab"}, {0, -1, ""},
                  {2, 2, ""},       {3, 1, ""},    {9, 12, ""},   {LEAST, MOST, "abcdabcd"},
                  {MOST, LEAST, ""}};
    for (const auto& [from, to, wanted] : slices)
        EXPECT_EQ(text.Slice(from, to).Value(), wanted) << from << ' ' << to;

    EXPECT_EQ(before.Repeat(3).Value(), "ababab");
    for (const int none : {0, -1, LEAST})
        EXPECT_EQ(before.Repeat(none).Value(), "") << none;
    EXPECT_EQ(omu_PrimString().Repeat(MOST).Value(), "");
    // The longest allowed is 2147483647 bytes; this would be one more.
    EXPECT_ERROR(before.Repeat(1073741824), "OverflowError: repeated string is too long");
}
}
