#include <cow_String.h>
#include <nex_InternalException.h>
#include <nex_RangeException.h>

#include <testing/ExpectRaise.h>

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <string>
#include <unordered_set>
#include <utility>

namespace
{
using namespace std::string_view_literals;

TEST(cow_String, NullAndEmptyAreOneText)
{
    const cow_String none;
    EXPECT_EQ(cow_String(nullptr), none);
    EXPECT_EQ(cow_String(""), none);
    EXPECT_EQ(cow_String("abc", 0), none);
    EXPECT_EQ(cow_String("abc").SubString(3, 9), none);
    EXPECT_TRUE(cow_String(nullptr).SharesWith(none));
    EXPECT_EQ(none, static_cast<const char*>(nullptr));
    EXPECT_STREQ(none.AsCharPtr(), "");
    EXPECT_EQ(none.Length(), 0);
    EXPECT_TRUE(none.IsEmpty());
}

TEST(cow_String, ZeroBytesCount)
{
    const cow_String ab("a\0b", 3);
    EXPECT_EQ(ab.Length(), 3);
    EXPECT_NE(ab, cow_String("a\0c", 3));
    EXPECT_NE(ab, cow_String("a"));
    EXPECT_NE(ab, "a");
    EXPECT_LT(cow_String("a"), ab);
    EXPECT_EQ(ab.Find(cow_String("\0", 1)), 1);
    EXPECT_NE(ab.Hash(), cow_String("a\0c", 3).Hash());
    EXPECT_EQ((ab + ab).View(), "a\0ba\0b"sv);
}

TEST(cow_String, OrdersByUnsignedByte)
{
    EXPECT_LT(cow_String("z"), cow_String("\xE4"));
    EXPECT_LT(cow_String("Z"), cow_String("a"));
    EXPECT_LT(cow_String("ab"), cow_String("abc"));
    EXPECT_FALSE(cow_String("b") < cow_String("abc"));
    EXPECT_GE(cow_String("b"), cow_String("b"));
}

TEST(cow_String, IndexIsChecked)
{
    const cow_String text("abc");
    EXPECT_EQ(text[0], 'a');
    EXPECT_EQ(text[2], 'c');
    EXPECT_RAISE(text[3], nex_RangeException, "index 3 out of range, length 3");
    EXPECT_RAISE(text[-1], nex_RangeException, "index -1 out of range, length 3");
    EXPECT_RAISE(cow_String()[0], nex_RangeException, "index 0 out of range, length 0");
}

struct FindRow
{
    const char* what;
    const char* text;
    const char* part;
    int from;
    int found;
    int foundBackwards;
};

class cow_StringFind : public testing::TestWithParam<FindRow>
{};

TEST_P(cow_StringFind, MatchesTable)
{
    const FindRow& row = GetParam();
    EXPECT_EQ(cow_String(row.text).Find(row.part, row.from), row.found);
    EXPECT_EQ(cow_String(row.text).RFind(row.part, row.from), row.foundBackwards);
}

INSTANTIATE_TEST_SUITE_P(Rows, cow_StringFind,
                         testing::Values(FindRow{"from_start", "abcabc", "abc", 0, 0, 0},
                                         FindRow{"from_inside", "abcabc", "abc", 1, 3, 0},
                                         FindRow{"on_the_place", "abcabc", "abc", 3, 3, 3},
                                         FindRow{"behind_all", "abcabc", "abc", 4, -1, 3},
                                         FindRow{"negative", "abcabc", "abc", -1, 0, 3},
                                         FindRow{"far_negative", "abcabc", "abc", INT_MIN, 0, 3},
                                         FindRow{"far_behind", "abcabc", "abc", INT_MAX, -1, 3},
                                         FindRow{"none", "abcabc", "x", 0, -1, -1},
                                         FindRow{"longer_than_text", "ab", "abc", 0, -1, -1},
                                         FindRow{"empty_part", "ab", "", 1, 1, 1},
                                         FindRow{"empty_part_behind", "ab", "", 9, 2, 2},
                                         FindRow{"empty_text", "", "a", 0, -1, -1},
                                         FindRow{"both_empty", "", "", 0, 0, 0}),
                         [](const auto& row) { return std::string(row.param.what); });

TEST(cow_String, SubStringIsCutToTheText)
{
    const cow_String text("abcdef");
    EXPECT_EQ(text.SubString(2, 2), "cd");
    EXPECT_EQ(text.SubString(4, 99), "ef");
    EXPECT_EQ(text.SubString(-2, 4), "ab") << "the part of -2..1 that the text has";
    EXPECT_EQ(text.SubString(-9, 4), "");
    EXPECT_EQ(text.SubString(2, 0), "");
    EXPECT_EQ(text.SubString(2, -1), "");
    EXPECT_EQ(text.SubString(INT_MAX, INT_MAX), "");
    EXPECT_EQ(text.SubString(INT_MIN, INT_MAX), "");
    EXPECT_EQ(text.SubString(1, INT_MAX), "bcdef");
    EXPECT_TRUE(text.SubString(0, 6).SharesWith(text));
}

TEST(cow_String, CopySharesAndAppendDetaches)
{
    cow_String a("abc");
    const cow_String b = a;
    EXPECT_TRUE(a.SharesWith(b));

    EXPECT_EQ(a.Find("c"), 2);
    EXPECT_EQ(a[1], 'b');
    EXPECT_EQ(a.AsCharPtr(), b.AsCharPtr());
    EXPECT_TRUE(a.SharesWith(b)) << "reading keeps sharing";

    a += "d";
    EXPECT_FALSE(a.SharesWith(b));
    EXPECT_EQ(a, "abcd");
    EXPECT_EQ(b, "abc");
}

TEST(cow_String, AppendsToItself)
{
    cow_String shared("ab");
    const cow_String keeper = shared;
    shared += shared;
    EXPECT_EQ(shared, "abab");
    EXPECT_EQ(keeper, "ab");

    cow_String grown("ab");
    for (int i = 0; i < 10; ++i)
        grown += grown; // with and without room in the body
    std::string expected = "ab";
    for (int i = 0; i < 10; ++i)
        expected += expected;
    EXPECT_EQ(grown.View(), expected);

    cow_String own("abcdef");
    own.Append(own.View().substr(1, 3));
    own.Append(own.View().substr(4, 4));
    EXPECT_EQ(own, "abcdefbcdefbc");
}

TEST(cow_String, AppendingNothingKeepsSharing)
{
    cow_String a("abc");
    const cow_String b = a;
    a += cow_String();
    a += static_cast<const char*>(nullptr);
    EXPECT_TRUE(a.SharesWith(b));

    cow_String none;
    none += a;
    EXPECT_TRUE(none.SharesWith(a)) << "appending to nothing is a copy";
}

TEST(cow_String, MovedFromIsEmpty)
{
    cow_String a("abc");
    const cow_String b = std::move(a);
    EXPECT_EQ(b, "abc");
    EXPECT_EQ(a, ""); // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move): that is the promise
    a = b;
    cow_String& alias = a;
    a = alias;
    a = std::move(alias);
    EXPECT_EQ(a, "abc");
}

TEST(cow_String, ConcatenationLeavesItsPartsAlone)
{
    const cow_String a("a");
    EXPECT_EQ(a + "b" + a + cow_String("c"), "abac");
    EXPECT_EQ("x" + a, "xa");
    EXPECT_EQ(a, "a");
}

TEST(cow_String, AgreesWithStandardTextOnRandomWork)
{
    std::mt19937 random(20);
    const auto draw = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
    cow_String text;
    cow_String former;
    std::string model;
    std::string formerModel;
    for (int step = 0; step < 20000; ++step)
    {
        const std::string piece(static_cast<std::size_t>(draw(4)), static_cast<char>('a' + draw(2)));
        switch (draw(5))
        {
        case 0:
        case 1:
            text += cow_String(piece);
            model += piece;
            break;
        case 2:
        {
            const int from = draw(40);
            const int count = draw(40);
            text = text.SubString(from, count);
            model = from <= static_cast<int>(model.size())
                        ? model.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(count))
                        : std::string();
            break;
        }
        case 3:
            former = text;
            formerModel = model;
            break;
        default:
        {
            const int from = draw(30);
            const std::size_t found =
                model.find(piece, std::min(static_cast<std::size_t>(from), model.size()));
            EXPECT_EQ(text.Find(cow_String(piece), from),
                      found == std::string::npos ? -1 : static_cast<int>(found));
            const std::size_t last = model.rfind(piece, static_cast<std::size_t>(from));
            EXPECT_EQ(text.RFind(cow_String(piece), from),
                      last == std::string::npos ? -1 : static_cast<int>(last));
        }
        }
        ASSERT_EQ(text.View(), model);
        ASSERT_EQ(former.View(), formerModel);
        ASSERT_EQ(text == former, model == formerModel);
        ASSERT_EQ(text < former, model < formerModel);
        ASSERT_EQ(text.AsCharPtr()[text.Length()], '\0');
    }
}

TEST(cow_String, HashesByText)
{
    cow_String built("ab");
    built += "c";
    EXPECT_EQ(built.Hash(), cow_String("abc").Hash());
    const std::unordered_set<cow_String> set = {"a", "b", "a", cow_String("a\0", 2)};
    EXPECT_EQ(set.size(), 3u);
}
}
