// Long paths: chains of shortcuts and path texts. The time for a step stays the same however long the path
// is.

#include <benchmark/benchmark.h>
#include <omu_PathString.h>
#include <omu_SimpleDictShortcutImpl.h>
#include <omu_SimpleMemShortcutImpl.h>
#include <omu_SimpleTermShortcutImpl.h>
#include <string>

namespace
{
omu_Shortcut Chain(int steps)
{
    omu_Shortcut chain = omu_SimpleTermShortcutImpl("mdb", true);
    for (int i = 0; i < steps; i += 2)
    {
        chain = omu_SimpleMemShortcutImpl(chain, "parts");
        chain = omu_SimpleDictShortcutImpl(chain, "", "Part-1");
    }
    return chain;
}

void BuildAndDestroyChain(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(Chain(static_cast<int>(state.range(0))));
    state.SetComplexityN(state.range(0));
}

void ChainPath(benchmark::State& state)
{
    const omu_Shortcut chain = Chain(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(chain.Path());
    state.SetComplexityN(state.range(0));
}

void ChainInModel(benchmark::State& state)
{
    const omu_Shortcut chain = Chain(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(chain.InModel());
    state.SetComplexityN(state.range(0));
}

void ChainEqual(benchmark::State& state)
{
    const omu_Shortcut chain = Chain(static_cast<int>(state.range(0)));
    const omu_Shortcut twin = Chain(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(chain == twin);
    state.SetComplexityN(state.range(0));
}

void SplitPath(benchmark::State& state)
{
    const cow_String path = Chain(static_cast<int>(state.range(0))).Path();
    for (auto _ : state)
        benchmark::DoNotOptimize(omu_PathString(path).GetPathAsList());
    state.SetComplexityN(state.range(0));
}

void SplitAndRebuildPath(benchmark::State& state)
{
    const cow_String path = Chain(static_cast<int>(state.range(0))).Path();
    for (auto _ : state)
    {
        const omu_PathString text(path);
        std::string joined;
        for (const cow_String& part : text.GetPathAsList())
            joined += part.View();
        benchmark::DoNotOptimize(joined);
        benchmark::DoNotOptimize(text.AsGenericString());
        benchmark::DoNotOptimize(text.AsDottedString());
    }
    state.SetComplexityN(state.range(0));
}
}

BENCHMARK(BuildAndDestroyChain)->RangeMultiplier(10)->Range(10, 100000)->Complexity();
BENCHMARK(ChainPath)->RangeMultiplier(10)->Range(10, 100000)->Complexity();
BENCHMARK(ChainInModel)->RangeMultiplier(10)->Range(10, 100000)->Complexity();
BENCHMARK(ChainEqual)->RangeMultiplier(10)->Range(10, 100000)->Complexity();
BENCHMARK(SplitPath)->RangeMultiplier(10)->Range(10, 100000)->Complexity();
BENCHMARK(SplitAndRebuildPath)->RangeMultiplier(10)->Range(10, 100000)->Complexity();
