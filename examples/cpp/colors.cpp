// Colours by name, as numbers, and what contrasts with them.
#include <g3d_ColorErrorException.h>
#include <g3d_ColorMap.h>
#include <iostream>

int main()
{
    g3d_ColorMap& colors = g3d_ColorMap::Instance();
    std::cout << colors.Length() << " colours; Red is " << colors.ConstGet("Red") << '\n';

    if (!colors.AddByRGB("Steel", 0.27f, 0.51f, 0.71f)) // refused for the name of a default colour
        return 1;
    const g3d_Color steel = colors.ConstGet("Steel");
    float h = 0, s = 0, v = 0;
    steel.GetHSV(h, s, v);
    std::cout << std::hex << "Steel is #" << (steel.GetRGBA() >> 8) << std::dec << ", hue " << h << '\n';
    std::cout << "text on it: " << g3d_Color::GetContrastingColor(steel) << '\n';
    std::cout << "#804020 is " << colors.ConstGet("#804020") << '\n';

    try
    {
        colors.ConstGet("Mud");
    }
    catch (const g3d_ColorErrorException& error)
    {
        std::cout << error.AsString().View() << '\n';
    }
}
