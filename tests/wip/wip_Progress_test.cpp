#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <nex_PrimException.h>
#include <random>
#include <sstream>
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

/// Plays steps such as "push .5", "pop 1", "at .2" (Update), "step 3/4" (Update of i and n); what each
/// reports goes to the reporter, what is refused comes back as its number, counted from 1.
std::string Play(wip_Progress& progress, const std::string& steps)
{
    std::istringstream in(steps);
    std::string refused;
    std::string verb;
    std::string number;
    for (int count = 1; in >> verb >> number; ++count)
    {
        bool accepted = false;
        if (verb == "push")
            accepted = progress.Push(std::stof(number));
        else if (verb == "pop")
            accepted = progress.Pop(std::stoi(number));
        else if (verb == "at")
            accepted = progress.Update(std::stof(number));
        else if (verb == "step")
            accepted = progress.Update(std::stoi(number), std::stoi(number.substr(number.find('/') + 1)));
        else
            ADD_FAILURE() << "no such step: " << verb;
        if (!accepted)
            refused += (refused.empty() ? "" : " ") + std::to_string(count);
    }
    return refused;
}

struct StepsRow
{
    const char* what;
    const char* steps;
    std::vector<int> percents;
    const char* refused;
    int depth;
};

class ProgressSteps : public testing::TestWithParam<StepsRow>
{};

TEST_P(ProgressSteps, MatchesTable)
{
    const StepsRow& row = GetParam();
    RecordingReporter reporter;
    ReporterScope scope(&reporter);
    EXPECT_EQ(Play(wip_Progress::Instance(), row.steps), row.refused) << row.what;
    EXPECT_EQ(reporter.percents, row.percents) << row.what;
    EXPECT_EQ(wip_Progress::Instance().Depth(), row.depth) << row.what;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ProgressSteps,
    testing::Values(
        StepsRow{"nothing done", "at 0", {0}, "", 1}, StepsRow{"all done", "at 1", {100}, "", 1},
        StepsRow{"push opens from the present position", "at .2 push .5 at 0 at 1", {20, 20, 70}, "", 2},
        StepsRow{"push is cut at the level's end", "at .2 push .9 at 0 at 1", {20, 20, 100}, "", 2},
        StepsRow{"push within the opened level", "at .2 push .5 push .9 at 0 at 1", {20, 20, 65}, "", 3},
        StepsRow{"push past an inner level's end", "at .2 push .5 at .6 push .9 at 1", {20, 50, 70}, "", 3},
        StepsRow{"update measures from the level's start", "push .5 at .5 at .5", {25, 25}, "", 2},
        StepsRow{"update may go back", "at .9 at .1", {90, 10}, "", 1},
        StepsRow{"pop reports the end of what it closes", "push .25 pop 1", {25}, "", 1},
        StepsRow{"pop does not ask how far the level came", "push .5 at .1 pop 1", {5, 50}, "", 1},
        StepsRow{"two levels, the last closed counts", "push .5 push .5 pop 5", {50}, "", 1},
        StepsRow{"one of two levels", "push .5 push .5 pop 1", {25}, "", 2},
        StepsRow{
            "the next slice starts where the last ended", "push .5 pop 1 push .5 at .5", {50, 75}, "", 2},
        StepsRow{"a level without length", "push 0 at 1 at .5 pop 1", {0, 0, 0}, "", 1},
        StepsRow{"nothing left to give", "at 1 push 1 at 0", {100, 100}, "", 2},
        StepsRow{"steps", "step 0/4 step 3/4 step 4/4 step 5/4", {0, 75, 100, 100}, "", 1},
        StepsRow{"no steps at all are all done", "step 0/0", {100}, "", 1},
        StepsRow{"steps below nothing", "step -1/4 step 1/-1 step -2/-1", {}, "1 2 3", 1},
        StepsRow{"fractions outside", "at -.1 at 1.1 push -.1 push 1.1", {}, "1 2 3 4", 1},
        StepsRow{"not a number, infinite", "at nan push nan at inf push -inf", {}, "1 2 3 4", 1},
        StepsRow{"negative zero is zero", "at -0 push -0 at 1", {0, 0}, "", 2},
        StepsRow{"the root stays", "pop 1 pop 7", {}, "1 2", 1},
        StepsRow{"pop nothing, pop less", "push .5 pop 0 pop -1", {}, "2 3", 2}));

