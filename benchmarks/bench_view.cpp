// What a frame of the canvas costs while the user looks around, in a drawing of 100,000 entities against one
// of 1,000, both in turns; then what the whole drawing costs to paint against a hundredth of it.

#include "app/Canvas.h"
#include "app/EntityPicker.h"
#include "app/WindowStyle.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <functional>
#include <memory>

using namespace refhost;

namespace {

using Clock = std::chrono::steady_clock;

constexpr double side = 1000.0; // of the square that a drawing fills
const QString blockName = QStringLiteral("PLAN");

enum class Shown { BlockInstance, SingleEntities, Prompt };

/// Lines, circles, polylines and notes in turn, evenly over the square and as large as they have room for.
Drawing mixedDrawing(int entities, Shown shown)
{
    Drawing drawing;
    const int columns = static_cast<int>(std::sqrt(entities));
    const double step = side / columns;
    for (int i = 0; i < entities; ++i) {
        const int row = i / columns;
        const double x = (i % columns) * step;
        const double y = row * step;
        const Entity kinds[] = {
            Line{{x, y, 0.0}, {x + step, y + 0.5 * step, 0.0}},
            Circle{{x, y, 0.0}, 0.4 * step},
            Polyline{{x, y, x + step, y, x + step, y + step, x + 0.5 * step, y + 0.5 * step}, true},
            Note{{x, y, 0.0}, 0.3 * step, 0.0, QStringLiteral("Position %1").arg(i)},
        };
        drawing.add(kinds[i % 4]);
    }
    if (shown == Shown::SingleEntities)
        return drawing;
    drawing.createBlock(blockName, {}, drawing.modelSpace());
    if (shown == Shown::BlockInstance)
        drawing.add(BlockInstance{blockName, {}});
    return drawing;
}

/// A canvas of a common size that shows a drawing as it is.
class Scene {
public:
    Scene(int entities, Shown shown)
        : m_canvas(drawingColours(Theme::Light))
    {
        auto document = std::make_shared<HostDocument>();
        document->drawing = mixedDrawing(entities, shown);
        m_canvas.resize(1200, 640);
        m_canvas.show();
        m_canvas.setDocument(document);
        if (shown == Shown::Prompt) {
            wheel(-8);
            m_canvas.setPreview(BlockPreview{blockName, {}, true});
        }
        settle();
    }

    void settle()
    {
        do {
            QCoreApplication::processEvents();
            m_canvas.repaint();
        } while (!m_canvas.isUpToDate());
    }

    void wheel(int notches)
    {
        QWheelEvent event(middle(), middle(), {}, {0, 120 * notches}, Qt::NoButton, {}, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&m_canvas, &event);
    }

    void mouse(QEvent::Type type, const QPointF &away, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, middle() + away, button, buttons, {});
        QApplication::sendEvent(&m_canvas, &event);
    }

    void repaint() { m_canvas.repaint(); }

private:
    QPointF middle() const { return m_canvas.rect().center(); }

    Canvas m_canvas;
};

/// The mouse's position at a step of its way to and fro.
QPointF place(int step)
{
    return {10.0 * std::abs(step % 20 - 10), 0.0};
}

void zoomStep(Scene &scene, int step)
{
    scene.wheel(step % 8 < 4 ? 1 : -1);
}

void panStep(Scene &scene, int step)
{
    if (step == 0)
        scene.mouse(QEvent::MouseButtonPress, place(0), Qt::MiddleButton, Qt::MiddleButton);
    scene.mouse(QEvent::MouseMove, place(step), Qt::NoButton, Qt::MiddleButton);
}

void mouseStep(Scene &scene, int step)
{
    scene.mouse(QEvent::MouseMove, place(step), Qt::NoButton, Qt::NoButton);
}

/// `zoomedIn` shows a hundredth of the drawing. The counter must stay below 2.
void frame(benchmark::State &state, Shown shown, void (*takeStep)(Scene &scene, int step), bool zoomedIn)
{
    Scene scenes[] = {{1'000, shown}, {100'000, shown}};
    double seconds[] = {0.0, 0.0};
    if (zoomedIn) {
        for (Scene &scene : scenes) {
            scene.wheel(10);
            scene.settle();
        }
    }
    int step = 0;
    for (auto _ : state) {
        for (int i = 0; i < 2; ++i) {
            const auto start = Clock::now();
            takeStep(scenes[i], step);
            scenes[i].repaint();
            seconds[i] += std::chrono::duration<double>(Clock::now() - start).count();
        }
        QCoreApplication::processEvents();
        ++step;
    }
    const auto frames = static_cast<double>(state.iterations());
    state.counters["ms_1000"] = 1e3 * seconds[0] / frames;
    state.counters["ms_100000"] = 1e3 * seconds[1] / frames;
    state.counters["ratio"] = seconds[1] / seconds[0];
}

/// The whole drawing against a hundredth of it, painted in turns with the boxes known. The counter tells what
/// skipping saves.
void hundredth(benchmark::State &state, Shown shown)
{
    const EntityBoxes boxes(mixedDrawing(100'000, shown));
    QImage image(1200, 640, QImage::Format_ARGB32_Premultiplied);
    DrawingPainter drawingPainter;
    drawingPainter.setBoxes(&boxes);
    double seconds[] = {0.0, 0.0};
    for (auto _ : state) {
        for (int i = 0; i < 2; ++i) {
            const auto start = Clock::now();
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing);
            drawingPainter.paint(boxes.drawing(), painter,
                                 {{0.5 * side, 0.5 * side, 0.0}, (i == 0 ? 0.6 : 6.0), QSizeF(image.size())});
            seconds[i] += std::chrono::duration<double>(Clock::now() - start).count();
        }
    }
    const auto pictures = static_cast<double>(state.iterations());
    state.counters["ms_whole"] = 1e3 * seconds[0] / pictures;
    state.counters["ms_hundredth"] = 1e3 * seconds[1] / pictures;
}

void measuring(benchmark::State &state)
{
    const Drawing drawing = mixedDrawing(100'000, Shown::SingleEntities);
    for (auto _ : state)
        benchmark::DoNotOptimize(EntityBoxes(drawing).of(EntityId(1)));
}

/// A window over nearly all of 100,000 single entities.
void selecting(benchmark::State &state, bool touching)
{
    HostDocument document;
    document.drawing = mixedDrawing(100'000, Shown::SingleEntities);
    const EntityBoxes boxes(document.drawing);
    const ViewTransform view = {{0.5 * side, 0.5 * side, 0.0}, 1.0, {side, side}};
    const Within within = touching ? Within::Partly : Within::Wholly;
    for (auto _ : state)
        document.select(entitiesIn(boxes, view, {1.5, 1.5, side - 3.0, side - 3.0}, within));
    state.counters["selected"] = static_cast<double>(document.selection.size());
}

} // namespace

BENCHMARK_CAPTURE(hundredth, block, Shown::BlockInstance)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(hundredth, exploded, Shown::SingleEntities)->Unit(benchmark::kMillisecond);
BENCHMARK(measuring)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(selecting, inside, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(selecting, touching, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, zoom_block, Shown::BlockInstance, zoomStep, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, zoom_exploded, Shown::SingleEntities, zoomStep, false)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, pan_block, Shown::BlockInstance, panStep, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, pan_exploded, Shown::SingleEntities, panStep, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, pan_hundredth, Shown::BlockInstance, panStep, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, crosshair, Shown::BlockInstance, mouseStep, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, prompt, Shown::Prompt, mouseStep, false)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
