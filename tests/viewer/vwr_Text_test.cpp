// Text: fonts, the block and its reference point, rotation, and bytes that are no text.

#include <annC_ViewportAnchor.h>
#include <gtest/gtest.h>
#include <limits>
#include <viewer/PictureTesting.h>
#include <vwr_AnnotationClient.h>
#include <vwr_CleanText.h>
#include <vwr_Font.h>
#include <vwr_Viewport.h>

namespace
{
constexpr double MM = vwr_Viewport::PIXELS_PER_MM;
constexpr double NEAR = 0.011;

SvgElement Drawn(const annC_Text& text)
{
    PictureScene scene;
    scene.Add("T", text);
    return scene.Svg().Group("T");
}

TEST(Text, FontDescriptions)
{
    const std::pair<const char*, vwr_Font> rows[] = {
        {"-*-helvetica-medium-r-normal-*-*-120-", {}},
        {"-adobe-TIMES-Bold-I-normal--*-240-75-75-p-70-iso8859-1", {"Liberation Serif", true, true, 32}},
        {"-*-Some, 'Font\"-light-r-*-*-0--3-", {"Some Font", false, false, 16}},
        {"Arial 30", {}},
        {"-*-helvetica-*-*-*-*-1e9-", {"Liberation Sans", false, false, 2000}}};
    for (const auto& [description, font] : rows)
        EXPECT_TRUE(vwr_Font::OfDescription(description) == font) << description;
}

TEST(Text, BlockOfTheClientIsTheBoxThatIsDrawn)
{
    vwr_AnnotationClient client;
    annC_Text text = TextOf(10.0, 10.0, "one\ntwo and a half\r\n\rfour");
    EXPECT_NEAR(client.GetHeight(text), 4.0 * client.GetHeight(TextOf(0, 0, "")), 1e-9);
    EXPECT_NEAR(client.GetWidth(text), client.GetWidth(TextOf(0, 0, "two and a half")), 1e-9);
    text.box = true;
    const std::vector<double> box = Drawn(text).Of("box").at(0).Numbers("points");
    EXPECT_NEAR((box[2] - box[0]) / MM, client.GetWidth(text), NEAR);
    EXPECT_NEAR((box[1] - box[7]) / MM, client.GetHeight(text), NEAR);
}

TEST(Text, ReferencePointLiesOnTheAnchorAndTheBlockTurnsAboutIt)
{
    // The nine positions, and a viewport point.
    for (int i = 0; i < 10; ++i)
    {
        annC_Text text = TextOf(40.0, 25.0, "some words\nin two lines");
        text.box = true;
        text.rotationAngle = 37.0 * i - 720.0;
        text.referencePoint = annC_AnchorCow(new annC_NamedAnchor(annC_RelativePositionEnm(i % 9)));
        if (i == 9)
            text.referencePoint = annC_AnchorCow(new annC_ViewportAnchor(25, 150));
        const double right = i < 9 ? 0.5 * (i % 3) : 0.25;
        const double up = 0.5 * (i / 3);
        const std::vector<double> p = Drawn(text).Of("box").at(0).Numbers("points");
        EXPECT_NEAR(p[0] + right * (p[2] - p[0]) + up * (p[6] - p[0]), 384.0, 3 * NEAR) << i;
        EXPECT_NEAR(p[1] + right * (p[3] - p[1]) + up * (p[7] - p[1]), 240.0, 3 * NEAR) << i;
        // Counter-clockwise: y runs downwards.
        const double angle = std::atan2(p[1] - p[3], p[2] - p[0]) * 180.0 / M_PI;
        EXPECT_NEAR(std::remainder(angle - text.rotationAngle, 360.0), 0.0, 0.05);
    }
}

TEST(Text, LinesStandAsJustified)
{
    constexpr const char* SIDES[] = {"", "middle", "end"};
    for (int side = 0; side <= 2; ++side)
    {
        annC_Text text = TextOf(40.0, 25.0, "a & <b>\n\nthe longer line");
        text.justification = annC_JustificationEnm(side);
        text.rotationAngle = 90.0;
        text.font = "-*-courier-bold-i-*-*-10-";
        vwr_AnnotationClient client;
        const SvgElement group = Drawn(text);
        ASSERT_EQ(group.children.size(), 2u) << "no element for an empty line";
        const SvgElement& first = group.children[0];
        const SvgElement& last = group.children[1];
        EXPECT_EQ(first.text + "|" + last.text, "a & <b>|the longer line");
        EXPECT_EQ(first["text-anchor"], SIDES[side]);
        EXPECT_EQ(first["font-weight"] + first["font-style"] + first["font-size"], "bolditalic10");
        EXPECT_EQ(first["transform"].substr(0, 11), "rotate(-90 ");
        EXPECT_NEAR(240.0 - last.Number("y"), 0.5 * side * client.GetWidth(text) * MM, NEAR);
        EXPECT_NEAR(last.Number("x") - first.Number("x"), 2.0 / 3.0 * client.GetHeight(text) * MM, 2 * NEAR);
    }
}

TEST(Text, NowhereAndOutOfReach)
{
    annC_Text turned = TextOf(1.0, 1.0, "x");
    turned.rotationAngle = std::numeric_limits<double>::infinity();
    for (const annC_Text& text : {turned, TextOf(std::nan(""), 0.0, "x")})
        EXPECT_EQ(Drawn(text).children.at(0).text, "not drawn: a coordinate is infinite or not a number");
    EXPECT_EQ(Drawn(TextOf(1e9, 0.0, "x")).children.at(0).text, "not drawn: too far outside of the picture");
}

TEST(Text, IsMadeCleanForEveryReader)
{
    const std::string R = "\uFFFD";
    const std::pair<std::string, std::string> rows[] = {
        {"aß→\U0001F600<&>", "aß→\U0001F600<&>"},
        {std::string("a\0\x1b[1m\tb", 8), "a" + R + R + "[1m    b"},
        {"x\xe2\x82", "x" + R + R},
        {"\xc0\x80\xe0\x80\x80", R + R + R + R + R},
        {"\xed\xa0\x80\xf4\x90\x80\x80", R + R + R + R + R + R + R}};
    for (const auto& [text, clean] : rows)
        EXPECT_EQ(vwr_CleanText(text), clean);
}
}
