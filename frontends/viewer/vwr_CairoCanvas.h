#pragma once

#include <vwr_Canvas.h>
#include <vwr_TextMeasure.h>

#include <memory>
#include <string>

struct _cairo;
struct _cairo_surface;

/// Draws pixels; gives them as a PNG file. Memory that cannot be had raises vwr_PictureError.
class vwr_CairoCanvas : public vwr_Canvas
{
public:
    /// Size in pixels, from 1 to vwr_Picture::LARGEST. `measure` is looked at while the canvas lives.
    vwr_CairoCanvas(int width, int height, vwr_TextMeasure& measure);
    ~vwr_CairoCanvas() override;

    void Background(const g3d_Color& color) override;
    void Image(const vwr_Image& image) override;
    void Begin(const char* kind, std::string_view name) override;
    void Note(std::string_view sentence) override;
    void Lines(const char* part, std::span<const vwr_Spot> spots, bool closed,
               const vwr_Paint& paint) override;
    void Circle(const char* part, vwr_Spot centre, double radius, const vwr_Paint& paint) override;
    void Text(const vwr_TextRun& run) override;
    void End() override;

    /// The release of the library that draws, as it is loaded: "1.16.0".
    static const char* LibraryVersion();

    std::string Png() const;
    /// The bytes of an image alone as a PNG file.
    static std::string Png(const vwr_Image& image);

private:
    struct Release
    {
        void operator()(_cairo* context) const;
        void operator()(_cairo_surface* surface) const;
    };

    void Paint(const vwr_Paint& paint);

    std::unique_ptr<_cairo_surface, Release> surface_;
    std::unique_ptr<_cairo, Release> context_;
    vwr_TextMeasure& measure_;
};
