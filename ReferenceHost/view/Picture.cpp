// Chooses a sheet for a drawing's extents, paints it and saves it.

#include "view/Picture.h"

#include "view/DrawingPainter.h"

#include <QPainter>
#include <QSaveFile>

#include <algorithm>

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
    image.fill(drawingPainter.colours().paper);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawingPainter.paint(drawing, painter, ViewTransform::fitting(extents, image.size(), margin));
    return image;
}

QString writePicture(const Drawing &drawing, const QString &fileName)
{
    const QImage image = picture(drawing);
    QSaveFile file(fileName);
    if (file.open(QIODevice::WriteOnly) && image.save(&file, "PNG") && file.commit())
        return {};
    return file.errorString();
}

} // namespace refhost
