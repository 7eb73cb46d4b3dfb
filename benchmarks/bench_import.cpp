// How long the steps of an import take: the required loads and the text made of them, the records, the
// transforms, and the emission into the reference host's drawing database with the journal off.

#include "BenchmarkDrawings.h"

#include "SVGBlockBuilder.h"
#include "XMLParser/SVGTransform.h"
#include "XMLParser/XMLParser.h"
#include "XMLParser/XMLTree.h"
#include "api/HostSession.h"

#include <benchmark/benchmark.h>

#include <chrono>

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// What the dialog does with every file: the loader made and dropped, then the reader and its text.
QByteArray loadedText(const QString &path)
{
    const XMLParser unused(path);
    return XMLDocumentReader(path).toString().toUtf8();
}

void readRecords(SVGDocument &document)
{
    benchmark::DoNotOptimize(document.lines());
    benchmark::DoNotOptimize(document.circles());
    benchmark::DoNotOptimize(document.ellipses());
    benchmark::DoNotOptimize(document.rects());
    benchmark::DoNotOptimize(document.polylines());
    benchmark::DoNotOptimize(document.polygons());
    benchmark::DoNotOptimize(document.texts());
    document.parsePathData();
    benchmark::DoNotOptimize(document.pathPolylines());
    benchmark::DoNotOptimize(document.pathSplines());
}

void load(benchmark::State &state, const QByteArray &svgText)
{
    const SvgFile file(svgText);
    for (auto _ : state) {
        const QByteArray text = loadedText(file.path());
        benchmark::DoNotOptimize(documentFromText(QString::fromUtf8(text)));
    }
    state.SetComplexityN(state.range(0));
    state.SetBytesProcessed(state.iterations() * svgText.size());
}

void records(benchmark::State &state, const QByteArray &svgText)
{
    const QDomDocument dom = documentFromText(QString::fromUtf8(svgText));
    for (auto _ : state) {
        SVGDocument document(dom);
        readRecords(document);
    }
    state.SetComplexityN(state.range(0));
}

void emission(benchmark::State &state, const QByteArray &svgText)
{
    for (auto _ : state) {
        state.PauseTiming();
        {
            refhost::HostSession session;
            session.newDocument();
            SVGBlockBuilder builder(session.application(), svgText);
            state.ResumeTiming();
            benchmark::DoNotOptimize(builder.createBlockDefinition());
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

/// Everything after XML against the required parses and the serialisation, both measured in every iteration,
/// so that a slow moment of the machine hits both. The counter must stay below 1.
void afterXmlShare(benchmark::State &state, const QByteArray &svgText)
{
    const SvgFile file(svgText);
    double xml = 0.0;
    double after = 0.0;
    for (auto _ : state) {
        refhost::HostSession session;
        session.newDocument();

        const auto xmlStart = Clock::now();
        const QByteArray text = loadedText(file.path());
        SVGBlockBuilder builder(session.application(), text); // its parse is the third of the required ones
        xml += secondsSince(xmlStart);

        const auto afterStart = Clock::now();
        benchmark::DoNotOptimize(builder.createBlockDefinition());
        after += secondsSince(afterStart);
    }
    state.counters["after/xml"] = after / xml;
}

void LoadElements(benchmark::State &state)
{
    load(state, mixedSvg(static_cast<int>(state.range(0))));
}

void LoadLongPath(benchmark::State &state)
{
    load(state, longPathSvg(static_cast<int>(state.range(0))));
}

void RecordsOfElements(benchmark::State &state)
{
    records(state, mixedSvg(static_cast<int>(state.range(0))));
}

void RecordsOfLongPath(benchmark::State &state)
{
    records(state, longPathSvg(static_cast<int>(state.range(0))));
}

void Transform(benchmark::State &state)
{
    kvDoubleArray values;
    values.setSize(static_cast<int>(state.range(0)) * 2);
    for (auto _ : state)
        benchmark::DoNotOptimize(mapped(*matrixFromAttribute(QStringLiteral("matrix(1 2 3 4 5 6)")), values));
    state.SetComplexityN(state.range(0));
}

void EmissionOfElements(benchmark::State &state)
{
    emission(state, mixedSvg(static_cast<int>(state.range(0))));
}

void EmissionOfLongPath(benchmark::State &state)
{
    emission(state, longPathSvg(static_cast<int>(state.range(0))));
}

void AfterXmlShareOfElements(benchmark::State &state)
{
    afterXmlShare(state, mixedSvg(static_cast<int>(state.range(0))));
}

void AfterXmlShareOfLongPath(benchmark::State &state)
{
    afterXmlShare(state, longPathSvg(static_cast<int>(state.range(0))));
}

void AfterXmlShareOfShortCommands(benchmark::State &state)
{
    afterXmlShare(state, shortCommandsSvg(static_cast<int>(state.range(0))));
}

void elementSizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->RangeMultiplier(10)->Range(1'000, 100'000)->Unit(benchmark::kMillisecond);
}

void pathSizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(20'000)->Arg(200'000)->Unit(benchmark::kMillisecond);
}

} // namespace

BENCHMARK(LoadElements)->Apply(elementSizes)->Complexity();
BENCHMARK(LoadLongPath)->Apply(pathSizes);
BENCHMARK(RecordsOfElements)->Apply(elementSizes)->Complexity();
BENCHMARK(RecordsOfLongPath)->Apply(pathSizes);
BENCHMARK(Transform)->Apply(elementSizes)->Complexity();
BENCHMARK(EmissionOfElements)->Apply(elementSizes)->Complexity();
BENCHMARK(EmissionOfLongPath)->Apply(pathSizes);
BENCHMARK(AfterXmlShareOfElements)->Apply(elementSizes);
BENCHMARK(AfterXmlShareOfLongPath)->Apply(pathSizes);
BENCHMARK(AfterXmlShareOfShortCommands)->Apply(pathSizes);

BENCHMARK_MAIN();
