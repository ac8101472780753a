#include <annC_Arrow.h>
#include <vwr_ArrowDrawing.h>
#include <vwr_ArrowHead.h>
#include <vwr_Canvas.h>
#include <vwr_ColorOf.h>
#include <vwr_LineLook.h>
#include <vwr_Notes.h>
#include <vwr_Viewport.h>

#include <array>

namespace
{
// Moves what lies out of reach along one axis onto the bound; false when both ends lie on the same side.
bool ClipAxis(vwr_Spot& one, vwr_Spot& other, double vwr_Spot::*axis, double vwr_Spot::*across)
{
    for (const double bound : {-vwr_Spot::REACH, vwr_Spot::REACH})
    {
        const auto outside = [&](const vwr_Spot& end) { return (end.*axis - bound) * bound > 0.0; };
        if (outside(one) && outside(other))
            return false;
        for (vwr_Spot* const end : {&one, &other})
            if (outside(*end))
            {
                const vwr_Spot& inner = end == &one ? other : one;
                const double part = (bound - inner.*axis) / (end->*axis - inner.*axis);
                end->*across = inner.*across + part * (end->*across - inner.*across);
                end->*axis = bound;
            }
    }
    return true;
}

// Keeps the part of a line that lies within reach; false when none does.
bool Clip(std::array<vwr_Spot, 2>& ends)
{
    return ClipAxis(ends[0], ends[1], &vwr_Spot::x, &vwr_Spot::y) &&
           ClipAxis(ends[0], ends[1], &vwr_Spot::y, &vwr_Spot::x);
}
}

void vwr_DrawArrow(vwr_Canvas& canvas, const vwr_Viewport& viewport, const annC_Arrow& arrow)
{
    const vwr_Spot start = viewport.Place(arrow.startAnchor.AsPtr(), arrow.startPointX, arrow.startPointY);
    const vwr_Spot end = viewport.Place(arrow.endAnchor.AsPtr(), arrow.endPointX, arrow.endPointY);
    const vwr_Spot difference = end - start;
    const double length = std::hypot(difference.x, difference.y);
    const double startGap = vwr_Viewport::PIXELS_PER_MM * arrow.startGap;
    const double endGap = vwr_Viewport::PIXELS_PER_MM * arrow.endGap;
    if (!std::isfinite(length) || !std::isfinite(startGap) || !std::isfinite(endGap))
    {
        canvas.Note(vwr_Notes::NO_PLACE);
        return;
    }
    const double tail = startGap;
    const double tip = length - endGap;
    if (tip < tail)
    {
        canvas.Note(vwr_Notes::NOTHING_LEFT);
        return;
    }
    const g3d_Color color = vwr_ColorOf(canvas, arrow.color);
    const double width = vwr_LineLook::Width(arrow.lineThickness);
    const vwr_Spot direction =
        length > 0.0 ? vwr_Spot{difference.x / length, difference.y / length} : vwr_Spot{1.0, 0.0};
    const vwr_ArrowHead startHead(arrow.startHeadStyle, width);
    const vwr_ArrowHead endHead(arrow.endHeadStyle, width);

    const double from = tail + startHead.Setback();
    const double to = tip - endHead.Setback();
    std::array line = {start + from * direction, start + to * direction};
    if (arrow.lineStyle != annC_LineStyleEnm::NONE && from < to && Clip(line))
        canvas.Lines(
            "line", line, false,
            {.stroke = color, .width = width, .dashes = vwr_LineLook::Dashes(arrow.lineStyle, width)});
    const vwr_Spot tailSpot = start + tail * direction;
    const vwr_Spot tipSpot = start + tip * direction;
    if (tailSpot.InReach())
        startHead.Draw(canvas, tailSpot, -1.0 * direction, color);
    if (tipSpot.InReach())
        endHead.Draw(canvas, tipSpot, direction, color);
}
