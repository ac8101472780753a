#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nex_PrimException.h>
#include <testing/RecordingReporter.h>
#include <wip_WIP.h>

namespace
{
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
        {[](wip_WIPBase& w) { w.Error("a", wip_FATAL); }, "error 'a' 3"},
        {[](wip_WIPBase& w) { EXPECT_TRUE(w.Interrupted()); }, "interrupted? ''"},
        {[](wip_WIPBase& w) { w.InterruptedThrow(); }, "interrupted! ''"},
        {[](wip_WIPBase& w) { w.CommandDone(); }, "done ''"}};
    for (const auto& [call, line] : rows)
    {
        RecordingReporter reporter, other;
        reporter.interrupted = true;
        wip_WIPBase outlet;
        outlet.SetWipReporter(&reporter);
        outlet.RemoveWipReporter(&other); // only the one installed is removed
        call(outlet);
        EXPECT_THAT(reporter.Take(), testing::ElementsAre(line));
        outlet.RemoveWipReporter(&reporter);
        try
        {
            call(outlet);
            ADD_FAILURE() << "must raise: " << line;
        }
        catch (const nex_PrimException& raised)
        {
            EXPECT_EQ(raised.UserReport(), "WipReporter != 0");
            EXPECT_EQ(raised.Source(), "KTLOxuWip.m/src/wip_WIP");
        }
    }
}
}
