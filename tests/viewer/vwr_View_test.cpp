// From where one looks, and where anchors and points then lie on the picture.

#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <annC_NamedAnchor.h>
#include <annC_Point3DAnchor.h>
#include <annC_ViewportAnchor.h>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vwr_Scene.h>
#include <vwr_Viewport.h>

namespace
{
constexpr double NEAR = 1e-12;
constexpr double NAN_ = std::numeric_limits<double>::quiet_NaN();

void ExpectVector(const gsl_Vector& v, const gsl_Vector& expected)
{
    EXPECT_NEAR(v.X(), expected.X(), NEAR);
    EXPECT_NEAR(v.Y(), expected.Y(), NEAR);
    EXPECT_NEAR(v.Z(), expected.Z(), NEAR);
}

TEST(View, StandsInForWhatIsMissing)
{
    const std::array<gsl_Vector, 3> rows[] = {{{{0, 0, 0}, {0, 0, 1}, {0, 1, 0}}}, // no direction
                                              {{{NAN_, 0, 1}, {0, 0, 1}, {0, 1, 0}}},
                                              {{{0, 1, 0}, {0, -5, 0}, {0, 0, 1}}},  // up along the direction
                                              {{{0, 0, -1}, {0, 0, 0}, {0, 1, 0}}}}; // no up
    for (const auto& [direction, up, top] : rows)
    {
        const vwr_View view = vwr_View::Along(direction, up);
        ExpectVector(view.Right(), {1, 0, 0});
        ExpectVector(view.Up(), top);
    }
}

TEST(View, AxesAreThoseOfTheDirectionWhateverItIs)
{
    std::mt19937 random(5);
    std::normal_distribution<double> draw;
    for (int i = 0; i < 2000; ++i)
    {
        const gsl_Vector direction(draw(random), draw(random), draw(random));
        const gsl_Vector up(draw(random), draw(random), draw(random));
        const vwr_View view = vwr_View::Along(direction, up);
        EXPECT_NEAR(std::hypot(std::hypot(view.X(), view.Y(), view.Z()), view.W()), 1.0, NEAR);
        const gsl_Vector eye = direction * (-1.0 / direction.Magnitude());
        ExpectVector(view.TowardsEye(), eye);
        EXPECT_NEAR(view.Right().DotProduct(up), 0.0, 1e-11);
        EXPECT_GT(view.Up().DotProduct(up), 0.0);
        ExpectVector(view.Right().CrossProduct(view.Up()), eye);
    }
    ExpectVector(vwr_View::Isometric().TowardsEye(), gsl_Vector(1.0, 1.0, 1.0) * std::sqrt(1.0 / 3.0));
}

// A part of these points, with no triangle: the view is fitted to the points.
vwr_Scene SceneOf(std::vector<gsl_Point> points)
{
    vwr_Scene scene;
    scene.width = 200;
    scene.height = 100;
    scene.parts.resize(1);
    scene.parts[0].points = std::move(points);
    return scene;
}

void ExpectSpot(vwr_Spot spot, double x, double y)
{
    EXPECT_NEAR(spot.x, x, 1e-9);
    EXPECT_NEAR(spot.y, y, 1e-9);
}

TEST(Viewport, AnchorsOfAllKindsAndOffsetsInMillimetres)
{
    // 20 x 2: the width decides; a unit is 0.84 * 200 / 20 pixels.
    const vwr_Viewport viewport(SceneOf({{-10, 4, 7}, {10, 6, -3}, {NAN_, 0, 0}, {0, 0, 1e300}}));
    EXPECT_DOUBLE_EQ(viewport.Scale(), 8.4);
    for (int position = 0; position <= 8; ++position)
    {
        const annC_NamedAnchor named{static_cast<annC_RelativePositionEnm>(position)};
        ExpectSpot(viewport.Place(&named), 100.0 * (position % 3), 100.0 - 50.0 * (position / 3));
    }
    const annC_ViewportAnchor given(25.0, 110.0);
    ExpectSpot(viewport.Place(&given), 50.0, -10.0);
    const annC_Point3DAnchor model(-10.0, 4.0, 0.0);
    ExpectSpot(viewport.Place(&model), 16.0, 58.4);
    ExpectSpot(viewport.Place(&model, 25.4, 12.7), 112.0, 10.4);
    ExpectSpot(viewport.Place(nullptr), 0.0, 100.0);
    EXPECT_NEAR(viewport.Project({0, 0, 7}).nearness - viewport.Project({0, 0, -3}).nearness, 84.0, 1e-9);
}

TEST(Viewport, TheViewIsFittedAsItIsSeen)
{
    vwr_Scene scene = SceneOf({{0, 0, 0}, {0, 0, 100}});
    scene.view = vwr_View::Along({0, 1, 0}, {0, 0, 1});
    const vwr_Viewport upright(scene);
    EXPECT_DOUBLE_EQ(upright.Scale(), 0.84);
    ExpectSpot(upright.Project({0, 0, 100}).spot, 100.0, 8.0);
    scene.freeAtRight = 150.0;
    ExpectSpot(vwr_Viewport(scene).Project({0, 0, 100}).spot, 25.0, 8.0);
    scene.view = vwr_View();
    EXPECT_DOUBLE_EQ(vwr_Viewport(scene).Scale(), vwr_Viewport::PIXELS_PER_MM) << "all in one point";
}

TEST(Viewport, WithoutPartsThe3DAnchorsAreFitted)
{
    annC_AnnotationContainer annotations;
    annC_Arrow arrow;
    arrow.startAnchor = annC_AnchorCow(new annC_Point3DAnchor(1000.0, 0.0, 0.0));
    arrow.endAnchor = annC_AnchorCow(new annC_Point3DAnchor(1042.0, 0.0, 0.0));
    annotations.Insert("A", arrow);
    vwr_Scene scene = SceneOf({});
    scene.annotations = &annotations;
    ExpectSpot(vwr_Viewport(scene).Place(arrow.endAnchor.AsPtr()), 184.0, 50.0);
}
}
