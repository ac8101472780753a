#include <atr_String.h>
#include <bat_ConsoleReporter.h>
#include <bat_Interrupt.h>
#include <csignal>
#include <gtest/gtest.h>
#include <sstream>

namespace
{
TEST(ConsoleReporter, TheBarRedrawsItsLine)
{
    std::ostringstream err;
    bat_Console console{err, err, false, 80};
    const auto take = [&] {
        std::string text = err.str();
        err.str("");
        return text;
    };
    bat_ConsoleReporter reporter(console, bat_ConsoleReporter::Progress::BAR, true);
    reporter.Milestone("searching", 50);
    EXPECT_EQ(take(), "\r\033[K[###############...............]  50 % searching");
    reporter.Milestone("searching", 50);
    EXPECT_EQ(take(), "") << "nothing changed";
    reporter.Warning("odd\033[2J");
    EXPECT_EQ(take(),
              "\r\033[Korvex: note: odd?[2J\n\r\033[K[###############...............]  50 % searching");
    reporter.Milestone("");
    EXPECT_EQ(take(), "") << "the end of the job leaves the bar";
    reporter.Close();
    reporter.Close();
    EXPECT_EQ(take(), "\n");
    for (const auto& [columns, line] : {std::pair{20, "\r\033[K[##########] 100 % \n"},
                                        {45, "\r\033[K[##############################] 100 % re...\n"}})
    {
        console.columns = columns;
        bat_ConsoleReporter(console, bat_ConsoleReporter::Progress::BAR, true)
            .Milestone("reading a.stl", 100);
        EXPECT_EQ(take(), line) << "a full line would wrap";
    }
}

TEST(InterruptDeathTest, ASecondCtrlCEndsTheProcess)
{
    const auto pressTwice = [] {
        const bat_Interrupt interrupt;
        raise(SIGINT);
        raise(SIGINT);
    };
    EXPECT_EXIT(pressTwice(), testing::ExitedWithCode(130), "orvex: interrupted");
}
}
