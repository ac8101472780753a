// Arrows: where lines and heads lie, how they are stroked, and what is left out.

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <viewer/PictureTesting.h>

namespace
{
using Head = annC_ArrowHeadStyleEnm;
using Points = std::vector<double>;
constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NEAR = 0.0051; // numbers are written in hundredths

void ExpectPoints(const Points& points, const Points& expected)
{
    ASSERT_EQ(points.size(), expected.size());
    for (std::size_t i = 0; i < points.size(); ++i)
        EXPECT_NEAR(points[i], expected[i], NEAR) << i;
}

SvgElement Drawn(const annC_Arrow& arrow)
{
    PictureScene scene;
    scene.Add("A", arrow);
    return scene.Svg().Group("A");
}

TEST(Arrow, HeadsOfEachStyleTurnWithIt)
{
    constexpr const char* HEADS[] = {"polyline none", "polygon #ffffff", "circle none",  "circle #ffffff",
                                     "polygon none",  "polygon #ffffff", "polygon none", "polygon #ffffff"};
    const auto points = [](const SvgElement& head) {
        return head.tag == "circle" ? Points{head.Number("cx"), head.Number("cy")} : head.Numbers("points");
    };
    for (int style = 0; style < 8; ++style)
    {
        SCOPED_TRACE(style);
        const double c = 0.6;
        const double s = 0.8;
        annC_Arrow level = ArrowOf(50, 25, 70, 25);
        annC_Arrow turned = ArrowOf(50, 25, 50 + 20 * c, 25 + 20 * s);
        level.endHeadStyle = turned.endHeadStyle = Head(style);
        const SvgElement head = Drawn(level).Of("head").at(0);
        EXPECT_EQ(head.tag + " " + head["fill"], HEADS[style]);
        const Points p = points(head);
        Points expected;
        for (std::size_t i = 0; i + 1 < p.size(); i += 2)
            for (const double number : {480 + c * (p[i] - 480) + s * (p[i + 1] - 240),
                                        240 - s * (p[i] - 480) + c * (p[i + 1] - 240)})
                expected.push_back(number);
        ExpectPoints(points(Drawn(turned).Of("head").at(0)), expected);
    }
}

TEST(Arrow, TheHeadAtTheStartPointsTheOtherWayAndHasNoDashes)
{
    annC_Arrow arrow = ArrowOf(10.0, 10.0, 40.0, 10.0);
    arrow.startHeadStyle = Head::FILLED_ARROW;
    arrow.endHeadStyle = Head::NONE;
    arrow.lineStyle = annC_LineStyleEnm::DASHED;
    arrow.startGap = 2.0 * PictureScene::TENTH;
    arrow.endGap = 1.0 * PictureScene::TENTH;
    const SvgElement group = Drawn(arrow);
    const SvgElement line = group.Of("line").at(0);
    const double tip = 12.0 * PictureScene::PIXELS;
    ExpectPoints(group.Of("head").at(0).Numbers("points"),
                 {tip, 384.0, tip + 12.0, 379.68, tip + 12.0, 388.32});
    ExpectPoints(line.Numbers("points"), {tip + 9.6, 384.0, 39.0 * PictureScene::PIXELS, 384.0});
    EXPECT_EQ(line["stroke-dasharray"] + group.Of("head").at(0)["stroke-dasharray"], "8 4");
}

TEST(Arrow, WithoutLengthItIsAMarkThatPointsToTheRight)
{
    ExpectPoints(Drawn(ArrowOf(10.0, 10.0, 10.0, 10.0)).Of("head").at(0).Numbers("points"),
                 {96.0, 384.0, 84.0, 388.32, 84.0, 379.68});
}

TEST(Arrow, FarAwayAndNowhere)
{
    // A line through the picture whose ends are out of all bounds is clipped, its head left out.
    const SvgElement far = Drawn(ArrowOf(-1e300, 10.0, 1e300, 10.0));
    ASSERT_EQ(far.children.size(), 1u);
    ExpectPoints(far.Of("line").at(0).Numbers("points"), {-1e5, 384.0, 1e5, 384.0});

    annC_Arrow gap = ArrowOf(0.0, 0.0, 10.0, 0.0);
    gap.startGap = gap.endGap = 6.0 * PictureScene::TENTH;
    EXPECT_EQ(Drawn(gap).children.at(0).text, "not drawn: the gaps are longer than the arrow");
    for (const double no : {std::nan(""), INF})
        EXPECT_EQ(Drawn(ArrowOf(0.0, 0.0, no, 1.0)).children.at(0).text,
                  "not drawn: a coordinate is infinite or not a number");
}
}
