// Parts: what lies nearer hides what lies behind, edges, and triangles that cannot be drawn.

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <random>
#include <regex>
#include <vwr_FeatureEdges.h>
#include <vwr_MeshRaster.h>
#include <vwr_Scene.h>
#include <vwr_Viewport.h>

namespace
{
using Triangle = std::array<int, 3>;
constexpr int SIZE = 60;
constexpr double NOT = std::numeric_limits<double>::quiet_NaN();

vwr_Image Drawn(const vwr_Scene& scene)
{
    return vwr_MeshRaster(scene, vwr_Viewport(scene)).Draw();
}

vwr_Scene SceneOf(std::vector<vwr_Part> parts)
{
    vwr_Scene scene;
    scene.width = scene.height = SIZE;
    scene.parts = std::move(parts);
    return scene;
}

// From 0 to 1 along each axis; triangles without shared corners, as STL files give them.
vwr_Part Cube(bool shaded, bool edges)
{
    vwr_Part cube;
    cube.shaded = shaded;
    cube.edges = edges;
    const Triangle faces[] = {{0, 2, 1}, {1, 2, 3}, {4, 5, 6}, {5, 7, 6}, {0, 1, 4}, {1, 5, 4},
                              {2, 6, 3}, {3, 6, 7}, {0, 4, 2}, {2, 4, 6}, {1, 3, 5}, {3, 7, 5}};
    for (const Triangle& face : faces)
    {
        const int first = static_cast<int>(cube.points.size());
        for (const int corner : face)
            cube.points.emplace_back(corner & 1, corner >> 1 & 1, corner >> 2);
        cube.triangles.push_back({first, first + 1, first + 2});
    }
    return cube;
}

int Reds(std::uint32_t pixel)
{
    return pixel >> 16 & 255;
}
// The number of the part, a triangle, nearest to the eye at a point of the picture; -1 for none, -2 where a
// side passes within a pixel, or two are about equally near.
int Nearest(const vwr_Scene& scene, const vwr_Viewport& viewport, vwr_Spot at)
{
    int nearest = -1;
    double best = -std::numeric_limits<double>::infinity();
    for (std::size_t t = 0; t < scene.parts.size(); ++t)
    {
        const auto seen = [&](std::size_t i) { return viewport.Project(scene.parts[t].points[i % 3]); };
        std::array<double, 3> area;
        double least = 1e9;
        double z = 0.0;
        const auto cross = [](vwr_Spot a, vwr_Spot b) { return a.x * b.y - a.y * b.x; };
        const double whole = cross(seen(1).spot - seen(0).spot, seen(2).spot - seen(0).spot);
        for (std::size_t i = 0; i < 3; ++i)
        {
            const vwr_Spot side = seen(i + 2).spot - seen(i + 1).spot;
            area[i] = cross(side, at - seen(i + 1).spot) / whole;
            least = std::min(least, area[i] * std::fabs(whole) / std::hypot(side.x, side.y));
            z += area[i] * seen(i).nearness;
        }
        if (std::fabs(least) < 1.0 || (least > 0.0 && std::fabs(z - best) < 5.0))
            return -2;
        if (least > 0.0 && z > best)
        {
            best = z;
            nearest = static_cast<int>(t);
        }
    }
    return nearest;
}

TEST(MeshRaster, ShowsTheNearestTriangleOfARandomHeap)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> draw(0.0, 10.0);
    std::map<int, int> seen;
    for (int heap = 0; heap < 20; ++heap)
    {
        std::vector<vwr_Part> parts(12);
        for (std::size_t t = 0; t < parts.size(); ++t)
        {
            for (int corner = 0; corner < 3; ++corner)
                parts[t].points.emplace_back(draw(random), draw(random),
                                             0.2 * draw(random) + static_cast<double>(t));
            parts[t].triangles = {{0, 1, 2}};
            // Told apart by the parts of green and blue, whatever the light.
            parts[t].color =
                g3d_Color(1.0f, static_cast<float>(t % 4) / 3.0f, static_cast<float>(t / 4) / 2.0f);
        }
        std::shuffle(parts.begin(), parts.end(), random);
        const vwr_Scene scene = SceneOf(parts);
        const vwr_Viewport viewport(scene);
        const vwr_Image image = Drawn(scene);
        for (int y = 0; y < SIZE; ++y)
            for (int x = 0; x < SIZE; ++x)
            {
                const int nearest = Nearest(scene, viewport, {x + 0.5, y + 0.5});
                ++seen[nearest];
                const std::uint32_t pixel = nearest == -2 ? 0u : image.At(x, y);
                EXPECT_EQ(pixel >> 24, nearest < 0 ? 0u : 255u);
                if (nearest < 0)
                    continue;
                const g3d_Color& color = parts[static_cast<std::size_t>(nearest)].color;
                EXPECT_NEAR(pixel >> 8 & 255, Reds(pixel) * static_cast<double>(color.Green()), 1.5)
                    << x << ' ' << y;
                EXPECT_NEAR(pixel & 255, Reds(pixel) * static_cast<double>(color.Blue()), 1.5)
                    << x << ' ' << y;
            }
    }
    EXPECT_GT(seen[-1], 1000);
    EXPECT_EQ(seen.size(), 14u) << "each of the twelve, none, and those that are not judged";
}

