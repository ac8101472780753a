#include <annC_Arrow.h>
#include <annC_NamedAnchor.h>
#include <annC_Point3DAnchor.h>
#include <annC_Text.h>
#include <annC_ViewportAnchor.h>
#include <vwr_ContactSheet.h>

#include <array>
#include <cmath>
#include <numbers>

namespace
{
constexpr std::array THICKNESSES = {annC_LineThicknessEnm::VERY_THIN, annC_LineThicknessEnm::THIN,
                                    annC_LineThicknessEnm::MEDIUM, annC_LineThicknessEnm::THICK};
constexpr const char* BOLD = "-*-helvetica-bold-r-normal-*-*-120-";

template <class E>
std::string NameOf(E value)
{
    return std::string(omu_PrimEnum<E, 1>(value).AsString(0).View());
}

annC_AnchorCow At(double x, double y)
{
    return annC_AnchorCow(new annC_ViewportAnchor(x, y));
}

annC_Arrow Arrow(double x0, double y0, double x1, double y1)
{
    annC_Arrow arrow;
    arrow.startPointX = x0;
    arrow.startPointY = y0;
    arrow.endPointX = x1;
    arrow.endPointY = y1;
    return arrow;
}

annC_Text Text(double x, double y, const std::string& words)
{
    annC_Text text;
    text.offsetX = x;
    text.offsetY = y;
    text.text = cow_String(std::string_view(words));
    return text;
}

vwr_Part Box(const gsl_Point& low, double dx, double dy, double dz, const g3d_Color& color)
{
    vwr_Part part;
    part.color = color;
    for (int i = 0; i < 8; ++i)
        part.points.emplace_back(low.X() + (i & 1) * dx, low.Y() + (i >> 1 & 1) * dy,
                                 low.Z() + (i >> 2) * dz);
    part.triangles = {{0, 2, 1}, {1, 2, 3}, {4, 5, 6}, {5, 7, 6}, {0, 1, 4}, {1, 5, 4},
                      {2, 6, 3}, {3, 6, 7}, {0, 4, 2}, {2, 4, 6}, {1, 3, 5}, {3, 7, 5}};
    return part;
}

// Upright, without ends where it is open.
vwr_Part Cylinder(const gsl_Point& foot, double radius, double height, bool open, const g3d_Color& color)
{
    constexpr int SIDES = 32;
    vwr_Part part;
    part.color = color;
    for (int i = 0; i < SIDES; ++i)
    {
        const double angle = 2.0 * std::numbers::pi * i / SIDES;
        for (const double z : {0.0, height})
            part.points.push_back(foot + gsl_Vector(radius * std::cos(angle), radius * std::sin(angle), z));
        const int a = 2 * i;
        const int b = 2 * ((i + 1) % SIDES);
        part.triangles.push_back({a, b, a + 1});
        part.triangles.push_back({b, b + 1, a + 1});
        if (!open && i > 1)
        {
            part.triangles.push_back({0, a, a - 2});
            part.triangles.push_back({1, a - 1, a + 1});
        }
    }
    return part;
}
}

const std::vector<std::string>& vwr_ContactSheet::Names()
{
    static const std::vector<std::string> names = {"heads", "lines", "texts", "anchors", "stacking", "parts"};
    return names;
}

vwr_ContactSheet::vwr_ContactSheet(const std::string& name)
{
    using Fill = void (vwr_ContactSheet::*)();
    constexpr Fill FILLS[] = {&vwr_ContactSheet::Heads,    &vwr_ContactSheet::Lines,
                              &vwr_ContactSheet::Texts,    &vwr_ContactSheet::Anchors,
                              &vwr_ContactSheet::Stacking, &vwr_ContactSheet::Parts};
    scene_.background = g3d_Color(0.1f, 0.13f, 0.2f);
    for (std::size_t i = 0; i < Names().size(); ++i)
        if (Names()[i] == name)
            (this->*FILLS[i])();
}

vwr_Scene vwr_ContactSheet::Scene() const
{
    vwr_Scene scene = scene_;
    scene.annotations = &annotations_;
    return scene;
}

void vwr_ContactSheet::Add(const annC_Annotation& annotation)
{
    annotations_.Insert(cow_String(std::string_view(std::to_string(annotations_.Size()))), annotation);
}

void vwr_ContactSheet::Label(double x, double y, const std::string& text)
{
    annC_Text label = Text(x, y, text);
    label.referencePoint = annC_AnchorCow(new annC_NamedAnchor(annC_RelativePositionEnm::CENTER_LEFT));
    label.color = "Grey80";
    Add(label);
}

