// The plain SVG as it grows. Shapes come in their own coordinates with a transform, and leave as elements
// that the import draws completely.

#pragma once

#include "SVGPreparation/DrawingGrid.h"
#include "SVGPreparation/Outline.h"
#include "SVGPreparation/RoundShapes.h"

#include <QByteArray>
#include <QRectF>
#include <QString>

namespace svgprep {

/// The sheet of a drawing.
struct Page {
    QRectF viewBox;   ///< drawing units
    QByteArray width; ///< an attribute, with its unit
    QByteArray height;
    QByteArray aspectRatio; ///< preserveAspectRatio, empty for the usual value
};

class PlainSVG {
public:
    /// Begins an empty drawing of at most `mostShapes`. A `flattenTolerance` above 0, in drawing units, turns
    /// curves into straight runs.
    PlainSVG(const Page &page, double flattenTolerance, int mostShapes);

    /// Add a shape. A shape without extent, or with numbers too large for a drawing, is left out.
    void addOutline(const Outline &outline, const QTransform &transform);
    void addRectangle(const QRectF &rectangle, const QTransform &transform);
    void addEllipse(const UprightEllipse &ellipse, const QTransform &transform);
    /// Adds one line of text; its left end and its size are in drawing units.
    void addText(const QString &text, QPointF leftEnd, double size);

    /// The number of lines, curves and other entities that the import will draw.
    int shapeCount() const { return m_shapeCount; }
    /// Whether the drawing takes no more shapes: a larger one would be of no use.
    bool isFull() const { return m_isFull; }
    /// The room of all points so far; null without any.
    QRectF extents() const;

    /// The whole text in UTF-8.
    QByteArray text() const;

private:
    bool snapToGrid(Subpath &subpath, const QTransform &transform);
    void addSubpath(const Subpath &subpath, QByteArray &curves);
    void addRun(QPointF start, const Segment *first, const Segment *last, QByteArray &curves);
    void addStraight(const std::vector<QPointF> &points, bool isClosed);
    void addAsOneRun(const Subpath &subpath);
    void addCircle(const Circle &circle);
    void appendPoint(QByteArray &text, QPointF point) const;
    void appendAttribute(const char *name, double value);
    void endElement();
    void extend(QPointF point);

    Page m_page;
    DrawingGrid m_grid;
    double m_flattenTolerance;
    QByteArray m_body;
    int m_mostShapes;
    int m_shapeCount = 0;
    bool m_isFull = false;
    QPointF m_least;
    QPointF m_most;
    bool m_hasExtents = false;
};

} // namespace svgprep
