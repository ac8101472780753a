#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nex_PrimException.h>
#include <random>
#include <testing/RecordingReporter.h>
#include <wip_Progress.h>
#include <wip_ProgressObj.h>

using testing::ElementsAre;

namespace
{
class ProgressTest : public testing::Test
{
protected:
    RecordingReporter reporter;
    ReporterScope scope{&reporter};
    wip_Progress& progress = wip_Progress::Instance();
};

TEST_F(ProgressTest, TextsGoWithTheirLevelsAndWithoutPercentageUntilOneWasReported)
{
    progress.Initialize("job");
    progress.Update("starting");
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'job'", "milestone 'starting'"));
    ASSERT_TRUE(progress.Push(0.5f) && progress.Update(0.5f) && progress.Push(0.5f, "part"));
    ASSERT_TRUE(progress.Update(1.0f, "last part") && progress.Pop(1));
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'starting' 25", "milestone 'last part' 50",
                                             "milestone 'starting' 50"));
    progress.Clear();
    EXPECT_THAT(reporter.Take(), ElementsAre()) << "Clear does not report";
    progress.Update("again");
    // The level is emptied before its text is read, on purpose: the report at the end blanks the display.
    EXPECT_TRUE(progress.Finish());
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'again'", "milestone ''"));
    const std::string text = "a text that is long enough to live on the heap";
    ASSERT_TRUE(progress.Push(0.5f, text.c_str()));
    reporter.onCall = [this] { progress.Clear(); }; // a reporter may use what it reports
    ASSERT_TRUE(progress.Update(1.0f));
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone '" + text + "' 50"));
    // The flag that holds percentages back falls after the report, on purpose.
    reporter.throwing = true;
    EXPECT_THROW((void)progress.Update(0.5f), RecordingReporter::Thrown);
    EXPECT_THROW(progress.Update("lost"), RecordingReporter::Thrown);
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone '' 50", "milestone 'lost'"));
}

TEST_F(ProgressTest, EveryWholePercentInFloatIsReportedAsItself)
{
    for (int k = 0; k <= 100; ++k)
    {
        ASSERT_TRUE(progress.Update(static_cast<float>(k) / 100.0f) && progress.Update(k, 100));
        EXPECT_THAT(std::exchange(reporter.percents, {}), ElementsAre(k, k));
    }
    progress.Clear();
    for (int k = 1; k <= 100; ++k)
    {
        ASSERT_TRUE(progress.Push(0.01f) && progress.Pop(1));
        EXPECT_EQ(reporter.percents.back(), k);
    }
    EXPECT_EQ(progress.CurrentProgress(), 0.99999934f) << "the slices do not add up exactly";
    EXPECT_TRUE(progress.Update(5, 4)) << "steps beyond their number are all done";
    EXPECT_EQ(reporter.percents.back(), 100);
}

// The rules in double, as a list of levels; with a reporter that throws now and then, which must change
// nothing but the report.
TEST_F(ProgressTest, FollowsTheModelWhetherOrNotTheReporterThrows)
{
    struct Level
    {
        double start, end, current;
    };
    std::vector<Level> levels;
    std::mt19937 random(1);
    for (int step = 0; step < 20000; ++step)
    {
        if (step % 1000 == 0)
        {
            progress.Clear();
            levels = {{0.0, 1.0, 0.0}};
        }
        const float wrong[] = {-0.1f, 1.1f, NAN, HUGE_VALF};
        const float f = random() % 16 == 0 ? wrong[random() % 4] : static_cast<float>(random() % 65) / 64.0f;
        const int n = static_cast<int>(random() % 10 == 0 ? random() % 64 : random() % 3);
        const auto what = random() % 8;
        const bool accepted = what == 3 ? n > 0 && levels.size() > 1 : f >= 0.0f && f <= 1.0f;
        Level& old = levels.back();
        const double part = f * (old.end - old.start);
        if (accepted && what <= 2)
            levels.push_back({old.current, std::min(old.current + part, old.end), old.current});
        else if (accepted && what > 3)
            old.current = std::min(old.start + part, old.end);
        for (int i = what == 3 ? n : 0; i > 0 && levels.size() > 1; --i)
        {
            const double end = levels.back().end;
            levels.pop_back();
            levels.back().current = end;
        }
        reporter.throwing = random() % 4 == 0;
        reporter.percents.clear();
        try
        {
            ASSERT_EQ(what <= 2   ? progress.Push(f)
                      : what == 3 ? progress.Pop(n)
                                  : progress.Update(f),
                      accepted);
        }
        catch (const RecordingReporter::Thrown&)
        {
            ASSERT_TRUE(accepted) << "a refusal reports nothing";
        }
        const Level& top = levels.back();
        ASSERT_EQ(progress.Depth(), static_cast<int>(levels.size())) << "step " << step;
        const double length = top.end - top.start;
        ASSERT_NEAR(progress.CurrentProgress(), length > 1e-3 ? (top.current - top.start) / length : 0.5,
                    length > 1e-3 ? 2e-3 : 0.5);
        for (const int percent : reporter.percents)
            ASSERT_NEAR(percent, std::floor(top.current * 100.0 + 0.01), 1.0) << "step " << step;
    }
}

TEST_F(ProgressTest, TheOutermostObjectBeginsTheJobAndAnInnerOneClosesWhatItOpened)
{
    {
        wip_ProgressObj job("job");
        ASSERT_TRUE(job.Push(0.5f));
        {
            wip_ProgressObj part("part");
            EXPECT_EQ(progress.Depth(), 3) << "it opens no level of its own";
            EXPECT_FALSE(part.Pop(1)) << "nothing of its own is open";
            ASSERT_TRUE(part.Push(0.5f) && part.Push(0.5f, "detail"));
            ASSERT_TRUE(progress.Update(1.0f));
            EXPECT_TRUE(part.Pop(9) && progress.Depth() == 3 && part.Push(0.5f));
        }
        EXPECT_EQ(progress.Depth(), 3);
        EXPECT_THAT(reporter.Take(),
                    ElementsAre("milestone 'job'", "milestone 'part'", "milestone 'detail' 12",
                                "milestone 'part' 25", "milestone 'part' 50"));
        // The level is recorded before the outermost object opens its own, on purpose: it may close that one,
        // too.
        EXPECT_TRUE(job.Pop(2));
        EXPECT_FALSE(job.Pop(1));
        job.Finish();
        job.Finish();
        EXPECT_TRUE(job.Restart()) << "a negative fraction updates nothing";
        EXPECT_TRUE(job.Restart(0.25f)) << "Restart made it unfinished";
        EXPECT_FALSE(job.Restart(NAN));
    }
}

TEST_F(ProgressTest, AReportThatFailsLeavesNothingOpenAndCountsAsDone)
{
    {
        wip_ProgressObj job("job");
        ASSERT_TRUE(job.Push(0.5f));
        wip_ProgressObj part("part");
        ASSERT_TRUE(part.Push(0.5f));
        reporter.throwing = true; // the destructors never throw
    }
    wip_WIP::Instance().SetWipReporter(nullptr);
    EXPECT_THROW(wip_ProgressObj("job"), nex_PrimException);
    EXPECT_EQ(progress.Depth(), 1);
}
}
