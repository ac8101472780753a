#pragma once

#include <aio_ostream.h>
#include <cow_String.h>
#include <g3d_PresetColorEnum.h>
#include <oxu_Export.h>

/// A colour of the 3D view: red, green, blue and alpha, each nominally from 0 to 1. Alpha 1 is opaque.
class OXU_EXPORT g3d_Color
{
public:
    /// Opaque black.
    g3d_Color() = default;
    g3d_Color(float red, float green, float blue, float alpha = 1.0f)
        : red_(red), green_(green), blue_(blue), alpha_(alpha)
    {}
    explicit g3d_Color(unsigned int rgba) { Set(rgba); }
    g3d_Color(const cow_String& text, float alpha) { Set(text, alpha); }
    g3d_Color(const g3d_Color& color, float alpha) { Set(color, alpha); }
    g3d_Color(g3d_PresetColorEnum preset, float alpha = 1.0f) { Set(preset, alpha); }

    /// The four bytes, from the most significant down, are red, green, blue and alpha.
    void Set(unsigned int rgba);
    /// Reads what "#%02X%02X%02X" writes, red, green and blue, in either case. Text without "#" changes
    /// nothing. A channel takes up to two digits; from the first channel without a digit on they are 0; what
    /// follows the third is ignored.
    void Set(const cow_String& text, float alpha);
    void Set(const g3d_Color& color, float alpha);
    /// Raises nex_RangeException for a number that is no preset.
    void Set(g3d_PresetColorEnum preset, float alpha = 1.0f);
    /// From hue, saturation and value (see g3d_HSV); alpha stays.
    void SetHSV(float h, float s, float v);
    /// Becomes 1 - c of each colour channel of `color`, with this alpha.
    void Invert(const g3d_Color& color, float alpha);
    /// Limits each channel to [0, 1]; an undefined one becomes 0.
    void Clamp();

    float Red() const { return red_; }
    float Green() const { return green_; }
    float Blue() const { return blue_; }
    float Alpha() const { return alpha_; }
    void GetHSV(float& h, float& s, float& v) const;
    /// The channels clamped and rounded to bytes, packed as Set(unsigned int) reads them.
    unsigned int GetRGBA() const;
    /// The packed form of an opaque colour.
    static unsigned int ColorOctal(float red, float green, float blue);
    /// Black on light colours, white on dark ones, by luma (ITU-R BT.601) above 0.5; alpha of `color`.
    static g3d_Color GetContrastingColor(const g3d_Color& color);

    /// Exact; an undefined channel makes two colours unequal.
    friend bool operator==(const g3d_Color&, const g3d_Color&) = default;
    /// Channel by channel, alpha included, without limits.
    friend g3d_Color operator+(const g3d_Color& a, const g3d_Color& b)
    {
        return {a.red_ + b.red_, a.green_ + b.green_, a.blue_ + b.blue_, a.alpha_ + b.alpha_};
    }
    friend g3d_Color operator-(const g3d_Color& a, const g3d_Color& b)
    {
        return {a.red_ - b.red_, a.green_ - b.green_, a.blue_ - b.blue_, a.alpha_ - b.alpha_};
    }
    friend g3d_Color operator*(const g3d_Color& a, const g3d_Color& b)
    {
        return {a.red_ * b.red_, a.green_ * b.green_, a.blue_ * b.blue_, a.alpha_ * b.alpha_};
    }

private:
    float red_ = 0.0f;
    float green_ = 0.0f;
    float blue_ = 0.0f;
    float alpha_ = 1.0f;
};

/// Prints "(r, g, b, a)".
OXU_EXPORT aio_ostream& operator<<(aio_ostream& out, const g3d_Color& color);
