#pragma once

#include <g3d_HSV.h>
#include <oxu_Export.h>

/// A colour of the display layer: each channel from 0 to 65535.
struct RGB16
{
    unsigned short red;
    unsigned short green;
    unsigned short blue;

    friend bool operator==(const RGB16&, const RGB16&) = default;
};

/// Each channel c becomes 65535 - c: the way to cyan, magenta, yellow and, being its own inverse, back.
OXU_EXPORT RGB16 RGBToCMY(RGB16 c);
OXU_EXPORT RGB16 CMYToRGB(RGB16 c);
/// The sum of the channels' differences (city-block distance), in channel steps.
OXU_EXPORT float RGBDist(RGB16 a, RGB16 b);
/// From fractions: each limited to at most 1, then scaled and rounded. There is no lower limit: what falls
/// below 0 is taken modulo 65536.
OXU_EXPORT RGB16 PctToRGB(float red, float green, float blue);
/// Each channel as a·wa + b·wb, truncated, limited to [0, 65535].
OXU_EXPORT RGB16 MixRGB(RGB16 a, RGB16 b, float wa, float wb);
/// The conversions are exact inverses of each other on every RGB16.
OXU_EXPORT g3d_HSV RGBToHSV(RGB16 c);
OXU_EXPORT RGB16 HSVToRGB(g3d_HSV hsv);
