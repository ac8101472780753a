#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <bat_Console.h>
#include <bat_Driver.h>
#include <bat_InputError.h>
#include <bat_Interrupt.h>
#include <bat_Interrupted.h>
#include <bat_MeshError.h>
#include <bat_NearestNames.h>
#include <bat_OptionSet.h>
#include <bat_PlainText.h>
#include <bat_Registry.h>
#include <bat_UsageError.h>
#include <bat_Version.h>
#include <exception>
#include <new>
#include <ostream>

namespace
{
bat_ExitCode Fail(const bat_Console& console, bat_ExitCode code, const std::string& sentence)
{
    console.err << "orvex: " << bat_PlainText(sentence) << '\n' << std::flush;
    return code;
}

/// false when the user asked for help or the version, and has got it.
bool Parse(CLI::App& app, std::vector<std::string> arguments, const bat_Console& console)
{
    try
    {
        std::reverse(arguments.begin(), arguments.end()); // as CLI11 takes them
        app.parse(std::move(arguments));
        return true;
    }
    catch (const CLI::Success& asked)
    {
        app.exit(asked, console.out, console.err);
        return false;
    }
    catch (const CLI::ArgumentMismatch& error)
    {
        const std::string sentence = error.what(); // "NAME: ", then how many were counted
        throw bat_UsageError(sentence.substr(0, sentence.find(':')) + ": takes one value, and is given once");
    }
    catch (const CLI::ParseError& error)
    {
        throw bat_UsageError(error.what());
    }
}

bat_ExitCode Dispatch(std::vector<std::string> arguments, const bat_Console& console)
{
    const bat_Interrupt interrupt;
    const auto commands = bat_Registry();
    const std::string version = std::string("orvex ") + BAT_VERSION;

    CLI::App app(
        "Works on parts as CAD systems export them (triangles in STL, OBJ and OFF files), and shows\n"
        "colours and stored sessions.",
        "orvex");
    app.set_version_flag("--version", version, "print the version");
    app.set_help_flag("-h,--help", "print this help");
    app.require_subcommand(1);
    app.get_formatter()->column_width(28);
    for (const auto& command : commands)
    {
        CLI::App* sub = app.add_subcommand(command->Name(), command->Summary());
        sub->set_version_flag("--version", version, "print the version");
        sub->footer(command->Footer());
        bat_OptionSet options(*sub);
        command->Declare(options);
    }
    if (arguments.empty())
    {
        console.err << app.help();
        return bat_ExitCode::USAGE;
    }
    const auto asked = std::find_if(commands.begin(), commands.end(), [&](const auto& command) {
        return command->Name() == arguments.front();
    });
    try
    {
        if (asked == commands.end() && arguments.front().rfind('-', 0) != 0)
        {
            bat_NearestNames nearest(arguments.front());
            for (const auto& command : commands)
                nearest.Offer(command->Name());
            const std::string hint = nearest.Hint();
            throw bat_UsageError(arguments.front() + ": no such subcommand" +
                                 (hint.empty() ? "" : "." + hint));
        }
        if (asked == commands.end() && arguments.front() != "--version" && arguments.front() != "--help" &&
            arguments.front() != "-h")
            throw bat_UsageError(arguments.front() + ": the subcommand must come first");
        if (!Parse(app, std::move(arguments), console))
            return bat_ExitCode::DONE;
        return (*asked)->Run(console);
    }
    catch (const bat_UsageError& error)
    {
        const std::string whose = asked == commands.end() ? "" : std::string((*asked)->Name()) + " ";
        throw bat_UsageError(std::string(error.what()) + " (see orvex " + whose + "--help)");
    }
}
}

bat_ExitCode bat_Driver::Run(std::vector<std::string> arguments, const bat_Console& console) noexcept
{
    bat_ExitCode code = bat_ExitCode::INTERNAL;
    try
    {
        try
        {
            code = Dispatch(std::move(arguments), console);
        }
        catch (const bat_UsageError& error)
        {
            code = Fail(console, bat_ExitCode::USAGE, error.what());
        }
        catch (const bat_MeshError& error)
        {
            code = Fail(console, bat_ExitCode::INPUT, error.what());
        }
        catch (const bat_InputError& error)
        {
            code = Fail(console, bat_ExitCode::INPUT, error.what());
        }
        catch (const bat_Interrupted& error)
        {
            code = Fail(console, bat_ExitCode::INTERRUPTED, error.what());
        }
        catch (const std::bad_alloc&)
        {
            code = Fail(console, bat_ExitCode::INTERNAL, "out of memory");
        }
        catch (const std::exception& error)
        {
            code = Fail(console, bat_ExitCode::INTERNAL, std::string("internal fault: ") + error.what());
        }
        // A result that never arrived is no result.
        console.out.flush();
        if (!console.out && code <= bat_ExitCode::CLEAR)
            code = Fail(console, bat_ExitCode::INTERNAL, "cannot write the result to standard output");
    }
    catch (...)
    {
        // Not even the sentence could be written.
        code = bat_ExitCode::INTERNAL;
    }
    return code;
}
