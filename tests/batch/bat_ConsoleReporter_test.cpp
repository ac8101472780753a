#include <atr_String.h>
#include <bat_ConsoleReporter.h>
#include <bat_Interrupt.h>
#include <bat_Interrupted.h>
#include <csignal>
#include <gtest/gtest.h>
#include <sstream>

namespace
{
using Progress = bat_ConsoleReporter::Progress;

class ConsoleReporterTest : public testing::Test
{
protected:
    std::ostringstream out;
    std::ostringstream err;
    bat_Console console{out, err, false, 80};

    std::string Take()
    {
        const std::string text = err.str();
        err.str("");
        return text;
    }
};

TEST_F(ConsoleReporterTest, ALineEachTenPercent)
{
    bat_ConsoleReporter reporter(console, Progress::LINES, true);
    reporter.Milestone("job");
    EXPECT_EQ(Take(), "") << "no percentage, no line";
    for (int percent = 0; percent <= 100; ++percent)
        reporter.Milestone("working", percent);
    EXPECT_EQ(Take(), " 10 %  working\n 20 %  working\n 30 %  working\n 40 %  working\n 50 %  working\n"
                      " 60 %  working\n 70 %  working\n 80 %  working\n 90 %  working\n100 %  working\n");
    reporter.Milestone("working", 100);
    reporter.Milestone("something else", 100);
    reporter.Milestone("");
    EXPECT_EQ(Take(), "");
}

TEST_F(ConsoleReporterTest, StepsThatAreSkippedAreNotMadeUp)
{
    bat_ConsoleReporter reporter(console, Progress::LINES, true);
    reporter.Milestone("a", 37);
    reporter.Milestone("b", 39);
    reporter.Milestone("c", 95);
    EXPECT_EQ(Take(), " 30 %  a\n 90 %  c\n");
    reporter.Milestone("next job");
    reporter.Milestone("a", 10);
    EXPECT_EQ(Take(), " 10 %  a\n") << "a new job counts from the start";
}

TEST_F(ConsoleReporterTest, TheBarRedrawsItsLine)
{
    bat_ConsoleReporter reporter(console, Progress::BAR, true);
    reporter.Milestone("job");
    EXPECT_EQ(Take(), "\r\033[K[..............................]   0 % job");
    reporter.Milestone("searching", 50);
    EXPECT_EQ(Take(), "\r\033[K[###############...............]  50 % searching");
    reporter.Milestone("searching", 50);
    EXPECT_EQ(Take(), "") << "nothing changed";
    reporter.Milestone("searching", 100);
    EXPECT_EQ(Take(), "\r\033[K[##############################] 100 % searching");
    reporter.Milestone("");
    EXPECT_EQ(Take(), "") << "the end of the job leaves the bar";
    reporter.Close();
    reporter.Close();
    EXPECT_EQ(Take(), "\n");
}

TEST_F(ConsoleReporterTest, ANoteDoesNotRunIntoTheBar)
{
    bat_ConsoleReporter reporter(console, Progress::BAR, true);
    reporter.Milestone("searching", 50);
    Take();
    reporter.Warning("odd");
    EXPECT_EQ(Take(), "\r\033[Korvex: note: odd\n\r\033[K[###############...............]  50 % searching");
}

TEST_F(ConsoleReporterTest, TheBarFitsTheTerminal)
{
    for (const int columns : {1, 5, 9, 10, 20, 40, 45})
    {
        console.columns = columns;
        Take();
        bat_ConsoleReporter reporter(console, Progress::BAR, true);
        reporter.Milestone("reading a file with a rather long name.stl", 100);
        const std::string line = Take().substr(4);
        if (columns >= 20)
        {
            EXPECT_LT(line.size(), static_cast<std::size_t>(columns)) << line;
        }
        EXPECT_NE(line.find("100 %"), std::string::npos) << line;
    }
}

TEST_F(ConsoleReporterTest, WithoutNotesOnlyErrorsAreWritten)
{
    bat_ConsoleReporter reporter(console, Progress::NONE, false);
    reporter.Milestone("searching", 50);
    reporter.Milestone("searching", "it", 5, 10);
    reporter.Warning("odd");
    reporter.Display("nice");
    reporter.Print("nice");
    reporter.Landmark("nice");
    reporter.Verbose("nice");
    reporter.Error("fyi", wip_INFO);
    reporter.Error("odd", wip_WARNING);
    reporter.CommandDone();
    EXPECT_EQ(Take(), "");
    reporter.Error("bad", wip_ERROR);
    reporter.Error("worse", wip_FATAL);
    EXPECT_EQ(Take(), "orvex: error: bad\norvex: error: worse\n");
    EXPECT_EQ(out.str(), "") << "standard output is for results";
}

TEST_F(ConsoleReporterTest, NotesAreLabelled)
{
    bat_ConsoleReporter reporter(console, Progress::NONE, true);
    reporter.Display("read 3 files");
    reporter.Warning("odd\033[2J");
    reporter.Error("fyi", wip_INFO);
    reporter.Error("odd", wip_WARNING);
    reporter.Verbose("details");
    EXPECT_EQ(Take(), "orvex: read 3 files\norvex: note: odd?[2J\norvex: fyi\norvex: note: odd\n");
}

TEST_F(ConsoleReporterTest, CountsOfObjectsArePercentagesToo)
{
    bat_ConsoleReporter reporter(console, Progress::LINES, true);
    reporter.Milestone("reading", "plate.stl", 1, 2);
    reporter.Milestone("reading", "nothing", 0, 0);
    EXPECT_EQ(Take(), " 50 %  reading plate.stl\n100 %  reading nothing\n");
}

TEST_F(ConsoleReporterTest, AnswersWhetherCtrlCWasPressed)
{
    bat_ConsoleReporter reporter(console, Progress::NONE, true);
    {
        const bat_Interrupt interrupt;
        EXPECT_FALSE(reporter.Interrupted());
        EXPECT_NO_THROW(reporter.InterruptedThrow());
        raise(SIGINT);
        EXPECT_TRUE(reporter.Interrupted());
        EXPECT_THROW(reporter.InterruptedThrow(), bat_Interrupted);
    }
    const bat_Interrupt next;
    EXPECT_FALSE(reporter.Interrupted()) << "a new watch starts afresh";
}

TEST(InterruptDeathTest, ASecondCtrlCEndsTheProcess)
{
    EXPECT_EXIT(
        {
            const bat_Interrupt interrupt;
            raise(SIGINT);
            raise(SIGINT);
        },
        testing::ExitedWithCode(130), "orvex: interrupted");
}

TEST(InterruptDeathTest, WhereNothingIsPolledOneIsEnough)
{
    EXPECT_EXIT(
        {
            const bat_Interrupt interrupt;
            const bat_Interrupt::AtOnce scope;
            raise(SIGINT);
        },
        testing::ExitedWithCode(130), "orvex: interrupted");
}

TEST(Interrupt, AScopeThatCannotPollIsNotEnteredAfterCtrlC)
{
    const bat_Interrupt interrupt;
    {
        const bat_Interrupt::AtOnce scope;
    }
    raise(SIGINT);
    EXPECT_THROW(bat_Interrupt::AtOnce scope, bat_Interrupted);
    EXPECT_TRUE(bat_Interrupt::IsRequested());
}

TEST(Interrupt, TheFormerHandlerComesBack)
{
    struct sigaction before = {};
    sigaction(SIGINT, nullptr, &before);
    {
        const bat_Interrupt interrupt;
    }
    struct sigaction after = {};
    sigaction(SIGINT, nullptr, &after);
    EXPECT_EQ(after.sa_handler, before.sa_handler);
}
}
