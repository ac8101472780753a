#include <bat_Console.h>
#include <bat_JobOptions.h>
#include <bat_OptionSet.h>
#include <bat_Words.h>

bat_ConsoleReporter::Progress bat_JobOptions::Progress(const bat_Console& console) const
{
    using Progress = bat_ConsoleReporter::Progress;
    if (quiet_ || noProgress_)
        return Progress::NONE;
    return console.errIsTerminal ? Progress::BAR : Progress::LINES;
}

void bat_JobOptions::DeclareJob(bat_OptionSet& options, const std::string& picture, const std::string& check)
{
    options.Value("--picture", picture_, picture + " into this file, .svg or .png",
                  {.isFile = true, .label = bat_Words::FILE});
    options.Flag("--json", json_, "print the result as one line of JSON");
    options.Flag("--check", check_, check + ", where that is feasible");
    options.Flag("--quiet", quiet_, "print the result and errors, nothing else");
    options.Flag("--no-progress", noProgress_, "show no progress");
}
