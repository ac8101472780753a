// Starting and stopping: every call is counted, two of them matter. Counters are the process's own, so a test
// leaves them as it found them, and what must be seen from a fresh process runs in a child.

#include <KTLOxuAnn.h>
#include <KTLOxuG3d.h>
#include <KTLOxuGeom.h>
#include <KTLOxuGsl.h>
#include <KTLOxuIdb.h>
#include <KTLOxuMdl.h>
#include <KTLOxuOmu.h>
#include <KTLOxuUtf.h>
#include <KTLOxuWip.h>
#include <cls_MetadataRegistrar.h>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <omu_SymbolicConstantTable.h>
#include <testing/LibraryGuard.h>
#include <typ_ArchCompTable.h>

namespace
{
struct Pair
{
    const char* name;
    void (*initialize)(int&);
    void (*finalize)(int&);
    int parts; ///< how many parts its first start starts

    friend void PrintTo(const Pair& pair, std::ostream* out) { *out << pair.name; }
};

constexpr Pair MODULES[] = {{"Ann", KTLOxuAnn_initialize, KTLOxuAnn_finalize, 1},
                            {"G3d", KTLOxuG3d_initialize, KTLOxuG3d_finalize, 1},
                            {"Gsl", KTLOxuGsl_initialize, KTLOxuGsl_finalize, 1},
                            {"Idb", KTLOxuIdb_initialize, KTLOxuIdb_finalize, 1},
                            {"Mdl", KTLOxuMdl_initialize, KTLOxuMdl_finalize, 1},
                            {"Omu", KTLOxuOmu_initialize, KTLOxuOmu_finalize, 1},
                            {"Utf", KTLOxuUtf_initialize, KTLOxuUtf_finalize, 1},
                            {"Wip", KTLOxuWip_initialize, KTLOxuWip_finalize, 1},
                            {"Geom", KTLOxuGeom_initialize, KTLOxuGeom_finalize, 10}};

/// Nine parts behind eight modules and the base libraries, and one for the library itself.
constexpr int WHOLE_LIBRARY = 10;

class StartCounter : public testing::TestWithParam<Pair>
{
protected:
    void Start() { GetParam().initialize(running_); }
    void Stop() { GetParam().finalize(running_); }

