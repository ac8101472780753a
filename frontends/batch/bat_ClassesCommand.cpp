#include <algorithm>
#include <bat_ClassTree.h>
#include <bat_ClassesCommand.h>
#include <bat_CodeName.h>
#include <bat_Console.h>
#include <bat_ConsoleReporter.h>
#include <bat_JsonText.h>
#include <bat_OptionSet.h>
#include <bat_Session.h>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>

namespace
{
using Json = nlohmann::ordered_json;

constexpr const char* SCHEMA = "orvex.classes/1";
constexpr int INDENT = 2;

template <class Code>
std::string CodeText(unsigned number)
{
    const char* name = bat_CodeName(static_cast<Code>(number));
    return name != nullptr ? name : std::to_string(number);
}

std::string TypeText(const bat_ClassTree::Attribute& attribute)
{
    return CodeText<cls_AttributeType>(attribute.type);
}

std::string CollectionText(const bat_ClassTree::Attribute& attribute)
{
    return CodeText<cls_CollectionType>(attribute.collection);
}

std::string Hexadecimal(unsigned typeId)
{
    std::ostringstream text;
    text << "0x" << std::hex << std::uppercase << std::setfill('0') << std::setw(8) << typeId;
    return text.str();
}

Json OrNull(const std::string& text)
{
    return text.empty() ? Json() : Json(text);
}

Json AsJson(const bat_ClassTree& tree)
{
    Json classes = Json::array();
    for (const bat_ClassTree::Class& one : tree.Classes())
    {
        Json attributes = Json::array();
        for (const bat_ClassTree::Attribute& attribute : one.attributes)
            attributes.push_back({{"name", attribute.name},
                                  {"type", TypeText(attribute)},
                                  {"typeCode", attribute.type},
                                  {"class", OrNull(attribute.className)},
                                  {"collection", CollectionText(attribute)},
                                  {"collectionCode", attribute.collection}});
        classes.push_back({{"name", one.name},
                           {"tableName", one.tableName.empty() ? one.name : one.tableName},
                           {"type", one.typeId},
                           {"version", one.version},
                           {"kind", bat_ClassTree::NameOf(one.kind)},
                           {"parent", OrNull(one.parent)},
                           {"depth", one.depth},
                           {"attributes", attributes}});
    }
    const int asked = tree.Asked();
    return {{"schema", SCHEMA},
            {"asked", asked < 0 ? Json() : Json(tree.Classes()[static_cast<std::size_t>(asked)].name)},
            {"classes", classes}};
}

void Print(std::ostream& out, const bat_ClassTree& tree, bool brief)
{
    std::size_t width = 0;
    for (const bat_ClassTree::Class& one : tree.Classes())
        width = std::max(width, one.name.size() + static_cast<std::size_t>(INDENT * one.depth));
    int place = 0;
    for (const bat_ClassTree::Class& one : tree.Classes())
    {
        const std::string indent(static_cast<std::size_t>(INDENT * one.depth), ' ');
        const bool isAsked = place++ == tree.Asked();
        out << (isAsked ? "> " : "  ") << std::left << std::setw(static_cast<int>(width)) << indent + one.name
            << "  " << Hexadecimal(one.typeId) << "  " << std::right << std::setw(4) << one.version << "  "
            << bat_ClassTree::NameOf(one.kind);
        if (!one.tableName.empty())
            out << ", in its table " << one.tableName;
        out << '\n';
        if (brief)
            continue;
        for (const bat_ClassTree::Attribute& attribute : one.attributes)
        {
            out << indent << "      ." << attribute.name << "  " << TypeText(attribute) << ' '
                << attribute.type;
            if (attribute.collection != static_cast<unsigned>(cls_CollectionType::SINGLE))
                out << ", " << CollectionText(attribute) << ' ' << attribute.collection;
            if (!attribute.className.empty())
                out << ", " << attribute.className;
            out << '\n';
        }
    }
}
}

const char* bat_ClassesCommand::Summary() const
{
    return "list the classes that the library registers, and their attributes";
}

const char* bat_ClassesCommand::Footer() const
{
    return "Of each class: its name, type id, the release of its layout, and its kind: concrete (created "
           "when\n"
           "it is read), abstract (only its descendants are), embedded (registered, yet not created by type\n"
           "id). Of each attribute: its name, the code of its type, the code of its collection where it is\n"
           "one, the class of what it holds.\n"
           "With NAME that class is marked, its ancestors stand before and its descendants behind it. A\n"
           "class that goes by one name in its component's table and by another in mementos is found by\n"
           "both.\n"
           "\n"
           "Exit codes: 0 listed, 2 wrong command line, 3 no such class, 5 internal fault\n"
           "\n"
           "Examples, to be run as they stand:\n"
           "  orvex classes --brief\n"
           "  orvex classes annC_Annotation\n"
           "  orvex classes omu_PrimEnumBase --json";
}

void bat_ClassesCommand::Declare(bat_OptionSet& options)
{
    options.Value("NAME", name_, "a class, with its ancestors and descendants (all)", {});
    options.Flag("--brief", brief_, "leave the attributes out");
    options.Flag("--json", json_, "print one line of JSON, attributes included");
}

bat_ExitCode bat_ClassesCommand::Run(const bat_Console& console)
{
    bat_ConsoleReporter reporter(console, bat_ConsoleReporter::Progress::NONE, true);
    const bat_Session session(reporter);
    const bat_ClassTree tree = name_.empty() ? bat_ClassTree::All() : bat_ClassTree::Around(name_);
    if (json_)
        console.out << bat_JsonText(AsJson(tree)) << '\n';
    else
        Print(console.out, tree, brief_);
    return bat_ExitCode::DONE;
}
