// How long the directional distance takes: building a tree, the first search on two trees, later searches on
// the same trees; beside them what one would take instead: the nested search, the loop over all pairs with
// boxes rejected, and FCL's conservative advancement where the library is there.
//
// Everything is measured in one run and on one core; at the end a table shows the medians and how many times
// longer the others take. An answer that differs from the search's by more than a thousandth is counted as
// wrong.
#include "DirDistFcl.h"
#include "DirDistParts.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <bat_MeshReader.h>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <gsl_BBox.h>
#include <gsl_Plane.h>
#include <gsl_TriOctree.h>
#include <gsl_TriTriDirDist.h>
#include <gsl_Triangle.h>
#include <limits>
#include <map>
#include <memory>

namespace
{
using namespace bench_parts;
constexpr int DEPTH = 7;
constexpr double UNLIMITED = std::numeric_limits<double>::max();
// What takes longer than about a minute a case is left out of the larger sizes.
constexpr std::size_t MOST_FOR_NESTED = 12000;
constexpr std::size_t MOST_FOR_EVERY_PAIR = 12000;

gsl_Point Of(const Point& p)
{
    return {p[0], p[1], p[2]};
}

class Search : public gsl_TriTriDirDist
{
public:
    explicit Search(const Case& parts) : gsl_TriTriDirDist(DEPTH), parts_(parts)
    {
        (void)SetDirection({parts.direction[0], parts.direction[1], parts.direction[2]});
    }
    void GetFixedTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3) override
    {
        Give(parts_.fixed[static_cast<std::size_t>(index)], p1, p2, p3);
    }
    void GetMovableTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3) override
    {
        Give(parts_.movable[static_cast<std::size_t>(index)], p1, p2, p3);
    }
    static void Give(const Triangle& t, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3)
    {
        p1.Set(t[0][0], t[0][1], t[0][2]);
        p2.Set(t[1][0], t[1][1], t[1][2]);
        p3.Set(t[2][0], t[2][1], t[2][2]);
    }

private:
    const Case& parts_;
};

gsl_TriOctree Tree(const Mesh& mesh)
{
    gsl_BBox box;
    for (const Triangle& t : mesh)
        for (const Point& p : t)
            box.Add(Of(p));
    return gsl_TriOctree(box, "", gsl_TriOctree::gsl_OCTREE, DEPTH);
}

void Fill(gsl_TriOctree& tree, const Mesh& mesh)
{
    gsl_Point corner[3];
    for (std::size_t i = 0; i < mesh.size(); ++i)
    {
        Search::Give(mesh[i], corner[0], corner[1], corner[2]);
        benchmark::DoNotOptimize(tree.Root()->Add(corner[0], corner[1], corner[2], static_cast<int>(i)));
    }
}

/// A case, made when it is first measured, and given back when its last measurement is done.
struct Parts
{
    Case sets;
    gsl_TriOctree fixed = Tree(sets.fixed);
    gsl_TriOctree movable = Tree(sets.movable);
    double travel = -1;

    explicit Parts(Case made) : sets(std::move(made))
    {
        Fill(fixed, sets.fixed);
        Fill(movable, sets.movable);
        Search search(sets);
        double d = UNLIMITED;
        if (search.FindDirectionalDistance(*fixed.Root(), *movable.Root(), d))
            travel = d;
    }
};

struct Row
{
    std::string name;
    std::function<Case()> make;
    std::size_t size; // triangles a side, about
    std::shared_ptr<Parts> parts;
    std::map<std::string, double> median; // milliseconds, by method
    std::map<std::string, bool> wrong;

    Parts& Get()
    {
        if (!parts)
            parts = std::make_shared<Parts>(make());
        return *parts;
    }
};

std::vector<std::unique_ptr<Row>>& Rows()
{
    static std::vector<std::unique_ptr<Row>> rows;
    return rows;
}

/// Runs `measured` once per iteration, after `prepare`, and keeps the median of the times.
template <class Prepare, class Measured>
void Measure(benchmark::State& state, Row& row, const std::string& method, Prepare prepare, Measured measured)
{
    using Clock = std::chrono::steady_clock;
    std::vector<double> times;
    for (auto _ : state)
    {
        auto prepared = prepare();
        const Clock::time_point start = Clock::now();
        measured(*prepared);
        const std::chrono::duration<double> took = Clock::now() - start;
        state.SetIterationTime(took.count());
        times.push_back(took.count() * 1e3);
    }
    if (times.empty())
        return;
    std::nth_element(times.begin(), times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2),
                     times.end());
    row.median[method] = times[times.size() / 2];
}

/// The travel of an answer, negative for none, against the search's.
void Judge(Row& row, const std::string& method, double travel)
{
    const double right = row.Get().travel;
    row.wrong[method] = std::fabs(travel - right) > 1e-3 * std::max(1.0, std::fabs(right));
}

