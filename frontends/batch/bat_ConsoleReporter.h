#pragma once

#include <bat_Console.h>
#include <string>
#include <wip_WipReporter.h>

/// The driver's reporter: a bar that redraws its line on a terminal, a line each 10 % elsewhere, and notes
/// and errors, all on the console's error stream. A bar is wiped before a note is written and drawn again
/// behind it.
class bat_ConsoleReporter : public wip_WipReporter
{
public:
    enum class Progress { NONE, LINES, BAR };

    /// Without notes, only errors are written besides the progress.
    bat_ConsoleReporter(const bat_Console& console, Progress progress, bool notes);
    /// Closes.
    ~bat_ConsoleReporter() override;

    /// Ends the bar's line, so that others may write to the terminal.
    void Close();

    void Display(const atr_String& message) override;
    void Print(const atr_String& message) override;
    void Landmark(const atr_String& message) override;
    void Milestone(const atr_String& message) override;
    void Milestone(const atr_String& message, int percent) override;
    void Milestone(const atr_String& message, const atr_String& object, int done, int total) override;
    void Verbose(const atr_String& message) override;
    void Warning(const atr_String& message) override;
    void Error(const atr_String& message, wip_errorLevelEnm level) override;
    bool Interrupted() override;
    /// Raises bat_Interrupted.
    void InterruptedThrow() override;
    void CommandDone() override;

private:
    void Show(const std::string& message, int percent);
    void Draw();
    void Write(const char* label, const atr_String& message);

    std::ostream& err_;
    Progress progress_;
    bool notes_;
    int columns_;

    int percent_ = -1; ///< what was shown last; -1 before the first percentage
    std::string message_;
    bool barOpen_ = false; ///< the cursor stands in a bar's line
};
