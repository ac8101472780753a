#pragma once

/// The colours that every colour map starts with, in its order.
enum g3d_PresetColorEnum {
    g3d_Black,
    g3d_White,
    g3d_Red,
    g3d_Orange,
    g3d_LightOrange,
    g3d_Purple,
    g3d_Blue,
    g3d_MediumBlue,
    g3d_SkyBlue,
    g3d_Cyan,
    g3d_Aqua,
    g3d_Green,
    g3d_SpringGreen,
    g3d_Yellow,
    g3d_Gold,
    g3d_DarkGold,
    g3d_Chartreuse,
    g3d_Grey20,
    g3d_Grey60,
    g3d_Grey80,
    g3d_Default,
    g3d_Magenta,
    g3d_Grey10,
    g3d_Grey30,
    g3d_Grey40,
    g3d_Grey50,
    g3d_Grey70,
    g3d_Grey90
};