void AddTriangles(benchmark::State& state, Row* row)
{
    const Mesh& mesh = row->Get().sets.fixed;
    Measure(
        state, *row, "add", [&] { return std::make_unique<gsl_TriOctree>(Tree(mesh)); },
        [&](gsl_TriOctree& tree) { Fill(tree, mesh); });
}

void FirstSearch(benchmark::State& state, Row* row)
{
    Parts& parts = row->Get();
    Measure(
        state, *row, "first", [&] { return std::make_unique<Search>(parts.sets); },
        [&](Search& search) {
            double d = UNLIMITED;
            benchmark::DoNotOptimize(
                search.FindDirectionalDistance(*parts.fixed.Root(), *parts.movable.Root(), d));
        });
}

void LaterSearch(benchmark::State& state, Row* row)
{
    Parts& parts = row->Get();
    Search search(parts.sets);
    double d = UNLIMITED;
    (void)search.FindDirectionalDistance(*parts.fixed.Root(), *parts.movable.Root(), d);
    Measure(
        state, *row, "later", [&] { return &search; },
        [&](Search& same) {
            d = UNLIMITED;
            benchmark::DoNotOptimize(
                same.FindDirectionalDistance(*parts.fixed.Root(), *parts.movable.Root(), d));
        });
}

void NestedSearch(benchmark::State& state, Row* row)
{
    Parts& parts = row->Get();
    double d = UNLIMITED;
    bool found = false;
    Measure(
        state, *row, "nested", [&] { return std::make_unique<Search>(parts.sets); },
        [&](Search& search) {
            d = UNLIMITED;
            found = search.FindDirectionalDistanceNested(*parts.fixed.Root(), *parts.movable.Root(), d);
        });
    Judge(*row, "nested", found ? d : -1);
}

struct Box
{
    double low[3];
    double high[3];
};

Box BoxOf(const Triangle& t)
{
    Box box{};
    for (std::size_t k = 0; k < 3; ++k)
    {
        box.low[k] = std::min({t[0][k], t[1][k], t[2][k]});
        box.high[k] = std::max({t[0][k], t[1][k], t[2][k]});
    }
    return box;
}

/// When the movable box meets the fixed one; unlimited when it does not.
double Meet(const Box& movable, const Box& fixed, const gsl_Vector& u)
{
    double enter = 0;
    double leave = UNLIMITED;
    for (int k = 0; k < 3; ++k)
    {
        const double toTouch = fixed.low[k] - movable.high[k] - 2e-6;
        const double toPass = fixed.high[k] - movable.low[k] + 2e-6;
        const double c = k == 0 ? u.X() : k == 1 ? u.Y() : u.Z();
        if (c == 0 && (toTouch > 0 || toPass < 0))
            return UNLIMITED;
        if (c != 0)
        {
            enter = std::max(enter, (c > 0 ? toTouch : toPass) / c);
            leave = std::min(leave, (c > 0 ? toPass : toTouch) / c);
        }
    }
    return enter <= leave ? enter : UNLIMITED;
}

/// Every pair whose boxes can meet before the best so far, without any tree.
double EveryPair(Search& search, const Case& sets)
{
    const gsl_Vector u = search.Direction();
    std::vector<Box> boxes;
    Box whole = BoxOf(sets.movable.front());
    for (const Triangle& t : sets.movable)
    {
        boxes.push_back(BoxOf(t));
        for (std::size_t k = 0; k < 3; ++k)
        {
            whole.low[k] = std::min(whole.low[k], boxes.back().low[k]);
            whole.high[k] = std::max(whole.high[k], boxes.back().high[k]);
        }
    }
    double best = UNLIMITED;
    for (const Triangle& f : sets.fixed)
    {
        const Box box = BoxOf(f);
        if (Meet(whole, box, u) >= best)
            continue;
        const gsl_Triangle fixed(Of(f[0]), Of(f[1]), Of(f[2]));
        const gsl_Plane fixedPlane(fixed.Point(0), fixed.Normal());
        for (std::size_t j = 0; j < boxes.size(); ++j)
        {
            if (Meet(boxes[j], box, u) >= best)
                continue;
            const Triangle& m = sets.movable[j];
            const gsl_Triangle movable(Of(m[0]), Of(m[1]), Of(m[2]));
            if (movable.Normal().Magnitude() > 0 && fixed.Normal().Magnitude() > 0)
                (void)search.FindDirDistBetweenTriangles(
                    movable, gsl_Plane(movable.Point(0), movable.Normal()), fixed, fixedPlane, best);
        }
    }
    return best;
}

void EveryPairSearch(benchmark::State& state, Row* row)
{
    Parts& parts = row->Get();
    double d = UNLIMITED;
    Measure(
        state, *row, "every", [&] { return std::make_unique<Search>(parts.sets); },
        [&](Search& search) { d = EveryPair(search, parts.sets); });
    Judge(*row, "every", d < UNLIMITED ? d : -1);
}

