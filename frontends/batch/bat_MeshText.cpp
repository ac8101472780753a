#include <algorithm>
#include <bat_MeshHealth.h>
#include <bat_MeshText.h>
#include <bat_Number.h>
#include <bat_PlainText.h>
#include <cmath>

namespace
{
using Flaw = bat_MeshHealth::Flaw;

bool IsOfEdges(Flaw flaw)
{
    return flaw >= Flaw::OPEN;
}

std::string Line(std::string label, const std::string& text)
{
    constexpr std::size_t LABEL_COLUMNS = 14;
    label.resize(LABEL_COLUMNS, ' ');
    return label + text + "\n";
}

std::string Counted(std::size_t count, const std::string& what)
{
    return bat_CountText(count) + " " + what + (count == 1 ? "" : "s");
}

std::string Triple(const gsl_Point& p)
{
    return "(" + bat_ReadableText(p.X()) + ", " + bat_ReadableText(p.Y()) + ", " + bat_ReadableText(p.Z()) +
           ")";
}

/// Shape factors, and their shares, are told in few digits.
std::string Short(double value)
{
    constexpr double DIGITS = 1e4;
    if (value >= 1.0 / DIGITS)
        return bat_ReadableText(std::round(value * DIGITS) / DIGITS);
    char text[32];
    return {text, static_cast<std::size_t>(std::snprintf(text, sizeof text, "%.3g", value))};
}

std::string Points(const bat_MeshHealth& health)
{
    const double tolerance = health.question.tolerance;
    return bat_CountText(health.points.size()) + " of " + Counted(health.Corners(), "corner") + ", merged " +
           (tolerance > 0.0 ? "where closer than " + bat_ReadableText(tolerance) : "where equal");
}

std::string Surface(const bat_MeshHealth& health)
{
    if (!health.closed)
        return health.edges == 0 ? "none" : "open";
    if (!health.volume)
        return "closed, not turned alike";
    return health.IsInsideOut() ? "closed, turned inside out" : "closed, turned alike";
}

std::string Volume(const bat_MeshHealth& health)
{
    if (health.volume)
        return bat_ReadableText(*health.volume);
    return health.closed ? "none: which side is outside differs" : "none: the surface is not closed";
}

std::string Groups(const bat_MeshHealth& health)
{
    const std::vector<std::size_t> largest = health.LargestGroups();
    std::string text = bat_CountText(health.groupSizes.size());
    for (std::size_t i = 0; i < largest.size(); ++i)
        text += (i == 0 ? ": " : ", ") + bat_CountText(largest[i]);
    if (!largest.empty())
        text += largest.size() < health.groupSizes.size() ? ", ..." : "";
    const bool isOne = largest.size() == 1 && largest.front() == 1;
    return text + (largest.empty() ? "" : isOne ? " triangle" : " triangles");
}

std::string Histogram(const bat_MeshHealth& health)
{
    constexpr std::size_t BAR = 40;
    constexpr std::size_t COUNT_COLUMNS = 13;
    const std::size_t most = *std::max_element(health.histogram.begin(), health.histogram.end());
    std::string text;
    for (std::size_t i = 0; i < health.histogram.size(); ++i)
    {
        const std::size_t count = health.histogram[i];
        const std::string number = bat_CountText(count);
        // Whatever there is shows.
        const std::size_t marks = most == 0 ? 0 : (count * BAR + most - 1) / most;
        text += Line("", bat_MeshClassText(i) +
                             std::string(COUNT_COLUMNS - std::min(COUNT_COLUMNS, number.size()), ' ') +
                             number + (marks == 0 ? "" : "  " + std::string(marks, '#')));
    }
    return text;
}

std::string Worst(const bat_MeshHealth& health)
{
    std::string text;
    for (const bat_MeshHealth::Shape& shape : health.worst)
        text += (text.empty() ? "" : ", ") + std::to_string(shape.triangle) + ": " + Short(shape.factor);
    return text;
}

const char* Meaning(Flaw flaw)
{
    switch (flaw)
    {
    case Flaw::COINCIDENT:
        return "with corners that are one point";
    case Flaw::COLLINEAR:
        return "with corners on a line";
    case Flaw::OUT_OF_SCALE:
        return "too small or too large to be measured, another unit may help";
    case Flaw::SLIVER:
        break;
    case Flaw::DUPLICATE:
        return "with the same points as an earlier one";
    case Flaw::OPEN:
        return "of one triangle alone";
    case Flaw::NON_MANIFOLD:
        return "of more than two triangles";
    default:
        return "along which two triangles run the same way";
    }
    return "with a shape factor below ";
}

std::string Found(const bat_MeshHealth& health, Flaw flaw)
{
    const bat_MeshHealth::Finding& finding = health.findings[flaw];
    const bool isEdge = IsOfEdges(flaw);
    std::string text = Counted(finding.count, isEdge ? "edge" : "triangle") + " " + Meaning(flaw);
    if (flaw == Flaw::SLIVER)
        text += bat_ReadableText(health.question.sliver);
    for (std::size_t i = 0; i < finding.triangles.size(); ++i)
        text += (i > 0 ? ", " : isEdge ? ": at triangles " : ": ") + std::to_string(finding.triangles[i]);
    return text + (finding.hasMore && !finding.triangles.empty() ? ", ..." : "");
}
}

std::string bat_MeshVerdict(const bat_MeshHealth& health)
{
    std::string text;
    const auto add = [&text](const std::string& what) { text += (text.empty() ? "" : ", ") + what; };
    for (std::size_t i = 0; i < bat_MeshHealth::FLAWS; ++i)
    {
        const auto flaw = static_cast<Flaw>(i);
        if (health.Hinders(flaw))
            add(Counted(health.findings[i].count,
                        std::string(bat_MeshHealth::Name(flaw)) + (IsOfEdges(flaw) ? " edge" : " triangle")));
    }
    if (health.IsInsideOut())
        add("inside out");
    return text.empty() ? "fit for use" : "not fit for use: " + text;
}

std::string bat_MeshClassText(std::size_t number)
{
    constexpr std::size_t LAST = bat_MeshHealth::CLASSES - 1;
    return "0." + std::to_string(number) + " to " +
           (number == LAST ? "1.0" : "0." + std::to_string(number + 1));
}

std::string bat_MeshText(const bat_MeshHealth& health)
{
    const gsl_BBox& box = health.box;
    std::string text = Line("file", bat_PlainText(health.file)) +
                       Line("triangles", bat_CountText(health.triangles.size())) +
                       Line("points", Points(health)) + Line("edges", bat_CountText(health.edges)) +
                       Line("groups", Groups(health)) +
                       Line("size", bat_ReadableText(box.XLen()) + " x " + bat_ReadableText(box.YLen()) +
                                        " x " + bat_ReadableText(box.ZLen()) + " from " + Triple(box.Low()) +
                                        " to " + Triple(box.High())) +
                       Line("surface", Surface(health)) + Line("area", bat_ReadableText(health.area)) +
                       Line("volume", Volume(health)) +
                       Line("shape factors", "mean " + Short(health.meanFactor)) + Histogram(health);
    if (!health.worst.empty())
        text += Line("worst", "triangles " + Worst(health));
    for (std::size_t i = 0; i < bat_MeshHealth::FLAWS; ++i)
    {
        const auto flaw = static_cast<Flaw>(i);
        if (health.findings[i].count > 0)
            text += Line(bat_MeshHealth::Name(flaw), Found(health, flaw));
    }
    return text + Line("verdict", bat_MeshVerdict(health));
}
