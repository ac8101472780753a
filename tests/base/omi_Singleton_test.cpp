#include "plugin/Plugin.h"

#include <omi_Singleton.h>
#include <thr_ThreadSingleton.h>

#include <gmock/gmock.h>

#include <atomic>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

// omi_Singleton, one a process, and thr_ThreadSingleton, one a thread; first what both promise.

namespace
{
using testing::ElementsAre;

template <class F>
void OnAnotherThread(F work)
{
    std::thread(work).join();
}

template <template <class> class Base>
class Client : public Base<Client<Base>>
{
public:
    Client() : id(++made)
    {
        if (fails)
            throw std::runtime_error("no");
        ++live;
    }
    virtual ~Client() { --live; }

    int id;
    static inline int made = 0;
    static inline std::atomic<int> live = 0;
    static inline bool fails = false;
};

template <class T>
using OfThread = thr_ThreadSingleton<T, 15>;

template <class T>
class Singletons : public testing::Test
{
protected:
    ~Singletons() override
    {
        T::Destroy();
        EXPECT_EQ(T::live, 0);
    }
};
using Clients = testing::Types<Client<omi_Singleton>, Client<OfThread>>;
TYPED_TEST_SUITE(Singletons, Clients);

template <class T>
struct FrontEnd : T
{};

TYPED_TEST(Singletons, AreMadeOnFirstUseAndAfterDestroyAfresh)
{
    EXPECT_FALSE(TypeParam::Exists());
    const int id = TypeParam::Instance().id;
    EXPECT_TRUE(TypeParam::Exists());
    EXPECT_EQ(TypeParam::Instance().id, id);
    TypeParam::Destroy();
    TypeParam::Destroy();
    EXPECT_FALSE(TypeParam::Exists());
    EXPECT_EQ(TypeParam::live, 0);
    EXPECT_EQ(TypeParam::Instance().id, id + 1);
    delete &TypeParam::Instance();
    EXPECT_FALSE(TypeParam::Exists()) << "one deleted by hand is forgotten";
}

TYPED_TEST(Singletons, AConstructedObjectIsTheInstanceUntilItDies)
{
    int formerId = TypeParam::Instance().id;
    {
        const FrontEnd<TypeParam> mine;
    }
    EXPECT_FALSE(TypeParam::Exists());
    const TypeParam& former = TypeParam::Instance();
    EXPECT_NE(former.id, formerId);
    EXPECT_EQ(TypeParam::live, 1) << "the default that was replaced is freed";
    formerId = former.id;
    {
        const FrontEnd<TypeParam> mine;
        EXPECT_EQ(&TypeParam::Instance(), &mine);
        EXPECT_EQ(former.id, formerId) << "who holds a reference may still use it";
        auto second = std::make_unique<FrontEnd<TypeParam>>();
        EXPECT_EQ(&TypeParam::Instance(), second.get());
        TypeParam::Destroy();
        EXPECT_FALSE(TypeParam::Exists());
        EXPECT_EQ(TypeParam::live, 2) << "the default, replaced, was freed; the front end's objects were not";
        EXPECT_NE(&TypeParam::Instance(), second.get());
    }
    EXPECT_EQ(TypeParam::live, 1) << "a replaced object that dies leaves the instance alone";
    auto first = std::make_unique<FrontEnd<TypeParam>>();
    const FrontEnd<TypeParam> mine;
    first.reset();
    EXPECT_EQ(&TypeParam::Instance(), &mine);
}

TYPED_TEST(Singletons, AConstructorThatThrowsLeavesTheSlotEmpty)
{
    TypeParam::fails = true;
    EXPECT_THROW(TypeParam::Instance(), std::runtime_error);
    EXPECT_FALSE(TypeParam::Exists());
    TypeParam::fails = false;
    static_cast<void>(TypeParam::Instance());
    TypeParam::fails = true;
    EXPECT_THROW(std::make_unique<TypeParam>(), std::runtime_error);
    TypeParam::fails = false;
    EXPECT_FALSE(TypeParam::Exists()) << "the object that failed had become the instance";
}

TEST(Singletons, AreOneAcrossSharedLibraries)
{
    EXPECT_EQ(Plugin_Global(), &PluginGlobal::Instance());
    EXPECT_EQ(Plugin_Local(), &PluginLocal::Instance());
    const PluginGlobal global;
    const PluginLocal local;
    EXPECT_EQ(Plugin_Global(), &global);
    EXPECT_EQ(Plugin_Local(), &local);
    PluginGlobal::Destroy();
    PluginLocal::Destroy();
}

class Abstract : public omi_Singleton<Abstract>
{
public:
    virtual ~Abstract() = default;
    virtual int Answer() const = 0;
};

template <template <class> class Base>
class Usurped : public Base<Usurped<Base>>
{
public:
    explicit Usurped(bool usurps = true) : usurper(usurps ? new Usurped(false) : nullptr) {}
    Usurped* usurper;
};

TEST(SingletonsDeathTest, ADefaultThatCannotBeAborts)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(Abstract::Instance(), "an abstract class has no default instance");
    EXPECT_DEATH(Usurped<omi_Singleton>::Instance(), "the default instance did not become the instance");
    EXPECT_DEATH(Usurped<OfThread>::Instance(), "the default instance did not become the instance");
}

