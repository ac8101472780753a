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
static_assert(wip_INFO == 0 && wip_WARNING == 1 && wip_ERROR == 2 && wip_FATAL == 3);

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

TEST(WipOutlet, PassesItsArgumentsOnUnchangedAndRaisesWithoutReporter)
{
    using Call = std::function<void(wip_WIPBase&)>;
    const std::pair<Call, const char*> rows[] = {
        {[](wip_WIPBase& w) { w.Display("a"); }, "display 'a'"},
        {[](wip_WIPBase& w) { w.Print("a"); }, "print 'a'"},
        {[](wip_WIPBase& w) { w.Landmark("a"); }, "landmark 'a'"},
        {[](wip_WIPBase& w) { w.Milestone("a"); }, "milestone 'a'"},
        {[](wip_WIPBase& w) { w.Milestone("a", 7); }, "milestone 'a' 7"},
        {[](wip_WIPBase& w) { w.Milestone("a", "b", 3, 4); }, "milestone 'a' b 3 4"},
        {[](wip_WIPBase& w) { w.Verbose("a"); }, "verbose 'a'"},
        {[](wip_WIPBase& w) { w.Warning("a"); }, "warning 'a'"},
        {[](wip_WIPBase& w) { w.Error("a", wip_INFO); }, "error 'a' 0"},
        {[](wip_WIPBase& w) { w.Error("a", wip_FATAL); }, "error 'a' 3"},
        {[](wip_WIPBase& w) { w.FacilityMessage("a", 1, 2, 3, Tuple()); }, "facility 'a' 1 2 3"},
        {[](wip_WIPBase& w) { (void)w.Interrupted(); }, "interrupted? ''"},
        {[](wip_WIPBase& w) { w.InterruptedThrow(); }, "interrupted! ''"},
        {[](wip_WIPBase& w) { w.CommandDone(); }, "done ''"}};
    for (const auto& [call, line] : rows)
    {
        SCOPED_TRACE(line);
        FacilityReporter reporter;
        wip_WIPBase outlet;
        outlet.SetWipReporter(&reporter);
        call(outlet);
        EXPECT_THAT(reporter.Take(), ElementsAre(line));
        outlet.SetWipReporter(nullptr);
        try
        {
            call(outlet);
            ADD_FAILURE() << "must raise";
        }
        catch (const nex_PrimException& raised)
        {
            EXPECT_EQ(raised.UserReport(), "WipReporter != 0");
            EXPECT_EQ(raised.Source(), "KTLOxuWip.m/src/wip_WIP");
        }
    }
}

TEST(WipOutlet, HandsAnswersBackAndValuesOnByReference)
{
    FacilityReporter reporter;
    wip_WIPBase outlet;
    outlet.SetWipReporter(&reporter);
    EXPECT_FALSE(outlet.Interrupted());
    reporter.interrupted = true;
    EXPECT_TRUE(outlet.Interrupted());
    outlet.FacilityMessage("a", 1, 2, 3, Tuple());
    EXPECT_EQ(reporter.seen, &Tuple());
    RecordingReporter plain; // need not understand facility messages
    outlet.SetWipReporter(&plain);
    outlet.FacilityMessage("a", 1, 2, 3, Tuple());
    EXPECT_THAT(plain.Take(), ElementsAre());
    outlet.RemoveWipReporter(&reporter);
    outlet.RemoveWipReporter(nullptr);
    EXPECT_EQ(outlet.GetWipReporter(), &plain) << "only the one installed is removed";
    outlet.RemoveWipReporter(&plain);
    EXPECT_EQ(outlet.GetWipReporter(), nullptr);
}

TEST(WipOutlet, EveryThreadHasItsOwn)
{
    std::vector<RecordingReporter> reporters(4);
    RecordingReporter mine;
    const ReporterScope scope(&mine);
    std::vector<std::thread> threads;
    for (RecordingReporter& reporter : reporters)
        threads.emplace_back([&reporter] {
            EXPECT_EQ(wip_WIP::Instance().GetWipReporter(), nullptr) << "a thread starts without reporter";
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
    EXPECT_THAT(mine.Take(), ElementsAre());
}
}
