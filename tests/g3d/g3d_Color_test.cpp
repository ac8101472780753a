#include <g3d_ColorArray.h>
#include <g3d_ColorErrorException.h>
#include <g3d_ColorMap.h>
#include <g3d_RGB16.h>
#include <gtest/gtest.h>
#include <limits>
#include <nex_RangeException.h>
#include <random>
#include <sstream>
#include <string>
#include <testing/ExpectRaise.h>

namespace
{
struct TextCase
{
    const char* text;
    g3d_Color expected;
};

class ColorText : public ::testing::TestWithParam<TextCase>
{};

float Byte(int value)
{
    return static_cast<float>(value) * (1.0f / 255.0f);
}

TEST_P(ColorText, ReadsWhatDigitsThereAre)
{
    g3d_Color color(0.25f, 0.5f, 0.75f, 0.125f);
    color.Set(cow_String(GetParam().text), 0.5f);
    EXPECT_EQ(color, GetParam().expected);
}

const g3d_Color UNCHANGED(0.25f, 0.5f, 0.75f, 0.125f);
INSTANTIATE_TEST_SUITE_P(Forms, ColorText,
                         ::testing::Values(TextCase{"#FF8000", {1.0f, 0.501960814f, 0.0f, 0.5f}},
                                           TextCase{"#ff8000AA", {1.0f, Byte(128), 0.0f, 0.5f}},
                                           TextCase{"", UNCHANGED}, TextCase{"FF8000", UNCHANGED},
                                           TextCase{"#", {0.0f, 0.0f, 0.0f, 0.5f}},
                                           TextCase{"#F", {Byte(15), 0.0f, 0.0f, 0.5f}},
                                           TextCase{"#123", {Byte(18), Byte(3), 0.0f, 0.5f}},
                                           TextCase{"#1G3456", {Byte(1), 0.0f, 0.0f, 0.5f}},
                                           TextCase{"#GG0000", {0.0f, 0.0f, 0.0f, 0.5f}},
                                           TextCase{"#-1-1-1", {0.0f, 0.0f, 0.0f, 0.5f}},
                                           TextCase{"#0x1 2 3", {0.0f, 0.0f, 0.0f, 0.5f}}));

TEST(Color, PackedBytesComeBack)
{
    std::mt19937 random(1);
    for (int i = 0; i < 1000; ++i)
    {
        const unsigned packed = static_cast<unsigned>(random());
        EXPECT_EQ(g3d_Color(packed).GetRGBA(), packed);
    }
    EXPECT_EQ(g3d_Color::ColorOctal(1.0f, 0.5f, -3.0f), 0xFF8000FFu);
    EXPECT_EQ(g3d_Color(7.0f, std::numeric_limits<float>::quiet_NaN(), 0.0f, 0.0f).GetRGBA(), 0xFF000000u);
}

TEST(Color, ArithmeticReachesAlphaAndHasNoLimits)
{
    const g3d_Color a(0.5f, 1.0f, 0.25f, 1.0f);
    EXPECT_EQ(a + a, g3d_Color(1.0f, 2.0f, 0.5f, 2.0f));
    EXPECT_EQ(a - a - a, g3d_Color(-0.5f, -1.0f, -0.25f, -1.0f));
    EXPECT_EQ(a * a, g3d_Color(0.25f, 1.0f, 0.0625f, 1.0f));
    std::ostringstream out;
    out << a;
    EXPECT_EQ(out.str(), "(0.5, 1, 0.25, 1)");
}

TEST(Color, ContrastAndInversion)
{
    EXPECT_EQ(g3d_Color::GetContrastingColor({g3d_Yellow, 0.5f}), g3d_Color(g3d_Black, 0.5f));
    EXPECT_EQ(g3d_Color::GetContrastingColor({g3d_Red, 0.5f}), g3d_Color(g3d_White, 0.5f));
    g3d_Color color;
    color.Invert(g3d_Orange, 0.5f);
    EXPECT_EQ(color, g3d_Color(0.0f, 0.5f, 1.0f, 0.5f));
    color.SetHSV(1.0f / 3.0f, 1.0f, 1.0f);
    EXPECT_EQ(color, g3d_Color(g3d_Green, 0.5f));
    EXPECT_RAISE(g3d_Color(static_cast<g3d_PresetColorEnum>(28)), nex_RangeException,
                 "index 28 out of range, length 28");
}

TEST(ColorMap, DefaultsInTheirOrderThenUserColors)
{
    g3d_ColorMap map;
    ASSERT_TRUE(map.AddByRGB("Zinc", 0.1f, 0.2f, 0.3f));
    EXPECT_EQ(&g3d_ColorMap::Instance(), &map);
    const cow_List<cow_String> keys = map.Keys();
    ASSERT_EQ(keys.Length(), 29);
    EXPECT_EQ(map.Length(), 29);
    EXPECT_EQ(keys.Get(g3d_LightOrange), "Light orange");
    EXPECT_EQ(keys.Get(g3d_Grey80), "Grey80");
    EXPECT_EQ(keys.Get(g3d_Grey90), "Grey90");
    EXPECT_EQ(keys.Get(28), "Zinc");
    for (int preset = g3d_Black; preset <= g3d_Grey90; ++preset)
        EXPECT_EQ(map.ConstGet(keys.Get(preset)), g3d_Color(static_cast<g3d_PresetColorEnum>(preset)));
}

TEST(ColorMap, DefaultsAreNotRedefinedUserColorsAre)
{
    g3d_ColorMap map;
    EXPECT_FALSE(map.AddByRGB("Red", 0.0f, 0.0f, 1.0f));
    EXPECT_EQ(map.ConstGet("Red"), g3d_Color(1.0f, 0.0f, 0.0f));
    ASSERT_TRUE(map.AddByRGB("default", 0.0f, 0.0f, 1.0f));
    ASSERT_TRUE(map.AddByRGB("default", 0.0f, 1.0f, 0.0f));
    EXPECT_EQ(map.ConstGet("default"), g3d_Color(g3d_Green));
    EXPECT_EQ(map.ConstGet("Default"), g3d_Color(g3d_White));
    map.AddDefaultColor("default", 1.0f, 0.0f, 0.0f);
    EXPECT_EQ(map.ConstGet("default"), g3d_Color(g3d_Green)) << "a user colour shadows a late default";
    EXPECT_TRUE(map.Remove("default"));
    EXPECT_FALSE(map.Remove("default"));
    EXPECT_EQ(map.ConstGet("default"), g3d_Color(g3d_Red));
    ASSERT_TRUE(map.AddByRGB("mine", 0.0f, 0.0f, 0.0f));
    map.InitDefaultDict();
    EXPECT_FALSE(map.IsMember("default"));
    EXPECT_TRUE(map.IsUserColor("mine"));
}

TEST(ColorMap, OnlyUnknownNamesAreErrors)
{
    const g3d_ColorMap map;
    EXPECT_EQ(map.ConstGet("#GG"), g3d_Color(g3d_Black));
    for (const std::string name : {"", "red", "Grey 20"})
        EXPECT_RAISE(map.ConstGet(name.c_str()), g3d_ColorErrorException,
                     (name + " is not a valid color name.").c_str());
}

TEST(RGB16, HsvAndCmyAreExactInverses)
{
    std::mt19937 random(2);
    const auto channel = [&random] {
        // Ties and ends often: they choose the sector.
        const unsigned r = static_cast<unsigned>(random());
        const unsigned short near[] = {0, 1, 32767, 32768, 65534, 65535};
        return r % 3 == 0 ? near[r / 3 % 6] : static_cast<unsigned short>(r >> 8);
    };
    for (int i = 0; i < 200000; ++i)
    {
        const RGB16 c{channel(), channel(), channel()};
        ASSERT_EQ(HSVToRGB(RGBToHSV(c)), c) << c.red << ' ' << c.green << ' ' << c.blue;
        ASSERT_EQ(CMYToRGB(RGBToCMY(c)), c);
    }
}

TEST(RGB16, KnownHues)
{
    // Red and blue tie: red's formula, and a hue that comes out negative goes round.
    EXPECT_FLOAT_EQ(RGBToHSV({65535, 0, 65535}).h, 5.0f / 6.0f);
    EXPECT_FLOAT_EQ(RGBToHSV({0, 65535, 65535}).h, 0.5f);
    EXPECT_FLOAT_EQ(RGBToHSV({65535, 65535, 0}).h, 1.0f / 6.0f);
    EXPECT_EQ(HSVToRGB({1.0f, 1.0f, 1.0f}), (RGB16{65535, 0, 0}));
    const g3d_HSV mixed = MixHSV({0.9f, 0.5f, 0.5f}, {0.9f, 0.25f, -1.0f}, 1.0f, 1.0f);
    EXPECT_EQ(mixed.h, 1.0f);
    EXPECT_EQ(mixed.s, 0.75f);
    EXPECT_EQ(mixed.v, 0.0f);
    EXPECT_EQ(PctToHSV(-1.0f, 0.5f, 2.0f).h, -1.0f);
}

TEST(RGB16, FractionsAndMixesKeepTheirLimits)
{
    EXPECT_EQ(PctToRGB(2.0f, 1.0f, 0.5f), (RGB16{65535, 65535, 32768}));
    EXPECT_EQ(PctToRGB(-0.1f, -1e30f, std::numeric_limits<float>::quiet_NaN()).red, 58983);
    EXPECT_EQ(MixRGB({65535, 3, 100}, {1, 4, 65535}, 1.0f, 0.5f), (RGB16{65535, 5, 32867}));
    EXPECT_EQ(MixRGB({65535, 3, 100}, {1, 4, 65535}, -1.0f, 0.0f), (RGB16{0, 0, 0}));
    EXPECT_EQ(RGBDist({0, 10, 65535}, {65535, 7, 0}), 131073.0f);
}

TEST(ColorArray, PaletteWrapsAndKeepsClearOfTheBackground)
{
    g3d_ColorArray palette;
    EXPECT_EQ(palette.GetColor(255), g3d_Color(g3d_White));
    EXPECT_EQ(palette.GetColor(256 + 0xE0), g3d_Color(g3d_Red));
    EXPECT_FALSE(palette.CheckColor(256));
    palette.ContrastColors(g3d_White);
    EXPECT_EQ(palette.GetColor(255), g3d_Color(g3d_Black));
    EXPECT_EQ(palette.GetColor(0), g3d_Color(g3d_Black));
    palette.SetAlpha(0.5f);
    EXPECT_EQ(palette.GetColor(0xE0), g3d_Color(g3d_Red, 0.5f));
    palette.Cleanup();
    EXPECT_EQ(palette.GetColor(255), g3d_Color(g3d_White));
}
}
