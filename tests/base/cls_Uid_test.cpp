#include <cls_Uid.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace
{
TEST(cls_Uid, HasNoRepetitionWithinAndAcrossThreadsAndIsItsBytes)
{
    constexpr int EACH = 20000; // several blocks a thread
    std::vector<cls_Uid> made[4];
    std::vector<std::thread> threads;
    for (std::vector<cls_Uid>& mine : made)
        threads.emplace_back([&mine] { mine.resize(EACH); });
    for (std::thread& thread : threads)
        thread.join();
    std::set<cls_Uid> all;
    std::set<std::size_t> low;
    for (const std::vector<cls_Uid>& mine : made)
        all.insert(mine.begin(), mine.end());
    EXPECT_EQ(all.size(), 4u * EACH);
    for (int i = 0; i < 4096; ++i)
        low.insert(made[0][static_cast<std::size_t>(i)].Hash() & 0xFFFF);
    EXPECT_GT(low.size(), 3500u) << "4096 random draws of 65536 give about 3970 different ones";
    EXPECT_EQ(cls_Uid(made[1][7].AsBytes()), made[1][7]);
    EXPECT_EQ(cls_Uid({0, 0x1F}).AsString(), "001f0000000000000000000000000000");
}

TEST(cls_Uid, AForkedChildMakesOthersThanItsParent)
{
    GTEST_FLAG_SET(death_test_style, "fast"); // which forks
    const cls_Uid::Bytes mine = cls_Uid().AsBytes();
    const auto nonceOf = [](const cls_Uid::Bytes& bytes) {
        return std::string(bytes.begin(), bytes.begin() + 8);
    };
    EXPECT_EXIT(std::_Exit(nonceOf(cls_Uid().AsBytes()) == nonceOf(mine)), testing::ExitedWithCode(0), "");
}
}
