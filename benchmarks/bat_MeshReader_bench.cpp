// How fast the mesh readers are: a binary STL of a million triangles from a warm file, against the plainest
// loop that gets at the same corners; the text formats per byte; the cutting of one large polygon.

#include <bat_MeshReader.h>
#include <bat_PolygonCutter.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <unistd.h>

namespace
{
constexpr std::size_t HEADER = 84;
constexpr std::size_t FACET = 50;
constexpr int SIDE = 708; // 2 * 708 * 708 triangles: a million

float Height(int i, int j)
{
    return 0.25F * static_cast<float>(std::sin(0.1 * i) * std::cos(0.07 * j));
}

template <class Visit>
void ForEachTriangle(int side, const Visit& visit)
{
    for (int i = 0; i < side; ++i)
    {
        for (int j = 0; j < side; ++j)
        {
            visit(i, j, i + 1, j, i + 1, j + 1);
            visit(i, j, i + 1, j + 1, i, j + 1);
        }
    }
}

std::string BinaryStl(int side)
{
    std::string bytes(80, '\0');
    const auto count = static_cast<std::uint32_t>(2 * side * side);
    bytes.append(reinterpret_cast<const char*>(&count), sizeof count);
    ForEachTriangle(side, [&](int a, int b, int c, int d, int e, int f) {
        const float numbers[12] = {0,        0,        1,
                                   float(a), float(b), Height(a, b),
                                   float(c), float(d), Height(c, d),
                                   float(e), float(f), Height(e, f)};
        bytes.append(reinterpret_cast<const char*>(numbers), sizeof numbers);
        bytes.append(2, '\0');
    });
    return bytes;
}

std::string AsciiStl(int side)
{
    std::string text = "solid field\n";
    ForEachTriangle(side, [&](int a, int b, int c, int d, int e, int f) {
        char facet[400];
        std::snprintf(
            facet, sizeof facet,
            "facet normal 0 0 1\n outer loop\n  vertex %d %d %.7g\n  vertex %d %d %.7g\n  vertex %d %d "
            "%.7g\n endloop\nendfacet\n",
            a, b, double(Height(a, b)), c, d, double(Height(c, d)), e, f, double(Height(e, f)));
        text += facet;
    });
    return text + "endsolid field\n";
}

// OBJ and OFF: the grid's vertices, then its triangles; first is the index of the first vertex.
std::string Indexed(int side, const std::string& head, const char* vertex, const char* face, int first)
{
    std::string text = head;
    char line[100];
    for (int i = 0; i <= side; ++i)
    {
        for (int j = 0; j <= side; ++j)
        {
            std::snprintf(line, sizeof line, "%s%d %d %.7g\n", vertex, i, j, double(Height(i, j)));
            text += line;
        }
    }
    ForEachTriangle(side, [&](int a, int b, int c, int d, int e, int f) {
        const auto index = [&](int i, int j) { return first + i * (side + 1) + j; };
        std::snprintf(line, sizeof line, "%s%d %d %d\n", face, index(a, b), index(c, d), index(e, f));
        text += line;
    });
    return text;
}

/// A file of a million triangles, removed at the end.
class MillionFile
{
public:
    MillionFile()
        : path_(std::filesystem::temp_directory_path() /
                ("orvex-million-" + std::to_string(::getpid()) + ".stl"))
    {
        const std::string bytes = BinaryStl(SIDE);
        std::ofstream(path_, std::ios::binary)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    ~MillionFile() { std::filesystem::remove(path_); }

    static std::string Path()
    {
        static const MillionFile file;
        return file.path_.string();
    }

private:
    std::filesystem::path path_;
};

void CountBytes(benchmark::State& state, std::size_t bytes)
{
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

void MillionTriangles(benchmark::State& state)
{
    const std::string path = MillionFile::Path();
    for ([[maybe_unused]] auto _ : state)
    {
        benchmark::DoNotOptimize(bat_ReadMesh(path).Coordinates().data());
    }
    CountBytes(state, std::filesystem::file_size(path));
}

// What one would write at first: no check of counts or numbers.
void MillionTrianglesByFreadAndMemcpy(benchmark::State& state)
{
    const std::string path = MillionFile::Path();
    const std::size_t size = std::filesystem::file_size(path);
    for ([[maybe_unused]] auto _ : state)
    {
        std::vector<char> bytes(size);
        std::FILE* file = std::fopen(path.c_str(), "rb");
        if (!file || std::fread(bytes.data(), 1, size, file) != size)
        {
            state.SkipWithError("cannot read the file");
        }
        std::fclose(file);
        std::vector<double> corners(9 * ((size - HEADER) / FACET));
        double* out = corners.data();
        for (std::size_t at = HEADER; at < size; at += FACET, out += 9)
        {
            float numbers[9];
            std::memcpy(numbers, bytes.data() + at + 12, sizeof numbers);
            for (int k = 0; k < 9; ++k)
            {
                out[k] = double(numbers[k]);
            }
        }
        benchmark::DoNotOptimize(corners.data());
    }
    CountBytes(state, size);
}

void ParseText(benchmark::State& state, const std::string& text)
{
    for ([[maybe_unused]] auto _ : state)
    {
        benchmark::DoNotOptimize(bat_ParseMesh(text, "grid").Coordinates().data());
    }
    CountBytes(state, text.size());
}

void HundredThousandAsciiStl(benchmark::State& state)
{
    ParseText(state, AsciiStl(224));
}

void HundredThousandObj(benchmark::State& state)
{
    ParseText(state, Indexed(224, "", "v ", "f ", 1));
}

void HundredThousandOff(benchmark::State& state)
{
    const std::string head =
        "OFF\n" + std::to_string(225 * 225) + " " + std::to_string(2 * 224 * 224) + " 0\n";
    ParseText(state, Indexed(224, head, "", "3 ", 0));
}

// A comb: every second corner is blunt, and no triangle fan suits it.
void CutComb(benchmark::State& state)
{
    std::vector<double> comb;
    const auto teeth = static_cast<int>(state.range(0) / 2 - 1);
    for (int i = 0; i <= teeth; ++i)
    {
        comb.insert(comb.end(), {double(2 * i), 1.0, 0.0, double(2 * i + 1), 20.0, 0.0});
    }
    comb.insert(comb.end(), {double(2 * teeth + 2), 0.0, 0.0, -1.0, 0.0, 0.0});
    bat_PolygonCutter cutter;
    for ([[maybe_unused]] auto _ : state)
    {
        benchmark::DoNotOptimize(cutter.Cut(comb).data());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
}

BENCHMARK(MillionTriangles)->Unit(benchmark::kMillisecond);
BENCHMARK(MillionTrianglesByFreadAndMemcpy)->Unit(benchmark::kMillisecond);
BENCHMARK(HundredThousandAsciiStl)->Unit(benchmark::kMillisecond);
BENCHMARK(HundredThousandObj)->Unit(benchmark::kMillisecond);
BENCHMARK(HundredThousandOff)->Unit(benchmark::kMillisecond);
BENCHMARK(CutComb)->Arg(100)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);
