#pragma once

#include <g3d_PresetColorEnum.h>
#include <iterator>

struct g3d_DefaultColor
{
    const char* name;
    float red;
    float green;
    float blue;
};

/// The default colours by preset, in the order in which a colour map holds them.
inline constexpr g3d_DefaultColor g3d_DefaultColors[] = {
    {"Black", 0.0f, 0.0f, 0.0f},         {"White", 1.0f, 1.0f, 1.0f},        {"Red", 1.0f, 0.0f, 0.0f},
    {"Orange", 1.0f, 0.5f, 0.0f},        {"Light orange", 1.0f, 0.6f, 0.0f}, {"Purple", 0.63f, 0.13f, 0.94f},
    {"Blue", 0.0f, 0.0f, 1.0f},          {"Medium blue", 0.0f, 0.6f, 1.0f},  {"Sky blue", 0.0f, 0.8f, 1.0f},
    {"Cyan", 0.0f, 1.0f, 1.0f},          {"Aqua", 0.0f, 1.0f, 0.8f},         {"Green", 0.0f, 1.0f, 0.0f},
    {"Spring green", 0.0f, 1.0f, 0.55f}, {"Yellow", 1.0f, 1.0f, 0.0f},       {"Gold", 1.0f, 0.844f, 0.0f},
    {"Dark gold", 1.0f, 0.7f, 0.0f},     {"Chartreuse", 0.7f, 1.0f, 0.0f},   {"Grey20", 0.2f, 0.2f, 0.2f},
    {"Grey60", 0.6f, 0.6f, 0.6f},        {"Grey80", 0.8f, 0.8f, 0.8f},       {"Default", 1.0f, 1.0f, 1.0f},
    {"Magenta", 1.0f, 0.0f, 1.0f},       {"Grey10", 0.1f, 0.1f, 0.1f},       {"Grey30", 0.3f, 0.3f, 0.3f},
    {"Grey40", 0.4f, 0.4f, 0.4f},        {"Grey50", 0.5f, 0.5f, 0.5f},       {"Grey70", 0.7f, 0.7f, 0.7f},
    {"Grey90", 0.9f, 0.9f, 0.9f},
};
static_assert(std::size(g3d_DefaultColors) == g3d_Grey90 + 1);