/// Its constructor is private and asks for the instance that it is becoming.
class Contended : public omi_Singleton<Contended>
{
    friend class omi_Singleton<Contended>;
    Contended() : self(&Instance())
    {
        ++made;
        std::this_thread::yield();
        complete = 7;
    }
    ~Contended() = default;

public:
    Contended* self;
    int complete = 0;
    static inline std::atomic<int> made{0};
};

TEST(omi_Singleton, ManyThreadsMakeOneAndSeeItComplete)
{
    for (int round = 1; round <= 50; ++round)
    {
        std::atomic<int> waiting{4};
        std::vector<std::thread> threads;
        for (int t = 0; t < 4; ++t)
            threads.emplace_back([&] {
                --waiting;
                while (waiting > 0)
                    std::this_thread::yield();
                EXPECT_EQ(Contended::Instance().complete, 7);
                EXPECT_EQ(Contended::Instance().self, &Contended::Instance());
            });
        for (std::thread& thread : threads)
            thread.join();
        EXPECT_EQ(Contended::made, round);
        Contended::Destroy();
    }
}

TEST(thr_ThreadSingleton, IsOneAThreadAndDiesWithIt)
{
    using Local = Client<OfThread>;
    const Local& mine = Local::Instance();
    EXPECT_EQ(&thr_ThreadSingleton<Local>::Instance(), &mine) << "the level need not be named";
    OnAnotherThread([&] {
        EXPECT_FALSE(Local::Exists());
        EXPECT_NE(&Local::Instance(), &mine);
        const FrontEnd<Local> own; // the default that it replaces dies with the thread
        EXPECT_EQ(Local::live, 3);
    });
    EXPECT_EQ(Local::live, 1);
    EXPECT_EQ(&Local::Instance(), &mine);
    Local::Destroy();
}

std::vector<std::string> deaths; // filled on the thread that ends, read after it has

template <int Number, int Level>
class Mortal : public thr_ThreadSingleton<Mortal<Number, Level>, Level>
{
public:
    ~Mortal()
    {
        deaths.push_back(std::to_string(Number) + " at " + std::to_string(Level));
        if constexpr (Number == 6) // whose level has not come, and has passed
            Mortal<7, 1>::Instance(), Mortal<8, 9>::Instance();
    }
};

TEST(thr_ThreadSingleton, DiesInOrderOfLevelThenYoungestFirst)
{
    OnAnotherThread([] {
        Mortal<1, 15>::Instance();
        Mortal<2, 0>::Instance();
        Mortal<3, -1>::Instance();
        Mortal<4, 15>::Instance();
        Mortal<5, 0>::Instance();
        Mortal<6, 3>::Instance();
    });
    EXPECT_THAT(deaths, ElementsAre("3 at -1", "5 at 0", "2 at 0", "6 at 3", "7 at 1", "8 at 9", "4 at 15",
                                    "1 at 15"));
}
}
