// Text: fonts, the block and its reference point, rotation, backgrounds, and bytes that are no text.

#include <annC_Point3DAnchor.h>
#include <annC_ViewportAnchor.h>
#include <g3d_ColorErrorException.h>
#include <gtest/gtest.h>
#include <limits>
#include <testing/ExpectRaise.h>
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
    scene.background = g3d_Color(0.0f, 0.0f, 1.0f);
    scene.Add("T", text);
    return scene.Svg().Group("T");
}

TEST(Text, FontDescriptions)
{
    const std::pair<const char*, vwr_Font> rows[] = {
        {"-*-helvetica-medium-r-normal-*-*-120-", {}},
        {"", {}},
        {"Arial 30", {}},
        {"-", {}},
        {"-*", {}},
        {"-*-*-bold", {"Liberation Sans", true, false, 16}},
        {"-adobe-TIMES-Bold-I-normal--*-240-75-75-p-70-iso8859-1", {"Liberation Serif", true, true, 32}},
        {"-*-courier-demibold-o-*-*-20-120-", {"Liberation Mono", true, true, 20}},
        {"-*-Some, 'Font\"-light-r-*-*-0--3-", {"Some Font", false, false, 16}},
        {"-*-helvetica-*-*-*-*-12x-90-", {"Liberation Sans", false, false, 12}},
        {"-*-helvetica-*-*-*-*-nan-inf-", {}},
        {"-*-helvetica-*-*-*-*-1e9-", {"Liberation Sans", false, false, 2000}},
        {"-*-helvetica-*-*-*-*-*-1-", {"Liberation Sans", false, false, 1}}};
    for (const auto& [description, font] : rows)
        EXPECT_TRUE(vwr_Font::OfDescription(description) == font) << description;
}

TEST(Text, BlockOfTheClientIsTheBoxThatIsDrawn)
{
    vwr_AnnotationClient client;
    annC_Text text = TextOf(10.0, 10.0, "one\ntwo and a half\r\n\rfour");
    EXPECT_NEAR(client.GetHeight(text), 4.0 * client.GetHeight(TextOf(0, 0, "")), 1e-9);
    EXPECT_NEAR(client.GetWidth(text), client.GetWidth(TextOf(0, 0, "two and a half")), 1e-9);
    EXPECT_EQ(client.GetWidth(TextOf(0, 0, "")), 0.0);
    const double width = client.GetWidth(text);
    text.box = true;
    EXPECT_NEAR(client.GetWidth(text) - width, 2 * 0.3 * 16 / MM, 1e-9) << "0.3 em at each side";
    const std::vector<double> box = Drawn(text).Of("box").at(0).Numbers("points");
    EXPECT_NEAR((box[2] - box[0]) / MM, client.GetWidth(text), NEAR);
    EXPECT_NEAR((box[1] - box[7]) / MM, client.GetHeight(text), NEAR);

    annC_AnnotationClient& installed = annC_AnnotationClient::Instance();
    installed.VerifyColorValue("#12");
    EXPECT_RAISE(installed.VerifyColorValue("red"), g3d_ColorErrorException,
                 "red is not a valid color name.");
}

struct ReferenceRow
{
    annC_AnchorCow anchor;
    double right, up;
};
// The nine positions, a viewport point, a 3D point, none.
ReferenceRow Reference(int i)
{
    if (i < 9)
        return {annC_AnchorCow(new annC_NamedAnchor(annC_RelativePositionEnm(i))), 0.5 * (i % 3),
                0.5 * (i / 3)};
    if (i == 9)
        return {annC_AnchorCow(new annC_ViewportAnchor(25.0, 150.0)), 0.25, 1.5};
    return {i == 10 ? annC_AnchorCow(new annC_Point3DAnchor(1.0, 2.0, 3.0)) : annC_AnchorCow(), 0.0, 0.0};
}

TEST(Text, ReferencePointLiesOnTheAnchorAndTheBlockTurnsAboutIt)
{
    for (int i = 0; i < 12; ++i)
    {
        annC_Text text = TextOf(40.0, 25.0, "some words\nin two lines");
        text.box = true;
        text.rotationAngle = 37.0 * i - 720.0;
        const ReferenceRow row = Reference(i);
        text.referencePoint = row.anchor;
        const std::vector<double> p = Drawn(text).Of("box").at(0).Numbers("points");
        EXPECT_NEAR(p[0] + row.right * (p[2] - p[0]) + row.up * (p[6] - p[0]), 384.0, 3 * NEAR) << i;
        EXPECT_NEAR(p[1] + row.right * (p[3] - p[1]) + row.up * (p[7] - p[1]), 240.0, 3 * NEAR) << i;
        // Counter-clockwise: y runs downwards.
        const double angle = std::atan2(p[1] - p[3], p[2] - p[0]) * 180.0 / M_PI;
        EXPECT_NEAR(std::remainder(angle - text.rotationAngle, 360.0), 0.0, 0.05);
    }
}

