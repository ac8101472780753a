#include <cls_Uid.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <thread>
#include <unordered_set>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace
{
TEST(cls_Uid, IsItsSixteenBytesAndOrderedAsTheyAre)
{
    cls_Uid::Bytes bytes;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<unsigned char>(0xF1 + 13 * i);
    const cls_Uid uid(bytes);
    EXPECT_EQ(uid.AsBytes(), bytes);
    EXPECT_EQ(uid.AsString(), "f1fe0b1825323f4c596673808d9aa7b4");
    EXPECT_EQ(uid.Hash(), cls_Uid(uid).Hash());
    EXPECT_EQ(cls_Uid::Null().AsString(), "00000000000000000000000000000000");
    EXPECT_TRUE(cls_Uid::Null().IsNull());
    EXPECT_FALSE(cls_Uid().IsNull());
    for (std::size_t i = 0; i < bytes.size(); ++i)
    {
        cls_Uid::Bytes more = bytes;
        ++more[i];
        EXPECT_EQ(uid < cls_Uid(more), bytes < more) << "byte " << i;
        EXPECT_NE(uid, cls_Uid(more)) << "byte " << i;
        cls_Uid::Bytes one{};
        one[i] = 1;
        EXPECT_FALSE(cls_Uid(one).IsNull()) << "byte " << i;
    }
}

TEST(cls_Uid, HasNoRepetitionWithinAndAcrossThreadsAndSpreads)
{
    constexpr int EACH = 20000; // several blocks a thread
    std::vector<cls_Uid> made[4];
    std::vector<std::thread> threads;
    for (std::vector<cls_Uid>& mine : made)
        threads.emplace_back([&mine] { mine.resize(EACH); });
    for (std::thread& thread : threads)
        thread.join();
    std::unordered_set<cls_Uid> all;
    std::unordered_set<std::size_t> low;
    for (const std::vector<cls_Uid>& mine : made)
        all.insert(mine.begin(), mine.end());
    EXPECT_EQ(all.size(), 4u * EACH);
    for (int i = 0; i < 4096; ++i)
        low.insert(made[0][static_cast<std::size_t>(i)].Hash() & 0xFFFF);
    EXPECT_GT(low.size(), 3500u) << "4096 random draws of 65536 give about 3970 different ones";
}

TEST(cls_Uid, AForkedChildMakesOthersThanItsParent)
{
    static_cast<void>(cls_Uid()); // a block is begun
    int channel[2];
    ASSERT_EQ(pipe(channel), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0)
    {
        const cls_Uid::Bytes bytes = cls_Uid().AsBytes();
        const bool sent = write(channel[1], bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
        _exit(sent ? 0 : 1);
    }
    const cls_Uid::Bytes mine = cls_Uid().AsBytes();
    cls_Uid::Bytes theirs{};
    ASSERT_EQ(read(channel[0], theirs.data(), theirs.size()), static_cast<ssize_t>(theirs.size()));
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    close(channel[0]);
    close(channel[1]);
    EXPECT_FALSE(std::equal(theirs.begin(), theirs.begin() + 8, mine.begin())) << "a nonce of its own";
}
}
