#include <bat_MeshPicture.h>
#include <bat_PictureFile.h>

#ifdef ORVEX_WITH_VIEWER

#include <algorithm>
#include <annC_AnnotationContainer.h>
#include <annC_NamedAnchor.h>
#include <annC_Text.h>
#include <array>
#include <bat_InputError.h>
#include <bat_MeshHealth.h>
#include <bat_MeshText.h>
#include <bat_Number.h>
#include <bat_Part.h>
#include <bat_Task.h>
#include <limits>
#include <memory>
#include <vwr_Scene.h>
#include <vwr_Viewport.h>

namespace
{
// From bad to good: the spectral scheme of C. A. Brewer ("ColorBrewer", 2002).
constexpr std::array<const char*, bat_MeshHealth::CLASSES> COLORS = {
    "#9E0142", "#D53E4F", "#F46D43", "#FDAE61", "#FEE08B",
    "#E6F598", "#ABDDA4", "#66C2A5", "#3288BD", "#5E4FA2"};
/// On these a text must be white.
bool IsDark(std::size_t number)
{
    return number <= 1 || number >= 8;
}

// In millimetres on the picture.
constexpr double MARGIN = 4.0;
constexpr double ROW = 7.4;
constexpr double SHARES = 21.0; // from the right border to the shares of the classes
constexpr double LEGEND = 46.0; // from the right border to the mesh

annC_AnchorCow At(annC_RelativePositionEnm position)
{
    return annC_AnchorCow(new annC_NamedAnchor(position));
}

g3d_Color ColorOf(std::size_t number)
{
    const unsigned value = static_cast<unsigned>(std::stoul(COLORS[number] + 1, nullptr, 16));
    const auto channel = [value](int shift) { return static_cast<float>(value >> shift & 255) / 255.0f; };
    return {channel(16), channel(8), channel(0)};
}

vwr_Part Drawn(const g3d_Color& color, bool shaded)
{
    vwr_Part part;
    part.color = color;
    part.shaded = shaded;
    part.edges = !shaded;
    return part;
}

void AddTriangle(vwr_Part& drawn, const gsl_Point& a, const gsl_Point& b, const gsl_Point& c)
{
    const int first = static_cast<int>(drawn.points.size());
    for (const gsl_Point* p : {&a, &b, &c})
        drawn.points.push_back(*p);
    drawn.triangles.push_back({first, first + 1, first + 2});
}

/// Edges as triangles without an area, which show as the edges of an open surface do.
vwr_Part DrawnEdges(const bat_MeshHealth& health, const std::vector<std::array<std::uint32_t, 2>>& edges,
                    g3d_PresetColorEnum color)
{
    vwr_Part drawn = Drawn(g3d_Color(color), false);
    for (const auto& [from, to] : edges)
    {
        const auto& a = health.points[from];
        const auto& b = health.points[to];
        const auto middle = [&](std::size_t k) { return 0.5 * a[k] + 0.5 * b[k]; };
        AddTriangle(drawn, gsl_Point(a.data()), gsl_Point(b.data()),
                    gsl_Point(middle(0), middle(1), middle(2)));
    }
    return drawn;
}

std::unique_ptr<annC_Text> NewText(const std::string& text, annC_RelativePositionEnm corner, double right,
                                   double up)
{
    auto made = std::make_unique<annC_Text>();
    made->text = cow_String(std::string_view(text));
    made->color = "Black";
    made->anchor = At(corner);
    made->referencePoint = At(corner);
    made->offsetX = right;
    made->offsetY = up;
    return made;
}

std::string Share(std::size_t count, std::size_t all)
{
    const std::size_t thousandths = (1000 * count + all / 2) / all;
    if (count > 0 && thousandths == 0)
        return "< 0.1 %";
    return std::to_string(thousandths / 10) + "." + std::to_string(thousandths % 10) + " %";
}

/// In lines for which the picture is wide enough.
std::string Wrapped(std::string text)
{
    constexpr std::size_t LINE = 95;
    for (std::size_t start = 0; text.size() - start > LINE;)
    {
        const std::size_t comma = text.rfind(", ", start + LINE);
        if (comma == std::string::npos || comma < start)
            break;
        text[comma + 1] = '\n';
        start = comma + 2;
    }
    return text;
}

/// The best class on top.
void InsertLegend(annC_AnnotationContainer& annotations, const bat_MeshHealth& health)
{
    using Position = annC_RelativePositionEnm;
    double up = -MARGIN;
    annotations.Insert("Shape factors",
                       NewText("Shape factors", Position::TOP_RIGHT, -MARGIN, -MARGIN).release());
    for (std::size_t i = bat_MeshHealth::CLASSES; i-- > 0;)
    {
        up -= ROW;
        const std::string name = bat_MeshClassText(i);
        auto label = NewText(name, Position::TOP_RIGHT, -MARGIN - SHARES, up);
        label->color = IsDark(i) ? "White" : "Black";
        label->backgroundStyle = annC_BackgroundStyleEnm::OTHER;
        label->backgroundColor = COLORS[i];
        label->box = true;
        annotations.Insert(cow_String(std::string_view(name)), label.release());
        auto share =
            NewText(Share(health.histogram[i], health.triangles.size()), Position::TOP_RIGHT, -MARGIN, up);
        share->backgroundStyle = annC_BackgroundStyleEnm::MATCH;
        annotations.Insert(cow_String(std::string_view("Share of " + name)), share.release());
    }
}
}

