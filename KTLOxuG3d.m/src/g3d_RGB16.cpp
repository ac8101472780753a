#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <g3d_RGB16.h>

namespace
{
constexpr int FULL = 65535;

unsigned short Inverted(unsigned short channel)
{
    return static_cast<unsigned short>(FULL - channel);
}

unsigned short FromFraction(float fraction)
{
    if (std::isnan(fraction))
        return 0;
    // The lower bound only keeps the conversion to int defined.
    constexpr float LEAST = -2.0e9f;
    const float scaled = std::max(LEAST, std::min(fraction, 1.0f) * float{FULL} + 0.5f);
    return static_cast<unsigned short>(static_cast<int>(scaled));
}

unsigned short Mixed(unsigned short a, unsigned short b, float wa, float wb)
{
    const float mixed = a * wa + b * wb;
    return mixed > 0.0f ? static_cast<unsigned short>(std::min(mixed, float{FULL}))
                        : static_cast<unsigned short>(0);
}
}

RGB16 RGBToCMY(RGB16 c)
{
    return {Inverted(c.red), Inverted(c.green), Inverted(c.blue)};
}

RGB16 CMYToRGB(RGB16 c)
{
    return RGBToCMY(c);
}

float RGBDist(RGB16 a, RGB16 b)
{
    return static_cast<float>(std::abs(a.red - b.red) + std::abs(a.green - b.green) +
                              std::abs(a.blue - b.blue));
}

RGB16 PctToRGB(float red, float green, float blue)
{
    return {FromFraction(red), FromFraction(green), FromFraction(blue)};
}

RGB16 MixRGB(RGB16 a, RGB16 b, float wa, float wb)
{
    return {Mixed(a.red, b.red, wa, wb), Mixed(a.green, b.green, wa, wb), Mixed(a.blue, b.blue, wa, wb)};
}

g3d_HSV RGBToHSV(RGB16 c)
{
    return g3d_HSVOfChannels(c.red / float{FULL}, c.green / float{FULL}, c.blue / float{FULL});
}

RGB16 HSVToRGB(g3d_HSV hsv)
{
    float red;
    float green;
    float blue;
    g3d_ChannelsOfHSV(hsv, red, green, blue);
    return PctToRGB(red, green, blue);
}