void vwr_ContactSheet::Heads()
{
    for (int style = 0; style <= 8; ++style)
    {
        const auto head = static_cast<annC_ArrowHeadStyleEnm>(style);
        const double y = 145.0 - 15.0 * style;
        Label(5.0, y, NameOf(head));
        double x = 55.0;
        for (const annC_LineThicknessEnm thickness : THICKNESSES)
        {
            annC_Arrow arrow = Arrow(x, y - 4.0, x + 24.0, y + 4.0);
            arrow.startHeadStyle = arrow.endHeadStyle = head;
            arrow.lineThickness = thickness;
            arrow.color = "Yellow";
            Add(arrow);
            x += 38.0;
        }
    }
    // A cross where circles, diamonds and squares have their middle and arrows their tip.
    for (int style = 0; style <= 8; ++style)
    {
        const double x = 55.0 + 24.0;
        const double y = 145.0 - 15.0 * style + 4.0;
        for (const auto& [dx, dy] : {std::array{3.5, 0.0}, std::array{0.0, 3.5}})
        {
            annC_Arrow cross = Arrow(x - dx, y - dy, x + dx, y + dy);
            cross.endHeadStyle = annC_ArrowHeadStyleEnm::NONE;
            cross.color = "Red";
            Add(cross);
        }
    }
}

void vwr_ContactSheet::Lines()
{
    double y = 148.0;
    for (int style = 0; style <= 4; ++style)
        for (const annC_LineThicknessEnm thickness : THICKNESSES)
        {
            annC_Arrow arrow = Arrow(75.0, y, 200.0, y);
            arrow.lineStyle = static_cast<annC_LineStyleEnm>(style);
            arrow.lineThickness = thickness;
            Label(5.0, y, NameOf(arrow.lineStyle) + ", " + NameOf(thickness));
            Add(arrow);
            y -= 7.3;
        }
}

void vwr_ContactSheet::Texts()
{
    double y = 150.0;
    for (const char* const font :
         {"-*-helvetica-medium-r-normal-*-*-120-", "-*-helvetica-bold-r-normal-*-*-120-",
          "-*-times-medium-i-normal-*-*-140-", "-*-courier-medium-r-normal-*-12-*-",
          "-*-courier-bold-o-normal-*-24-*-", "-*-helvetica-medium-r-normal-*-*-60-", "not a description"})
    {
        annC_Text text = Text(5.0, y, std::string("Contact ä 12.5 µm  ") + font);
        text.font = font;
        Add(text);
        y -= 9.0;
    }
    double x = 5.0;
    for (int side = 0; side <= 2; ++side)
    {
        annC_Text text =
            Text(x, 55.0, NameOf(static_cast<annC_JustificationEnm>(side)) + "\nof three lines\nin a box");
        text.justification = static_cast<annC_JustificationEnm>(side);
        text.box = true;
        text.color = "Gold";
        Add(text);
        x += 40.0;
    }
    x = 5.0;
    for (int style = 0; style <= 2; ++style)
        for (const bool box : {false, true})
        {
            annC_Arrow behind = Arrow(x - 2.0, 40.0, x + 33.0, 40.0);
            behind.lineThickness = annC_LineThicknessEnm::MEDIUM;
            behind.color = "Red";
            Add(behind);
            annC_Text text = Text(x, 37.0, NameOf(static_cast<annC_BackgroundStyleEnm>(style)));
            text.backgroundStyle = static_cast<annC_BackgroundStyleEnm>(style);
            text.backgroundColor = "Blue";
            text.box = box;
            Add(text);
            x += 34.0;
        }
    for (int turn = 0; turn < 12; ++turn)
    {
        annC_Text text = Text(160.0, 68.0, "      turned " + std::to_string(30 * turn));
        text.rotationAngle = 30.0 * turn;
        text.referencePoint = annC_AnchorCow(new annC_NamedAnchor(annC_RelativePositionEnm::CENTER_LEFT));
        text.font = "-*-helvetica-medium-r-normal-*-*-80-";
        text.color = "Cyan";
        Add(text);
    }
    x = 5.0;
    for (const double angle : {0.0, 20.0, -20.0})
        for (int side = 0; side <= 2; ++side)
        {
            annC_Text text = Text(x, 14.0, "turned box\n" + std::to_string(static_cast<int>(angle)));
            text.rotationAngle = angle;
            text.justification = static_cast<annC_JustificationEnm>(side);
            text.box = true;
            text.backgroundStyle = annC_BackgroundStyleEnm::OTHER;
            text.backgroundColor = "Grey30";
            text.font = "-*-helvetica-medium-r-normal-*-*-80-";
            Add(text);
            x += 23.0;
        }
}