TEST(Text, LinesStandAsJustified)
{
    constexpr const char* SIDES[] = {"", "middle", "end"};
    for (const bool upright : {false, true})
        for (int side = 0; side <= 2; ++side)
        {
            annC_Text text = TextOf(40.0, 25.0, "a & <b>\n\nthe longer line");
            text.justification = annC_JustificationEnm(side);
            text.rotationAngle = upright ? 90.0 : 0.0;
            text.font = "-*-courier-bold-i-*-*-10-";
            vwr_AnnotationClient client;
            const SvgElement group = Drawn(text);
            ASSERT_EQ(group.children.size(), 2u) << "no element for an empty line";
            const SvgElement& first = group.children[0];
            const SvgElement& last = group.children[1];
            EXPECT_EQ(first.text + "|" + last.text, "a & <b>|the longer line");
            EXPECT_EQ(first["text-anchor"], SIDES[side]);
            EXPECT_EQ(first["font-family"], "'Liberation Mono', 'Courier New', Courier, monospace");
            EXPECT_EQ(first["font-weight"] + first["font-style"] + first["font-size"], "bolditalic10");
            EXPECT_EQ(first["transform"].substr(0, 11), upright ? "rotate(-90 " : "");
            const double along = upright ? 240.0 - last.Number("y") : last.Number("x") - 384.0;
            EXPECT_NEAR(along, 0.5 * side * client.GetWidth(text) * MM, NEAR);
            const char* const across = upright ? "x" : "y";
            EXPECT_NEAR(last.Number(across) - first.Number(across), 2.0 / 3.0 * client.GetHeight(text) * MM,
                        2 * NEAR);
        }
}

TEST(Text, BackgroundsAndBox)
{
    const char* const fills[] = {"none", "#0000ff", "#ffff00"};
    for (const int style : {0, 1, 2})
    {
        annC_Text text = TextOf(1.0, 1.0, "x");
        text.backgroundStyle = annC_BackgroundStyleEnm(style);
        text.backgroundColor = "Yellow";
        text.color = "#010203";
        EXPECT_EQ(Drawn(text).Of("box").size(), style > 0 ? 1u : 0u);
        text.box = true;
        EXPECT_EQ(Drawn(text).children.at(0)["fill"], fills[style]);
        EXPECT_EQ(Drawn(text).children.at(0)["stroke"] + Drawn(text).children.at(1)["fill"],
                  "#010203#010203");
    }
}

TEST(Text, NowhereAndOutOfReach)
{
    const double inf = std::numeric_limits<double>::infinity();
    annC_Text turned = TextOf(1.0, 1.0, "x");
    turned.rotationAngle = inf;
    annC_Text placed = TextOf(1.0, 1.0, "x");
    placed.referencePoint = annC_AnchorCow(new annC_ViewportAnchor(std::nan(""), 0.0));
    for (const annC_Text& text : {turned, placed, TextOf(std::nan(""), 0.0, "x"), TextOf(0.0, -inf, "x")})
        EXPECT_EQ(Drawn(text).children.at(0).text, "not drawn: a coordinate is infinite or not a number");
    EXPECT_EQ(Drawn(TextOf(1e9, 0.0, "x")).children.at(0).text, "not drawn: too far outside of the picture");
}

TEST(Text, IsMadeCleanForEveryReader)
{
    const std::string R = "\uFFFD";
    struct
    {
        const char* what;
        std::string text, clean;
    } const rows[] = {{"plain", "aß→\U0001F600<&>", "aß→\U0001F600<&>"},
                      {"tab", "a\tb", "a    b"},
                      {"zero byte and escape", std::string("a\0\x1b[1m", 6), "a" + R + R + "[1m"},
                      {"delete and a C1 control", "\x7f\xc2\x85", R + R},
                      {"lone continuation", "\x80x", R + "x"},
                      {"cut short", "x\xe2\x82", "x" + R + R},
                      {"longer than need be", "\xc0\x80\xe0\x80\x80", R + R + R + R + R},
                      {"surrogate", "\xed\xa0\x80", R + R + R},
                      {"beyond the last code", "\xf4\x90\x80\x80", R + R + R + R},
                      {"no character", "\xef\xbf\xbe\xef\xb7\x90", R + R},
                      {"last of each length", "\x7e\xdf\xbf\xef\xbf\xbd\xf4\x8f\xbf\xbd",
                       "\x7e\xdf\xbf\xef\xbf\xbd\xf4\x8f\xbf\xbd"}};
    for (const auto& row : rows)
        EXPECT_EQ(vwr_CleanText(row.text), row.clean) << row.what;
}
}
