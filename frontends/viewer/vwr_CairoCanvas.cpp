#include <vwr_CairoCanvas.h>
#include <vwr_Image.h>
#include <vwr_PictureError.h>
#include <vwr_TextRun.h>

#include <cairo.h>
#include <nex_RaiseWith.h>
#include <numbers>

namespace
{
constexpr const char* SOURCE = "frontends/viewer/vwr_CairoCanvas";

void Require(cairo_status_t status, int line)
{
    if (status != CAIRO_STATUS_SUCCESS)
        nex_Raise(vwr_PictureError(std::string("cannot draw the picture: ") + cairo_status_to_string(status)),
                  SOURCE, line);
}

void Choose(cairo_t* context, const g3d_Color& color)
{
    g3d_Color clamped = color;
    clamped.Clamp();
    cairo_set_source_rgba(context, static_cast<double>(clamped.Red()), static_cast<double>(clamped.Green()),
                          static_cast<double>(clamped.Blue()), static_cast<double>(clamped.Alpha()));
}

cairo_status_t Append(void* bytes, const unsigned char* data, unsigned length) noexcept
{
    try
    {
        static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
        return CAIRO_STATUS_SUCCESS;
    }
    catch (const std::exception&)
    {
        return CAIRO_STATUS_NO_MEMORY;
    }
}

std::string PngOf(cairo_surface_t* surface)
{
    std::string bytes;
    Require(cairo_surface_write_to_png_stream(surface, &Append, &bytes), __LINE__);
    return bytes;
}

// The surface reads the image's pixels where they are; cairo's interface has no const.
cairo_surface_t* Over(const vwr_Image& image)
{
    auto* const pixels =
        const_cast<unsigned char*>(reinterpret_cast<const unsigned char*>(image.pixels.data()));
    return cairo_image_surface_create_for_data(pixels, CAIRO_FORMAT_ARGB32, image.width, image.height,
                                               4 * image.width);
}
}

vwr_CairoCanvas::vwr_CairoCanvas(int width, int height, vwr_TextMeasure& measure)
    : surface_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height)),
      context_(cairo_create(surface_.get())),
      measure_(measure)
{
    Require(cairo_status(context_.get()), __LINE__);
    cairo_set_miter_limit(context_.get(), 10.0);
}

vwr_CairoCanvas::~vwr_CairoCanvas() = default;

void vwr_CairoCanvas::Release::operator()(cairo_t* context) const
{
    cairo_destroy(context);
}

void vwr_CairoCanvas::Release::operator()(cairo_surface_t* surface) const
{
    cairo_surface_destroy(surface);
}

void vwr_CairoCanvas::Background(const g3d_Color& color)
{
    Choose(context_.get(), color);
    cairo_paint(context_.get());
}

void vwr_CairoCanvas::Image(const vwr_Image& image)
{
    const std::unique_ptr<cairo_surface_t, Release> source(Over(image));
    cairo_set_source_surface(context_.get(), source.get(), 0.0, 0.0);
    cairo_paint(context_.get());
    // The context must not keep the image.
    cairo_set_source_rgb(context_.get(), 0.0, 0.0, 0.0);
}

void vwr_CairoCanvas::Begin(const char*, std::string_view) {}

void vwr_CairoCanvas::Note(std::string_view) {}

void vwr_CairoCanvas::End() {}

void vwr_CairoCanvas::Lines(const char*, std::span<const vwr_Spot> spots, bool closed, const vwr_Paint& paint)
{
    for (const vwr_Spot& spot : spots)
        cairo_line_to(context_.get(), spot.x, spot.y);
    if (closed)
        cairo_close_path(context_.get());
    Paint(paint);
}

void vwr_CairoCanvas::Circle(const char*, vwr_Spot centre, double radius, const vwr_Paint& paint)
{
    cairo_new_sub_path(context_.get());
    cairo_arc(context_.get(), centre.x, centre.y, radius, 0.0, 2.0 * std::numbers::pi);
    cairo_close_path(context_.get());
    Paint(paint);
}

void vwr_CairoCanvas::Paint(const vwr_Paint& paint)
{
    cairo_t* const context = context_.get();
    if (paint.fill)
    {
        Choose(context, *paint.fill);
        cairo_fill_preserve(context);
    }
    if (paint.stroke)
    {
        Choose(context, *paint.stroke);
        cairo_set_line_width(context, paint.width);
        cairo_set_dash(context, paint.dashes.data(), static_cast<int>(paint.dashes.size()), 0.0);
        cairo_stroke_preserve(context);
    }
    cairo_new_path(context);
}

void vwr_CairoCanvas::Text(const vwr_TextRun& run)
{
    cairo_t* const context = context_.get();
    double back = 0.0;
    if (run.side != annC_JustificationEnm::LEFT)
        back = measure_.Width(run.font, run.text) * (run.side == annC_JustificationEnm::CENTER ? 0.5 : 1.0);
    cairo_save(context);
    cairo_set_scaled_font(context, measure_.Scaled(run.font));
    cairo_translate(context, run.at.x, run.at.y);
    cairo_rotate(context, -run.angle * std::numbers::pi / 180.0);
    cairo_move_to(context, -back, 0.0);
    Choose(context, run.color);
    cairo_show_text(context, run.text.c_str());
    cairo_new_path(context);
    cairo_restore(context);
}

const char* vwr_CairoCanvas::LibraryVersion()
{
    return cairo_version_string();
}

std::string vwr_CairoCanvas::Png() const
{
    Require(cairo_status(context_.get()), __LINE__);
    return PngOf(surface_.get());
}

std::string vwr_CairoCanvas::Png(const vwr_Image& image)
{
    const std::unique_ptr<cairo_surface_t, Release> surface(Over(image));
    return PngOf(surface.get());
}
