// Reads width, height, viewBox and preserveAspectRatio of the outermost element.

#include "SVGPreparation/PageSetup.h"

#include "SVGPreparation/Length.h"
#include "SVGPreparation/Viewport.h"

#include <algorithm>
#include <cmath>

namespace svgprep {

namespace {

/// The size that browsers give to a picture without one, in pixels.
constexpr double usualWidth = 300.0;
constexpr double usualHeight = 150.0;

/// A side of the sheet, as far as the file states it.
struct Side {
    double pixels = 0.0;
    Length length;
    bool isStated = false;
};

Side sideOf(const QDomElement &root, const QString &name, double fontSize)
{
    const std::optional<Length> length = lengthFrom(root.attribute(name));
    if (!length || length->unit == LengthUnit::Percent || !(length->value > 0.0))
        return {};
    LengthBase base;
    base.fontSize = base.rootFontSize = fontSize;
    return {userUnits(*length, base, Along::Other), *length, true};
}

/// `side` as the text of an attribute; a relative unit becomes pixels.
QByteArray textOf(const Side &side)
{
    struct Row {
        LengthUnit unit;
        const char *name;
    };
    constexpr Row rows[] = {
        {LengthUnit::Millimetre, "mm"}, {LengthUnit::Centimetre, "cm"}, {LengthUnit::Inch, "in"},
        {LengthUnit::Point, "pt"},      {LengthUnit::Pica, "pc"},       {LengthUnit::QuarterMillimetre, "Q"},
    };
    for (const Row &row : rows) {
        if (row.unit == side.length.unit)
            return DrawingGrid(side.length.value).sizeText(side.length.value) + row.name;
    }
    return DrawingGrid(side.pixels).sizeText(side.pixels);
}

/// An unstated side, from the other one and the proportion of the viewBox.
Side proportional(const Side &other, double factor)
{
    Side side = other;
    side.pixels *= factor;
    side.length.value *= factor;
    return side;
}

Side inPixels(double pixels)
{
    return {pixels, {pixels, LengthUnit::None}, true};
}

/// The number of `unit` in a pixel.
double unitsPerPixel(DrawingUnit unit)
{
    switch (unit) {
    case DrawingUnit::UserUnit:
        return 1.0;
    case DrawingUnit::Millimetre:
        return 25.4 / pixelsPerInch;
    case DrawingUnit::Centimetre:
        return 2.54 / pixelsPerInch;
    case DrawingUnit::Metre:
        return 0.0254 / pixelsPerInch;
    case DrawingUnit::Inch:
        return 1.0 / pixelsPerInch;
    case DrawingUnit::Foot:
        return 1.0 / 12.0 / pixelsPerInch;
    }
    return 1.0;
}

/// The number of drawing units in a user unit. A sheet that is in the unit already gives 1, apart from the
/// rounding of its sides, and stays as it is.
double unitScale(double pixelsPerUserUnit, DrawingUnit unit)
{
    constexpr double rounding = 1e-8;
    const double scale = pixelsPerUserUnit * unitsPerPixel(unit);
    return std::abs(scale - 1.0) < rounding ? 1.0 : scale;
}

/// The attribute preserveAspectRatio written anew; empty for the usual value and for a text that cannot be
/// read.
QByteArray aspectRatioOf(const QDomElement &root)
{
    const QByteArray text = root.attribute(QStringLiteral("preserveAspectRatio")).simplified().toLatin1();
    const QList<QByteArray> words = text.split(' ');
    static const QList<QByteArray> alignments = {"none",     "xMinYMin", "xMidYMin", "xMaxYMin", "xMinYMid",
                                                 "xMidYMid", "xMaxYMid", "xMinYMax", "xMidYMax", "xMaxYMax"};
    const bool slices = words.value(1) == "slice";
    if (!alignments.contains(words.first()) || (words.first() == "xMidYMid" && !slices))
        return {};
    return slices ? words.first() + " slice" : words.first();
}

bool isFinite(const QRectF &box)
{
    return std::isfinite(box.x()) && std::isfinite(box.y()) && std::isfinite(box.width())
        && std::isfinite(box.height());
}

} // namespace

PageSetup pageSetup(const QDomElement &root, double fontSize, DrawingUnit unit)
{
    const std::optional<QRectF> viewBox = viewBoxOf(root);
    Side width = sideOf(root, QStringLiteral("width"), fontSize);
    Side height = sideOf(root, QStringLiteral("height"), fontSize);

    PageSetup setup;
    setup.isHidden = viewBox && viewBox->isEmpty();
    setup.hasSize = viewBox || (width.isStated && height.isStated);
    setup.hasPhysicalSize = isPhysical(width.length.unit) || isPhysical(height.length.unit);
    const QSizeF proportion =
        viewBox && !viewBox->isEmpty() ? viewBox->size() : QSizeF(usualWidth, usualHeight);
    if (!width.isStated && !height.isStated) {
        width = inPixels(proportion.width());
        height = inPixels(proportion.height());
    } else if (!width.isStated) {
        width = proportional(height, proportion.width() / proportion.height());
    } else if (!height.isStated) {
        height = proportional(width, proportion.height() / proportion.width());
    }

    setup.pixels = {width.pixels, height.pixels};
    const QRectF sheet(QPointF(), setup.pixels);
    const QRectF box = viewBox && !viewBox->isEmpty() ? *viewBox : sheet;
    const QString aspectRatio = root.attribute(QStringLiteral("preserveAspectRatio"));
    setup.toPixels = viewBoxTransform(box, sheet, aspectRatio);
    const QTransform &toPixels = setup.toPixels;
    setup.toUserUnits = QTransform(1.0 / toPixels.m11(), 0.0, 0.0, 1.0 / toPixels.m22(),
                                   -toPixels.dx() / toPixels.m11(), -toPixels.dy() / toPixels.m22());
    setup.viewport = box.size();
    const bool scales = unit != DrawingUnit::UserUnit && setup.hasPhysicalSize;
    const double scaleX = scales ? unitScale(toPixels.m11(), unit) : 1.0;
    const double scaleY = scales ? unitScale(toPixels.m22(), unit) : 1.0;
    setup.toDrawing = QTransform::fromScale(scaleX, scaleY);
    setup.page.viewBox = {box.x() * scaleX, box.y() * scaleY, box.width() * scaleX, box.height() * scaleY};
    setup.page.width = textOf(width);
    setup.page.height = textOf(height);
    setup.page.aspectRatio = aspectRatioOf(root);
    if (!isFinite(setup.page.viewBox) || !isFinite(sheet)) { // the size is not finite
        setup.page = pageAround({});
        setup.isHidden = true;
    }
    return setup;
}

Page pageAround(const QRectF &extents)
{
    if (extents.isNull())
        return {{0.0, 0.0, usualWidth, usualHeight}, "300", "150", {}};
    const QPointF least(std::floor(extents.left()), std::floor(extents.top()));
    const QPointF most(std::ceil(extents.right()), std::ceil(extents.bottom()));
    const QSizeF size(std::max(1.0, most.x() - least.x()), std::max(1.0, most.y() - least.y()));
    return {{least, size}, textOf(inPixels(size.width())), textOf(inPixels(size.height())), {}};
}

} // namespace svgprep
