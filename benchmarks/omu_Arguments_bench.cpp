// What a command pays to read its arguments, and what long sequences cost.
//
// Five keyword arguments: the values are given, the reader is built over them, five reads, End. The budget is
// half a microsecond. A million numbers: against std::vector<double> filled one by one, and against the same
// numbers as one object each, which is what a list of values is where nothing is done about it.

#include <omu_Arguments.h>
#include <omu_Get.h>
#include <omu_PrimArray.h>
#include <omu_PrimList.h>
#include <omu_PrimString.h>

#include <benchmark/benchmark.h>

#include <vector>

namespace
{
constexpr int MILLION = 1000000;
using DataTypeConst = omu_PrimEnum<omu_PrimNumber::DataTypeEnm, 1>;

const cow_String KEYWORDS[] = {"count", "scale", "name", "point", "type"};

omu_Arguments::Keyworded FiveKeywords()
{
    omu_PrimTuple point;
    point.Put(1.5);
    point.Put(2.5);
    omu_Arguments::Keyworded keywords;
    keywords.Reserve(5);
    keywords.Put(KEYWORDS[0], new omu_PrimNumber(7));
    keywords.Put(KEYWORDS[1], new omu_PrimNumber(0.25));
    keywords.Put(KEYWORDS[2], new omu_PrimString("Part-1"));
    keywords.Put(KEYWORDS[3], new omu_PrimTuple(point));
    keywords.Put(KEYWORDS[4], new omu_PrimEnumBase("FLOAT"));
    return keywords;
}

struct FiveArguments
{
    int count = 0;
    double scale = 1.0;
    cow_String name;
    double x = 0.0;
    double y = 0.0;
    DataTypeConst type;
};

template <class Keyword>
void ReadFive(omu_Arguments& arguments, const Keyword* keywords, FiveArguments& out)
{
    omu_PrimTuple point;
    arguments.Begin();
    arguments.Get(out.count, keywords[0]);
    arguments.Get(out.scale, keywords[1]);
    arguments.Get(out.name, keywords[2]);
    arguments.Get(point, keywords[3]);
    arguments.Get(out.type, keywords[4]);
    arguments.End();
    point.Begin();
    point.Get(out.x);
    point.Get(out.y);
    point.End();
}

/// Five reads from what `given` answers.
template <class Given, class Keyword>
void ReadKeywords(benchmark::State& state, Given given, const Keyword* keywords)
{
    const omu_PrimTuple positional;
    for (auto _ : state)
    {
        FiveArguments out;
        omu_Arguments arguments(positional, given());
        ReadFive(arguments, keywords, out);
        benchmark::DoNotOptimize(out);
    }
}

void FiveKeywordArguments(benchmark::State& state)
{
    const omu_Arguments::Keyworded given = FiveKeywords();
    ReadKeywords(
        state, [&]() -> const auto& { return given; }, KEYWORDS);
}
BENCHMARK(FiveKeywordArguments);

// The same with the keywords as the code of a command writes them.
void FiveKeywordArgumentsByLiteral(benchmark::State& state)
{
    const omu_Arguments::Keyworded given = FiveKeywords();
    const char* const keywords[] = {"count", "scale", "name", "point", "type"};
    ReadKeywords(
        state, [&]() -> const auto& { return given; }, keywords);
}
BENCHMARK(FiveKeywordArgumentsByLiteral);

// And with the values and the dictionary made anew, as a call from a script makes them.
void FiveKeywordArgumentsWithTheirValues(benchmark::State& state)
{
    ReadKeywords(state, &FiveKeywords, KEYWORDS);
}
BENCHMARK(FiveKeywordArgumentsWithTheirValues);

/// Does `work` to a million numbers.
template <class Work>
void DoToMillion(benchmark::State& state, Work work)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(work());
    state.SetItemsProcessed(state.iterations() * MILLION);
}

std::vector<double> Numbers()
{
    std::vector<double> numbers;
    for (int i = 0; i < MILLION; ++i)
        numbers.push_back(0.5 * i);
    return numbers;
}

void FillVectorOfDoubles(benchmark::State& state)
{
    DoToMillion(state, &Numbers);
}
BENCHMARK(FillVectorOfDoubles)->Unit(benchmark::kMillisecond);

void FillTuple(benchmark::State& state)
{
    DoToMillion(state, [] {
        omu_PrimTuple tuple;
        for (int i = 0; i < MILLION; ++i)
            tuple.Put(0.5 * i);
        return tuple.Length();
    });
}
BENCHMARK(FillTuple)->Unit(benchmark::kMillisecond);

void FillTupleWithObjects(benchmark::State& state)
{
    DoToMillion(state, [] {
        omu_PrimTuple tuple;
        for (int i = 0; i < MILLION; ++i)
            tuple.Put(new omu_PrimNumber(0.5 * i));
        return tuple.Length();
    });
}
BENCHMARK(FillTupleWithObjects)->Unit(benchmark::kMillisecond);

omu_PrimTuple MillionNumbers()
{
    const std::vector<double> numbers = Numbers();
    return omu_PrimTuple(cow_List<double>::FromArray(numbers.data(), MILLION));
}

void TupleAsListDouble(benchmark::State& state)
{
    const omu_PrimTuple tuple = MillionNumbers();
    DoToMillion(state, [&] { return tuple.AsListDouble(); });
}
BENCHMARK(TupleAsListDouble)->Unit(benchmark::kMillisecond);

void TupleReadOneByOne(benchmark::State& state)
{
    omu_PrimTuple tuple = MillionNumbers();
    DoToMillion(state, [&] {
        double sum = 0.0;
        tuple.Begin();
        for (int i = 0; i < MILLION; ++i)
        {
            double value = 0.0;
            tuple.Get(value);
            sum += value;
        }
        tuple.End();
        return sum;
    });
}
BENCHMARK(TupleReadOneByOne)->Unit(benchmark::kMillisecond);

void TupleText(benchmark::State& state)
{
    const omu_PrimTuple tuple = MillionNumbers();
    DoToMillion(state, [&] { return tuple.AsString(0).Length(); });
}
BENCHMARK(TupleText)->Unit(benchmark::kMillisecond);

// The form of a mesh's points: rows of three.
void NestedRowsToArray(benchmark::State& state)
{
    omu_Arguments::Keyworded keywords;
    keywords.Put("points", omu_PrimTuple(cow_2DArray<double>(100000, 3, 1.5)));
    const cow_String keyword("points");
    for (auto _ : state)
    {
        omu_Arguments arguments(omu_PrimTuple(), keywords);
        cow_2DArray<double> points;
        arguments.Begin();
        omu_Get(arguments, points, keyword);
        arguments.End();
        benchmark::DoNotOptimize(points.Data());
    }
    state.SetItemsProcessed(state.iterations() * 300000);
}
BENCHMARK(NestedRowsToArray)->Unit(benchmark::kMillisecond);
}
