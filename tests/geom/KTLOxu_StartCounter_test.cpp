// Starting and stopping: every call is counted, two of them matter. Counters are the process's own, so a test
// leaves them as it found them, and what must be seen from a fresh process runs in a child.

#include <KTLBas.h>
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

constexpr Pair MODULES[] = {{"Bas", KTLBas_initialize, KTLBas_finalize, 1},
                            {"Ann", KTLOxuAnn_initialize, KTLOxuAnn_finalize, 1},
                            {"G3d", KTLOxuG3d_initialize, KTLOxuG3d_finalize, 1},
                            {"Gsl", KTLOxuGsl_initialize, KTLOxuGsl_finalize, 1},
                            {"Idb", KTLOxuIdb_initialize, KTLOxuIdb_finalize, 1},
                            {"Mdl", KTLOxuMdl_initialize, KTLOxuMdl_finalize, 1},
                            {"Omu", KTLOxuOmu_initialize, KTLOxuOmu_finalize, 1},
                            {"Utf", KTLOxuUtf_initialize, KTLOxuUtf_finalize, 1},
                            {"Wip", KTLOxuWip_initialize, KTLOxuWip_finalize, 1},
                            {"Geom", KTLOxuGeom_initialize, KTLOxuGeom_finalize, 10}};

class StartCounter : public testing::TestWithParam<Pair>
{};

// Starts are + and stops -, each with 1 where the parts run after it and 0 where not. On purpose: the start
// after a stop without a start reads -1, which is not zero, and does nothing.
TEST_P(StartCounter, CountsCallsOfWhichTheFirstStartAndTheLastStopMatter)
{
    const std::string calls = "+1+1-1-0 +1-0 +1-0 -0+0+1-0 -0-0-0+0+0+0+1-0";
    int running = 0;
    for (std::size_t i = 0; i < calls.size(); ++i)
    {
        if (calls[i] != '+' && calls[i] != '-')
            continue;
        (calls[i] == '+' ? GetParam().initialize : GetParam().finalize)(running);
        EXPECT_EQ(running, calls[i + 1] == '1' ? GetParam().parts : 0) << "after " << calls.substr(0, i + 1);
    }
    // The last stop takes from its caller's counter, whoever started.
    int other = 40;
    GetParam().initialize(running);
    GetParam().initialize(other);
    EXPECT_EQ(other, 40);
    GetParam().finalize(running);
    GetParam().finalize(other);
    EXPECT_EQ(other, 40 - GetParam().parts);
    EXPECT_EQ(running, GetParam().parts);
}

INSTANTIATE_TEST_SUITE_P(Pairs, StartCounter, testing::ValuesIn(MODULES),
                         [](const auto& one) { return one.param.name; });

TEST(Geom, DoesNotCountWhatRanAloneBefore)
{
    for (const Pair& module : MODULES)
    {
        if (module.parts > 1)
            continue;
        int alone = 0, library = 0;
        module.initialize(alone);
        KTLOxuGeom_initialize(library);
        EXPECT_EQ(library, 9) << module.name;
        KTLOxuGeom_finalize(library);
        EXPECT_EQ(library, 0) << module.name;
        // Still running: its own stop is the one that counts.
        module.finalize(alone);
        EXPECT_EQ(alone, 0) << module.name;
    }
}

TEST(Singletons, OfOmuDieWithItAndComeBack)
{
    unsigned size = 0;
    {
        const LibraryGuard guard;
        size = omu_SymbolicConstantTable::Instance().Size();
        EXPECT_NE(omu_SymbolicConstantTable::Instance().AddString("START_COUNTER_TEST"), 0u);
    }
    EXPECT_FALSE(omu_SymbolicConstantTable::Exists());
    const LibraryGuard guard;
    EXPECT_EQ(omu_SymbolicConstantTable::Instance().Size(), size)
        << "a new table has none of the former one's";
}

/// Runs in a fresh process; leaves it with the answer.
[[noreturn]] void StartOmuAfterAStop()
{
    int running = 0;
    KTLOxuOmu_finalize(running);
    KTLOxuOmu_initialize(running); // swallowed
    const cls_MetadataRegistrar& registrar = cls_MetadataRegistrar::Instance();
    bool right = typ_ArchCompTable::FindComponent(0x13) == nullptr && registrar.Log().empty() &&
                 !omu_SymbolicConstantTable::Exists();
    KTLOxuOmu_initialize(running);
    const std::size_t once = registrar.Log().size();
    right = right && running == 1 && once > 0;
    KTLOxuOmu_finalize(running);
    KTLOxuOmu_initialize(running);
    right = right && running == 1 && registrar.Log().size() == once;
    // Modules do not start one another.
    KTLOxuGsl_initialize(running);
    KTLOxuAnn_initialize(running);
    right = right && running == 3 && typ_ArchCompTable::FindComponent(0x30A) != nullptr &&
            typ_ArchCompTable::FindComponent(0x24) == nullptr &&
            typ_ArchCompTable::FindComponent(0x0A) == nullptr;
    std::exit(right ? 0 : 1);
}

TEST(FreshProcess, ASwallowedStartRegistersNothingAndASecondOneNothingTwice)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(StartOmuAfterAStop(), testing::ExitedWithCode(0), "");
}
}
