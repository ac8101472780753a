#include <annC_Text.h>
#include <vwr_CleanText.h>
#include <vwr_TextBlock.h>
#include <vwr_TextMeasure.h>

#include <algorithm>

namespace
{
constexpr double MARGIN_EM = 0.3;

std::vector<std::string> Split(std::string_view text)
{
    std::vector<std::string> lines;
    for (;;)
    {
        const std::size_t at = text.find_first_of("\r\n");
        lines.push_back(vwr_CleanText(text.substr(0, at)));
        if (at == std::string_view::npos)
            return lines;
        const bool pair = text.substr(at, 2) == "\r\n";
        text.remove_prefix(at + (pair ? 2 : 1));
    }
}
}

vwr_TextBlock::vwr_TextBlock(const annC_Text& text, vwr_TextMeasure& measure)
    : font_(vwr_Font::OfDescription(text.font.View())), lines_(Split(text.text.View()))
{
    if (text.box || text.backgroundStyle != annC_BackgroundStyleEnm::TRANSPARENT)
        margin_ = MARGIN_EM * font_.size;
    ascent_ = measure.Ascent(font_);
    lineHeight_ = measure.LineHeight(font_);
    for (const std::string& line : lines_)
        width_ = std::max(width_, measure.Width(font_, line));
    width_ += 2.0 * margin_;
    height_ = static_cast<double>(lines_.size()) * lineHeight_ + 2.0 * margin_;
}

double vwr_TextBlock::Baseline(std::size_t line) const
{
    return height_ - margin_ - ascent_ - static_cast<double>(line) * lineHeight_;
}
