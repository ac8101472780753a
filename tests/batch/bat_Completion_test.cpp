// `orvex completion`: the scripts do in a shell what they are for.

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <CLI/Validators.hpp>
#include <bat_BashCompletion.h>
#include <bat_Registry.h>
#include <bat_Subcommand.h>
#include <bat_ZshCompletion.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <testing/DriverOutcome.h>
#include <testing/ProgramRun.h>
#include <testing/ScratchFolder.h>

namespace
{
using Words = std::vector<std::string>;

class Bash : public testing::Test
{
protected:
    /// What the words behind the program are completed to, sorted, with the shell's complaints. The last word
    /// is the one under the cursor.
    std::string Completed(const Words& words) const
    {
        Words command = {"/bin/bash",
                         "--norc",
                         "-uc",
                         "cd \"$1\" && . \"$2\" && shift 2 && COMP_WORDS=(\"$@\") && "
                         "COMP_CWORD=$((${#COMP_WORDS[@]} - 1)) && _orvex && "
                         "printf '%s\\n' \"${COMPREPLY[@]}\" | sort | paste -sd,",
                         "bash",
                         folder_.Path(),
                         script_,
                         "orvex"};
        command.insert(command.end(), words.begin(), words.end());
        ProgramRun run(command);
        run.Finish();
        std::string out = run.Out();
        if (!out.empty())
            out.pop_back();
        return out + run.Err();
    }

    const ScratchFolder folder_;
    const std::string script_ = folder_.Write("script", DriverOutcome({"completion", "bash"}).substr(2));
    const std::string part_ = folder_.Write("part one.off", "");
};

TEST_F(Bash, CompletesWhatMayStandThere)
{
    const std::string files = "part one.off,script";
    const struct
    {
        Words words;
        std::string completed;
    } rows[] = {{{"tr"}, "travel"},
                {{"--v"}, "--version"},
                {{"travel", ""}, files},
                {{"travel", "p"}, "part one.off"},
                {{"travel", "a.off", ""}, files},
                {{"travel", "a.off", "b.off", ""}, ""},
                // The words behind options are theirs, written either way.
                {{"travel", "--tree", "oct", "--depth", "=", "3", "a.off", ""}, files},
                {{"travel", "--tree", "oct", "a.off", "--json", "b.off", ""}, ""},
                {{"travel", "--tree", ""}, "mod,oct"},
                {{"travel", "--tree", "="}, "mod,oct"},
                {{"travel", "--tree", "=", "m"}, "mod"},
                {{"travel", "--dir", "p"}, ""},
                {{"travel", "--picture", "="}, files},
                {{"travel", "--b"}, "--bound"},
                {{"memento", "--"}, "--help,--json,--version"},
                {{"completion", ""}, "bash,zsh"},
                {{"color", "p"}, ""},
                {{"nothing", "p"}, ""}};
    for (const auto& [words, completed] : rows)
        EXPECT_EQ(Completed(words), completed) << testing::PrintToString(words);
}

// So that none is forgotten, nor one too many offered: as the help has them, in which each begins a line.
TEST_F(Bash, OffersTheOptionsOfEverySubcommand)
{
    for (const auto& command : bat_Registry())
    {
        std::istringstream help(DriverOutcome({command->Name(), "--help"}));
        std::set<std::string> options;
        for (std::string line; std::getline(help, line);)
            if (line.starts_with("  -"))
                options.insert(line.substr(line.find("--"), line.find(' ', 3) - line.find("--")));
        std::string joined;
        for (const std::string& option : options)
            joined += (joined.empty() ? "" : ",") + option;
        EXPECT_EQ(Completed({command->Name(), "--"}), joined) << command->Name();
    }
}

// What the descriptions hold must not end a word of the script early.
TEST(Completion, ScriptsAreSound)
{
    CLI::App app("it's a [test]: of $HOME", "probe");
    std::string value;
    CLI::App* sub = app.add_subcommand("sub", "don't: [do]\nthis `x` \\");
    sub->add_option("--one,-o", value, "one's \"[value]\": $x")->check(CLI::IsMember({"a", "b"}));
    sub->add_option("MANY", value, "files")->type_name(bat_Words::FILE)->expected(1, 9);
    const std::vector<bat_Words> subs{bat_Words(*sub)};
    const ScratchFolder folder;
    const std::string bash = folder.Write("bash", bat_BashCompletion(bat_Words(app), subs));
    const std::string zsh = bat_ZshCompletion(bat_Words(app), subs);
    EXPECT_THAT(zsh, testing::HasSubstr("'--one=[one'\\''s \"\\[value\\]\"\\: $x]::(a b)'"));
    EXPECT_THAT(zsh, testing::HasSubstr("'*:MANY:_files'"));
    for (const auto& [shell, file] :
         {std::pair("/bin/bash", bash), std::pair("/bin/zsh", folder.Write("zsh", zsh)),
          std::pair("/bin/zsh", folder.Write("orvex.zsh", DriverOutcome({"completion", "zsh"}).substr(2)))})
    {
        if (!std::filesystem::exists(shell))
            continue;
        ProgramRun run({shell, "-n", file});
        EXPECT_EQ(run.Finish().Code(), 0) << run.Err();
    }
    EXPECT_EQ(DriverOutcome({"completion", "fish"}),
              "2\norvex: SHELL: fish not in {bash,zsh} (see orvex completion --help)\n");
}
}
