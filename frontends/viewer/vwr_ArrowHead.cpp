#include <vwr_ArrowHead.h>
#include <vwr_Canvas.h>

#include <algorithm>
#include <array>

using Style = annC_ArrowHeadStyleEnm;

namespace
{
// Half the breadth of the arrow styles at their back, in sizes.
constexpr double HALF_BREADTH = 0.36;
// Half a diamond along the line and across it, in sizes.
constexpr double HALF_LENGTH = 0.55;
constexpr double HALF_WIDTH = 0.36;
// The outline of a hollow head is as broad as the line, up to this many pixels, so that it stays hollow.
constexpr double BROADEST_OUTLINE = 3.0;
// The line of a filled arrow ends this far before its tip, in sizes: inside, before it is broader than the
// head.
constexpr double FILLED_SETBACK = 0.8;
}

vwr_ArrowHead::vwr_ArrowHead(Style style, double width)
    : style_(style), width_(width), outline_(std::min(width, BROADEST_OUTLINE)), size_(9.0 + 3.0 * width)
{}

// The corner of a stroke of this width stands out this far beyond the corner of its path.
double vwr_ArrowHead::TipBehindMitre() const
{
    return 0.5 * width_ * std::hypot(1.0, HALF_BREADTH) / HALF_BREADTH;
}

// The size of a diamond with its sides moved inwards, which shortens both diagonals alike.
double vwr_ArrowHead::Shrunk(double inset) const
{
    return size_ - inset * std::hypot(1.0 / HALF_LENGTH, 1.0 / HALF_WIDTH);
}

double vwr_ArrowHead::Setback() const
{
    switch (style_)
    {
    case Style::ARROW:
        return TipBehindMitre();
    case Style::FILLED_ARROW:
        return FILLED_SETBACK * size_;
    case Style::HOLLOW_CIRCLE:
    case Style::HOLLOW_SQUARE:
        return HalfDiameter() - 0.5 * outline_;
    case Style::HOLLOW_DIAMOND:
        return HALF_LENGTH * Shrunk(outline_); // the inner corner
    case Style::FILLED_CIRCLE:
    case Style::FILLED_DIAMOND:
    case Style::FILLED_SQUARE:
    case Style::NONE:
        break;
    }
    return 0.0;
}

void vwr_ArrowHead::Draw(vwr_Canvas& canvas, vwr_Spot end, vwr_Spot outwards, const g3d_Color& color) const
{
    const vwr_Spot across = {-outwards.y, outwards.x};
    const auto at = [&](double along, double side) { return end + along * outwards + side * across; };
    const vwr_Paint filled = {.fill = color};
    const vwr_Paint open = {.stroke = color, .width = width_};
    const vwr_Paint hollow = {.stroke = color, .width = outline_};
    // Strokes lie inside the outline that a filled head has.
    const double inside = 0.5 * outline_;
    const auto diamond = [&](double inset) {
        const double rest = Shrunk(inset);
        return std::array{at(HALF_LENGTH * rest, 0.0), at(0.0, HALF_WIDTH * rest),
                          at(-HALF_LENGTH * rest, 0.0), at(0.0, -HALF_WIDTH * rest)};
    };
    const auto square = [&](double half) {
        return std::array{at(half, half), at(-half, half), at(-half, -half), at(half, -half)};
    };
    switch (style_)
    {
    case Style::ARROW:
    {
        const double tip = -TipBehindMitre();
        const std::array corners = {at(-size_, HALF_BREADTH * size_), at(tip, 0.0),
                                    at(-size_, -HALF_BREADTH * size_)};
        canvas.Lines("head", corners, false, open);
        break;
    }
    case Style::FILLED_ARROW:
    {
        const std::array corners = {at(0.0, 0.0), at(-size_, HALF_BREADTH * size_),
                                    at(-size_, -HALF_BREADTH * size_)};
        canvas.Lines("head", corners, true, filled);
        break;
    }
    case Style::HOLLOW_CIRCLE:
        canvas.Circle("head", end, HalfDiameter() - inside, hollow);
        break;
    case Style::FILLED_CIRCLE:
        canvas.Circle("head", end, HalfDiameter(), filled);
        break;
    case Style::HOLLOW_DIAMOND:
        canvas.Lines("head", diamond(inside), true, hollow);
        break;
    case Style::FILLED_DIAMOND:
        canvas.Lines("head", diamond(0.0), true, filled);
        break;
    case Style::HOLLOW_SQUARE:
        canvas.Lines("head", square(HalfDiameter() - inside), true, hollow);
        break;
    case Style::FILLED_SQUARE:
        canvas.Lines("head", square(HalfDiameter()), true, filled);
        break;
    case Style::NONE:
        break;
    }
}