TEST(MeshRaster, ClosedSurfacesHaveNoHolesAndBandsNoSeams)
{
    vwr_Part tower = Cube(true, false);
    for (gsl_Point& p : tower.points)
        p.Set(p.X(), p.Y(), 20.0 * p.Z());
    vwr_Scene scene = SceneOf({tower});
    scene.height = 600; // several bands of rows
    scene.view = vwr_View::Along({1, 2, -0.1}, {0, 0, 1});
    const vwr_Image image = Drawn(scene);
    for (int y = 60; y < 540; ++y)
    {
        // In each row the covered pixels stand together, all but the outer ones fully.
        std::string row;
        for (int x = 0; x < scene.width; ++x)
            row += " .#"[image.At(x, y) == 0 ? 0 : image.At(x, y) >> 24 < 255 ? 1 : 2];
        EXPECT_TRUE(std::regex_match(row, std::regex(" +\\.?#+\\.? +"))) << y << row;
    }
}

TEST(MeshRaster, LightTellsTheSidesOfABoxApartAndBothSidesOfATriangleAlike)
{
    vwr_Scene scene = SceneOf({Cube(true, false)});
    scene.view = vwr_View::Isometric();
    const vwr_Image image = Drawn(scene);
    EXPECT_GT(Reds(image.At(30, 20)), Reds(image.At(20, 38)) + 15) << "top and left";
    EXPECT_GT(Reds(image.At(20, 38)), Reds(image.At(40, 38)) + 15) << "left and right";
    for (Triangle& triangle : scene.parts[0].triangles)
        std::swap(triangle[0], triangle[1]);
    EXPECT_EQ(Drawn(scene).pixels, image.pixels);
}

TEST(MeshRaster, HiddenLinesAreHidden)
{
    vwr_Part cube = Cube(false, true);
    cube.color = g3d_White;
    vwr_Scene scene = SceneOf({cube});
    scene.width = scene.height = 200;
    scene.view = vwr_View::Isometric();
    const vwr_Viewport viewport(scene);
    const vwr_Image image = Drawn(scene);
    // How white the picture is at parts of the way between two corners of the cube.
    const auto seen = [&](int a, int b) {
        int white = 0;
        for (const double t : {0.25, 0.4, 0.6, 0.75})
        {
            const auto at = [t](int from, int to) { return (1.0 - t) * from + t * to; };
            const vwr_Spot s =
                viewport.Project({at(a & 1, b & 1), at(a >> 1 & 1, b >> 1 & 1), at(a >> 2, b >> 2)}).spot;
            white += Reds(image.At(static_cast<int>(s.x), static_cast<int>(s.y))) > 100;
        }
        return white == 4 ? 1 : white == 0 ? 0 : -1;
    };
    for (int corner = 0; corner < 8; ++corner)
        for (const int axis : {1, 2, 4})
            if ((corner & axis) == 0)
            {
                EXPECT_EQ(seen(corner, corner | axis), corner == 0 ? 0 : 1) << corner << ' ' << axis;
            }
    EXPECT_EQ(seen(4, 7), 0) << "the diagonal of a side is no edge";
}

vwr_Part PartOf(std::vector<gsl_Point> points, std::vector<Triangle> triangles)
{
    vwr_Part part;
    part.points = std::move(points);
    part.triangles = std::move(triangles);
    return part;
}
TEST(FeatureEdges, AreBordersSharpBendsAndOutlines)
{
    const std::vector<gsl_Point> roof = {{0, 0, 0}, {1, 0, 0}, {0.5, 1, 0.1}, {0.5, -1, 0.1}};
    std::vector<gsl_Point> steep = roof;
    steep[2].Set(0.5, 1, 0.6);
    const auto count = [](const std::vector<gsl_Point>& points, const gsl_Vector& eye) {
        return vwr_FeatureEdges(PartOf(points, {{0, 1, 2}, {0, 1, 3}}), eye).size();
    };
    EXPECT_EQ(count(roof, {0, 0, 1}), 4u) << "however the triangles are turned";
    EXPECT_EQ(count(steep, {0, 0, 1}), 5u);
    EXPECT_EQ(count(roof, {0, 1, 0}), 5u) << "seen along the roof";
}

TEST(MeshRaster, NothingBreaksIt)
{
    vwr_Scene scene = SceneOf({PartOf({{0, 0, 0}, {1, 0, 0}, {NOT, 1, 0}, {1e300, 0, 0}, {0, 1, 0}},
                                      {{0, 1, 2}, {0, 1, 3}, {0, 1, 99}, {-1, 0, 1}})});
    scene.parts[0].edges = true;
    EXPECT_EQ(Drawn(scene).pixels, vwr_Image({SIZE, SIZE, std::vector<std::uint32_t>(SIZE * SIZE)}).pixels);
    scene.parts[0].triangles = {{0, 1, 4}};
    scene.parts[0].color = g3d_Color(static_cast<float>(NOT), 9.0f, -1.0f);
    scene.parts.push_back(scene.parts[0]);
    scene.parts[1].color = g3d_Color(1.0f, 0.0f, 0.0f);
    EXPECT_EQ(Drawn(scene).At(20, 45) & 0xFF00FF, 0u) << "clamped; of two equally near the first";
}
}
