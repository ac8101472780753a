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
template <template <class> class Base>
class Client : public Base<Client<Base>>
{
public:
    Client() { fails ? throw std::runtime_error("no") : ++live; }
    virtual ~Client() { --live; }
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

TYPED_TEST(Singletons, AreMadeOnFirstUseAndAfresh)
{
    EXPECT_FALSE(TypeParam::Exists());
    EXPECT_EQ(&TypeParam::Instance(), &TypeParam::Instance());
    delete &TypeParam::Instance();
    EXPECT_FALSE(TypeParam::Exists()) << "one deleted by hand is forgotten";
    TypeParam::fails = true;
    EXPECT_THROW(TypeParam::Instance(), std::runtime_error);
    EXPECT_THROW(std::make_unique<TypeParam>(), std::runtime_error);
    TypeParam::fails = false;
    EXPECT_FALSE(TypeParam::Exists()) << "an object that failed is not the instance";
}

TYPED_TEST(Singletons, AConstructedObjectIsTheInstanceUntilItDies)
{
    static_cast<void>(TypeParam::Instance());
    {
        const FrontEnd<TypeParam> mine;
        EXPECT_EQ(&TypeParam::Instance(), &mine);
        const auto second = std::make_unique<FrontEnd<TypeParam>>();
        EXPECT_EQ(&TypeParam::Instance(), second.get());
        TypeParam::Destroy();
        EXPECT_FALSE(TypeParam::Exists());
        EXPECT_EQ(TypeParam::live, 2) << "the default, replaced, was freed; the front end's objects were not";
    }
}

/// Its constructor is private and asks for the instance that it is becoming.
class Contended : public omi_Singleton<Contended>
{
    friend class omi_Singleton<Contended>;
    Contended() : self(&Instance())
    {
        std::this_thread::yield();
        complete = ++made;
    }

public:
    Contended* self;
    int complete = 0;
    static inline std::atomic<int> made = 0;
};

TEST(omi_Singleton, ManyThreadsMakeOneAndSeeItComplete)
{
    for (int round = 1; round <= 50; ++round)
    {
        std::vector<std::thread> threads;
        for (int t = 0; t < 4; ++t)
            threads.emplace_back([round] {
                EXPECT_EQ(Contended::Instance().complete, round);
                EXPECT_EQ(Contended::Instance().self, &Contended::Instance());
            });
        for (std::thread& thread : threads)
            thread.join();
        Contended::Destroy();
    }
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

TEST(thr_ThreadSingleton, IsOneAThreadAndDiesWithItInOrderOfLevelThenYoungestFirst)
{
    using Local = Client<OfThread>;
    const Local& mine = Local::Instance();
    std::thread([&] {
        EXPECT_NE(&Local::Instance(), &mine);
        const FrontEnd<Local> own; // the default that it replaces dies with the thread
        EXPECT_EQ(Local::live, 3);
        Mortal<1, 15>::Instance();
        Mortal<2, 0>::Instance();
        Mortal<3, -1>::Instance();
        Mortal<4, 15>::Instance();
        Mortal<5, 0>::Instance();
        Mortal<6, 3>::Instance();
    }).join();
    EXPECT_EQ(Local::live, 1);
    EXPECT_THAT(deaths, testing::ElementsAre("3 at -1", "5 at 0", "2 at 0", "6 at 3", "7 at 1", "8 at 9",
                                             "4 at 15", "1 at 15"));
    Local::Destroy();
}
}
