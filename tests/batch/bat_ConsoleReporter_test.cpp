#include <atr_String.h>
#include <bat_ConsoleReporter.h>
#include <bat_Interrupt.h>
#include <bat_Interrupted.h>
#include <csignal>
#include <gtest/gtest.h>
#include <optional>
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
    std::string lines;
    for (int percent = 10; percent <= 100; percent += 10)
        lines += (percent < 100 ? " " : "") + std::to_string(percent) + " %  working\n";
    EXPECT_EQ(Take(), lines);
    reporter.Milestone("something else", 100);
    reporter.Milestone("");
    EXPECT_EQ(Take(), "");
    reporter.Milestone("next job");
    for (const int percent : {37, 39, 95})
        reporter.Milestone("b", percent);
    reporter.Milestone("reading", "plate.stl", 1, 1);
    EXPECT_EQ(Take(), " 30 %  b\n 90 %  b\n100 %  reading plate.stl\n") << "skipped steps are not made up";
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
    reporter.Warning("odd\033[2J");
    EXPECT_EQ(Take(),
              "\r\033[Korvex: note: odd?[2J\n\r\033[K[###############...............]  50 % searching");
    reporter.Milestone("searching", 100);
    EXPECT_EQ(Take(), "\r\033[K[##############################] 100 % searching");
    reporter.Milestone("");
    EXPECT_EQ(Take(), "") << "the end of the job leaves the bar";
    reporter.Close();
    reporter.Close();
    EXPECT_EQ(Take(), "\n");
}

TEST_F(ConsoleReporterTest, TheBarFitsTheTerminal)
{
    for (const int columns : {20, 40, 45})
    {
        console.columns = columns;
        bat_ConsoleReporter(console, Progress::BAR, true)
            .Milestone("reading a file with a rather long name.stl", 100);
        const std::string line = Take(); // with what clears the line before and ends it
        EXPECT_LT(line.size() - 5, static_cast<std::size_t>(columns)) << line;
        EXPECT_NE(line.find("100 %"), std::string::npos) << line;
    }
}

TEST_F(ConsoleReporterTest, NotesAreLabelledAndCanBeLeftOut)
{
    for (const bool notes : {true, false})
    {
        bat_ConsoleReporter shown(console, Progress::NONE, notes);
        wip_WipReporter& reporter = shown; // as everybody else sees it
        reporter.Milestone("searching", "it", 5, 10);
        reporter.Display("read 3 files");
        reporter.Print("printed");
        reporter.Landmark("halfway");
        reporter.Error("fyi", wip_INFO);
        reporter.Error("odd", wip_WARNING);
        reporter.Verbose("details");
        EXPECT_EQ(Take(), notes ? "orvex: read 3 files\norvex: printed\norvex: halfway\norvex: fyi\n"
                                  "orvex: note: odd\n"
                                : "")
            << "details are for nobody";
        reporter.Error("bad", wip_ERROR);
        reporter.Error("worse", wip_FATAL);
        EXPECT_EQ(Take(), "orvex: error: bad\norvex: error: worse\n");
    }
    EXPECT_EQ(out.str(), "") << "standard output is for results";
}

TEST_F(ConsoleReporterTest, AnswersWhetherCtrlCWasPressedAndTheFormerHandlerComesBack)
{
    bat_ConsoleReporter reporter(console, Progress::NONE, true);
    struct sigaction before = {};
    struct sigaction after = {};
    sigaction(SIGINT, nullptr, &before);
    for (int watch = 0; watch < 2; ++watch) // a new watch starts afresh
    {
        const bat_Interrupt interrupt;
        EXPECT_FALSE(reporter.Interrupted());
        EXPECT_NO_THROW(reporter.InterruptedThrow());
        raise(SIGINT);
        EXPECT_TRUE(reporter.Interrupted());
        EXPECT_THROW(reporter.InterruptedThrow(), bat_Interrupted);
        EXPECT_THROW(bat_Interrupt::AtOnce scope, bat_Interrupted)
            << "a scope that cannot poll is not entered";
    }
    sigaction(SIGINT, nullptr, &after);
    EXPECT_EQ(after.sa_handler, before.sa_handler);
}

TEST(InterruptDeathTest, ASecondCtrlCEndsTheProcessOrTheFirstWhereNothingIsPolled)
{
    const auto press = [](bool polled) {
        const bat_Interrupt interrupt;
        std::optional<bat_Interrupt::AtOnce> scope;
        if (polled)
            raise(SIGINT);
        else
            scope.emplace();
        raise(SIGINT);
    };
    EXPECT_EXIT(press(true), testing::ExitedWithCode(130), "orvex: interrupted");
    EXPECT_EXIT(press(false), testing::ExitedWithCode(130), "orvex: interrupted");
}
}
