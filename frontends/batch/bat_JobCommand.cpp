#include <bat_Console.h>
#include <bat_ConsoleReporter.h>
#include <bat_InputError.h>
#include <bat_JobCommand.h>
#include <bat_JobOptions.h>
#include <bat_PlainText.h>
#include <bat_Session.h>
#include <ostream>

bat_ExitCode bat_JobCommand::Run(const bat_Console& console)
{
    const bat_JobOptions& options = Options();
    bat_ConsoleReporter reporter(console, options.Progress(console), !options.Quiet());
    const bat_Session session(reporter);
    const Answer answer = Compute();
    reporter.Close();
    console.out << answer.text;
    // The answer is there all the same.
    if (!pictureFault_.empty() && !differs_)
        throw bat_InputError(pictureFault_);
    if (!pictureFault_.empty())
        console.err << "orvex: " << bat_PlainText(pictureFault_) << '\n';
    return differs_ ? bat_ExitCode::INTERNAL : answer.code;
}
