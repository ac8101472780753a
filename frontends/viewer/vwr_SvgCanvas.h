#pragma once

#include <vwr_Canvas.h>

#include <string>

/// Writes an SVG document.
class vwr_SvgCanvas : public vwr_Canvas
{
public:
    vwr_SvgCanvas(int width, int height);

    void Background(const g3d_Color& color) override;
    void Image(const vwr_Image& image) override;
    void Begin(const char* kind, std::string_view name) override;
    void Note(std::string_view sentence) override;
    void Lines(const char* part, std::span<const vwr_Spot> spots, bool closed,
               const vwr_Paint& paint) override;
    void Circle(const char* part, vwr_Spot centre, double radius, const vwr_Paint& paint) override;
    void Text(const vwr_TextRun& run) override;
    void End() override;

    /// The whole document; the canvas is empty then.
    std::string Finish();

private:
    void Attribute(const char* name, double value);
    void Attribute(const char* name, std::string_view value);
    void Colour(const char* name, const g3d_Color& color);
    void Paint(const vwr_Paint& paint);

    int width_;
    int height_;
    std::string out_;
};
