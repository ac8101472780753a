#pragma once

#include <vwr_Font.h>

#include <string>
#include <vector>

class annC_Text;
class vwr_TextMeasure;

/// The lines of a text and how much room they take, unturned, in pixels. A text has one line more than line
/// breaks ("\n", "\r\n" or "\r"). A box or a background leaves a margin of 0.3 em around the lines, which is
/// part of the block.
class vwr_TextBlock
{
public:
    vwr_TextBlock(const annC_Text& text, vwr_TextMeasure& measure);

    const vwr_Font& Font() const { return font_; }
    /// Clean UTF-8.
    const std::vector<std::string>& Lines() const { return lines_; }
    double Width() const { return width_; }
    double Height() const { return height_; }
    double Margin() const { return margin_; }
    /// Of a line, from 0 at the top, above the lower border of the block.
    double Baseline(std::size_t line) const;

private:
    vwr_Font font_;
    std::vector<std::string> lines_;
    double margin_ = 0.0;
    double ascent_ = 0.0;
    double lineHeight_ = 0.0;
    double width_ = 0.0;
    double height_ = 0.0;
};
