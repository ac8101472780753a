#pragma once

#include <oxu_Export.h>

/// A colour as hue (the colour circle from red over green and blue, 0 to 1), saturation and value.
struct g3d_HSV
{
    float h; ///< hue
    float s; ///< saturation
    float v; ///< value
};

/// Hue, saturation and value of a colour given by its channels; a grey has hue 0. Ties between the largest
/// channels go to red, then green. (Smith, "Color gamut transform pairs", SIGGRAPH 1978.)
OXU_EXPORT g3d_HSV g3d_HSVOfChannels(float red, float green, float blue);
/// The inverse. The hue is taken round the circle; saturation and value as they are.
OXU_EXPORT void g3d_ChannelsOfHSV(const g3d_HSV& hsv, float& red, float& green, float& blue);

/// Each value limited to at most 1; nothing is limited from below.
OXU_EXPORT g3d_HSV PctToHSV(float h, float s, float v);
/// Each of the three as a·wa + b·wb, limited to [0, 1]; the hue does not go round.
OXU_EXPORT g3d_HSV MixHSV(g3d_HSV a, g3d_HSV b, float wa, float wb);
