// What preparing a file costs, beside the import of the plain file and as files grow.

#include "BenchmarkDrawings.h"

#include "SVGBlockBuilder.h"
#include "SVGPreparation/SVGFile.h"
#include "XMLParser/XMLParser.h"
#include "api/HostSession.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

#include <chrono>

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

svgprep::PreparedSvg preparedOrEnd(const QString &path)
{
    svgprep::PreparedSvg result = svgprep::preparedFile(path, {});
    if (!result.error.isEmpty())
        qFatal("%s", qPrintable(result.error));
    return result;
}

void preparation(benchmark::State &state)
{
    const SvgFile file(unpreparedSvg(static_cast<int>(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(preparedOrEnd(file.path()).plainText);
    state.SetComplexityN(state.range(0));
}

/// Reading and preparing a file against importing the plain one, from the loads to the block definition. Both
/// are measured in every iteration. The counter must stay below 1.
void shareOfImport(benchmark::State &state)
{
    const SvgFile file(unpreparedSvg(static_cast<int>(state.range(0))));
    double preparing = 0.0;
    double importing = 0.0;
    for (auto _ : state) {
        const auto start = Clock::now();
        const QByteArray plainText = preparedOrEnd(file.path()).plainText;
        preparing += secondsSince(start);

        const SvgFile plain(plainText);
        refhost::HostSession session;
        session.newDocument();
        const auto importStart = Clock::now();
        SVGBlockBuilder builder(session.application(), loadSvgText(plain.path()));
        benchmark::DoNotOptimize(builder.createBlockDefinition());
        importing += secondsSince(importStart);
    }
    state.counters["preparing/importing"] = preparing / importing;
}

} // namespace

BENCHMARK(preparation)
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK(shareOfImport)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv); // texts are measured
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
