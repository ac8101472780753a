// What the text of a number costs against std::to_chars and snprintf with the same fifteen digits: into the
// caller's buffer (WriteText), and as a new cow_String (AsString). The ratios are of the best rounds, with
// the ways taking turns, so that another load on the machine hits all of them.

#include <omu_NumberText.h>
#include <omu_PrimNumber.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <limits>
#include <random>
#include <vector>

namespace
{
using Numbers = std::vector<omu_PrimNumber>;
constexpr int COUNT = 4096;

/// Coordinates as they come out of a computation: nearly all need 16 or 17 digits.
double Computed(std::mt19937_64& random)
{
    return std::uniform_real_distribution<>(-1000.0, 1000.0)(random);
}
/// Coordinates as people type them.
double Typed(std::mt19937_64& random)
{
    return static_cast<double>(random() % 1'000'000) / 1000.0;
}
double Integral(std::mt19937_64& random)
{
    return static_cast<double>(random() % 1'000'000);
}
double AnyBits(std::mt19937_64& random)
{
    return std::bit_cast<double>(random());
}

using Draw = double (*)(std::mt19937_64&);

Numbers Drawn(Draw draw)
{
    std::mt19937_64 random(1);
    Numbers numbers;
    for (int i = 0; i < COUNT; ++i)
        numbers.emplace_back(draw(random));
    return numbers;
}

struct ToChars
{
    static void Do(const omu_PrimNumber& number)
    {
        char text[omu_NumberText::SIZE];
        char* end =
            std::to_chars(text, text + sizeof text, number.Value(), std::chars_format::general, 15).ptr;
        benchmark::DoNotOptimize(end);
        benchmark::ClobberMemory();
    }
};

struct Snprintf
{
    static void Do(const omu_PrimNumber& number)
    {
        char text[omu_NumberText::SIZE];
        int length = std::snprintf(text, sizeof text, "%.15lg", number.Value());
        benchmark::DoNotOptimize(length);
        benchmark::ClobberMemory();
    }
};

struct WriteText
{
    static void Do(const omu_PrimNumber& number)
    {
        char text[omu_NumberText::SIZE];
        char* end = number.WriteText(text);
        benchmark::DoNotOptimize(end);
        benchmark::ClobberMemory();
    }
};

struct AsString
{
    static void Do(const omu_PrimNumber& number)
    {
        cow_String text = number.AsString(0);
        benchmark::DoNotOptimize(text);
    }
};

template <class Way>
void Measure(benchmark::State& state, Draw draw)
{
    const Numbers numbers = Drawn(draw);
    for (auto _ : state)
        for (const omu_PrimNumber& number : numbers)
            Way::Do(number);
    state.SetItemsProcessed(state.iterations() * COUNT);
}

template <class Way>
double SecondsFor(const Numbers& numbers)
{
    const auto start = std::chrono::steady_clock::now();
    for (const omu_PrimNumber& number : numbers)
        Way::Do(number);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void Ratios(benchmark::State& state, Draw draw)
{
    const Numbers numbers = Drawn(draw);
    constexpr double NEVER = std::numeric_limits<double>::infinity();
    double toChars = NEVER;
    double print = NEVER;
    double write = NEVER;
    double asString = NEVER;
    for (auto _ : state)
    {
        toChars = std::min(toChars, SecondsFor<ToChars>(numbers));
        write = std::min(write, SecondsFor<WriteText>(numbers));
        asString = std::min(asString, SecondsFor<AsString>(numbers));
        print = std::min(print, SecondsFor<Snprintf>(numbers));
    }
    state.counters["to_chars_ns"] = toChars / COUNT * 1e9;
    state.counters["WriteText/to_chars"] = write / toChars;
    state.counters["AsString/to_chars"] = asString / toChars;
    state.counters["snprintf/to_chars"] = print / toChars;
}

void RegisterAll()
{
    struct Set
    {
        const char* name;
        Draw draw;
    };
    for (const Set& set : {Set{"Computed", &Computed}, Set{"Typed", &Typed}, Set{"Integral", &Integral},
                           Set{"AnyBits", &AnyBits}})
    {
        const std::string name = std::string("/") + set.name;
        benchmark::RegisterBenchmark(("WriteText" + name).c_str(), &Measure<WriteText>, set.draw);
        benchmark::RegisterBenchmark(("AsString" + name).c_str(), &Measure<AsString>, set.draw);
        benchmark::RegisterBenchmark(("ToChars" + name).c_str(), &Measure<ToChars>, set.draw);
        benchmark::RegisterBenchmark(("Snprintf" + name).c_str(), &Measure<Snprintf>, set.draw);
        benchmark::RegisterBenchmark(("Ratios" + name).c_str(), &Ratios, set.draw)->Iterations(300);
    }
}

const bool registered = (RegisterAll(), true);
}
