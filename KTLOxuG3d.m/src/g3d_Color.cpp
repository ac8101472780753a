#include <algorithm>
#include <cmath>
#include <g3d_Color.h>
#include <g3d_DefaultColors.h>
#include <g3d_HSV.h>
#include <nex_Raise.h>
#include <ostream>
#include <string_view>

namespace
{
constexpr float BYTE_STEP = 0.003921569f;
static_assert(BYTE_STEP == 1.0f / 255.0f && 255 * BYTE_STEP == 1.0f);

float FromByte(unsigned int byte)
{
    return static_cast<float>(byte & 0xFFu) * BYTE_STEP;
}

float Clamped(float channel)
{
    return channel > 0.0f ? std::min(channel, 1.0f) : 0.0f;
}

unsigned int ToByte(float channel)
{
    return static_cast<unsigned int>(std::lround(Clamped(channel) * 255.0f));
}

/// -1 for what is no hexadecimal digit.
int DigitValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char upper = static_cast<char>(c & ~0x20);
    return upper >= 'A' && upper <= 'F' ? upper - 'A' + 10 : -1;
}
}

void g3d_Color::Set(unsigned int rgba)
{
    *this = {FromByte(rgba >> 24), FromByte(rgba >> 16), FromByte(rgba >> 8), FromByte(rgba)};
}

void g3d_Color::Set(const cow_String& text, float alpha)
{
    std::string_view rest = text.View();
    if (!rest.starts_with('#'))
        return;
    rest.remove_prefix(1);
    float channels[3] = {};
    for (float& channel : channels)
    {
        unsigned int value = 0;
        std::size_t digits = 0;
        for (; digits < 2 && digits < rest.size() && DigitValue(rest[digits]) >= 0; ++digits)
            value = value * 16 + static_cast<unsigned int>(DigitValue(rest[digits]));
        if (digits == 0)
            break;
        channel = FromByte(value);
        rest.remove_prefix(digits);
    }
    *this = {channels[0], channels[1], channels[2], alpha};
}

void g3d_Color::Set(const g3d_Color& color, float alpha)
{
    *this = color;
    alpha_ = alpha;
}

void g3d_Color::Set(g3d_PresetColorEnum preset, float alpha)
{
    const auto index = static_cast<long long>(preset);
    constexpr auto COUNT = static_cast<long long>(std::size(g3d_DefaultColors));
    if (index < 0 || index >= COUNT)
        nex_RaiseRange(index, COUNT);
    const g3d_DefaultColor& color = g3d_DefaultColors[index];
    *this = {color.red, color.green, color.blue, alpha};
}

void g3d_Color::SetHSV(float h, float s, float v)
{
    g3d_ChannelsOfHSV({h, s, v}, red_, green_, blue_);
}

void g3d_Color::Invert(const g3d_Color& color, float alpha)
{
    *this = {1.0f - color.red_, 1.0f - color.green_, 1.0f - color.blue_, alpha};
}

void g3d_Color::Clamp()
{
    *this = {Clamped(red_), Clamped(green_), Clamped(blue_), Clamped(alpha_)};
}

void g3d_Color::GetHSV(float& h, float& s, float& v) const
{
    const g3d_HSV hsv = g3d_HSVOfChannels(red_, green_, blue_);
    h = hsv.h;
    s = hsv.s;
    v = hsv.v;
}

unsigned int g3d_Color::GetRGBA() const
{
    return ToByte(red_) << 24 | ToByte(green_) << 16 | ToByte(blue_) << 8 | ToByte(alpha_);
}

unsigned int g3d_Color::ColorOctal(float red, float green, float blue)
{
    return g3d_Color(red, green, blue).GetRGBA();
}

g3d_Color g3d_Color::GetContrastingColor(const g3d_Color& color)
{
    const float luma = 0.299f * color.red_ + 0.587f * color.green_ + 0.114f * color.blue_;
    return {luma > 0.5f ? g3d_Black : g3d_White, color.alpha_};
}

aio_ostream& operator<<(aio_ostream& out, const g3d_Color& color)
{
    return out << '(' << color.Red() << ", " << color.Green() << ", " << color.Blue() << ", " << color.Alpha()
               << ')';
}
