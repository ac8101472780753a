#include <bat_ColorCommand.h>
#include <bat_Console.h>
#include <bat_ConsoleReporter.h>
#include <bat_InputError.h>
#include <bat_JsonText.h>
#include <bat_NearestNames.h>
#include <bat_Number.h>
#include <bat_OptionSet.h>
#include <bat_PlainText.h>
#include <bat_Session.h>
#include <bat_UsageError.h>
#include <charconv>
#include <g3d_ColorErrorException.h>
#include <g3d_ColorMap.h>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>

namespace
{
using Json = nlohmann::ordered_json;
using Triple = std::array<double, 3>;

constexpr const char* SCHEMA = "orvex.color/1";

/// The double with the float's shortest text, so that nothing is printed that the float does not hold.
double Shortest(float value)
{
    char text[32];
    const std::to_chars_result end = std::to_chars(text, text + sizeof text, value);
    double number = 0.0;
    std::from_chars(text, end.ptr, number);
    return number;
}

/// A colour as people and programs are told of it.
struct Shown
{
    Shown(const std::string& called, const g3d_Color& color)
        : name(called), rgb{Shortest(color.Red()), Shortest(color.Green()), Shortest(color.Blue())}
    {
        float h = 0.0f;
        float s = 0.0f;
        float v = 0.0f;
        color.GetHSV(h, s, v);
        hsv = {Shortest(h), Shortest(s), Shortest(v)};
        const unsigned packed = color.GetRGBA();
        for (std::size_t k = 0; k < bytes.size(); ++k)
            bytes[k] = packed >> (24 - 8 * k) & 0xFF;
    }

    std::string Hex() const
    {
        std::ostringstream text;
        text << '#' << std::hex << std::uppercase << std::setfill('0');
        for (const unsigned byte : bytes)
            text << std::setw(2) << byte;
        return text.str();
    }
    /// A patch of the colour on a terminal that shows it, else nothing.
    std::string Swatch(const bat_Console& console) const
    {
        if (!console.outHasColor)
            return {};
        return "\033[48;2;" + std::to_string(bytes[0]) + ";" + std::to_string(bytes[1]) + ";" +
               std::to_string(bytes[2]) + "m      \033[0m ";
    }

    std::string name;
    Triple rgb;
    Triple hsv{};
    std::array<unsigned, 3> bytes{};
};

std::string Text(const Triple& values)
{
    return bat_NumberText(values[0]) + ", " + bat_NumberText(values[1]) + ", " + bat_NumberText(values[2]);
}

void Print(const Shown& color, const bat_Console& console)
{
    console.out << "name      " << color.Swatch(console) << bat_PlainText(color.name) << "\nhex       "
                << color.Hex() << "\nrgb       " << Text(color.rgb) << "\nbytes     " << color.bytes[0]
                << ", " << color.bytes[1] << ", " << color.bytes[2] << "\nhsv       " << Text(color.hsv)
                << '\n';
}

/// " Did you mean ...?" with the names that are spelt nearly so; empty where there is none.
std::string Hint(const std::string& unknown)
{
    bat_NearestNames nearest(unknown);
    for (const cow_String& key : g3d_ColorMap::Instance().Keys())
        nearest.Offer(std::string(key.View()));
    return nearest.Hint();
}

Shown Find(const std::string& name)
{
    try
    {
        return Shown(name, g3d_ColorMap::Instance().ConstGet(cow_String(std::string_view(name))));
    }
    catch (const g3d_ColorErrorException& error)
    {
        throw bat_InputError(error.what() + Hint(name));
    }
}

bool IsOddHex(const std::string& name)
{
    return name.starts_with('#') &&
           (name.size() != 7 || name.find_first_not_of("0123456789abcdefABCDEF", 1) != std::string::npos);
}
}

const char* bat_ColorCommand::Summary() const
{
    return "tell what a colour is made of, or list the colours that have names";
}

const char* bat_ColorCommand::Footer() const
{
    return "rgb and hsv (hue, saturation, value) go from 0 to 1, bytes from 0 to 255. Names are compared\n"
           "exactly, capital letters included; a name of two words needs no quotes.\n"
           "\n"
           "Exit codes: 0 shown, 2 wrong command line, 3 no such colour, 5 internal fault\n"
           "\n"
           "Examples, to be run as they stand:\n"
           "  orvex color Sky blue\n"
           "  orvex color '#FF8000' --json\n"
           "  orvex color --list";
}

void bat_ColorCommand::Declare(bat_OptionSet& options)
{
    options.Values("NAME", words_, "the name of a colour, or #RRGGBB, hexadecimal", {});
    options.Flag("--list", list_, "list all colours that have a name");
    options.Flag("--json", json_, "print one line of JSON");
}

bat_ExitCode bat_ColorCommand::Run(const bat_Console& console)
{
    if (list_ == !words_.empty())
        throw bat_UsageError(list_ ? "--list takes no name" : "a name or --list is required");
    bat_ConsoleReporter reporter(console, bat_ConsoleReporter::Progress::NONE, true);
    const bat_Session session(reporter);
    std::vector<Shown> colors;
    if (list_)
        for (const cow_String& key : g3d_ColorMap::Instance().Keys())
            colors.push_back(Find(std::string(key.View())));
    else
    {
        std::string name = words_.front();
        for (std::size_t i = 1; i < words_.size(); ++i)
            name += " " + words_[i];
        if (IsOddHex(name))
            reporter.Warning(
                atr_String((name + " is not # and six hexadecimal digits: read as far as it goes").c_str()));
        colors.push_back(Find(name));
    }
    if (json_)
    {
        Json all = Json::array();
        for (const Shown& color : colors)
            all.push_back({{"name", color.name},
                           {"hex", color.Hex()},
                           {"rgb", color.rgb},
                           {"bytes", color.bytes},
                           {"hsv", color.hsv}});
        const Json json = {{"schema", SCHEMA}, {"colors", all}};
        console.out << bat_JsonText(json) << '\n';
    }
    else if (list_)
        for (const Shown& color : colors)
            console.out << color.Swatch(console) << color.Hex() << "  " << color.name << '\n';
    else
        Print(colors.front(), console);
    return bat_ExitCode::DONE;
}
