#include "plugin/Plugin.h"

#include <thr_ThreadSingleton.h>

#include <gmock/gmock.h>

#include <cstddef>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace
{
using testing::ElementsAre;

std::vector<std::string> deaths; // filled on the thread that ends, read after it has

template <int Number, int Level>
class Mortal : public thr_ThreadSingleton<Mortal<Number, Level>, Level>
{
public:
    ~Mortal() { deaths.push_back(std::to_string(Number) + " at " + std::to_string(Level)); }
};

template <class F>
void OnAnotherThread(F work)
{
    std::thread(work).join();
}

class History : public thr_ThreadSingleton<History, 15>
{
public:
    History() { ++live; }
    virtual ~History() { --live; }
    int value = 0;
    static inline int live = 0;
};

class Recorder : public History
{};

TEST(thr_ThreadSingleton, IsOneAThread)
{
    History::Instance().value = 5;
    const History* const mine = &History::Instance();
    OnAnotherThread([&] {
        EXPECT_FALSE(History::Exists());
        EXPECT_NE(&History::Instance(), mine);
        EXPECT_EQ(History::Instance().value, 0);
        EXPECT_EQ(History::live, 2);
    });
    EXPECT_EQ(History::live, 1) << "it died with its thread";
    EXPECT_EQ(History::Instance().value, 5);
    History::Destroy();
    EXPECT_EQ(History::live, 0);
}

TEST(thr_ThreadSingleton, TheLevelNeedNotBeNamed)
{
    EXPECT_EQ(&thr_ThreadSingleton<History>::Instance(), &(thr_ThreadSingleton<History, 15>::Instance()));
    EXPECT_EQ(&thr_ThreadSingleton<History>::Instance(), &History::Instance());
    thr_ThreadSingleton<History>::Destroy();
    EXPECT_FALSE(History::Exists());
}

TEST(thr_ThreadSingleton, AConstructedObjectIsTheInstanceUntilItDies)
{
    History& former = History::Instance();
    {
        Recorder mine;
        EXPECT_EQ(&History::Instance(), &mine);
        OnAnotherThread([&] { EXPECT_NE(&History::Instance(), &mine); });
        former.value = 3;
    }
    EXPECT_FALSE(History::Exists());
    EXPECT_EQ(History::Instance().value, 0) << "made afresh";
    EXPECT_EQ(History::live, 1) << "and the replaced default freed";

    auto owned = std::make_unique<Recorder>();
    History::Destroy();
    EXPECT_EQ(History::live, 1) << "the recorder is its owner's";
    EXPECT_NE(&History::Instance(), owned.get());
    owned.reset();
    EXPECT_TRUE(History::Exists());
    History::Destroy();
    EXPECT_EQ(History::live, 0);
}

TEST(thr_ThreadSingleton, DiesInOrderOfLevelThenYoungestFirst)
{
    deaths.clear();
    OnAnotherThread([] {
        Mortal<1, 15>::Instance();
        Mortal<2, 0>::Instance();
        Mortal<3, -1>::Instance();
        Mortal<4, 15>::Instance();
        Mortal<5, 0>::Instance();
    });
    EXPECT_THAT(deaths, ElementsAre("3 at -1", "5 at 0", "2 at 0", "4 at 15", "1 at 15"));
}

TEST(thr_ThreadSingleton, AReplacedDefaultDiesWithTheThread)
{
    OnAnotherThread([] {
        History::Instance();
        const Recorder mine;
        EXPECT_EQ(History::live, 2);
    });
    EXPECT_EQ(History::live, 0);
}

class Late : public thr_ThreadSingleton<Late, 3>
{
public:
    ~Late()
    {
        deaths.push_back("late");
        Mortal<6, 1>::Instance(); // its level has passed
    }
};

TEST(thr_ThreadSingleton, ADestructorMayStillCallForAnother)
{
    deaths.clear();
    OnAnotherThread([] {
        Late::Instance();
        Mortal<7, 9>::Instance();
    });
    EXPECT_THAT(deaths, ElementsAre("late", "6 at 1", "7 at 9"));
}

// In static memory, since the last one is given up alive.
template <class T>
class Static
{
public:
    static void* operator new(std::size_t)
    {
        alignas(std::max_align_t) static unsigned char room[64];
        static_assert(sizeof(T) <= sizeof room);
        return room;
    }
    static void operator delete(void*) {}
};

class Ping : public thr_ThreadSingleton<Ping>, public Static<Ping>
{
public:
    ~Ping();
};

class Pong : public thr_ThreadSingleton<Pong>, public Static<Pong>
{
public:
    ~Pong() { Ping::Instance(); }
};

int pings = 0;
Ping::~Ping()
{
    ++pings;
    if (pings < 5000)
        Pong::Instance();
}

TEST(thr_ThreadSingleton, DestructorsThatCallForEachOtherDoNotHoldTheThread)
{
    OnAnotherThread([] { Ping::Instance(); });
    EXPECT_GT(pings, 1);
    EXPECT_LT(pings, 5000);
}

class Private : public thr_ThreadSingleton<Private>
{
    friend class thr_ThreadSlot<Private>;
    Private() : self(&Instance()) {}
    ~Private() = default;

public:
    Private* self;
};

TEST(thr_ThreadSingleton, ConstructorMayBePrivateAndAskForItself)
{
    EXPECT_EQ(Private::Instance().self, &Private::Instance());
    Private::Destroy();
}

class Usurped : public thr_ThreadSingleton<Usurped>
{
public:
    explicit Usurped(bool usurps = true)
    {
        if (usurps)
            usurper = new Usurped(false);
    }
    Usurped* usurper = nullptr;
};

TEST(thr_ThreadSingletonDeathTest, ADefaultThatDidNotBecomeTheInstanceAborts)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(Usurped::Instance(), "the default instance did not become the instance");
}

TEST(thr_ThreadSingleton, IsOneAcrossSharedLibraries)
{
    EXPECT_EQ(Plugin_Local(), &PluginLocal::Instance());
    const PluginLocal mine;
    EXPECT_EQ(Plugin_Local(), &mine);
    PluginLocal::Destroy();
}
}