TEST_F(ProgressTest, RefusalsChangeNothing)
{
    ASSERT_TRUE(progress.Push(0.5f, "half"));
    ASSERT_TRUE(progress.Update(0.5f));
    reporter.Take();
    for (const float f : {-0.25f, 1.25f, std::numeric_limits<float>::quiet_NaN()})
    {
        EXPECT_FALSE(progress.Push(f)) << f;
        EXPECT_FALSE(progress.Push(f, "other")) << f;
        EXPECT_FALSE(progress.Update(f)) << f;
        EXPECT_FALSE(progress.Update(f, "other")) << f;
    }
    EXPECT_FALSE(progress.Update(-1, 4));
    EXPECT_FALSE(progress.Pop(0));
    EXPECT_THAT(reporter.Take(), ElementsAre());
    EXPECT_EQ(progress.Depth(), 2);
    EXPECT_EQ(progress.CurrentProgress(), 0.5f);
    ASSERT_TRUE(progress.Update(0.5f));
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'half' 25"));
}

TEST_F(ProgressTest, MessagesCarryNoPercentageUntilOneWasReported)
{
    EXPECT_EQ(progress.CurrentProgress(), 0.0f);
    progress.Update("starting");
    progress.Update("reading");
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'starting'", "milestone 'reading'"));
    ASSERT_TRUE(progress.Update(0.5f));
    progress.Update("sorting");
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'reading' 50", "milestone 'sorting' 50"));
    progress.Clear();
    EXPECT_THAT(reporter.Take(), ElementsAre()) << "Clear does not report";
    progress.Update("again");
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'again'"));
}

TEST_F(ProgressTest, LevelsInheritTheTextOfTheOneBelow)
{
    progress.Initialize("job");
    ASSERT_TRUE(progress.Push(0.5f));
    ASSERT_TRUE(progress.Update(0.5f));
    ASSERT_TRUE(progress.Push(0.5f, "part"));
    ASSERT_TRUE(progress.Update(1.0f, "last part"));
    ASSERT_TRUE(progress.Pop(1));
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'job'", "milestone 'job' 25",
                                             "milestone 'last part' 50", "milestone 'job' 50"));
}

// The level is emptied before its text is read, on purpose: the report at the end blanks the display.
TEST_F(ProgressTest, FinishReportsTheEmptyText)
{
    progress.Initialize("job");
    ASSERT_TRUE(progress.Push(0.5f, "part"));
    reporter.Take();
    EXPECT_TRUE(progress.Finish());
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone ''"));
    EXPECT_EQ(progress.Depth(), 1);
    EXPECT_EQ(progress.CurrentProgress(), 0.0f);
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
}

TEST_F(ProgressTest, AHundredSlicesOfAHundredthAreTheWhole)
{
    for (int k = 1; k <= 100; ++k)
    {
        ASSERT_TRUE(progress.Push(0.01f));
        ASSERT_TRUE(progress.Pop(1));
        EXPECT_EQ(reporter.percents.back(), k);
    }
    EXPECT_EQ(progress.CurrentProgress(), 0.99999934f) << "the slices do not add up exactly";
}

TEST_F(ProgressTest, SetProgressReportsAnyStateHandedIn)
{
    wip_ProgressState state;
    state.message = "elsewhere";
    for (const auto& [current, percent] : {std::pair{0.0f, 0}, {0.9998f, 99}, {0.99991f, 100}, {1.0f, 100}})
    {
        state.current = current;
        EXPECT_TRUE(progress.SetProgress(state));
        EXPECT_EQ(reporter.percents.back(), percent) << current;
    }
    EXPECT_EQ(progress.CurrentProgress(), 0.0f) << "the stack is left alone";
}

TEST_F(ProgressTest, WithoutReporterEveryReportRaises)
{
    wip_WIP::Instance().SetWipReporter(nullptr);
    try
    {
        (void)progress.Update(0.25f);
        FAIL() << "must raise";
    }
    catch (const nex_PrimException& exception)
    {
        EXPECT_STREQ(exception.what(), "WipReporter != 0");
        EXPECT_EQ(exception.Source(), cow_String("KTLOxuWip.m/src/wip_WIP"));
        EXPECT_GT(exception.Line(), 0);
    }
    EXPECT_EQ(progress.CurrentProgress(), 0.25f) << "the stack changes before the report";
    EXPECT_THROW(progress.Initialize("job"), nex_PrimException);
    EXPECT_THROW(progress.Finish(), nex_PrimException);
    EXPECT_TRUE(progress.Push(0.5f)) << "opening a level reports nothing";
    EXPECT_THROW((void)progress.Pop(1), nex_PrimException);
    EXPECT_EQ(progress.Depth(), 1);
}

// The flag that holds percentages back falls after the report, on purpose: one that never arrived does not
// count.
TEST_F(ProgressTest, APercentageThatThrewDoesNotCountAsReported)
{
    reporter.throwing = true;
    EXPECT_THROW((void)progress.Update(0.5f), RecordingReporter::Thrown);
    reporter.throwing = false;
    reporter.Take();
    progress.Update("text");
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'text'"));
}

