#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nex_PrimException.h>
#include <optional>
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
    {
        wip_ProgressObj job("job");
        EXPECT_EQ(progress.Depth(), 2);
        ASSERT_TRUE(progress.Update(0.5f));
    }
    EXPECT_EQ(progress.Depth(), 1);
    EXPECT_EQ(progress.CurrentProgress(), 0.0f);
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'job'", "milestone 'job' 50", "milestone ''"));
}

TEST_F(ProgressObjTest, WithoutTextItIsTheSame)
{
    {
        const wip_ProgressObj job;
        EXPECT_EQ(progress.Depth(), 2);
    }
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone ''", "milestone ''"));
}

TEST_F(ProgressObjTest, TheOutermostForgetsWhatWasThere)
{
    ASSERT_TRUE(progress.Update(0.5f, "old"));
    wip_ProgressObj job("job");
    reporter.Take();
    ASSERT_TRUE(progress.Update(0.0f));
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'job' 0"));
}

TEST_F(ProgressObjTest, AnInnerOneShowsItsTextAndClosesWhatItOpened)
{
    wip_ProgressObj job("job");
    ASSERT_TRUE(job.Push(0.5f));
    reporter.Take();
    {
        wip_ProgressObj part("part");
        EXPECT_EQ(progress.Depth(), 3) << "it opens no level of its own";
        EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'part'"));
        ASSERT_TRUE(part.Push(0.5f));
        ASSERT_TRUE(part.Push(0.5f, "detail"));
        ASSERT_TRUE(progress.Update(1.0f));
        EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'detail' 12"));
    }
    EXPECT_EQ(progress.Depth(), 3);
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'part' 25"));
}

TEST_F(ProgressObjTest, AnInnerOneThatOpenedNothingReportsNothingAtItsEnd)
{
    wip_ProgressObj job("job");
    {
        wip_ProgressObj part("part");
        reporter.Take();
    }
    EXPECT_THAT(reporter.Take(), ElementsAre());
    EXPECT_EQ(progress.Depth(), 2);
}

TEST_F(ProgressObjTest, PopStopsAtTheLevelWhereTheObjectBegan)
{
    wip_ProgressObj job("job");
    wip_ProgressObj part("part");
    EXPECT_FALSE(part.Pop(1)) << "nothing of its own is open";
    ASSERT_TRUE(part.Push(0.5f));
    ASSERT_TRUE(part.Push(0.5f));
    EXPECT_FALSE(part.Pop(0));
    EXPECT_FALSE(part.Pop(-3));
    EXPECT_TRUE(part.Pop(9));
    EXPECT_EQ(progress.Depth(), 2);
    EXPECT_FALSE(part.Pop(1));
}

// The level is recorded before the outermost object opens its own, on purpose: it may close that one, too.
TEST_F(ProgressObjTest, TheOutermostMayCloseItsOwnLevel)
{
    wip_ProgressObj job("job");
    EXPECT_TRUE(job.Pop(1));
    EXPECT_EQ(progress.Depth(), 1);
    EXPECT_FALSE(job.Pop(1));
}

TEST_F(ProgressObjTest, FinishingTwiceInARowDoesItOnce)
{
    wip_ProgressObj job("job");
    reporter.Take();
    job.Finish();
    job.Finish();
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone ''"));
    job.Initialize();
    EXPECT_EQ(progress.Depth(), 2);
    job.Finish();
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'job'", "milestone ''"));
}

TEST_F(ProgressObjTest, RestartFinishesAndGoesOnFromThere)
{
    std::optional<wip_ProgressObj> job(std::in_place, "job");
    ASSERT_TRUE(progress.Push(0.5f));
    reporter.Take();
    EXPECT_TRUE(job->Restart());
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone ''")) << "a negative fraction updates nothing";
    EXPECT_EQ(progress.Depth(), 1);
    EXPECT_TRUE(job->Restart(0.25f));
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone ''", "milestone '' 25"))
        << "Restart made it unfinished";
    EXPECT_FALSE(job->Restart(1.5f));
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone ''"));
    job.reset();
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone ''"));
}

TEST_F(ProgressObjTest, RestartWithinAnotherGoesBackToTheLevelGiven)
{
    wip_ProgressObj job("job");
    ASSERT_TRUE(job.Push(0.5f));
    wip_ProgressObj part("part");
    ASSERT_TRUE(part.Push(0.5f));
    reporter.Take();
    EXPECT_TRUE(part.Restart(0.5f));
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'part' 25", "milestone 'part' 25"));
    EXPECT_EQ(progress.Depth(), 3);
}

TEST_F(ProgressObjTest, IfTheProgressWasClearedUnderItNothingIsLeftToClose)
{
    {
        wip_ProgressObj job("job");
        wip_ProgressObj part("part");
        ASSERT_TRUE(part.Push(0.5f));
        progress.Clear();
        reporter.Take();
        EXPECT_FALSE(part.Pop(1));
        part.Finish();
        EXPECT_THAT(reporter.Take(), ElementsAre());
    }
    EXPECT_EQ(progress.Depth(), 1);
}

TEST_F(ProgressObjTest, TheDestructorNeverThrows)
{
    for (const bool removed : {false, true})
    {
        ReporterScope fresh(&reporter);
        {
            wip_ProgressObj job("job");
            ASSERT_TRUE(job.Push(0.5f));
            wip_ProgressObj part("part");
            ASSERT_TRUE(part.Push(0.5f));
            if (removed)
                wip_WIP::Instance().SetWipReporter(nullptr);
            else
                reporter.throwing = true;
        }
        EXPECT_EQ(progress.Depth(), 1) << "the levels are closed all the same";
        reporter.throwing = false;
    }
}

TEST_F(ProgressObjTest, AConstructorThatCannotReportLeavesTheRootAlone)
{
    wip_WIP::Instance().SetWipReporter(nullptr);
    EXPECT_THROW(wip_ProgressObj("job"), nex_PrimException);
    EXPECT_EQ(progress.Depth(), 1);
}

TEST_F(ProgressObjTest, AFinishThatThrewCountsAsDone)
{
    wip_ProgressObj job("job");
    reporter.throwing = true;
    EXPECT_THROW(job.Finish(), RecordingReporter::Thrown);
    reporter.throwing = false;
    reporter.Take();
    job.Finish();
    EXPECT_THAT(reporter.Take(), ElementsAre());
    EXPECT_EQ(progress.Depth(), 1);
}
}
