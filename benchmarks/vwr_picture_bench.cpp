// Pictures: a part of a million triangles to pixels, a hundred thousand annotations to SVG and PNG.

#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <annC_Text.h>
#include <annC_ViewportAnchor.h>
#include <benchmark/benchmark.h>
#include <cmath>
#include <random>
#include <vwr_MeshRaster.h>
#include <vwr_Picture.h>
#include <vwr_Scene.h>
#include <vwr_Viewport.h>

namespace
{
// A wavy sheet of so many triangles, half of them hidden.
vwr_Part Sheet(int triangles, bool edges)
{
    const int side = static_cast<int>(std::sqrt(triangles / 2.0));
    vwr_Part part;
    part.edges = edges;
    for (int y = 0; y <= side; ++y)
        for (int x = 0; x <= side; ++x)
        {
            const double u = 12.0 * x / side;
            const double v = 12.0 * y / side;
            part.points.emplace_back(u, v, 3.0 * std::sin(u) * std::cos(v));
        }
    const int row = side + 1;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
        {
            const int a = y * row + x;
            part.triangles.push_back({a, a + 1, a + row});
            part.triangles.push_back({a + 1, a + row + 1, a + row});
        }
    return part;
}

void Raster(benchmark::State& state, bool edges)
{
    vwr_Scene scene;
    scene.width = static_cast<int>(state.range(1));
    scene.height = scene.width * 3 / 4;
    scene.view = vwr_View::Along({1, 2, -0.7}, {0, 0, 1});
    scene.parts.push_back(Sheet(static_cast<int>(state.range(0)), edges));
    const auto count = static_cast<std::int64_t>(scene.parts[0].triangles.size());
    for (auto _ : state)
    {
        const vwr_Viewport viewport(scene);
        benchmark::DoNotOptimize(vwr_MeshRaster(scene, viewport).Draw());
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK_CAPTURE(Raster, Shaded, false)
    ->Args({1000000, 800})
    ->Args({1000000, 4000})
    ->Args({1000, 800})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Raster, Edges, true)->Args({1000000, 800})->Unit(benchmark::kMillisecond);

// Half arrows, half texts, all over the viewport.
void Fill(annC_AnnotationContainer& annotations, int count)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> percent(0.0, 100.0);
    for (int i = 0; i < count; ++i)
    {
        const annC_AnchorCow anchor(new annC_ViewportAnchor(percent(random), percent(random)));
        const cow_String name{std::string_view("Annotation-" + std::to_string(i))};
        if (i % 2 == 0)
        {
            annC_Arrow arrow;
            arrow.startAnchor = arrow.endAnchor = anchor;
            arrow.endPointX = 20.0;
            annotations.Insert(name, arrow);
            continue;
        }
        annC_Text text;
        text.anchor = anchor;
        text.text = "contact here";
        text.box = true;
        annotations.Insert(name, text);
    }
}

void Annotations(benchmark::State& state, std::string (*draw)(const vwr_Scene&))
{
    annC_AnnotationContainer annotations;
    Fill(annotations, static_cast<int>(state.range(0)));
    vwr_Scene scene;
    scene.annotations = &annotations;
    for (auto _ : state)
        benchmark::DoNotOptimize(draw(scene));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK_CAPTURE(Annotations, Svg, &vwr_Picture::Svg)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Annotations, Png, &vwr_Picture::Png)->Arg(10000)->Unit(benchmark::kMillisecond);
}
