#include <bat_Console.h>
#include <cstdlib>
#include <iostream>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>

namespace
{
std::string_view Setting(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

// Terminals that take 24-bit colours say so in COLORTERM, or by the name of their kind.
bool HasTrueColor(std::string_view kind)
{
    const std::string_view colors = Setting(bat_Console::TRUE_COLOR);
    return colors == "truecolor" || colors == "24bit" || kind.ends_with("-direct");
}
}

bat_Console bat_Console::Standard()
{
    bat_Console console{std::cout, std::cerr};
    const std::string_view kind = Setting(TERMINAL_KIND);
    const bool isPlain = kind.empty() || kind == "dumb";
    console.errIsTerminal = !isPlain && isatty(STDERR_FILENO);
    console.outHasColor =
        !isPlain && isatty(STDOUT_FILENO) && HasTrueColor(kind) && Setting(NO_COLOR).empty();
    winsize size = {};
    if (console.errIsTerminal && ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        console.columns = size.ws_col;
    return console;
}
