#include "plugin/Plugin.h"

#include <omi_Singleton.h>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

namespace
{
class Client : public omi_Singleton<Client>
{
public:
    Client() : id(++made) { ++live; }
    virtual ~Client() { --live; }
    virtual const char* Name() const { return "default"; }

    int id;
    static inline int made = 0;
    static inline int live = 0;
};

class FrontEnd : public Client
{
public:
    const char* Name() const override { return "front end"; }
};

class omi_SingletonTest : public testing::Test
{
protected:
    void TearDown() override
    {
        omi_Singleton<Client>::Destroy();
        EXPECT_EQ(Client::live, 0);
    }
};

TEST_F(omi_SingletonTest, IsMadeOnFirstUseOnce)
{
    EXPECT_FALSE(omi_Singleton<Client>::Exists());
    const int made = Client::made;
    Client& first = omi_Singleton<Client>::Instance();
    EXPECT_TRUE(omi_Singleton<Client>::Exists());
    EXPECT_EQ(&Client::Instance(), &first);
    EXPECT_EQ(Client::made, made + 1);
}

TEST_F(omi_SingletonTest, AConstructedObjectIsTheInstanceUntilItDies)
{
    {
        FrontEnd mine;
        EXPECT_EQ(&Client::Instance(), &mine);
        EXPECT_STREQ(Client::Instance().Name(), "front end");
    }
    EXPECT_FALSE(Client::Exists());
    EXPECT_STREQ(Client::Instance().Name(), "default");
}

TEST_F(omi_SingletonTest, AReplacedDefaultStaysAliveAndIsFreed)
{
    Client& former = Client::Instance();
    const int formerId = former.id;
    {
        const FrontEnd mine;
        EXPECT_NE(&Client::Instance(), &former);
        EXPECT_EQ(former.id, formerId) << "who holds a reference may still use it";
        EXPECT_EQ(Client::live, 2);
    }
    EXPECT_NE(Client::Instance().id, formerId) << "the slot was cleared: made afresh";
    EXPECT_EQ(Client::live, 1) << "and the former default freed";

    const FrontEnd again;
    Client::Destroy();
    EXPECT_EQ(Client::live, 1) << "the default, replaced, was freed; the front end's object was not";
}

TEST_F(omi_SingletonTest, ReplacedObjectsLeaveTheInstanceAlone)
{
    auto first = std::make_unique<FrontEnd>();
    auto second = std::make_unique<FrontEnd>();
    EXPECT_EQ(&Client::Instance(), second.get());
    first.reset();
    EXPECT_EQ(&Client::Instance(), second.get());
    second.reset();
    EXPECT_FALSE(Client::Exists());
}

TEST_F(omi_SingletonTest, DestroyStartsAfresh)
{
    const int id = Client::Instance().id;
    Client::Destroy();
    EXPECT_FALSE(Client::Exists());
    EXPECT_EQ(Client::live, 0);
    Client::Destroy();
    EXPECT_EQ(Client::Instance().id, id + 1);
}

TEST_F(omi_SingletonTest, DestroyLeavesAFrontEndsObjectToItsOwner)
{
    const auto mine = std::make_unique<FrontEnd>();
    Client::Destroy();
    EXPECT_FALSE(Client::Exists());
    EXPECT_EQ(Client::live, 1);
    EXPECT_NE(&Client::Instance(), mine.get());
}

TEST_F(omi_SingletonTest, ADefaultDeletedByHandIsForgotten)
{
    delete &Client::Instance();
    EXPECT_FALSE(Client::Exists());
    EXPECT_EQ(Client::live, 0);
}

class Failing : public omi_Singleton<Failing>
{
public:
    Failing()
    {
        if (fails)
            throw std::runtime_error("no");
    }
    static inline bool fails = true;
};

TEST(omi_Singleton, AConstructorThatThrowsLeavesTheSlotEmpty)
{
    EXPECT_THROW(Failing::Instance(), std::runtime_error);
    EXPECT_FALSE(Failing::Exists());
    Failing::fails = false;
    const Failing& made = Failing::Instance();
    Failing::fails = true;
    EXPECT_THROW(std::make_unique<Failing>(), std::runtime_error);
    EXPECT_FALSE(Failing::Exists()) << "the object that failed had become the instance";
    EXPECT_NE(&made, nullptr);
    Failing::Destroy();
}

class Private : public omi_Singleton<Private>
{
    friend class omi_Singleton<Private>;
    Private() : self(&Instance()) {}
    ~Private() = default;

public:
    Private* self;
};

TEST(omi_Singleton, ConstructorMayBePrivateAndAskForItself)
{
    EXPECT_EQ(Private::Instance().self, &Private::Instance());
    Private::Destroy();
}

class Abstract : public omi_Singleton<Abstract>
{
public:
    virtual ~Abstract() = default;
    virtual int Answer() const = 0;
};

class Concrete : public Abstract
{
public:
    int Answer() const override { return 42; }
};

TEST(omi_SingletonDeathTest, AnAbstractClassHasNoDefault)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    {
        const Concrete concrete;
        EXPECT_EQ(Abstract::Instance().Answer(), 42);
    }
    EXPECT_DEATH(Abstract::Instance(), "an abstract class has no default instance");
}

class Usurped : public omi_Singleton<Usurped>
{
public:
    explicit Usurped(bool usurps = true)
    {
        if (usurps)
            usurper = new Usurped(false);
    }
    Usurped* usurper = nullptr;
};

TEST(omi_SingletonDeathTest, ADefaultThatDidNotBecomeTheInstanceAborts)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(Usurped::Instance(), "the default instance did not become the instance");
}

class Contended : public omi_Singleton<Contended>
{
public:
    Contended()
    {
        ++made;
        std::this_thread::yield();
        complete = 7;
    }
    int complete = 0;
    static inline std::atomic<int> made{0};
};

TEST(omi_Singleton, ManyThreadsMakeOneAndSeeItComplete)
{
    for (int round = 1; round <= 50; ++round)
    {
        std::atomic<int> waiting{4};
        std::vector<std::thread> threads;
        threads.reserve(4);
        for (int t = 0; t < 4; ++t)
            threads.emplace_back([&] {
                --waiting;
                while (waiting > 0)
                    std::this_thread::yield();
                EXPECT_EQ(Contended::Instance().complete, 7);
            });
        for (std::thread& thread : threads)
            thread.join();
        EXPECT_EQ(Contended::made, round);
        Contended::Destroy();
    }
}

TEST(omi_Singleton, IsOneAcrossSharedLibraries)
{
    EXPECT_EQ(Plugin_Global(), &PluginGlobal::Instance());
    PluginGlobal mine;
    EXPECT_EQ(Plugin_Global(), &mine);
    PluginGlobal::Destroy();
}
}
