// A container of many annotations: one edit or look-up at a random place, beside what a user would take: a
// std::list with an unordered index, which has to walk to tell a position.

#include <algorithm>
#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <benchmark/benchmark.h>
#include <list>
#include <memory>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

namespace
{
constexpr int COUNT = 100000;

class Sample
{
public:
    Sample()
    {
        for (int i = 0; i < COUNT; ++i)
            names_.push_back(cow_String(("Annotation-" + std::to_string(i)).c_str()));
        std::shuffle(names_.begin(), names_.end(), random_);
    }
    const cow_String& Next() { return names_[static_cast<std::size_t>(at_++ % COUNT)]; }
    const std::vector<cow_String>& Names() const { return names_; }

private:
    std::mt19937 random_{1};
    std::vector<cow_String> names_;
    long long at_ = 0;
};

annC_AnnotationContainer Filled(const Sample& sample)
{
    annC_AnnotationContainer container;
    for (const cow_String& name : sample.Names())
        container.Insert(name, new annC_Arrow);
    return container;
}

/// What the annotations cost by themselves.
void MakeAll(benchmark::State& state)
{
    for (auto _ : state)
    {
        std::vector<std::unique_ptr<annC_Arrow>> arrows(COUNT);
        for (auto& arrow : arrows)
            arrow = std::make_unique<annC_Arrow>();
        state.PauseTiming();
        arrows.clear();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * COUNT);
}

void InsertAll(benchmark::State& state)
{
    const Sample sample;
    for (auto _ : state)
    {
        annC_AnnotationContainer container = Filled(sample);
        state.PauseTiming();
        container.Clear();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * COUNT);
}

template <class Edit>
void Each(benchmark::State& state, Edit edit)
{
    Sample sample;
    annC_AnnotationContainer container = Filled(sample);
    for (auto _ : state)
        benchmark::DoNotOptimize(edit(container, sample));
}

void Find(benchmark::State& state)
{
    Each(state, [](auto& container, auto& sample) { return container.ConstGet(sample.Next()); });
}

void IndexOf(benchmark::State& state)
{
    Each(state, [](auto& container, auto& sample) { return container.IndexOf(sample.Next()); });
}

void AtIndex(benchmark::State& state)
{
    Each(state, [index = 0u](auto& container, auto&) mutable {
        return container.ConstGet((index += 7919u) % COUNT);
    });
}

void Move(benchmark::State& state)
{
    Each(state, [](auto& container, auto& sample) {
        const cow_String& name = sample.Next();
        return container.MoveAfter(name, sample.Next());
    });
}

/// There and back.
void RenameTwice(benchmark::State& state)
{
    Each(state, [](auto& container, auto& sample) {
        const cow_String& name = sample.Next();
        container.ChangeKey(name, name + cow_String("'"));
        return container.ChangeKey(name + cow_String("'"), name);
    });
}

/// What a delta costs by itself.
void PostDelta(benchmark::State& state)
{
    Each(state, [](auto& container, auto&) { return container.Get("no such annotation"); });
}

/// A position in a std::list with an index by name.
void StandardListIndexOf(benchmark::State& state)
{
    Sample sample;
    std::list<cow_String> list(sample.Names().begin(), sample.Names().end());
    std::unordered_map<cow_String, std::list<cow_String>::iterator> index;
    for (auto at = list.begin(); at != list.end(); ++at)
        index.emplace(*at, at);
    for (auto _ : state)
        benchmark::DoNotOptimize(std::distance(list.begin(), index.find(sample.Next())->second));
}

BENCHMARK(MakeAll)->Unit(benchmark::kMillisecond);
BENCHMARK(InsertAll)->Unit(benchmark::kMillisecond);
BENCHMARK(Find);
BENCHMARK(IndexOf);
BENCHMARK(AtIndex);
BENCHMARK(Move);
BENCHMARK(RenameTwice);
BENCHMARK(PostDelta);
BENCHMARK(StandardListIndexOf);
}
