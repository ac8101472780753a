#pragma once

#include <array>
#include <g3d_Color.h>
#include <oxu_Export.h>

/// An indexed palette of 256 colours. An index past the end is taken modulo the length.
class OXU_EXPORT g3d_ColorArray
{
public:
    static constexpr unsigned int LENGTH = 256;

    /// Every entry is IntToFloatColor of its index.
    g3d_ColorArray();

    /// Gives every entry this alpha.
    void SetAlpha(float alpha);
    /// Replaces every entry that equals `color` by its contrast, so that nothing drawn from the palette
    /// vanishes before it (a background).
    void ContrastColors(const g3d_Color& color);
    /// Back to the palette of the constructor.
    void Cleanup();

    /// The entry at the index modulo the length.
    g3d_Color GetColor(unsigned int index) const { return colors_[index % LENGTH]; }
    void GetColor(unsigned int index, g3d_Color& color) const { color = GetColor(index); }
    void GetColor(unsigned int index, float& red, float& green, float& blue) const;
    /// True when the index lies below the length.
    bool CheckColor(unsigned int index) const { return index < LENGTH; }

    /// The opaque colour that the low eight bits stand for, three for red, three for green, two for blue.
    static g3d_Color IntToFloatColor(unsigned int bits);

private:
    std::array<g3d_Color, LENGTH> colors_;
};
