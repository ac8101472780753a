#include <vwr_CairoCanvas.h>
#include <vwr_CleanText.h>
#include <vwr_Image.h>
#include <vwr_SvgCanvas.h>
#include <vwr_TextRun.h>

#include <charconv>

namespace
{
// Hundredths of a pixel, without zeros behind.
void AppendNumber(std::string& out, double value)
{
    char text[64];
    const auto [end, error] = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 2);
    std::string_view written(text, static_cast<std::size_t>(end - text));
    if (error != std::errc())
        written = "0";
    if (written.find('.') != std::string_view::npos)
    {
        while (written.back() == '0')
            written.remove_suffix(1);
        if (written.back() == '.')
            written.remove_suffix(1);
    }
    out += written == "-0" ? "0" : written;
}

// The text is clean; what has a meaning in XML is written as an entity.
void AppendEscaped(std::string& out, std::string_view text)
{
    for (const char c : text)
        switch (c)
        {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            out += c;
        }
}

void AppendBase64(std::string& out, std::string_view bytes)
{
    constexpr char DIGITS[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    out.reserve(out.size() + (bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3)
    {
        const std::string_view three = bytes.substr(at, 3);
        unsigned bits = 0;
        for (std::size_t i = 0; i < 3; ++i)
            bits = bits << 8 | (i < three.size() ? static_cast<unsigned char>(three[i]) : 0u);
        for (std::size_t i = 0; i < 4; ++i)
            out += i <= three.size() ? DIGITS[bits >> (18 - 6 * i) & 63] : '=';
    }
}

const char* FallbackOf(const std::string& family)
{
    if (family == "Liberation Serif")
        return ", 'Times New Roman', Times, serif";
    if (family == "Liberation Mono")
        return ", 'Courier New', Courier, monospace";
    return ", Arial, Helvetica, sans-serif";
}
}

vwr_SvgCanvas::vwr_SvgCanvas(int width, int height) : width_(width), height_(height)
{
    out_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
           "xmlns:xlink=\"http://www.w3.org/1999/xlink\" version=\"1.1\"";
    Attribute("width", width);
    Attribute("height", height);
    Attribute("viewBox", "0 0 " + std::to_string(width) + " " + std::to_string(height));
    out_ += ">\n";
}

void vwr_SvgCanvas::Background(const g3d_Color& color)
{
    out_ += "<rect class=\"background\"";
    Attribute("width", width_);
    Attribute("height", height_);
    Colour("fill", color);
    out_ += "/>\n";
}

void vwr_SvgCanvas::Image(const vwr_Image& image)
{
    out_ += "<image class=\"parts\"";
    Attribute("width", image.width);
    Attribute("height", image.height);
    out_ += " xlink:href=\"data:image/png;base64,";
    AppendBase64(out_, vwr_CairoCanvas::Png(image));
    out_ += "\"/>\n";
}

void vwr_SvgCanvas::Begin(const char* kind, std::string_view name)
{
    out_ += "<g";
    Attribute("class", kind);
    Attribute("data-name", vwr_CleanText(name));
    out_ += ">\n";
}

void vwr_SvgCanvas::Note(std::string_view sentence)
{
    out_ += "<desc>";
    AppendEscaped(out_, vwr_CleanText(sentence));
    out_ += "</desc>\n";
}

void vwr_SvgCanvas::Lines(const char* part, std::span<const vwr_Spot> spots, bool closed,
                          const vwr_Paint& paint)
{
    out_ += closed ? "<polygon" : "<polyline";
    Attribute("class", part);
    out_ += " points=\"";
    for (std::size_t i = 0; i < spots.size(); ++i)
    {
        out_ += i == 0 ? "" : " ";
        AppendNumber(out_, spots[i].x);
        out_ += ',';
        AppendNumber(out_, spots[i].y);
    }
    out_ += '"';
    Paint(paint);
}

void vwr_SvgCanvas::Circle(const char* part, vwr_Spot centre, double radius, const vwr_Paint& paint)
{
    out_ += "<circle";
    Attribute("class", part);
    Attribute("cx", centre.x);
    Attribute("cy", centre.y);
    Attribute("r", radius);
    Paint(paint);
}

void vwr_SvgCanvas::Paint(const vwr_Paint& paint)
{
    if (paint.fill)
        Colour("fill", *paint.fill);
    else
        Attribute("fill", "none");
    if (paint.stroke)
    {
        Colour("stroke", *paint.stroke);
        Attribute("stroke-width", paint.width);
        Attribute("stroke-miterlimit", 10.0);
        if (!paint.dashes.empty())
        {
            out_ += " stroke-dasharray=\"";
            for (std::size_t i = 0; i < paint.dashes.size(); ++i)
            {
                out_ += i == 0 ? "" : " ";
                AppendNumber(out_, paint.dashes[i]);
            }
            out_ += '"';
        }
    }
    out_ += "/>\n";
}

void vwr_SvgCanvas::Text(const vwr_TextRun& run)
{
    out_ += "<text";
    Attribute("x", run.at.x);
    Attribute("y", run.at.y);
    if (run.side != annC_JustificationEnm::LEFT)
        Attribute("text-anchor", run.side == annC_JustificationEnm::CENTER ? "middle" : "end");
    Attribute("font-family", "'" + run.font.family + "'" + FallbackOf(run.font.family));
    Attribute("font-size", run.font.size);
    if (run.font.bold)
        Attribute("font-weight", "bold");
    if (run.font.italic)
        Attribute("font-style", "italic");
    Colour("fill", run.color);
    if (run.angle != 0.0)
    {
        out_ += " transform=\"rotate(";
        AppendNumber(out_, -run.angle);
        for (const double value : {run.at.x, run.at.y})
        {
            out_ += ' ';
            AppendNumber(out_, value);
        }
        out_ += ")\"";
    }
    out_ += " xml:space=\"preserve\">";
    AppendEscaped(out_, run.text);
    out_ += "</text>\n";
}

void vwr_SvgCanvas::End()
{
    out_ += "</g>\n";
}

std::string vwr_SvgCanvas::Finish()
{
    out_ += "</svg>\n";
    return std::move(out_);
}

void vwr_SvgCanvas::Attribute(const char* name, double value)
{
    out_ += ' ';
    out_ += name;
    out_ += "=\"";
    AppendNumber(out_, value);
    out_ += '"';
}

void vwr_SvgCanvas::Attribute(const char* name, std::string_view value)
{
    out_ += ' ';
    out_ += name;
    out_ += "=\"";
    AppendEscaped(out_, value);
    out_ += '"';
}

void vwr_SvgCanvas::Colour(const char* name, const g3d_Color& color)
{
    constexpr char DIGITS[] = "0123456789abcdef";
    const unsigned rgba = color.GetRGBA();
    char text[] = "#000000";
    for (int i = 0; i < 6; ++i)
        text[i + 1] = DIGITS[rgba >> (28 - 4 * i) & 15];
    Attribute(name, text);
    if ((rgba & 255) != 255)
        Attribute((std::string(name) + "-opacity").c_str(), (rgba & 255) / 255.0);
}
