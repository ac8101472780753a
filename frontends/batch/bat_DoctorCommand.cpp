#include <algorithm>
#include <bat_Console.h>
#include <bat_ConsoleReporter.h>
#include <bat_Diagnosis.h>
#include <bat_DoctorCommand.h>
#include <bat_JsonText.h>
#include <bat_Number.h>
#include <bat_OptionSet.h>
#include <bat_PlainText.h>
#include <bat_Session.h>
#include <cctype>
#include <iomanip>
#include <ostream>

namespace
{
using Json = bat_Diagnosis::Json;

constexpr const char* SCHEMA = "orvex.doctor/1";
constexpr int LABEL_WIDTH = 23;

/// "memento budget base" as "mementoBudgetBase"; the names of environment variables stay as they are.
std::string Key(const std::string& label)
{
    if (label.find('_') != label.npos || !std::islower(static_cast<unsigned char>(label.back())))
        return label;
    std::string key;
    bool begins = false;
    for (const char c : label)
    {
        const auto letter = static_cast<unsigned char>(c);
        if (std::isalnum(letter) != 0)
            key += static_cast<char>(begins && !key.empty() ? std::toupper(letter)
                                     : key.empty()          ? std::tolower(letter)
                                                            : letter);
        else if (c == '+')
            key += 'p'; // "C++ library" is another than "C library"
        begins = c == ' ';
    }
    return key;
}

std::string Text(const Json& value)
{
    if (value.is_null())
        return "-";
    if (value.is_boolean())
        return value.get<bool>() ? "yes" : "no";
    if (value.is_number_float())
        return bat_ReadableText(value.get<double>());
    if (value.is_number())
        return bat_CountText(value.get<unsigned long long>());
    return bat_PlainText(value.get<std::string>());
}

void Print(std::ostream& out, const std::vector<bat_Diagnosis::Section>& sections)
{
    for (const bat_Diagnosis::Section& section : sections)
    {
        out << section.title << '\n';
        for (const bat_Diagnosis::Row& row : section.rows)
            out << "  " << std::left << std::setw(LABEL_WIDTH) << row.label << "  " << Text(row.value)
                << (row.note.empty() ? "" : "  (" + row.note + ")") << '\n';
    }
}

void Print(std::ostream& out, const std::vector<bat_SelfTest::Finding>& findings)
{
    out << "self-test\n";
    for (const bat_SelfTest::Finding& finding : findings)
        out << "  " << std::left << std::setw(LABEL_WIDTH) << finding.name << "  "
            << (finding.fault.empty() ? "passed" : "failed: " + bat_PlainText(finding.fault)) << '\n';
}

Json AsJson(const std::vector<bat_Diagnosis::Section>& sections,
            const std::vector<bat_SelfTest::Finding>& findings)
{
    Json json = {{"schema", SCHEMA}};
    for (const bat_Diagnosis::Section& section : sections)
    {
        Json& rows = json[section.title] = Json::object();
        for (const bat_Diagnosis::Row& row : section.rows)
            rows[Key(row.label)] = row.value;
    }
    Json& tests = json["selfTest"] = Json::array();
    for (const bat_SelfTest::Finding& finding : findings)
        tests.push_back({{"name", finding.name},
                         {"passed", finding.fault.empty()},
                         {"fault", finding.fault.empty() ? Json() : Json(finding.fault)}});
    return json;
}
}

const char* bat_DoctorCommand::Summary() const
{
    return "tell versions, limits and switches, and test whether everything works here";
}

const char* bat_DoctorCommand::Footer() const
{
    return "Listed are the versions and the build, every environment variable that is read, with its value\n"
           "where it is set, the limits, the machine, and the outcome of small jobs with known answers.\n"
           "\n"
           "Exit codes: 0 all is well, 2 wrong command line, 5 a job fails: its answer is wrong\n"
           "\n"
           "Examples, to be run as they stand:\n"
           "  orvex doctor\n"
           "  orvex doctor --json";
}

void bat_DoctorCommand::Declare(bat_OptionSet& options)
{
    options.Flag("--json", json_, "print one line of JSON");
}

bat_ExitCode bat_DoctorCommand::Run(const bat_Console& console)
{
    bat_ConsoleReporter reporter(console, bat_ConsoleReporter::Progress::NONE, true);
    const bat_Session session(reporter);
    const std::vector<bat_Diagnosis::Section> sections = bat_Diagnosis::Take(console);
    const std::vector<bat_SelfTest::Finding> findings = bat_SelfTest::Run(checks_);
    if (json_)
        console.out << bat_JsonText(AsJson(sections, findings)) << '\n';
    else
    {
        Print(console.out, sections);
        Print(console.out, findings);
    }
    const bool isWell = std::all_of(findings.begin(), findings.end(),
                                    [](const auto& finding) { return finding.fault.empty(); });
    return isWell ? bat_ExitCode::DONE : bat_ExitCode::INTERNAL;
}
