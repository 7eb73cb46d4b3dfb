// Chooses a step of the grid at which lines can be told apart on the screen.

#include "app/CanvasGrid.h"

#include <QPainter>

#include <cmath>

namespace refhost {

namespace {

/// The smallest of 1, 2, 5, 10, ... times a power of ten that is at least `length`.
double roundStep(double length)
{
    const double power = std::pow(10.0, std::floor(std::log10(length)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= length)
            return factor * power;
    }
    return 10.0 * power;
}

QColor faint(const QColor &ink, double strength)
{
    QColor colour = ink;
    colour.setAlphaF(strength);
    return colour;
}

/// Lines across one axis: `origin` is where its 0 lies in pixels, `step` how far lines are apart.
template <class DrawLine>
void paintLines(double origin, double step, double length, const DrawLine &drawLine)
{
    const int lines = static_cast<int>(length / step) + 1;
    const double first = std::fmod(origin, step);
    for (int i = -1; i <= lines; ++i)
        drawLine(std::floor(first + i * step) + 0.5);
}

void paintAxes(QPainter &painter, const ViewTransform &view, const DrawingColours &colours)
{
    const QPointF origin = view.toPixels(Point());
    const double x = std::floor(origin.x()) + 0.5;
    const double y = std::floor(origin.y()) + 0.5;
    const QColor red(200, 70, 70, 150);
    const QColor green(60, 160, 80, 150);
    // Far outside, an axis is not to be seen and its pixels are too large for a line.
    if (y > 0.0 && y < view.size.height()) {
        painter.setPen(red);
        painter.drawLine(QPointF(0.0, y), QPointF(view.size.width(), y));
    }
    if (x > 0.0 && x < view.size.width()) {
        painter.setPen(green);
        painter.drawLine(QPointF(x, 0.0), QPointF(x, view.size.height()));
    }

    constexpr double arm = 36.0;
    const QPointF corner(20.5, view.size.height() - 20.5);
    painter.setPen(QPen(faint(colours.ink, 0.75), 1.5));
    painter.drawLine(corner, corner + QPointF(arm, 0.0));
    painter.drawLine(corner, corner - QPointF(0.0, arm));
    painter.drawRect(QRectF(corner - QPointF(3.0, 3.0), QSizeF(6.0, 6.0)));
    painter.drawText(corner + QPointF(arm + 5.0, 4.0), QStringLiteral("X"));
    painter.drawText(corner + QPointF(-3.0, -arm - 5.0), QStringLiteral("Y"));
}

} // namespace

void paintGrid(QPainter &painter, const ViewTransform &view, const DrawingColours &colours)
{
    constexpr double closest = 18.0; // pixels
    constexpr double majorEvery = 5.0;
    const double step = roundStep(closest / view.pixelsPerUnit) * view.pixelsPerUnit;
    const QPointF origin = view.toPixels(Point());
    for (const auto &[factor, strength] : {std::pair(1.0, 0.05), std::pair(majorEvery, 0.08)}) {
        painter.setPen(faint(colours.ink, strength));
        paintLines(origin.x(), step * factor, view.size.width(),
                   [&](double x) { painter.drawLine(QPointF(x, 0.0), QPointF(x, view.size.height())); });
        paintLines(origin.y(), step * factor, view.size.height(),
                   [&](double y) { painter.drawLine(QPointF(0.0, y), QPointF(view.size.width(), y)); });
    }
    paintAxes(painter, view, colours);
}

} // namespace refhost
