// Reads viewBox and preserveAspectRatio.

#include "SVGPreparation/Viewport.h"

#include "SVGPreparation/Scanner.h"

#include <QDomElement>

#include <algorithm>

namespace svgprep {

namespace {

/// The share of the free room in front of the viewBox: 0 puts it at the start, 1 at the end.
double alignment(QStringView name)
{
    struct Row {
        const char *name;
        double share;
    };
    constexpr Row rows[] = {{"Min", 0.0}, {"Mid", 0.5}, {"Max", 1.0}};
    for (const Row &row : rows) {
        if (name == QLatin1String(row.name))
            return row.share;
    }
    return 0.5;
}

} // namespace

std::optional<QRectF> viewBoxOf(const QDomElement &element)
{
    const QString text = element.attribute(QStringLiteral("viewBox"));
    Scanner scanner(text);
    double values[4] = {};
    scanner.skipBlanks();
    for (double &value : values) {
        const std::optional<double> number = scanner.number();
        if (!number)
            return {};
        value = *number;
        scanner.skipSeparator();
    }
    if (!scanner.atEnd() || values[2] < 0.0 || values[3] < 0.0)
        return {};
    return QRectF(values[0], values[1], values[2], values[3]);
}

QTransform viewBoxTransform(const QRectF &viewBox, const QRectF &room, const QString &aspectRatio)
{
    Scanner scanner(aspectRatio);
    scanner.skipBlanks();
    QStringView align = scanner.word();
    if (align == QLatin1String("defer")) {
        scanner.skipBlanks();
        align = scanner.word();
    }
    scanner.skipBlanks();
    const bool slices = scanner.word() == QLatin1String("slice");

    double scaleX = room.width() / viewBox.width();
    double scaleY = room.height() / viewBox.height();
    if (align != QLatin1String("none"))
        scaleX = scaleY = slices ? std::max(scaleX, scaleY) : std::min(scaleX, scaleY);
    // Three letters of each half of "xMidYMax" name the place.
    const double freeX = room.width() - viewBox.width() * scaleX;
    const double freeY = room.height() - viewBox.height() * scaleY;
    const double dx = room.x() - viewBox.x() * scaleX + freeX * alignment(align.mid(1, 3));
    const double dy = room.y() - viewBox.y() * scaleY + freeY * alignment(align.mid(5, 3));
    return {scaleX, 0.0, 0.0, scaleY, dx, dy};
}

} // namespace svgprep
