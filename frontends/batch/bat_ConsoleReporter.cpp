#include <algorithm>
#include <atr_String.h>
#include <bat_ConsoleReporter.h>
#include <bat_Interrupt.h>
#include <bat_Interrupted.h>
#include <bat_PlainText.h>
#include <ostream>

namespace
{
constexpr int BAR_CELLS = 30;
constexpr int FRAME_COLUMNS = 9; // "[" "] 100 % "
constexpr int LINE_STEP = 10;
constexpr const char* WIPE_LINE = "\r\033[K";

std::string RightAligned(int percent)
{
    std::string text = std::to_string(percent);
    text.insert(0, text.size() < 3 ? 3 - text.size() : 0, ' ');
    return text + " %";
}
}

bat_ConsoleReporter::bat_ConsoleReporter(const bat_Console& console, Progress progress, bool notes)
    : err_(console.err), progress_(progress), notes_(notes), columns_(console.columns)
{}

bat_ConsoleReporter::~bat_ConsoleReporter()
{
    Close();
}

void bat_ConsoleReporter::Close()
{
    if (barOpen_)
        err_ << '\n' << std::flush;
    barOpen_ = false;
}

void bat_ConsoleReporter::Draw()
{
    const int cells = std::clamp(columns_ - FRAME_COLUMNS - 1, 0, BAR_CELLS);
    const int full = cells * std::max(percent_, 0) / 100;
    std::string line = "[" + std::string(static_cast<std::size_t>(full), '#') +
                       std::string(static_cast<std::size_t>(cells - full), '.') + "] " +
                       RightAligned(std::max(percent_, 0)) + " ";
    // One column stays free: a full line would wrap, and the next bar would start below.
    const int room = columns_ - 1 - static_cast<int>(line.size());
    line += bat_ShortText(message_, std::max(room, 0));
    err_ << WIPE_LINE << line << std::flush;
    barOpen_ = true;
}

void bat_ConsoleReporter::Show(const std::string& message, int percent)
{
    const bool samePlace = percent == percent_ && message == message_;
    const int former = percent_;
    percent_ = percent;
    message_ = message;
    if (samePlace)
        return;
    if (progress_ == Progress::BAR)
        Draw();
    else if (progress_ == Progress::LINES && percent >= LINE_STEP && percent / LINE_STEP > former / LINE_STEP)
        err_ << RightAligned(percent - percent % LINE_STEP) << "  " << message_ << '\n' << std::flush;
}

void bat_ConsoleReporter::Write(const char* label, const atr_String& message)
{
    if (barOpen_)
        err_ << WIPE_LINE;
    err_ << "orvex: " << label << bat_PlainText(message.AsCharPtr()) << '\n' << std::flush;
    if (barOpen_)
        Draw();
}

void bat_ConsoleReporter::Display(const atr_String& message)
{
    if (notes_)
        Write("", message);
}

void bat_ConsoleReporter::Print(const atr_String& message)
{
    Display(message);
}

void bat_ConsoleReporter::Landmark(const atr_String& message)
{
    Display(message);
}

void bat_ConsoleReporter::Verbose(const atr_String&) {}

void bat_ConsoleReporter::Milestone(const atr_String& message)
{
    // Sent when a job begins (with its text) and when it ends (with none): the count starts again, the bar
    // stays.
    if (message.IsEmpty())
        return;
    percent_ = -1;
    message_ = bat_PlainText(message.AsCharPtr());
    if (progress_ == Progress::BAR)
        Draw();
}

void bat_ConsoleReporter::Milestone(const atr_String& message, int percent)
{
    Show(bat_PlainText(message.AsCharPtr()), percent);
}

void bat_ConsoleReporter::Milestone(const atr_String& message, const atr_String& object, int done, int total)
{
    const int percent = total > 0 ? static_cast<int>(100LL * done / total) : 100;
    Show(bat_PlainText(std::string(message.AsCharPtr()) + " " + object.AsCharPtr()), percent);
}

void bat_ConsoleReporter::Warning(const atr_String& message)
{
    if (notes_)
        Write("note: ", message);
}

void bat_ConsoleReporter::Error(const atr_String& message, wip_errorLevelEnm level)
{
    switch (level)
    {
    case wip_INFO:
        Display(message);
        break;
    case wip_WARNING:
        Warning(message);
        break;
    case wip_ERROR:
    case wip_FATAL:
        Close();
        Write("error: ", message);
        break;
    }
}

bool bat_ConsoleReporter::Interrupted()
{
    return bat_Interrupt::IsRequested();
}

void bat_ConsoleReporter::InterruptedThrow()
{
    if (Interrupted())
        throw bat_Interrupted();
}

void bat_ConsoleReporter::CommandDone()
{
    Close();
}
