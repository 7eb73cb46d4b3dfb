// How long it takes to encode drawings as DWG and DXF, with the way to the node process and back.

#include "BenchmarkDrawings.h"

#include "SVGBlockBuilder.h"
#include "api/HostSession.h"
#include "export/EncoderProcess.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

namespace {

void save(benchmark::State &state, refhost::DrawingFormat format)
{
    refhost::HostSession session;
    const refhost::HostDocumentPtr document = session.newDocument();
    SVGBlockBuilder(session.application(), mixedSvg(static_cast<int>(state.range(0))))
        .createBlockDefinition();

    refhost::EncoderProcess encoder;
    encoder.take(encoder.submit(refhost::Drawing(), format)); // the start of the process is not counted
    for (auto _ : state) {
        const refhost::EncodedDrawing encoded = encoder.take(encoder.submit(document->drawing, format));
        if (!encoded.error.isEmpty()) {
            state.SkipWithError(qPrintable(encoded.error));
            return;
        }
        state.counters["bytes"] = encoded.bytes.size();
    }
    state.SetComplexityN(state.range(0));
}

void elementSizes(benchmark::internal::Benchmark *benchmark)
{
    // The child process does the work, so its time counts.
    benchmark->RangeMultiplier(10)->Range(1'000, 100'000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

} // namespace

BENCHMARK_CAPTURE(save, dwg, refhost::DrawingFormat::Dwg)->Apply(elementSizes)->Complexity();
BENCHMARK_CAPTURE(save, dxf, refhost::DrawingFormat::Dxf)->Apply(elementSizes)->Complexity();

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