    const int parts_ = GetParam().parts;
    int running_ = 0;
};

TEST_P(StartCounter, OnlyTheFirstStartAndTheLastStopMatter)
{
    Start();
    EXPECT_EQ(running_, parts_);
    Start();
    EXPECT_EQ(running_, parts_);
    Stop();
    EXPECT_EQ(running_, parts_);
    Stop();
    EXPECT_EQ(running_, 0);
}

TEST_P(StartCounter, StartsAgainAfterAFullStop)
{
    for (int round = 0; round < 3; ++round)
    {
        Start();
        EXPECT_EQ(running_, parts_);
        Stop();
        EXPECT_EQ(running_, 0);
    }
}

// On purpose: the start after a stop without a start reads -1, which is not zero, and does nothing.
TEST_P(StartCounter, AStopWithoutAStartSwallowsTheNextStart)
{
    Stop();
    EXPECT_EQ(running_, 0);
    Start();
    EXPECT_EQ(running_, 0);
    Start();
    EXPECT_EQ(running_, parts_);
    Stop();
    EXPECT_EQ(running_, 0);
}

TEST_P(StartCounter, EveryStopTooManyIsKept)
{
    Stop();
    Stop();
    Stop();
    EXPECT_EQ(running_, 0);
    Start();
    Start();
    Start();
    EXPECT_EQ(running_, 0);
    Start();
    EXPECT_EQ(running_, parts_);
    Stop();
    EXPECT_EQ(running_, 0);
}

TEST_P(StartCounter, TheCountersOfTwoCallersAreTheirOwn)
{
    int other = 40;
    Start();
    GetParam().initialize(other);
    EXPECT_EQ(other, 40);
    Stop();
    EXPECT_EQ(running_, parts_);
    // The last stop takes from its caller's counter, whoever started.
    GetParam().finalize(other);
    EXPECT_EQ(other, 40 - parts_);
    EXPECT_EQ(running_, parts_);
}

INSTANTIATE_TEST_SUITE_P(Pairs, StartCounter, testing::ValuesIn(MODULES),
                         [](const auto& one) { return one.param.name; });

class AloneBefore : public testing::TestWithParam<Pair>
{};

TEST_P(AloneBefore, IsNotCountedAgainAndKeepsRunning)
{
    const Pair& module = GetParam();
    int alone = 0;
    module.initialize(alone);
    ASSERT_EQ(alone, 1);

    int library = 0;
    KTLOxuGeom_initialize(library);
    EXPECT_EQ(library, WHOLE_LIBRARY - 1);
    KTLOxuGeom_finalize(library);
    EXPECT_EQ(library, 0);

    // Still running: its own stop is the one that counts.
    module.finalize(alone);
    EXPECT_EQ(alone, 0);
}

INSTANTIATE_TEST_SUITE_P(Modules, AloneBefore, testing::ValuesIn(MODULES, MODULES + 8),
                         [](const auto& one) { return one.param.name; });

TEST(StartedWithin, AModuleOutlivesTheLibraryWhenItWasStartedAgain)
{
    int library = 0;
    int alone = 0;
    KTLOxuGeom_initialize(library);
    KTLOxuOmu_initialize(alone);
    EXPECT_EQ(alone, 0);
    KTLOxuGeom_finalize(library);
    EXPECT_EQ(library, 1) << "Omu still runs";
    EXPECT_TRUE(omu_SymbolicConstantTable::Exists());
    KTLOxuOmu_finalize(library);
    EXPECT_EQ(library, 0);
    EXPECT_FALSE(omu_SymbolicConstantTable::Exists());
}

TEST(SpecificStep, AddsNothing)
{
    int running = 7;
    KTLOxuGeom_specific_initialize(running);
    KTLOxuGeom_specific_initialize(running);
    EXPECT_EQ(running, 7);
    KTLOxuGeom_specific_finalize(running);
    KTLOxuGeom_specific_finalize(running);
    EXPECT_EQ(running, 7);
}

TEST(LibraryGuard, StartsAllAndStopsAll)
{
    const LibraryGuard guard;
    EXPECT_EQ(guard.Running(), WHOLE_LIBRARY);
    const LibraryGuard inner;
    EXPECT_EQ(inner.Running(), 0);
}

TEST(Singletons, OfOmuDieWithItAndComeBack)
{
    {
        const LibraryGuard guard;
        EXPECT_TRUE(omu_SymbolicConstantTable::Exists());
        EXPECT_NE(omu_SymbolicConstantTable::Instance().AddString("START_COUNTER_TEST"), 0u);
    }
    EXPECT_FALSE(omu_SymbolicConstantTable::Exists());
    const LibraryGuard guard;
    EXPECT_EQ(omu_SymbolicConstantTable::Instance().Size(), 1u) << "a new table holds _UNSPECIFIED alone";
}

/// Runs in a fresh process; leaves it with the answer.
template <class Check>
[[noreturn]] void Answer(Check check)
{
    const bool right = check();
    std::fputs(right ? "right" : "wrong", stderr);
    std::exit(0);
}

class FreshProcess : public testing::Test
{
protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(FreshProcess, ASwallowedStartRegistersNothing)
{
    EXPECT_EXIT(Answer([] {
                    int running = 0;
                    KTLOxuOmu_finalize(running);
                    KTLOxuOmu_initialize(running);
                    const bool nothing = typ_ArchCompTable::FindComponent(0x13) == nullptr &&
                                         cls_MetadataRegistrar::Instance().Log().empty() &&
                                         !omu_SymbolicConstantTable::Exists();
                    KTLOxuOmu_initialize(running);
                    return nothing && running == 1 && typ_ArchCompTable::FindComponent(0x13) != nullptr &&
                           !cls_MetadataRegistrar::Instance().Log().empty();
                }),
                testing::ExitedWithCode(0), "^right$");
}

TEST_F(FreshProcess, ASecondStartDeclaresNothingTwice)
{
    EXPECT_EXIT(Answer([] {
                    int running = 0;
                    KTLOxuOmu_initialize(running);
                    const std::size_t once = cls_MetadataRegistrar::Instance().Log().size();
                    KTLOxuOmu_initialize(running);
                    KTLOxuOmu_finalize(running);
                    KTLOxuOmu_finalize(running);
                    KTLOxuOmu_initialize(running);
                    return once > 0 && cls_MetadataRegistrar::Instance().Log().size() == once && running == 1;
                }),
                testing::ExitedWithCode(0), "^right$");
}

TEST_F(FreshProcess, ModulesDoNotStartOneAnother)
{
    EXPECT_EXIT(Answer([] {
                    int running = 0;
                    KTLOxuGsl_initialize(running);
                    KTLOxuAnn_initialize(running);
                    return running == 2 && typ_ArchCompTable::FindComponent(0x30A) != nullptr &&
                           typ_ArchCompTable::FindComponent(0x350) != nullptr &&
                           typ_ArchCompTable::FindComponent(0x13) == nullptr &&
                           typ_ArchCompTable::FindComponent(0x24) == nullptr &&
                           typ_ArchCompTable::FindComponent(0x0A) == nullptr;
                }),
                testing::ExitedWithCode(0), "^right$");
}
}
