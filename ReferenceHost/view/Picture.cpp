// Chooses a sheet for a drawing's extents and paints it.

#include "view/Picture.h"

#include "view/DrawingPainter.h"

#include <QBuffer>
#include <QPainter>

#include <algorithm>
#include <new>

namespace refhost {

namespace {

constexpr int longerSide = 1024;
constexpr int smallestSide = 256;
constexpr int emptySheetHeight = 768;
constexpr double margin = 32.0;
constexpr double lineWidth = 1.6;

/// The shorter side for a drawing whose shorter side is `ratio` times its longer one.
int shorterSide(double ratio)
{
    const double side = ratio * (longerSide - 2.0 * margin) + 2.0 * margin;
    return std::clamp(qRound(side), smallestSide, longerSide);
}

QSize sheetFor(const Extents &extents)
{
    if (extents.isEmpty() || extents.isPoint())
        return {longerSide, emptySheetHeight};
    const double width = extents.halfWidth();
    const double height = extents.halfHeight();
    if (width >= height)
        return {longerSide, shorterSide(height / width)};
    return {shorterSide(width / height), longerSide};
}

} // namespace

QImage picture(const Drawing &drawing)
{
    const Extents extents = extentsOf(drawing);
    DrawingPainter drawingPainter(DrawingColours::light());
    drawingPainter.setLineWidth(lineWidth);

    QImage image(sheetFor(extents), QImage::Format_RGB32);
    if (image.isNull())
        throw std::bad_alloc();
    image.fill(drawingPainter.colours().paper);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawingPainter.paint(drawing, painter, ViewTransform::fitting(extents, image.size(), margin));
    return image;
}

QByteArray pngPicture(const Drawing &drawing)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !picture(drawing).save(&buffer, "PNG"))
        throw std::bad_alloc(); // memory is all that a buffer can lack
    return bytes;
}

} // namespace refhost
