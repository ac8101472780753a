#include <vwr_TextMeasure.h>

#include <cairo.h>

vwr_TextMeasure::vwr_TextMeasure() = default;
vwr_TextMeasure::~vwr_TextMeasure() = default;

void vwr_TextMeasure::Release::operator()(cairo_scaled_font_t* scaled) const
{
    cairo_scaled_font_destroy(scaled);
}

cairo_scaled_font_t* vwr_TextMeasure::Scaled(const vwr_Font& font)
{
    auto& scaled = fonts_[font];
    if (scaled)
        return scaled.get();
    cairo_font_face_t* const face = cairo_toy_font_face_create(
        font.family.c_str(), font.italic ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
        font.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_matrix_t size;
    cairo_matrix_t device;
    cairo_matrix_init_scale(&size, font.size, font.size);
    cairo_matrix_init_identity(&device);
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    scaled.reset(cairo_scaled_font_create(face, &size, &device, options));
    cairo_font_options_destroy(options);
    cairo_font_face_destroy(face);
    return scaled.get();
}

double vwr_TextMeasure::Width(const vwr_Font& font, const std::string& line)
{
    cairo_text_extents_t extents = {};
    cairo_scaled_font_text_extents(Scaled(font), line.c_str(), &extents);
    return extents.x_advance;
}

double vwr_TextMeasure::Ascent(const vwr_Font& font)
{
    cairo_font_extents_t extents = {};
    cairo_scaled_font_extents(Scaled(font), &extents);
    return extents.ascent;
}

double vwr_TextMeasure::LineHeight(const vwr_Font& font)
{
    cairo_font_extents_t extents = {};
    cairo_scaled_font_extents(Scaled(font), &extents);
    return extents.height;
}

#ifdef __SANITIZE_ADDRESS__
// Cairo keeps the last 256 fonts for whoever asks next, and nobody frees them at the end of the process.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig.so\n";
}

// Who reads the standard error output waits for nothing of this.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_options()
{
    return "print_suppressions=0";
}
#endif
