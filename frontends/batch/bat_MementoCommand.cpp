#include <algorithm>
#include <bat_Console.h>
#include <bat_ConsoleReporter.h>
#include <bat_InputError.h>
#include <bat_JsonText.h>
#include <bat_MementoCommand.h>
#include <bat_Number.h>
#include <bat_OptionSet.h>
#include <bat_PlainText.h>
#include <bat_Session.h>
#include <bat_Words.h>
#include <idb_MementoException.h>
#include <idb_MementoRead.h>
#include <idb_MementoSummary.h>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string_view>

namespace
{
using Json = nlohmann::ordered_json;

constexpr const char* SCHEMA = "orvex.memento/1";

/// "FILE, byte N: REASON", the place once.
std::string Sentence(const std::string& file, const idb_MementoException& error)
{
    constexpr std::string_view PREFIX = "idb_MementoRead: ";
    std::string reason = error.what();
    if (reason.starts_with(PREFIX))
        reason.erase(0, PREFIX.size());
    if (error.SystemNumber() != 0)
        return reason; // names the file
    const std::string byte = "byte " + std::to_string(error.ByteOffset());
    const bool isNew = error.ByteOffset() >= 0 && reason.find(byte) == std::string::npos;
    return file + (isNew ? ", " + byte : "") + ": " + reason;
}

idb_MementoSummary Read(const std::string& file)
{
    try
    {
        return idb_MementoSummary(idb_MementoRead(cow_String(std::string_view(file))));
    }
    catch (const idb_MementoException& error)
    {
        throw bat_InputError(Sentence(file, error));
    }
}

std::string Text(const cow_String& text)
{
    return std::string(text.View());
}

std::string Format(const idb_MementoSummary& memento)
{
    return std::to_string(memento.majorFormat) + "." + std::to_string(memento.minorFormat);
}

Json AsJson(const std::string& file, const idb_MementoSummary& memento)
{
    Json roots = Json::array();
    for (const idb_MementoSummary::Root& root : memento.roots)
        roots.push_back({{"name", Text(root.name)},
                         {"object", root.number},
                         {"class", root.number == 0 ? Json() : Json(Text(root.className))}});
    Json classes = Json::array();
    for (const idb_MementoSummary::Class& one : memento.classes)
        classes.push_back({{"name", Text(one.name)},
                           {"type", one.typeId},
                           {"version", one.version},
                           {"parent", one.parent.IsEmpty() ? Json() : Json(Text(one.parent))},
                           {"attributes", one.attributes},
                           {"objects", one.objects},
                           {"bytes", one.bytes},
                           {"known", one.isKnown}});
    Json sections = Json::array();
    for (const idb_MementoSummary::Section& section : memento.sections)
        sections.push_back(
            {{"tag", Text(section.tag)}, {"offset", section.offset}, {"bytes", section.bytes}});
    Json warnings = Json::array();
    for (const cow_String& warning : memento.warnings)
        warnings.push_back(Text(warning));
    return {
        {"schema", SCHEMA},           {"file", file},   {"bytes", memento.bytes}, {"format", Format(memento)},
        {"objects", memento.objects}, {"roots", roots}, {"classes", classes},     {"sections", sections},
        {"warnings", warnings}};
}

void Print(std::ostream& out, const std::string& file, const idb_MementoSummary& memento)
{
    out << "file      " << bat_PlainText(file) << ", " << bat_CountText(memento.bytes) << " bytes, format "
        << Format(memento) << "\nobjects   " << bat_CountText(memento.objects) << '\n';
    for (const idb_MementoSummary::Root& root : memento.roots)
        out << "root      " << bat_PlainText(Text(root.name)) << ": "
            << (root.number == 0 ? "nothing"
                                 : "object " + std::to_string(root.number) + " of class " +
                                       bat_PlainText(Text(root.className)))
            << '\n';
    for (const cow_String& warning : memento.warnings)
        out << "warning   " << bat_PlainText(Text(warning)) << '\n';
    if (memento.classes.empty())
        return;
    int names = 0;
    int parents = 0;
    for (const idb_MementoSummary::Class& one : memento.classes)
    {
        names = std::max(names, one.name.Length());
        parents = std::max(parents, one.parent.Length());
    }
    names = std::max(names, 5);
    parents = std::max(parents, 6);
    out << '\n'
        << std::left << std::setw(names) << "class"
        << "  version  " << std::setw(parents) << "parent" << std::right << "  objects       bytes\n";
    for (const idb_MementoSummary::Class& one : memento.classes)
        out << std::left << std::setw(names) << bat_PlainText(Text(one.name)) << "  " << std::right
            << std::setw(7) << one.version << "  " << std::left << std::setw(parents)
            << bat_PlainText(Text(one.parent)) << std::right << "  " << std::setw(7) << one.objects << "  "
            << std::setw(10) << one.bytes << '\n';
}
}

const char* bat_MementoCommand::Summary() const
{
    return "list what a stored session holds";
}

const char* bat_MementoCommand::Footer() const
{
    return "A memento is the file that orvex.save writes in Python. Listed are its named objects, and of "
           "each\n"
           "class its version, its parent, and number and bytes of the objects of this very class. A class\n"
           "without objects is the parent of others.\n"
           "\n"
           "Exit codes: 0 listed, 2 wrong command line, 3 the file cannot be read, is damaged or no "
           "memento,\n"
           "5 internal fault\n"
           "\n"
           "Examples:\n"
           "  orvex memento session.oxm\n"
           "  orvex memento session.oxm --json";
}

void bat_MementoCommand::Declare(bat_OptionSet& options)
{
    options.Value("FILE", file_, "the memento", {.required = true, .isFile = true});
    options.Flag("--json", json_, "print one line of JSON");
}

bat_ExitCode bat_MementoCommand::Run(const bat_Console& console)
{
    bat_ConsoleReporter reporter(console, bat_ConsoleReporter::Progress::NONE, true);
    const bat_Session session(reporter);
    const idb_MementoSummary memento = Read(file_);
    if (json_)
        console.out << bat_JsonText(AsJson(file_, memento)) << '\n';
    else
        Print(console.out, file_, memento);
    return bat_ExitCode::DONE;
}
