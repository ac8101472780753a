#include <cow_String.h>
#include <nex_RangeException.h>

#include <testing/ExpectRaise.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>
#include <string>
#include <unordered_set>
#include <utility>

namespace
{
int Draw(std::mt19937& random, int below)
{
    return static_cast<int>(random() % static_cast<unsigned>(below));
}

// Texts of two bytes, one of them zero: they repeat, and nothing may stop at the zero.
TEST(cow_String, AgreesWithStandardTextOnRandomWork)
{
    std::mt19937 random(20);
    cow_String text;
    cow_String former;
    std::string model;
    std::string formerModel;
    for (int step = 0; step < 20000; ++step)
    {
        const std::string piece(static_cast<std::size_t>(Draw(random, 4)),
                                Draw(random, 2) == 0 ? '\xE4' : '\0');
        const int from = Draw(random, 50) - 10;
        const int count = Draw(random, 50) - 10;
        const int begin = std::max(from, 0);
        const auto length = static_cast<int>(model.size());
        switch (Draw(random, 6))
        {
        case 0:
        case 1:
            text += cow_String(piece);
            model += piece;
            break;
        case 2: // what from..from+count and the text have in common
            text = text.SubString(from, count);
            model = model.substr(static_cast<std::size_t>(std::min(begin, length)),
                                 static_cast<std::size_t>(std::max(0, from + std::max(count, 0) - begin)));
            break;
        case 3:
            former = text;
            formerModel = model;
            break;
        case 4:
            if (length < 100) // of itself
            {
                text.Append(text.View().substr(0, static_cast<std::size_t>(begin)));
                model += model.substr(0, static_cast<std::size_t>(begin));
            }
            break;
        default:
            const std::size_t found = model.find(piece, static_cast<std::size_t>(std::min(begin, length)));
            EXPECT_EQ(text.Find(cow_String(piece), from), static_cast<int>(found));
            const std::size_t last =
                model.rfind(piece, from < 0 ? std::string::npos : static_cast<std::size_t>(from));
            EXPECT_EQ(text.RFind(cow_String(piece), from), static_cast<int>(last)) << "none is -1";
        }
        ASSERT_EQ(text.View(), model);
        ASSERT_EQ(former.View(), formerModel);
        ASSERT_EQ(text == former, model == formerModel);
        ASSERT_EQ(text < former, model < formerModel);
        ASSERT_EQ(text.Hash() == former.Hash(), model == formerModel);
        ASSERT_EQ((former + text).View(), formerModel + model);
        ASSERT_EQ(text.AsCharPtr()[text.Length()], '\0');
    }
}

TEST(cow_String, FarPositionsAreCutToTheText)
{
    const cow_String text("abcabc");
    EXPECT_EQ(text.Find("abc", INT_MIN), 0);
    EXPECT_EQ(text.RFind("abc", INT_MIN), 3) << "from the end";
    EXPECT_EQ(text.Find("abc", INT_MAX), -1);
    EXPECT_EQ(text.Find("", INT_MAX), 6);
    EXPECT_EQ(text.RFind("abc", INT_MAX), 3);
    EXPECT_EQ(text.SubString(INT_MAX, INT_MAX), "");
    EXPECT_EQ(text.SubString(INT_MIN, INT_MAX), "");
    EXPECT_EQ(text.SubString(1, INT_MAX), "bcabc");
    EXPECT_RAISE(text[6], nex_RangeException, "index 6 out of range, length 6");
    EXPECT_RAISE(text[-1], nex_RangeException, "index -1 out of range, length 6");
    EXPECT_RAISE(cow_String()[0], nex_RangeException, "index 0 out of range, length 0");
}

TEST(cow_String, NullAndEmptyAreOneText)
{
    const cow_String none;
    EXPECT_EQ(cow_String("abc", 0), none);
    EXPECT_TRUE(cow_String(nullptr).SharesWith(none));
    EXPECT_EQ(none, static_cast<const char*>(nullptr));
    EXPECT_STREQ(none.AsCharPtr(), "");
    EXPECT_TRUE(none.IsEmpty());
}

TEST(cow_String, SharesUntilItIsWritten)
{
    cow_String a("abc");
    const cow_String b = a;
    EXPECT_EQ(a[1] + a.Find("c"), 'b' + 2);
    EXPECT_EQ(a.AsCharPtr(), b.AsCharPtr());
    a += cow_String();
    a += static_cast<const char*>(nullptr);
    EXPECT_TRUE(a.SharesWith(b)) << "appending nothing is no write";
    EXPECT_TRUE(a.SubString(0, 3).SharesWith(b));
    EXPECT_TRUE((cow_String() += a).SharesWith(b)) << "appending to nothing is a copy";
    a += "d";
    EXPECT_FALSE(a.SharesWith(b));
    EXPECT_EQ("x" + a + "y", "xabcdy");

    const cow_String moved = std::move(a);
    EXPECT_EQ(a, ""); // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move): that is the promise
    a = moved;
    cow_String& alias = a;
    a = alias;
    a = std::move(alias);
    EXPECT_EQ(a, "abcd");
    EXPECT_EQ((std::unordered_set<cow_String>{"a", "b", "a", cow_String("a\0", 2)}).size(), 3u);
}
}
