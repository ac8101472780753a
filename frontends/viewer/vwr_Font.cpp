#include <vwr_CleanText.h>
#include <vwr_Font.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace
{
enum Field { FOUNDRY, FAMILY, WEIGHT, SLANT, WIDTH, STYLE, PIXELS, DECIPOINTS, FIELDS };

constexpr double PIXELS_PER_DECIPOINT = 96.0 / 720.0;

struct Alias
{
    std::string_view name;
    std::string_view family;
};

constexpr Alias ALIASES[] = {
    {"helvetica", "Liberation Sans"},        {"arial", "Liberation Sans"},
    {"lucida", "Liberation Sans"},           {"times", "Liberation Serif"},
    {"times new roman", "Liberation Serif"}, {"courier", "Liberation Mono"},
    {"courier new", "Liberation Mono"},      {"fixed", "Liberation Mono"},
    {"lucidatypewriter", "Liberation Mono"},
};

std::string Lower(std::string_view text)
{
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return lower;
}

bool IsOpen(std::string_view field)
{
    return field.empty() || field.find_first_of("*?") != std::string_view::npos;
}

std::string FamilyOf(std::string_view field)
{
    if (IsOpen(field))
        return vwr_Font().family;
    const std::string name = Lower(field);
    for (const Alias& alias : ALIASES)
        if (alias.name == name)
            return std::string(alias.family);
    // As given: who asks for a font that is installed gets it. Quotes and commas would end a name in a list.
    std::string family = vwr_CleanText(field);
    std::erase_if(family, [](char c) { return c == '\'' || c == '"' || c == ',' || c == ';'; });
    return family.empty() ? vwr_Font().family : family;
}

// A positive number and nothing else; 0 for anything else.
double Positive(std::string_view field)
{
    double value = 0.0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value);
    const bool whole = error == std::errc() && end == field.data() + field.size();
    return whole && value > 0.0 && std::isfinite(value) ? value : 0.0;
}
}

vwr_Font vwr_Font::OfDescription(std::string_view description)
{
    vwr_Font font;
    if (description.empty() || description[0] != '-')
        return font;
    std::array<std::string_view, FIELDS> fields;
    for (std::string_view& field : fields)
    {
        if (description.empty())
            break;
        description.remove_prefix(1);
        field = description.substr(0, description.find('-'));
        description.remove_prefix(field.size());
    }
    font.family = FamilyOf(fields[FAMILY]);
    const std::string weight = Lower(fields[WEIGHT]);
    font.bold = weight == "bold" || weight == "demibold" || weight == "demi" || weight == "semibold" ||
                weight == "black";
    const std::string slant = Lower(fields[SLANT]);
    font.italic = slant == "i" || slant == "o";
    if (const double pixels = Positive(fields[PIXELS]); pixels > 0.0)
        font.size = pixels;
    else if (const double decipoints = Positive(fields[DECIPOINTS]); decipoints > 0.0)
        font.size = decipoints * PIXELS_PER_DECIPOINT;
    font.size = std::clamp(font.size, SMALLEST_SIZE, LARGEST_SIZE);
    return font;
}