#ifdef ORVEX_HAVE_FCL
void FclSearch(benchmark::State& state, Row* row)
{
    Parts& parts = row->Get();
    // Three times the travel that will be found; FCL must be told how far to go.
    const FclTravel other(parts.sets, parts.travel > 0 ? 3 * parts.travel : 10);
    double d = -1;
    Measure(
        state, *row, "fcl", [&] { return &other; }, [&](const FclTravel& fcl) { d = fcl.Find(); });
    Judge(*row, "fcl", d);
}
#endif

void LastOfRow(benchmark::State& state, Row* row)
{
    for (auto _ : state)
        row->parts.reset();
}

void Register(const std::string& name, std::size_t size, std::function<Case()> make)
{
    Rows().push_back(std::make_unique<Row>(Row{name, std::move(make), size, nullptr, {}, {}}));
    Row* row = Rows().back().get();
    const auto add = [&](const char* method, void (*run)(benchmark::State&, Row*), bool once) {
        auto* registered = benchmark::RegisterBenchmark(
            (std::string(method) + "/" + name + "/" + std::to_string(size)).c_str(), run, row);
        registered->UseManualTime()->Unit(benchmark::kMillisecond);
        if (once)
            registered->Iterations(1);
        else
            registered->MinTime(size > 20000 ? 0.5 : 0.1);
    };
    add("add", AddTriangles, false);
    add("first", FirstSearch, false);
    add("later", LaterSearch, false);
    if (size <= MOST_FOR_NESTED)
        add("nested", NestedSearch, true);
    if (size <= MOST_FOR_EVERY_PAIR || name == "sphere")
        add("every", EveryPairSearch, true);
#ifdef ORVEX_HAVE_FCL
    add("fcl", FclSearch, true);
#endif
    benchmark::RegisterBenchmark(("done/" + name + "/" + std::to_string(size)).c_str(), LastOfRow, row)
        ->Iterations(1);
}

void RegisterMade()
{
    for (const char* name : {"sphere", "torus", "heightfield", "thread", "pin", "slivers", "slivers-crossed"})
        for (const int size : {1000, 10000, 100000})
            Register(name, static_cast<std::size_t>(size), [name, size] { return MakeCase(name, size); });
}

void RegisterScanned(const std::filesystem::path& models)
{
    const std::filesystem::path gear = models / "gearwheel.stl";
    const std::filesystem::path bunny = models / "bunny.stl";
    if (!std::filesystem::exists(gear) || !std::filesystem::exists(bunny))
        return;
    const auto read = [](const std::filesystem::path& file) {
        const bat_TriangleMesh scanned = bat_ReadMesh(file.string());
        Mesh mesh(scanned.Length());
        for (std::size_t i = 0; i < mesh.size(); ++i)
            for (std::size_t k = 0; k < 3; ++k)
                std::copy_n(scanned.Corner(i, k), 3, mesh[i][k].begin());
        return mesh;
    };
    const auto make = [=] { return Case{"bunny on gear", read(gear), read(bunny), {0, 0, -1}}; };
    Register("bunny-on-gear", make().movable.size(), make);
}

void Cell(const Row& row, const char* method, const char* against)
{
    const auto own = row.median.find(method);
    if (own == row.median.end())
    {
        std::printf(against != nullptr ? " %22s" : " %9s", "-");
        return;
    }
    if (against == nullptr)
    {
        std::printf(" %9.3f", own->second);
        return;
    }
    const auto base = row.median.find(against);
    const auto wrong = row.wrong.find(method);
    char text[64];
    std::snprintf(text, sizeof text, "%.1f (x%.0f)%s", own->second,
                  base == row.median.end() ? 0.0 : own->second / base->second,
                  wrong != row.wrong.end() && wrong->second ? " wrong" : "");
    std::printf(" %22s", text);
}

void PrintTable()
{
    std::printf("\nmilliseconds, medians; in brackets how many times the first search\n");
    std::printf("%-16s %9s %9s %9s %9s %22s %22s %22s\n", "case", "triangles", "add a set", "first", "later",
                "nested", "every pair", "FCL");
    int asked = 0;
    int wrong = 0;
    for (const auto& row : Rows())
    {
        if (row->median.empty())
            continue;
        std::printf("%-16s %9zu", row->name.c_str(), row->size);
        for (const char* method : {"add", "first", "later"})
            Cell(*row, method, nullptr);
        for (const char* method : {"nested", "every", "fcl"})
            Cell(*row, method, "first");
        std::printf("\n");
        if (const auto fcl = row->wrong.find("fcl"); fcl != row->wrong.end())
        {
            ++asked;
            wrong += fcl->second;
        }
    }
    if (asked > 0)
        std::printf("FCL's answer was wrong in %d of %d cases.\n", wrong, asked);
}
}

int main(int argc, char** argv)
{
    RegisterMade();
    RegisterScanned(std::filesystem::path(argv[0]).parent_path().parent_path() / "models");
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    PrintTable();
    return 0;
}
