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

struct HeadRow
{
    const char* tag;
    bool filled;
    Points points;  ///< from the arrow's end, along it and to its left, or a radius, in pixels
    double lineEnd; ///< before the arrow's end, in pixels
};

// A line of 3 pixels makes a head of 18, with a stroke of 3 where it is hollow: 1.5 to each side.
TEST(Arrow, HeadsLieOnTheEndAtAnyAngle)
{
    // How much the sides of a diamond of half diagonals 9.9 and 6.48 lose of them for a stroke inside.
    const double inset = 1.5 * std::hypot(1.0 / 9.9, 1.0 / 6.48);
    const double a = 9.9 * (1.0 - inset);
    const double b = 6.48 * (1.0 - inset);
    const double mitre = 1.5 * std::hypot(1.0, 0.36) / 0.36;
    const HeadRow rows[] = {{"polyline", false, {-18, 6.48, -mitre, 0, -18, -6.48}, mitre},
                            {"polygon", true, {0, 0, -18, 6.48, -18, -6.48}, 14.4},
                            {"circle", false, {4.8}, 4.8},
                            {"circle", true, {6.3}, 0},
                            {"polygon", false, {a, 0, 0, b, -a, 0, 0, -b}, 9.9 * (1.0 - 2.0 * inset)},
                            {"polygon", true, {9.9, 0, 0, 6.48, -9.9, 0, 0, -6.48}, 0},
                            {"polygon", false, {4.8, 4.8, -4.8, 4.8, -4.8, -4.8, 4.8, -4.8}, 4.8},
                            {"polygon", true, {6.3, 6.3, -6.3, 6.3, -6.3, -6.3, 6.3, -6.3}, 0}};
    for (int style = 0; style < 8; ++style)
        for (const double angle : {0.0, 0.5, 2.0, -1.57})
        {
            SCOPED_TRACE(std::to_string(style) + " at " + std::to_string(angle));
            const HeadRow& row = rows[style];
            const double c = std::cos(angle);
            const double s = std::sin(angle);
            annC_Arrow arrow = ArrowOf(50.0, 25.0, 50.0 + 20.0 * c, 25.0 + 20.0 * s);
            arrow.endHeadStyle = Head(style);
            arrow.lineThickness = annC_LineThicknessEnm::MEDIUM;
            const SvgElement group = Drawn(arrow);
            // From the end of the arrow along it and to its left to the picture.
            const auto at = [&](double along, double left) {
                const double x = PictureScene::PIXELS * (50.0 + 20.0 * c) + along * c - left * s;
                return Points{x, 480.0 - PictureScene::PIXELS * (25.0 + 20.0 * s) - along * s - left * c};
            };
            const Points end = at(-row.lineEnd, 0.0);
            ExpectPoints(group.Of("line").at(0).Numbers("points"), {480.0, 240.0, end[0], end[1]});
            const SvgElement head = group.Of("head").at(0);
            EXPECT_EQ(head.tag, row.tag);
            EXPECT_EQ(head["fill"] + " " + head["stroke-width"], row.filled ? "#ffffff " : "none 3");
            Points expected;
            for (std::size_t i = 0; i + 1 < row.points.size(); i += 2)
                for (const double number : at(row.points[i], -row.points[i + 1]))
                    expected.push_back(number);
            if (head.tag != "circle")
                ExpectPoints(head.Numbers("points"), expected);
            else
                ExpectPoints({head.Number("cx"), head.Number("cy"), head.Number("r")},
                             {at(0.0, 0.0)[0], at(0.0, 0.0)[1], row.points[0]});
        }
}

TEST(Arrow, TheHeadAtTheStartPointsTheOtherWay)
{
    annC_Arrow arrow = ArrowOf(10.0, 10.0, 40.0, 10.0);
    arrow.startHeadStyle = Head::FILLED_ARROW;
    arrow.endHeadStyle = Head::NONE;
    arrow.startGap = 2.0 * PictureScene::TENTH;
    arrow.endGap = 1.0 * PictureScene::TENTH;
    const SvgElement group = Drawn(arrow);
    const double tip = 12.0 * PictureScene::PIXELS;
    ExpectPoints(group.Of("head").at(0).Numbers("points"),
                 {tip, 384.0, tip + 12.0, 379.68, tip + 12.0, 388.32});
    ExpectPoints(group.Of("line").at(0).Numbers("points"),
                 {tip + 9.6, 384.0, 39.0 * PictureScene::PIXELS, 384.0});
}

TEST(Arrow, DashesGrowWithTheLineAndHeadsHaveNone)
{
    constexpr const char* LOOKS[] = {"5, ", "5, 5 12", "5, 24 12", "5, 24 12 5 12"};
    annC_Arrow arrow = ArrowOf(1, 1, 30, 1);
    arrow.lineThickness = annC_LineThicknessEnm::THICK;
    for (int style = 0; style <= 4; ++style)
    {
        arrow.lineStyle = annC_LineStyleEnm(style);
        const SvgElement group = Drawn(arrow);
        EXPECT_EQ(group.Of("head").at(0)["stroke-dasharray"], "");
        ASSERT_EQ(group.Of("line").size(), style == 4 ? 0u : 1u);
        for (const SvgElement& line : group.Of("line"))
            EXPECT_EQ(line["stroke-width"] + ", " + line["stroke-dasharray"], LOOKS[style]);
    }
}

TEST(Arrow, WithoutLengthItIsAMarkThatPointsToTheRight)
{
    annC_Arrow arrow = ArrowOf(10.0, 10.0, 10.0, 10.0);
    ExpectPoints(Drawn(arrow).Of("head").at(0).Numbers("points"), {96.0, 384.0, 84.0, 388.32, 84.0, 379.68});
    arrow.endHeadStyle = Head::HOLLOW_CIRCLE;
    EXPECT_EQ(Drawn(arrow).children.size(), 1u);
    EXPECT_DOUBLE_EQ(Drawn(arrow).children[0].Number("cx"), 96.0);
}

TEST(Arrow, FarAwayAndNowhere)
{
    // A line through the picture whose ends are out of all bounds is clipped, its head left out.
    const SvgElement far = Drawn(ArrowOf(-1e300, 10.0, 1e300, 10.0));
    ASSERT_EQ(far.children.size(), 1u);
    ExpectPoints(far.Of("line").at(0).Numbers("points"), {-1e5, 384.0, 1e5, 384.0});
    EXPECT_TRUE(Drawn(ArrowOf(1e7, 1e7, 1e8, 1e7)).children.empty());

    annC_Arrow gap = ArrowOf(0.0, 0.0, 10.0, 0.0);
    gap.startGap = gap.endGap = 6.0 * PictureScene::TENTH;
    EXPECT_EQ(Drawn(gap).children.at(0).text, "not drawn: the gaps are longer than the arrow");
    gap.endGap = INF;
    for (const annC_Arrow& arrow : {gap, ArrowOf(0.0, std::nan(""), 1.0, 1.0), ArrowOf(0.0, 0.0, INF, 1.0)})
        EXPECT_EQ(Drawn(arrow).children.at(0).text, "not drawn: a coordinate is infinite or not a number");
}
}
