#include <gsl_Console.h>
#include <iostream>
#include <limits>

namespace
{
constexpr const char* PROMPT = "Press <Return> to continue...";
constexpr int PROMPTS_ABOVE = 1;

int debugLevel = 0;
aio_ostream* debugPrinter = nullptr; // null: the standard error stream
}

void gsl_SetDebug(int level, aio_ostream* printer)
{
    debugLevel = level;
    debugPrinter = printer;
}

void gsl_WaitForCR(aio_istream& stream)
{
    if (debugLevel > PROMPTS_ABOVE)
        (debugPrinter != nullptr ? *debugPrinter : std::cerr) << PROMPT << std::flush;
    gsl_EatToEnd(stream);
}

void gsl_EatToEnd(aio_istream& stream)
{
    stream.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
}
