#include <annC_Text.h>
#include <vwr_Block.h>
#include <vwr_Canvas.h>
#include <vwr_ColorOf.h>
#include <vwr_Notes.h>
#include <vwr_TextBlock.h>
#include <vwr_TextDrawing.h>
#include <vwr_TextRun.h>
#include <vwr_Viewport.h>

#include <array>
#include <numbers>

void vwr_DrawText(vwr_Canvas& canvas, const vwr_Viewport& viewport, const annC_Text& text,
                  vwr_TextMeasure& measure, const g3d_Color& background)
{
    const vwr_Spot reference = viewport.Place(text.anchor.AsPtr(), text.offsetX, text.offsetY);
    const vwr_Block::Fraction inBlock = vwr_Block::Of(text.referencePoint.AsPtr());
    const double angle = std::fmod(text.rotationAngle, 360.0);
    const double turned = angle * std::numbers::pi / 180.0;
    if (!reference.IsFinite() || !std::isfinite(turned) || !std::isfinite(inBlock.right) ||
        !std::isfinite(inBlock.up))
    {
        canvas.Note(vwr_Notes::NO_PLACE);
        return;
    }
    const vwr_TextBlock block(text, measure);
    // From right and up in the block to the picture.
    const double cosine = std::cos(turned);
    const double sine = std::sin(turned);
    const auto at = [&](double right, double up) {
        const double dx = right - inBlock.right * block.Width();
        const double dy = up - inBlock.up * block.Height();
        return reference + vwr_Spot{cosine * dx - sine * dy, -(sine * dx + cosine * dy)};
    };
    const std::array corners = {at(0.0, 0.0), at(block.Width(), 0.0), at(block.Width(), block.Height()),
                                at(0.0, block.Height())};
    for (const vwr_Spot& corner : corners)
        if (!corner.InReach())
        {
            canvas.Note(vwr_Notes::OUT_OF_REACH);
            return;
        }

    const g3d_Color color = vwr_ColorOf(canvas, text.color);
    vwr_Paint paint;
    if (text.backgroundStyle == annC_BackgroundStyleEnm::MATCH)
        paint.fill = background;
    else if (text.backgroundStyle == annC_BackgroundStyleEnm::OTHER)
        paint.fill = vwr_ColorOf(canvas, text.backgroundColor);
    if (text.box)
        paint.stroke = color;
    if (paint.fill || paint.stroke)
        canvas.Lines("box", corners, true, paint);

    double right = block.Margin();
    if (text.justification == annC_JustificationEnm::CENTER)
        right = 0.5 * block.Width();
    else if (text.justification == annC_JustificationEnm::RIGHT)
        right = block.Width() - block.Margin();
    for (std::size_t line = 0; line < block.Lines().size(); ++line)
        if (!block.Lines()[line].empty())
            canvas.Text({.text = block.Lines()[line],
                         .font = block.Font(),
                         .color = color,
                         .at = at(right, block.Baseline(line)),
                         .side = text.justification,
                         .angle = angle});
}
