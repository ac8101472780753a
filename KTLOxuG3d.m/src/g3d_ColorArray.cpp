#include <g3d_ColorArray.h>

g3d_ColorArray::g3d_ColorArray()
{
    Cleanup();
}

void g3d_ColorArray::SetAlpha(float alpha)
{
    for (g3d_Color& color : colors_)
        color.Set(g3d_Color(color), alpha);
}

void g3d_ColorArray::ContrastColors(const g3d_Color& color)
{
    const g3d_Color contrast = g3d_Color::GetContrastingColor(color);
    for (g3d_Color& entry : colors_)
        if (entry == color)
            entry = contrast;
}

void g3d_ColorArray::Cleanup()
{
    unsigned int index = 0;
    for (g3d_Color& color : colors_)
        color = IntToFloatColor(index++);
}

void g3d_ColorArray::GetColor(unsigned int index, float& red, float& green, float& blue) const
{
    const g3d_Color color = GetColor(index);
    red = color.Red();
    green = color.Green();
    blue = color.Blue();
}

g3d_Color g3d_ColorArray::IntToFloatColor(unsigned int bits)
{
    const auto channel = [bits](unsigned int shift, unsigned int most) {
        return static_cast<float>(bits >> shift & most) / static_cast<float>(most);
    };
    return {channel(5, 7), channel(2, 7), channel(0, 3)};
}
