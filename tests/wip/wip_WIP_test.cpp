#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nex_PrimException.h>
#include <testing/RecordingReporter.h>
#include <thread>
#include <wip_WIP.h>

using testing::ElementsAre;

namespace
{
/// Records the values' address, which is all that the outlet may use of them.
class FacilityReporter : public RecordingReporter
{
public:
    void FacilityMessage(const atr_String& message, int first, int second, int third,
                         omu_PrimTuple& values) override
    {
        seen = &values;
        Note("facility", message,
             std::to_string(first) + " " + std::to_string(second) + " " + std::to_string(third));
    }
    const omu_PrimTuple* seen = nullptr;
};

// Only its address goes through.
alignas(64) char tupleStorage[64];
omu_PrimTuple& Tuple()
{
    return *reinterpret_cast<omu_PrimTuple*>(tupleStorage);
}

struct ForwardRow
{
    const char* what;
    std::function<void(wip_WIPBase&)> call;
    const char* line;
};

class Forward : public testing::TestWithParam<ForwardRow>
{};

TEST_P(Forward, PassesItsArgumentsOnUnchanged)
{
    FacilityReporter reporter;
    wip_WIPBase outlet;
    outlet.SetWipReporter(&reporter);
    GetParam().call(outlet);
    EXPECT_THAT(reporter.Take(), ElementsAre(GetParam().line));
}

TEST_P(Forward, RaisesWithoutReporter)
{
    wip_WIPBase outlet;
    try
    {
        GetParam().call(outlet);
        FAIL() << "must raise";
    }
    catch (const nex_PrimException& exception)
    {
        EXPECT_STREQ(exception.what(), "WipReporter != 0");
        EXPECT_EQ(exception.Source(), cow_String("KTLOxuWip.m/src/wip_WIP"));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Forward,
    testing::Values(
        ForwardRow{"Display", [](wip_WIPBase& w) { w.Display("a"); }, "display 'a'"},
        ForwardRow{"Print", [](wip_WIPBase& w) { w.Print("a"); }, "print 'a'"},
        ForwardRow{"Landmark", [](wip_WIPBase& w) { w.Landmark("a"); }, "landmark 'a'"},
        ForwardRow{"Milestone", [](wip_WIPBase& w) { w.Milestone("a"); }, "milestone 'a'"},
        ForwardRow{"MilestonePercent", [](wip_WIPBase& w) { w.Milestone("a", 7); }, "milestone 'a' 7"},
        ForwardRow{"MilestoneOf", [](wip_WIPBase& w) { w.Milestone("a", "b", 3, 4); }, "milestone 'a' b 3 4"},
        ForwardRow{"Verbose", [](wip_WIPBase& w) { w.Verbose("a"); }, "verbose 'a'"},
        ForwardRow{"Warning", [](wip_WIPBase& w) { w.Warning("a"); }, "warning 'a'"},
        ForwardRow{"Info", [](wip_WIPBase& w) { w.Error("a", wip_INFO); }, "error 'a' 0"},
        ForwardRow{"MereWarning", [](wip_WIPBase& w) { w.Error("a", wip_WARNING); }, "error 'a' 1"},
        ForwardRow{"Error", [](wip_WIPBase& w) { w.Error("a", wip_ERROR); }, "error 'a' 2"},
        ForwardRow{"Fatal", [](wip_WIPBase& w) { w.Error("a", wip_FATAL); }, "error 'a' 3"},
        ForwardRow{"FacilityMessage", [](wip_WIPBase& w) { w.FacilityMessage("a", 1, 2, 3, Tuple()); },
                   "facility 'a' 1 2 3"},
        ForwardRow{"Interrupted", [](wip_WIPBase& w) { (void)w.Interrupted(); }, "interrupted? ''"},
        ForwardRow{"InterruptedThrow", [](wip_WIPBase& w) { w.InterruptedThrow(); }, "interrupted! ''"},
        ForwardRow{"CommandDone", [](wip_WIPBase& w) { w.CommandDone(); }, "done ''"}),
    [](const testing::TestParamInfo<ForwardRow>& row) { return row.param.what; });

TEST(WipOutlet, AnswersWhetherTheUserInterrupted)
{
    RecordingReporter reporter;
    wip_WIPBase outlet;
    outlet.SetWipReporter(&reporter);
    EXPECT_FALSE(outlet.Interrupted());
    reporter.interrupted = true;
    EXPECT_TRUE(outlet.Interrupted());
}

TEST(WipOutlet, HandsTheValuesOfAFacilityMessageOnByReference)
{
    FacilityReporter reporter;
    wip_WIPBase outlet;
    outlet.SetWipReporter(&reporter);
    outlet.FacilityMessage("a", 1, 2, 3, Tuple());
    EXPECT_EQ(reporter.seen, &Tuple());
}

TEST(WipOutlet, AReporterNeedNotUnderstandFacilityMessages)
{
    RecordingReporter reporter;
    wip_WIPBase outlet;
    outlet.SetWipReporter(&reporter);
    outlet.FacilityMessage("a", 1, 2, 3, Tuple());
    EXPECT_THAT(reporter.Take(), ElementsAre());
}

TEST(WipOutlet, OnlyTheReporterInstalledIsRemoved)
{
    RecordingReporter first;
    RecordingReporter second;
    wip_WIPBase outlet;
    EXPECT_EQ(outlet.GetWipReporter(), nullptr) << "constructing a reporter installs nothing";
    outlet.SetWipReporter(&first);
    outlet.SetWipReporter(&second);
    outlet.RemoveWipReporter(&first);
    EXPECT_EQ(outlet.GetWipReporter(), &second);
    outlet.RemoveWipReporter(nullptr);
    EXPECT_EQ(outlet.GetWipReporter(), &second);
    outlet.RemoveWipReporter(&second);
    EXPECT_EQ(outlet.GetWipReporter(), nullptr);
}

TEST(WipOutlet, EveryThreadHasItsOwn)
{
    RecordingReporter mine;
    RecordingReporter theirs;
    ReporterScope scope(&mine);
    std::thread([&theirs] {
        EXPECT_EQ(wip_WIP::Instance().GetWipReporter(), nullptr) << "a thread starts without reporter";
        EXPECT_THROW(wip_WIP::Instance().Display("lost"), nex_PrimException);
        wip_WIP::Instance().SetWipReporter(&theirs);
        wip_WIP::Instance().Display("there");
        EXPECT_EQ(&wip_WIP::Instance(), &thr_ThreadSingleton<wip_WIP>::Instance());
    }).join();
    wip_WIP::Instance().Display("here");
    EXPECT_THAT(mine.Take(), ElementsAre("display 'here'"));
    EXPECT_THAT(theirs.Take(), ElementsAre("display 'there'"));
}

TEST(WipOutlet, ManyThreadsReportAtOnce)
{
    std::vector<RecordingReporter> reporters(4);
    std::vector<std::thread> threads;
    for (RecordingReporter& reporter : reporters)
        threads.emplace_back([&reporter] {
            wip_WIP::Instance().SetWipReporter(&reporter);
            for (int i = 0; i < 200; ++i)
                wip_WIP::Instance().Milestone("step", i);
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const RecordingReporter& reporter : reporters)
    {
        EXPECT_EQ(reporter.percents.size(), 200u);
        EXPECT_TRUE(std::is_sorted(reporter.percents.begin(), reporter.percents.end()));
    }
}
}
