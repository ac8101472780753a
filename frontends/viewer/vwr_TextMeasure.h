#pragma once

#include <vwr_Font.h>

#include <map>
#include <memory>
#include <string>

struct _cairo_scaled_font;

/// Tells the extent of text as the PNG pictures draw it, in pixels, without rounding to whole ones. Keeps the
/// fonts that it was asked about.
class vwr_TextMeasure
{
public:
    vwr_TextMeasure();
    ~vwr_TextMeasure();
    vwr_TextMeasure(const vwr_TextMeasure&) = delete;
    vwr_TextMeasure& operator=(const vwr_TextMeasure&) = delete;

    /// How far the text, one line of clean UTF-8, advances.
    double Width(const vwr_Font& font, const std::string& line);
    /// From the top of a line to its baseline, and from one line to the next.
    double Ascent(const vwr_Font& font);
    double LineHeight(const vwr_Font& font);
    /// The font of a renderer, which stays this object's.
    _cairo_scaled_font* Scaled(const vwr_Font& font);

private:
    struct Release
    {
        void operator()(_cairo_scaled_font* scaled) const;
    };

    std::map<vwr_Font, std::unique_ptr<_cairo_scaled_font, Release>> fonts_;
};
