// Mementos in memory: a long list of doubles against copying its bytes into memory allocated just then, and
// containers of many small objects; both against Protocol Buffers, where they were found.

#include <KTLOxuGeom.h>
#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <benchmark/benchmark.h>
#include <bio_Crc32c.h>
#include <idb_MementoRead.h>
#include <idb_MementoWrite.h>
#include <omu_PrimArray.h>
#include <omu_PrimDictionary.h>
#include <omu_PrimString.h>

#ifdef ORVEX_HAVE_PROTOBUF
#include <memento_records.pb.h>
#endif

#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace
{
using Bytes = std::vector<unsigned char>;

void StartLibrary()
{
    static int running = 0;
    if (running == 0)
        KTLOxuGeom_initialize(running);
}

cow_List<double> Doubles(int count)
{
    cow_List<double> list = cow_List<double>::Filled(count, 0.0);
    double* const values = list.WriteData();
    for (int i = 0; i < count; ++i)
        values[i] = i * 0.1;
    return list;
}

template <class T>
Bytes Written(const T& value)
{
    idb_MementoWrite memento;
    memento.Add("value", value);
    memento.Finish();
    return memento.TakeBytes();
}

void SetRate(benchmark::State& state)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * state.range(0) * 8);
}

void CopyIntoFreshMemory(benchmark::State& state)
{
    const cow_List<double> list = Doubles(static_cast<int>(state.range(0)));
    const std::size_t bytes = static_cast<std::size_t>(list.Length()) * sizeof(double);
    for (auto _ : state)
    {
        const std::unique_ptr<char[]> fresh(new char[bytes]);
        std::memcpy(fresh.get(), list.Data(), bytes);
        benchmark::DoNotOptimize(fresh.get());
        benchmark::ClobberMemory();
    }
    SetRate(state);
}

void DoublesToMemento(benchmark::State& state)
{
    StartLibrary();
    const omu_PrimArray array(Doubles(static_cast<int>(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(Written(array).data());
    SetRate(state);
}

void DoublesFromMemento(benchmark::State& state)
{
    StartLibrary();
    const Bytes bytes = Written(omu_PrimArray(Doubles(static_cast<int>(state.range(0)))));
    for (auto _ : state)
    {
        cow_COW<omu_Primitive> array;
        idb_MementoRead(bytes).Root("value", array);
        benchmark::DoNotOptimize(array.AsPtr());
    }
    SetRate(state);
}

void Checksum(benchmark::State& state)
{
    const Bytes bytes(static_cast<std::size_t>(state.range(0)) * 8, 7);
    for (auto _ : state)
        benchmark::DoNotOptimize(bio_Crc32c(bytes));
    SetRate(state);
}

// Texts by name, and arrows with two anchors each.
void Fill(omu_PrimDictionary<cow_String>& container, const cow_String& name)
{
    container.Put(name, omu_PrimString(name));
}
void Fill(annC_AnnotationContainer& container, const cow_String& name)
{
    container.Insert(name, annC_Arrow());
}

template <class C>
C Container(benchmark::State& state)
{
    StartLibrary();
    C container;
    for (int i = 0; i < static_cast<int>(state.range(0)); ++i)
        Fill(container, cow_String("name-" + std::to_string(i)));
    return container;
}

template <class C>
void ObjectsToMemento(benchmark::State& state)
{
    const C container = Container<C>(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(Written(container).data());
}

template <class C>
void ObjectsFromMemento(benchmark::State& state)
{
    const Bytes bytes = Written(Container<C>(state));
    for (auto _ : state)
    {
        const std::unique_ptr<cls_Persistent> container = idb_MementoRead(bytes).Root("value");
        benchmark::DoNotOptimize(container.get());
    }
}

#ifdef ORVEX_HAVE_PROTOBUF
void FillMessage(memento_records::Doubles& doubles, int count)
{
    for (int i = 0; i < count; ++i)
        doubles.add_values(i * 0.1);
}
void FillMessage(memento_records::Texts& texts, int count)
{
    for (int i = 0; i < count; ++i)
        (*texts.mutable_texts())["name-" + std::to_string(i)] = "name-" + std::to_string(i);
}
void FillMessage(memento_records::Annotations& annotations, int count)
{
    const std::string id(sizeof(cls_Uid::Bytes), 'i');
    for (int i = 0; i < count; ++i)
    {
        memento_records::Annotation& annotation = *annotations.add_annotations();
        annotation.set_name("name-" + std::to_string(i));
        memento_records::Arrow& arrow = *annotation.mutable_arrow();
        arrow.set_id(id);
        arrow.set_start_x(0);
        arrow.set_start_y(0);
        arrow.set_end_x(0);
        arrow.set_end_y(0);
        for (memento_records::Anchor* anchor : {arrow.mutable_start_anchor(), arrow.mutable_end_anchor()})
        {
            anchor->set_id(id);
            anchor->set_position(0);
        }
        arrow.set_start_head_style(0);
        arrow.set_end_head_style(1);
        arrow.set_start_gap(0);
        arrow.set_end_gap(0);
        arrow.set_color("White");
        arrow.set_line_style(0);
        arrow.set_line_thickness(0);
    }
}

template <class M>
void ToProtobuf(benchmark::State& state)
{
    M message;
    FillMessage(message, static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(message.SerializeAsString().data());
}

template <class M>
void FromProtobuf(benchmark::State& state)
{
    M message;
    FillMessage(message, static_cast<int>(state.range(0)));
    const std::string bytes = message.SerializeAsString();
    for (auto _ : state)
    {
        M read;
        benchmark::DoNotOptimize(read.ParseFromString(bytes));
    }
}
#endif

using Texts = omu_PrimDictionary<cow_String>;
using Annotations = annC_AnnotationContainer;

#define ORVEX_SIZES ->Arg(100'000)->Arg(1'000'000)->Arg(10'000'000)->Unit(benchmark::kMillisecond)
BENCHMARK(CopyIntoFreshMemory) ORVEX_SIZES;
BENCHMARK(DoublesToMemento) ORVEX_SIZES;
BENCHMARK(DoublesFromMemento) ORVEX_SIZES;
BENCHMARK(Checksum) ORVEX_SIZES;
BENCHMARK(ObjectsToMemento<Texts>)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ObjectsFromMemento<Texts>)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ObjectsToMemento<Annotations>)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ObjectsFromMemento<Annotations>)->Arg(100'000)->Unit(benchmark::kMillisecond);
#ifdef ORVEX_HAVE_PROTOBUF
BENCHMARK(ToProtobuf<memento_records::Doubles>) ORVEX_SIZES;
BENCHMARK(FromProtobuf<memento_records::Doubles>) ORVEX_SIZES;
BENCHMARK(ToProtobuf<memento_records::Texts>)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(FromProtobuf<memento_records::Texts>)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ToProtobuf<memento_records::Annotations>)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(FromProtobuf<memento_records::Annotations>)->Arg(100'000)->Unit(benchmark::kMillisecond);
#endif
}
