// Paints each large picture in a thread of its own, from a copy of the drawing that does not change.

#include "app/Sheet.h"

#include <QElapsedTimer>
#include <QPainter>

#include <cmath>
#include <new>
#include <utility>

namespace refhost {

namespace {

/// The most that is painted at once: 1,000 lines take 5 to 25 ms.
constexpr int mostEffortAtOnce = 1000;
constexpr int millisecondsToProgress = 200;

QImage emptyImage(const QSize &size, double ratio)
{
    QImage image(size * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    return image;
}

/// Whether `view` was painted into `image` to the end.
bool paintInto(QImage &image, const Sheet::Paint &paint, DrawingPainter &drawingPainter, ViewTransform view)
{
    if (image.isNull())
        return true; // with too little memory nothing is shown
    view.size = QSizeF(image.size()) / image.devicePixelRatioF();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    return paint(drawingPainter, painter, view);
}

} // namespace

void Sheet::show(QPainter &painter, const ViewTransform &view, bool isAtRest)
{
    const double ratio = painter.device()->devicePixelRatioF();
    const bool isComing = isPainting() && (m_nextView == view || !isAtRest);
    if (m_paint && !(m_isCurrent && m_picture.view == view) && !paintAtOnce(view, ratio) && !isComing)
        paintBeside(view, ratio);
    m_picture.show(painter, view);
    if (!m_isCurrent)
        m_unfinished.show(painter, view);
}

Sheet::Sheet(const DrawingColours &colours, double reach, QObject *parent)
    : QObject(parent)
    , m_colours(colours)
    , m_reach(reach)
    , m_painter(colours)
{
}

Sheet::~Sheet()
{
    stop();
}

void Sheet::clear()
{
    setContent(nullptr, nullptr);
    m_picture = {};
}

void Sheet::setContent(std::shared_ptr<const EntityBoxes> boxes, Paint paint)
{
    stop();
    m_boxes = std::move(boxes);
    m_paint = std::move(paint);
    m_unfinished = {};
    m_isCurrent = false;
    m_isLarge = false;
}

bool Sheet::paintAtOnce(const ViewTransform &view, double ratio)
{
    if (m_isLarge)
        return false;
    int left = mostEffortAtOnce;
    m_painter.setLimit([&left](int effort) { return (left -= effort) >= 0; });
    QImage image = emptyImage(view.size.toSize(), ratio);
    m_isLarge = !paintInto(image, m_paint, m_painter, view);
    if (!m_isLarge)
        report({image, view}, true);
    return !m_isLarge;
}

void Sheet::paintBeside(const ViewTransform &view, double ratio)
{
    stop();
    m_nextView = view;
    const QSize margin = (0.5 * (m_reach - 1.0) * view.size).toSize();
    const QSize size = view.size.toSize() + 2 * margin;
    const auto reportLater = [this, view, number = m_number](const QImage &image, bool isComplete) {
        const auto inTime = [this, picture = Picture{image, view}, number, isComplete] {
            if (number != m_number)
                return;
            report(picture, isComplete);
            emit painted();
        };
        QMetaObject::invokeMethod(this, inTime, Qt::QueuedConnection);
    };
    m_work = std::async(std::launch::async, [this, view, ratio, size, reportLater] {
        QImage image = emptyImage(size, ratio);
        QElapsedTimer sinceProgress;
        sinceProgress.start();
        DrawingPainter drawingPainter(m_colours); // fonts belong to the thread that uses them
        drawingPainter.setBoxes(m_boxes.get());
        drawingPainter.setLimit([&](int /*effort*/) {
            if (sinceProgress.hasExpired(millisecondsToProgress)) {
                reportLater(image.copy(), false);
                sinceProgress.restart();
            }
            return !m_isStopped;
        });
        try {
            paintInto(image, m_paint, drawingPainter, view);
        } catch (const std::bad_alloc &) {
            image = {};
        }
        reportLater(image, true);
    });
}

void Sheet::report(const Picture &picture, bool isComplete)
{
    if (!isComplete) {
        m_unfinished = picture;
        return;
    }
    stop();
    m_picture = picture;
    m_unfinished = {};
    m_isCurrent = true;
}

void Sheet::stop()
{
    ++m_number; // later reports of the thread are ignored
    m_isStopped = true;
    m_work = {}; // waits for its end
    m_isStopped = false;
}

void Sheet::Picture::show(QPainter &painter, const ViewTransform &shown) const
{
    constexpr double mostMagnified = 1000.0;
    if (image.isNull())
        return;
    const double ratio = image.devicePixelRatioF();
    const double scale = shown.pixelsPerUnit / view.pixelsPerUnit;
    QRectF place(QPointF(), QSizeF(image.size()) / ratio * scale);
    place.moveCenter(shown.toPixels(view.center));
    const QRectF seen = place & QRectF(QPointF(), shown.size);
    if (!(scale < mostMagnified) || seen.isEmpty())
        return;
    if (std::abs(scale - 1.0) < 1e-9) {
        painter.drawImage(QPointF(std::round(place.x()), std::round(place.y())), image);
        return;
    }
    const double dots = ratio / scale;
    painter.drawImage(seen, image, {(seen.topLeft() - place.topLeft()) * dots, seen.size() * dots});
}

} // namespace refhost
