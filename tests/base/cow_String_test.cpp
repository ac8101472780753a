#include <cow_String.h>
#include <nex_RangeException.h>

#include <testing/ExpectRaise.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>
#include <string>
#include <utility>

namespace
{
// Texts of two bytes, one of them zero: they repeat, and nothing may stop at the zero.
TEST(cow_String, AgreesWithStandardTextOnRandomWork)
{
    std::mt19937 random(20);
    const auto draw = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
    cow_String text, former;
    std::string model, formerModel;
    for (int step = 0; step < 20000; ++step)
    {
        const std::string piece(static_cast<std::size_t>(draw(4)), draw(2) == 0 ? '\xE4' : '\0');
        // Sometimes as far away as can be.
        const int from = draw(20) == 0 ? INT_MIN : draw(20) == 0 ? INT_MAX : draw(50) - 10;
        const int count = draw(10) == 0 ? INT_MAX : draw(50) - 10;
        const auto length = static_cast<int>(model.size());
        const auto begin = static_cast<std::size_t>(std::clamp(from, 0, length));
        switch (draw(6))
        {
        case 0:
        case 1:
            text += cow_String(piece);
            model += piece;
            break;
        case 2: // what from..from+count and the text have in common
        {
            const long end = std::min<long>(length, long{from} + std::max(count, 0));
            text = text.SubString(from, count);
            model =
                model.substr(begin, static_cast<std::size_t>(std::max(0L, end - static_cast<long>(begin))));
            break;
        }
        case 3:
            former = text;
            formerModel = model;
            break;
        case 4:
            if (length < 100) // of itself
            {
                text.Append(text.View().substr(0, begin));
                model += model.substr(0, begin);
            }
            break;
        default:
            const std::size_t last =
                model.rfind(piece, from < 0 ? std::string::npos : static_cast<std::size_t>(from));
            EXPECT_EQ(text.Find(cow_String(piece), from), static_cast<int>(model.find(piece, begin)));
            EXPECT_EQ(text.RFind(cow_String(piece), from), static_cast<int>(last)) << "none is -1";
        }
        ASSERT_EQ(text.View(), model);
        ASSERT_EQ(former.View(), formerModel);
        ASSERT_EQ(text == former, model == formerModel);
        ASSERT_EQ(text < former, model < formerModel);
        ASSERT_EQ(text.Hash() == former.Hash(), model == formerModel);
        ASSERT_EQ(text.AsCharPtr()[text.Length()], '\0');
    }
}

TEST(cow_String, SharesUntilItIsWritten)
{
    cow_String a("abc");
    const cow_String b = a;
    EXPECT_RAISE(a[3], nex_RangeException, "index 3 out of range, length 3");
    a += cow_String();
    EXPECT_TRUE(a.SharesWith(b) && a.SubString(0, 3).SharesWith(b)) << "appending nothing is no write";
    EXPECT_TRUE((cow_String() += a).SharesWith(b)) << "appending to nothing is a copy";
    const cow_String moved = std::move(a);
    EXPECT_EQ(a, ""); // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move): that is the promise
    a = moved;
    cow_String& alias = a;
    a = alias;
    a = std::move(alias);
    EXPECT_EQ(a, "abc");
}
}
