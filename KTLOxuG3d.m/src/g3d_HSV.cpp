#include <algorithm>
#include <cmath>
#include <g3d_HSV.h>

g3d_HSV g3d_HSVOfChannels(float red, float green, float blue)
{
    const float max = std::max({red, green, blue});
    const float min = std::min({red, green, blue});
    const float range = max - min;
    g3d_HSV hsv{0.0f, max == 0.0f ? 0.0f : range / max, max};
    if (hsv.s == 0.0f)
        return hsv;
    if (red == max)
        hsv.h = (max - blue) / range - (max - green) / range;
    else if (green == max)
        hsv.h = 2.0f + (max - red) / range - (max - blue) / range;
    else
        hsv.h = 4.0f + (max - green) / range - (max - red) / range;
    if (hsv.h < 0.0f)
        hsv.h += 6.0f;
    hsv.h /= 6.0f;
    return hsv;
}

void g3d_ChannelsOfHSV(const g3d_HSV& hsv, float& red, float& green, float& blue)
{
    float sector = hsv.h * 6.0f;
    sector -= 6.0f * std::floor(sector / 6.0f);
    const float whole = std::floor(sector);
    const float rest = sector - whole;
    const float v = hsv.v;
    const float p = v * (1.0f - hsv.s);
    const float q = v * (1.0f - hsv.s * rest);
    const float t = v * (1.0f - hsv.s * (1.0f - rest));
    const auto set = [&](float r, float g, float b) {
        red = r;
        green = g;
        blue = b;
    };
    if (whole == 1.0f)
        set(q, v, p);
    else if (whole == 2.0f)
        set(p, v, t);
    else if (whole == 3.0f)
        set(p, q, v);
    else if (whole == 4.0f)
        set(t, p, v);
    else if (whole == 5.0f)
        set(v, p, q);
    else
        set(v, t, p);
}

g3d_HSV PctToHSV(float h, float s, float v)
{
    return {std::min(h, 1.0f), std::min(s, 1.0f), std::min(v, 1.0f)};
}

g3d_HSV MixHSV(g3d_HSV a, g3d_HSV b, float wa, float wb)
{
    const auto mix = [wa, wb](float x, float y) { return std::clamp(x * wa + y * wb, 0.0f, 1.0f); };
    return {mix(a.h, b.h), mix(a.s, b.s), mix(a.v, b.v)};
}
