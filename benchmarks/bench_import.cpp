// How long the steps of an import take: the loads and the parse that every import makes, the records, the
// transforms, and the emission into the reference host's drawing database with the journal off.

#include "BenchmarkDrawings.h"

#include "SVGBlockBuilder.h"
#include "XMLParser/SVGTransform.h"
#include "XMLParser/XMLParser.h"
#include "XMLParser/XMLScan.h"
#include "XMLParser/XMLTree.h"
#include "api/HostSession.h"

#include <benchmark/benchmark.h>

#include <chrono>

namespace {

using Clock = std::chrono::steady_clock;
using MakeSvg = QByteArray (*)(int size);

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
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

void load(benchmark::State &state, MakeSvg makeSvg)
{
    const QByteArray svgText = makeSvg(static_cast<int>(state.range(0)));
    const SvgFile file(svgText);
    for (auto _ : state) {
        const QByteArray text = loadSvgText(file.path());
        benchmark::DoNotOptimize(documentFromText(QString::fromUtf8(text)));
    }
    state.SetComplexityN(state.range(0));
    state.SetBytesProcessed(state.iterations() * svgText.size());
}

/// The scan of a text against the load that every import makes of the same file. Both run in turns, so that a
/// slow moment of the machine hits both. The counter must stay below 0.05.
void scanShare(benchmark::State &state, MakeSvg makeSvg)
{
    const QByteArray svgText = makeSvg(static_cast<int>(state.range(0)));
    const QString text = QString::fromUtf8(svgText);
    const SvgFile file(svgText);
    double scan = 0.0;
    double load = 0.0;
    for (auto _ : state) {
        const auto scanStart = Clock::now();
        benchmark::DoNotOptimize(refusalOf(text));
        scan += secondsSince(scanStart);

        const auto loadStart = Clock::now();
        benchmark::DoNotOptimize(loadSvgText(file.path()));
        load += secondsSince(loadStart);
    }
    state.counters["scan/load"] = scan / load;
}

void records(benchmark::State &state, MakeSvg makeSvg)
{
    const QByteArray svgText = makeSvg(static_cast<int>(state.range(0)));
    const QDomDocument dom = documentFromText(QString::fromUtf8(svgText));
    for (auto _ : state) {
        SVGDocument document(dom);
        readRecords(document);
    }
    state.SetComplexityN(state.range(0));
}

void emission(benchmark::State &state, MakeSvg makeSvg)
{
    const QByteArray svgText = makeSvg(static_cast<int>(state.range(0)));
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

/// Everything after XML against the loads and the parse that every import makes. Both are measured in every
/// iteration, so that a slow moment of the machine hits both. The counter must stay below 1.
void afterXmlShare(benchmark::State &state, MakeSvg makeSvg)
{
    const QByteArray svgText = makeSvg(static_cast<int>(state.range(0)));
    const SvgFile file(svgText);
    double xml = 0.0;
    double after = 0.0;
    for (auto _ : state) {
        refhost::HostSession session;
        session.newDocument();

        const auto xmlStart = Clock::now();
        const QByteArray text = loadSvgText(file.path());
        SVGBlockBuilder builder(session.application(), text); // parses the text again
        xml += secondsSince(xmlStart);

        const auto afterStart = Clock::now();
        benchmark::DoNotOptimize(builder.createBlockDefinition());
        after += secondsSince(afterStart);
    }
    state.counters["after/xml"] = after / xml;
}

void transform(benchmark::State &state)
{
    kvDoubleArray values;
    values.setSize(static_cast<int>(state.range(0)) * 2);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            svgread::mapped(*svgread::matrixFromAttribute(QStringLiteral("matrix(1 2 3 4 5 6)")), values));
    state.SetComplexityN(state.range(0));
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

BENCHMARK_CAPTURE(load, elements, mixedSvg)->Apply(elementSizes)->Complexity();
BENCHMARK_CAPTURE(load, longPath, longPathSvg)->Apply(pathSizes);
BENCHMARK_CAPTURE(scanShare, elements, mixedSvg)->Apply(elementSizes);
BENCHMARK_CAPTURE(scanShare, longPath, longPathSvg)->Apply(pathSizes);
BENCHMARK_CAPTURE(records, elements, mixedSvg)->Apply(elementSizes)->Complexity();
BENCHMARK_CAPTURE(records, longPath, longPathSvg)->Apply(pathSizes);
BENCHMARK(transform)->Apply(elementSizes)->Complexity();
BENCHMARK_CAPTURE(emission, elements, mixedSvg)->Apply(elementSizes)->Complexity();
BENCHMARK_CAPTURE(emission, longPath, longPathSvg)->Apply(pathSizes);
BENCHMARK_CAPTURE(afterXmlShare, elements, mixedSvg)->Apply(elementSizes);
BENCHMARK_CAPTURE(afterXmlShare, longPath, longPathSvg)->Apply(pathSizes);
BENCHMARK_CAPTURE(afterXmlShare, shortCommands, shortCommandsSvg)->Apply(pathSizes);

BENCHMARK_MAIN();
