#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nex_PrimException.h>
#include <testing/RecordingReporter.h>
#include <wip_ProgressObj.h>

using testing::ElementsAre;

namespace
{
class ProgressObjTest : public testing::Test
{
protected:
    RecordingReporter reporter;
    ReporterScope scope{&reporter};
    wip_Progress& progress = wip_Progress::Instance();
};

TEST_F(ProgressObjTest, TheOutermostBeginsTheJobAndEndsIt)
{
    ASSERT_TRUE(progress.Update(0.25f, "old"));
    {
        wip_ProgressObj job("job");
        EXPECT_EQ(progress.Depth(), 2);
        ASSERT_TRUE(progress.Update(0.5f));
        job.Finish();
        job.Finish();
        job.Initialize();
        // The level is recorded before the outermost object opens its own, on purpose: it may close that one,
        // too.
        EXPECT_TRUE(job.Pop(1));
        EXPECT_EQ(progress.Depth(), 1);
        EXPECT_FALSE(job.Pop(1));
    }
    EXPECT_EQ(progress.Depth(), 1);
    EXPECT_EQ(progress.CurrentProgress(), 0.0f);
    EXPECT_THAT(reporter.Take(),
                ElementsAre("milestone 'old' 25", "milestone 'job'", "milestone 'job' 50", "milestone ''",
                            "milestone 'job'", "milestone 'job' 100", "milestone ''"))
        << "finishing twice in a row does it once";
}

TEST_F(ProgressObjTest, AnInnerOneShowsItsTextAndClosesWhatItOpened)
{
    wip_ProgressObj job("job");
    ASSERT_TRUE(job.Push(0.5f));
    {
        wip_ProgressObj part("part");
        EXPECT_EQ(progress.Depth(), 3) << "it opens no level of its own";
        EXPECT_FALSE(part.Pop(1)) << "nothing of its own is open";
        ASSERT_TRUE(part.Push(0.5f));
        ASSERT_TRUE(part.Push(0.5f, "detail"));
        EXPECT_FALSE(part.Pop(0));
        ASSERT_TRUE(progress.Update(1.0f));
        EXPECT_TRUE(part.Pop(9));
        EXPECT_EQ(progress.Depth(), 3);
        EXPECT_TRUE(part.Push(0.5f));
        ASSERT_TRUE(part.Restart(0.5f));
        EXPECT_EQ(progress.Depth(), 3);
        const wip_ProgressObj idle("idle");
    }
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'job'", "milestone 'part'", "milestone 'detail' 12",
                                             "milestone 'part' 25", "milestone 'part' 50",
                                             "milestone 'part' 25", "milestone 'idle' 25"));
    progress.Clear();
    EXPECT_FALSE(job.Pop(1)) << "cleared under it, it has nothing left to close";
}

TEST_F(ProgressObjTest, RestartFinishesAndGoesOnFromThere)
{
    {
        wip_ProgressObj job("job");
        ASSERT_TRUE(progress.Push(0.5f));
        reporter.Take();
        EXPECT_TRUE(job.Restart()) << "a negative fraction updates nothing";
        EXPECT_EQ(progress.Depth(), 1);
        EXPECT_TRUE(job.Restart(0.25f)) << "Restart made it unfinished";
        EXPECT_FALSE(job.Restart(std::nanf("")));
    }
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone ''", "milestone ''", "milestone '' 25",
                                             "milestone ''", "milestone ''"));
}

TEST_F(ProgressObjTest, AReportThatFailsLeavesNothingOpenAndCountsAsDone)
{
    {
        wip_ProgressObj job("job");
        ASSERT_TRUE(job.Push(0.5f));
        wip_ProgressObj part("part");
        ASSERT_TRUE(part.Push(0.5f));
        reporter.throwing = true; // the destructors never throw
    }
    EXPECT_EQ(progress.Depth(), 1);
    reporter.throwing = false;
    wip_ProgressObj job("job");
    reporter.throwing = true;
    EXPECT_THROW(job.Finish(), RecordingReporter::Thrown);
    reporter.Take();
    job.Finish();
    EXPECT_THAT(reporter.Take(), ElementsAre());
    wip_WIP::Instance().SetWipReporter(nullptr);
    EXPECT_THROW(wip_ProgressObj("job"), nex_PrimException);
    EXPECT_EQ(progress.Depth(), 1);
}
}