void bat_MeshPicture::Save(const std::string& path) const
{
    // Three edges of a triangle, drawn by three points each.
    if (part_.Count() > std::numeric_limits<int>::max() / 9)
        throw bat_InputError(part_.File() + ": too many triangles for a picture");
    vwr_Scene scene;
    scene.view = vwr_View::Isometric();
    scene.background = g3d_Color(g3d_White);
    bat_Task task(watcher_, 0, 1);
    scene.proceed = [&task] { task.Step(); };
    scene.freeAtRight = LEGEND * vwr_Viewport::PIXELS_PER_MM;
    for (std::size_t i = 0; i < bat_MeshHealth::CLASSES; ++i)
        scene.parts.push_back(Drawn(ColorOf(i), true));
    // Behind all classes: of equally near triangles the first is seen, of this one the edges alone.
    vwr_Part edges = Drawn(g3d_Color(g3d_Grey30), false);
    for (const std::array<double, 3>& point : health_.points)
        edges.points.emplace_back(point.data());
    for (int i = 0; i < part_.Count(); ++i)
    {
        const auto at = static_cast<std::size_t>(i);
        gsl_Point p[3];
        part_.Points(i, p[0], p[1], p[2]);
        AddTriangle(scene.parts[bat_MeshHealth::ClassOf(health_.factors[at])], p[0], p[1], p[2]);
        const auto& [a, b, c] = health_.triangles[at];
        edges.triangles.push_back({static_cast<int>(a), static_cast<int>(b), static_cast<int>(c)});
    }
    scene.parts.push_back(std::move(edges));
    scene.parts.push_back(DrawnEdges(health_, health_.misturnedEdges, g3d_Blue));
    scene.parts.push_back(DrawnEdges(health_, health_.crowdedEdges, g3d_Magenta));
    scene.parts.push_back(DrawnEdges(health_, health_.openEdges, g3d_Red));

    annC_AnnotationContainer annotations;
    InsertLegend(annotations, health_);
    annotations.Insert("Verdict", NewText(Wrapped(bat_MeshVerdict(health_)) + "\n" +
                                              bat_CountText(health_.triangles.size()) + " triangles, " +
                                              bat_CountText(health_.points.size()) + " points",
                                          annC_RelativePositionEnm::BOTTOM_LEFT, MARGIN, MARGIN)
                                      .release());
    scene.annotations = &annotations;
    bat_PictureFile::Save(path, scene);
}

#else

void bat_MeshPicture::Save(const std::string& path) const
{
    bat_PictureFile::RequirePlace(path);
}

#endif
