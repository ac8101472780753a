#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <testing/RecordingReporter.h>
#include <wip_Progress.h>

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

TEST_F(ProgressTest, RefusalsChangeAndReportNothing)
{
    constexpr float NONE = std::numeric_limits<float>::quiet_NaN();
    ASSERT_TRUE(progress.Push(0.5f, "half"));
    ASSERT_TRUE(progress.Update(0.5f));
    for (const float f : {-0.1f, 1.1f, NONE, HUGE_VALF})
        EXPECT_FALSE(progress.Push(f) || progress.Push(f, "no") || progress.Update(f) ||
                     progress.Update(f, "no"));
    EXPECT_FALSE(progress.Update(-1, 4) || progress.Update(1, -1) || progress.Pop(0) || progress.Pop(-1));
    EXPECT_EQ(progress.CurrentProgress(), 0.5f);
    EXPECT_TRUE(progress.Pop(7));
    EXPECT_FALSE(progress.Pop(1)) << "the root stays";
    EXPECT_EQ(progress.Depth(), 1);
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'half' 25", "milestone '' 50"));
}

TEST_F(ProgressTest, StepsBeyondTheirNumberAreAllDone)
{
    EXPECT_TRUE(progress.Update(0, 4) && progress.Update(3, 4) && progress.Update(5, 4));
    EXPECT_TRUE(progress.Update(-0.0f) && progress.Update(0, 0));
    ASSERT_TRUE(progress.Push(1.0f)) << "nothing is left to give";
    EXPECT_EQ(progress.CurrentProgress(), 0.0f);
    ASSERT_TRUE(progress.Update(0.0f));
    EXPECT_THAT(reporter.percents, ElementsAre(0, 75, 100, 0, 100, 100));
}

TEST_F(ProgressTest, TextsGoWithTheirLevelsAndWithoutPercentageUntilOneWasReported)
{
    progress.Initialize("job");
    progress.Update("starting");
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'job'", "milestone 'starting'"));
    ASSERT_TRUE(progress.Push(0.5f));
    ASSERT_TRUE(progress.Update(0.5f));
    ASSERT_TRUE(progress.Push(0.5f, "part"));
    ASSERT_TRUE(progress.Update(1.0f, "last part"));
    progress.Update("sorting");
    ASSERT_TRUE(progress.Pop(1));
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'starting' 25", "milestone 'last part' 50",
                                             "milestone 'sorting' 50", "milestone 'starting' 50"));
    progress.Clear();
    EXPECT_THAT(reporter.Take(), ElementsAre()) << "Clear does not report";
    progress.Update("again");
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'again'"));
    // The level is emptied before its text is read, on purpose: the report at the end blanks the display.
    EXPECT_TRUE(progress.Finish());
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone ''"));
}

TEST_F(ProgressTest, EveryWholePercentInFloatIsReportedAsItself)
{
    for (int k = 0; k <= 100; ++k)
    {
        ASSERT_TRUE(progress.Update(static_cast<float>(k) / 100.0f));
        EXPECT_EQ(reporter.percents.back(), k);
        ASSERT_TRUE(progress.Update(k, 100));
        EXPECT_EQ(reporter.percents.back(), k);
    }
    progress.Clear();
    for (int k = 1; k <= 100; ++k)
    {
        ASSERT_TRUE(progress.Push(0.01f));
        ASSERT_TRUE(progress.Pop(1));
        EXPECT_EQ(reporter.percents.back(), k);
    }
    EXPECT_EQ(progress.CurrentProgress(), 0.99999934f) << "the slices do not add up exactly";
    wip_ProgressState state;
    for (const auto& [current, percent] : {std::pair{0.0f, 0}, {0.9998f, 99}, {0.99991f, 100}, {1.0f, 100}})
    {
        state.current = current;
        EXPECT_TRUE(progress.SetProgress(state));
        EXPECT_EQ(reporter.percents.back(), percent) << current;
    }
}

// The flag that holds percentages back falls after the report, on purpose.
TEST_F(ProgressTest, AReportThatNeverArrivedDoesNotCount)
{
    reporter.throwing = true;
    EXPECT_THROW((void)progress.Update(0.5f), RecordingReporter::Thrown);
    EXPECT_THROW(progress.Update("lost"), RecordingReporter::Thrown);
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone '' 50", "milestone 'lost'"));
}

TEST_F(ProgressTest, AReporterMayUseTheProgressAndTheTextThatItReports)
{
    const std::string text = "a text that is long enough to live on the heap";
    ASSERT_TRUE(progress.Push(0.5f, text.c_str()));
    reporter.onCall = [this] { progress.Clear(); };
    ASSERT_TRUE(progress.Update(1.0f));
    wip_ProgressState own;
    own.message = text.c_str();
    reporter.onCall = [&own] { own.message = ""; };
    progress.Initialize(own.message);
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone '" + text + "' 50", "milestone '" + text + "'"));
}

/// The rules in double, as a list of levels.
struct Model
{
    struct Level
    {
        double start, end, current;
    };
    std::vector<Level> levels{{0.0, 1.0, 0.0}};

    void Push(double f)
    {
        const Level top = levels.back();
        levels.push_back(
            {top.current, std::min(top.current + f * (top.end - top.start), top.end), top.current});
    }
    void Pop(int n)
    {
        for (; n > 0 && levels.size() > 1; --n)
        {
            const double end = levels.back().end;
            levels.pop_back();
            levels.back().current = end;
        }
    }
    void Update(double f)
    {
        Level& top = levels.back();
        top.current = std::min(top.start + f * (top.end - top.start), top.end);
    }
};

// With a reporter that throws now and then, which must change nothing but the report.
TEST_F(ProgressTest, FollowsTheModelWhetherOrNotTheReporterThrows)
{
    std::mt19937 random(1);
    Model model;
    int thrown = 0;
    int deepest = 1;
    for (int step = 0; step < 20000; ++step)
    {
        if (step % 1000 == 0)
        {
            progress.Clear();
            model = Model();
        }
        const float f = static_cast<float>(random() % 65) / 64.0f;
        const int n = 1 + static_cast<int>(random() % 10 == 0 ? random() % 64 : random() % 2);
        const auto what = random() % 8;
        const bool accepted = what != 3 || model.levels.size() > 1;
        what <= 2 ? model.Push(f) : what == 3 ? model.Pop(n) : model.Update(f);
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
            ++thrown;
        }
        const Model::Level& top = model.levels.back();
        ASSERT_EQ(progress.Depth(), static_cast<int>(model.levels.size())) << "step " << step;
        deepest = std::max(deepest, progress.Depth());
        const double length = top.end - top.start;
        ASSERT_NEAR(progress.CurrentProgress(), length > 1e-3 ? (top.current - top.start) / length : 0.5,
                    length > 1e-3 ? 2e-3 : 0.5);
        for (const int percent : reporter.percents)
            ASSERT_NEAR(percent, std::floor(top.current * 100.0 + 0.01), 1.0) << "step " << step;
    }
    EXPECT_GT(thrown, 400);
    EXPECT_GT(deepest, 20) << "more than one block of the stack";
}
}