TEST_F(ProgressTest, AReporterMayUseTheProgressItReports)
{
    ASSERT_TRUE(progress.Push(0.5f, "inner text, long enough to live on the heap"));
    reporter.onCall = [this] {
        reporter.onCall = nullptr;
        progress.Clear();
    };
    ASSERT_TRUE(progress.Update(1.0f));
    EXPECT_EQ(progress.Depth(), 1);
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'inner text, long enough to live on the heap' 50"));
}

TEST_F(ProgressTest, TheTextHandedInMayBeTheLevelsOwn)
{
    wip_ProgressState own;
    own.message = "a text that is long enough to live on the heap";
    progress.Update(own.message);
    reporter.Take();
    reporter.onCall = [&own] { own.message = ""; };
    progress.Initialize(own.message);
    EXPECT_THAT(reporter.Take(), ElementsAre("milestone 'a text that is long enough to live on the heap'"));
}

/// The same rules in double, as a list of levels.
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
    double Progress() const
    {
        const Level& top = levels.back();
        return top.end > top.start ? (top.current - top.start) / (top.end - top.start) : 0.0;
    }
};

class ProgressRandom : public testing::TestWithParam<unsigned>
{};

// Against a model in double; with a reporter that throws now and then, which must change nothing but the
// report.
TEST_P(ProgressRandom, FollowsTheModelWhetherOrNotTheReporterThrows)
{
    std::mt19937 random(GetParam());
    RecordingReporter reporter;
    ReporterScope scope(&reporter);
    wip_Progress& progress = wip_Progress::Instance();
    Model model;
    int thrown = 0;
    int deepest = 1;
    for (int step = 0; step < 1000; ++step)
    {
        const float f = static_cast<float>(random() % 65) / 64.0f;
        const int what = static_cast<int>(random() % 8);
        reporter.throwing = random() % 4 == 0;
        const std::size_t reports = reporter.percents.size();
        try
        {
            if (what <= 2)
            {
                model.Push(f);
                ASSERT_TRUE(progress.Push(f));
            }
            else if (what == 3)
            {
                const int n = 1 + static_cast<int>(random() % 10 == 0 ? random() % 64 : random() % 2);
                const bool open = model.levels.size() > 1;
                model.Pop(n);
                ASSERT_EQ(progress.Pop(n), open);
            }
            else
            {
                model.Update(f);
                ASSERT_TRUE(progress.Update(f));
            }
        }
        catch (const RecordingReporter::Thrown&)
        {
            ++thrown;
        }
        const Model::Level& top = model.levels.back();
        ASSERT_EQ(progress.Depth(), static_cast<int>(model.levels.size())) << "step " << step;
        deepest = std::max(deepest, progress.Depth());
        if (top.end - top.start > 1e-3)
        {
            ASSERT_NEAR(progress.CurrentProgress(), model.Progress(), 2e-3) << "step " << step;
        }
        ASSERT_GE(progress.CurrentProgress(), 0.0f);
        ASSERT_LE(progress.CurrentProgress(), 1.0f);
        if (reporter.percents.size() > reports)
        {
            ASSERT_NEAR(reporter.percents.back(), std::floor(top.current * 100.0 + 0.01), 1.0)
                << "step " << step;
        }
    }
    EXPECT_GT(thrown, 20);
    EXPECT_GT(deepest, 20) << "more than one block of the stack";
}

INSTANTIATE_TEST_SUITE_P(Seeds, ProgressRandom, testing::Range(1u, 21u));

// Work handed down in slices, each sub-task ignorant of the others: what the user sees never runs backwards
// and ends at the whole.
void Work(wip_Progress& progress, std::mt19937& random, int depth)
{
    const int parts = 1 + static_cast<int>(random() % 5);
    for (int part = 0; part < parts; ++part)
    {
        if (depth > 0 && random() % 2 == 0)
        {
            ASSERT_TRUE(progress.Push(1.0f / static_cast<float>(parts)));
            Work(progress, random, depth - 1);
            ASSERT_TRUE(progress.Pop(1));
        }
        else
            ASSERT_TRUE(progress.Update(part + 1, parts));
    }
}

TEST_F(ProgressTest, NestedSlicesNeverRunBackwardsAndEndAtTheWhole)
{
    std::mt19937 random(11);
    for (int round = 0; round < 50; ++round)
    {
        progress.Clear();
        reporter.percents.clear();
        ASSERT_TRUE(progress.Push(1.0f));
        Work(progress, random, 6);
        ASSERT_TRUE(progress.Pop(1));
        EXPECT_TRUE(std::is_sorted(reporter.percents.begin(), reporter.percents.end())) << "round " << round;
        EXPECT_EQ(reporter.percents.back(), 100) << "round " << round;
    }
}
}