void vwr_ContactSheet::Anchors()
{
    for (int position = 0; position <= 8; ++position)
    {
        const auto where = static_cast<annC_RelativePositionEnm>(position);
        annC_Text text = Text(0.0, 0.0, NameOf(where));
        text.anchor = text.referencePoint = annC_AnchorCow(new annC_NamedAnchor(where));
        text.box = true;
        Add(text);
    }
    for (int percent = 10; percent <= 90; percent += 10)
    {
        annC_Arrow mark;
        mark.startAnchor = mark.endAnchor = At(percent, percent);
        mark.endHeadStyle = annC_ArrowHeadStyleEnm::FILLED_CIRCLE;
        mark.color = "Orange";
        Add(mark);
        annC_Text text =
            Text(3.0, -3.0, "(" + std::to_string(percent) + ", " + std::to_string(percent) + ")");
        text.anchor = mark.startAnchor;
        text.referencePoint = annC_AnchorCow(new annC_NamedAnchor(annC_RelativePositionEnm::TOP_LEFT));
        text.color = "Orange";
        Add(text);
    }
    scene_.view = vwr_View::Isometric();
    scene_.parts = {Box({0.0, 0.0, 0.0}, 4.0, 3.0, 2.0, g3d_Color(0.35f, 0.45f, 0.6f))};
    scene_.parts[0].edges = true;
    for (const gsl_Point& corner : scene_.parts[0].points)
    {
        annC_Arrow arrow = Arrow(0.0, 14.0, 0.0, 0.0);
        arrow.startAnchor = arrow.endAnchor =
            annC_AnchorCow(new annC_Point3DAnchor(corner.X(), corner.Y(), corner.Z()));
        arrow.color = "Green";
        arrow.endGap = 1.0;
        Add(arrow);
    }
}

void vwr_ContactSheet::Stacking()
{
    constexpr std::array COLORS = {"Red", "Orange", "Yellow", "Green", "Cyan", "Blue", "Purple", "Grey50"};
    double at = 10.0;
    for (const char* const color : COLORS)
    {
        annC_Text text = Text(at, at, std::string(color) + "\nlies over all that came before");
        text.font = BOLD;
        text.color = "Black";
        text.backgroundStyle = annC_BackgroundStyleEnm::OTHER;
        text.backgroundColor = color;
        text.box = true;
        Add(text);
        at += 9.0;
    }
    for (int row = 0; row < 5; ++row)
    {
        const int gap = 6 * row;
        const double y = 145.0 - 8.0 * row;
        annC_Arrow arrow = Arrow(100.0, y, 200.0, y);
        arrow.startHeadStyle = annC_ArrowHeadStyleEnm::HOLLOW_CIRCLE;
        arrow.startGap = gap;
        arrow.endGap = 2 * gap;
        Label(60.0, y, "gaps " + std::to_string(gap) + ", " + std::to_string(2 * gap));
        Add(arrow);
    }
}

void vwr_ContactSheet::Parts()
{
    scene_.view = vwr_View::Isometric();
    double y = 0.0;
    for (const auto& [shaded, edges] :
         {std::array{true, false}, std::array{true, true}, std::array{false, true}})
    {
        std::array parts = {Box({0.0, y, 0.0}, 6.0, 4.0, 1.0, g3d_Color(0.3f, 0.6f, 0.9f)),
                            Cylinder({3.0, y + 2.0, 1.0}, 1.0, 2.5, false, g3d_Color(0.95f, 0.6f, 0.2f)),
                            Cylinder({5.0, y + 3.0, 1.0}, 0.6, 1.2, true, g3d_Color(0.5f, 0.8f, 0.4f))};
        for (vwr_Part& part : parts)
        {
            part.shaded = shaded;
            part.edges = edges;
            scene_.parts.push_back(part);
        }
        annC_Text label = Text(0.0, -4.0, shaded ? edges ? "shaded with edges" : "shaded" : "hidden lines");
        label.anchor = annC_AnchorCow(new annC_Point3DAnchor(6.0, y + 2.0, 0.0));
        label.referencePoint = annC_AnchorCow(new annC_NamedAnchor(annC_RelativePositionEnm::TOP_CENTER));
        Add(label);
        y += 6.0;
    }
}
