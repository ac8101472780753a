#include <bat_Console.h>
#include <cstdlib>
#include <iostream>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>

bat_Console bat_Console::Standard()
{
    bat_Console console{std::cout, std::cerr};
    const char* kind = std::getenv("TERM");
    console.errIsTerminal = isatty(STDERR_FILENO) && kind && std::string_view(kind) != "dumb";
    winsize size = {};
    if (console.errIsTerminal && ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        console.columns = size.ws_col;
    return console;
}
