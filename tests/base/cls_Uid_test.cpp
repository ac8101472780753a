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
cls_Uid::Bytes Counting()
{
    cls_Uid::Bytes bytes;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<unsigned char>(0xF1 + 13 * i);
    return bytes;
}
}

TEST(cls_Uid, IsFreshWhenMadeAndTheSameWhenCopied)
{
    const cls_Uid a;
    const cls_Uid b;
    const cls_Uid copy(a);
    EXPECT_NE(a, b);
    EXPECT_EQ(a, copy);
    EXPECT_EQ(a.Hash(), copy.Hash());
    EXPECT_FALSE(a.IsNull());
}

TEST(cls_Uid, NullIsAllZeroBytes)
{
    EXPECT_TRUE(cls_Uid::Null().IsNull());
    EXPECT_EQ(cls_Uid::Null(), cls_Uid::Null());
    EXPECT_EQ(cls_Uid::Null().AsBytes(), cls_Uid::Bytes{});
    EXPECT_EQ(cls_Uid::Null().AsString(), "00000000000000000000000000000000");
    EXPECT_LT(cls_Uid::Null(), cls_Uid());
    cls_Uid::Bytes last{};
    last[15] = 1;
    EXPECT_FALSE(cls_Uid(last).IsNull());
    cls_Uid::Bytes first{};
    first[0] = 1;
    EXPECT_FALSE(cls_Uid(first).IsNull());
}

TEST(cls_Uid, IsItsSixteenBytes)
{
    const cls_Uid::Bytes bytes = Counting();
    const cls_Uid uid(bytes);
    EXPECT_EQ(uid.AsBytes(), bytes);
    EXPECT_EQ(uid.AsString(), "f1fe0b1825323f4c596673808d9aa7b4");
    const cls_Uid fresh;
    EXPECT_EQ(cls_Uid(fresh.AsBytes()), fresh);
}

TEST(cls_Uid, IsOrderedAsItsBytesAre)
{
    const cls_Uid::Bytes bytes = Counting();
    for (std::size_t i = 0; i < bytes.size(); ++i)
    {
        cls_Uid::Bytes more = bytes;
        ++more[i];
        EXPECT_EQ(cls_Uid(bytes) < cls_Uid(more), bytes < more) << "byte " << i;
        EXPECT_NE(cls_Uid(bytes), cls_Uid(more)) << "byte " << i;
    }
}

TEST(cls_Uid, HasNoRepetitionWithinAndAcrossThreads)
{
    constexpr int EACH = 20000; // several blocks a thread
    std::vector<cls_Uid> made[4];
    std::vector<std::thread> threads;
    for (std::vector<cls_Uid>& mine : made)
        threads.emplace_back([&mine] {
            for (int i = 0; i < EACH; ++i)
                mine.push_back(cls_Uid());
        });
    for (std::thread& thread : threads)
        thread.join();
    std::unordered_set<cls_Uid> all;
    for (const std::vector<cls_Uid>& mine : made)
        all.insert(mine.begin(), mine.end());
    EXPECT_EQ(all.size(), 4u * EACH);
}

TEST(cls_Uid, HashSpreadsConsecutiveOnes)
{
    std::unordered_set<std::size_t> low;
    for (int i = 0; i < 4096; ++i)
        low.insert(cls_Uid().Hash() & 0xFFFF);
    // 4096 random draws of 65536 give about 3970 different ones.
    EXPECT_GT(low.size(), 3500u);
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
    const cls_Uid mine;
    cls_Uid::Bytes bytes{};
    ASSERT_EQ(read(channel[0], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    close(channel[0]);
    close(channel[1]);
    EXPECT_EQ(status, 0);
    EXPECT_NE(cls_Uid(bytes), mine);
    const cls_Uid::Bytes parents = mine.AsBytes();
    EXPECT_FALSE(std::equal(bytes.begin(), bytes.begin() + 8, parents.begin())) << "a nonce of its own";
}
