// An SVG document as the drawing side sees it: one reader per element kind gives a list of records in
// document order.

#pragma once

#include "SVGRecords.h"

#include <QDomDocument>
#include <QDomElement>
#include <QHash>
#include <QList>
#include <QString>

#include <vector>

/// A point of a path, in the file's units.
struct PathPoint {
    double x = 0.0;
    double y = 0.0;
};

/// Reads the shapes of one XML document. Elements count wherever they stand, also in defs or in a clipPath.
/// Names are compared exactly, so neither "Rect" nor "svg:rect" is found. Anything that cannot be read counts
/// as 0 or as absent.
class SVGDocument {
public:
    /// Reads from `document`; it is shared, not copied.
    explicit SVGDocument(const QDomDocument &document);

    QList<SVGLineRecord> lines() const;
    QList<SVGCircleRecord> circles() const;
    QList<SVGEllipseRecord> ellipses() const;
    /// Rectangles as their four corners; to be drawn closed.
    QList<SVGPolylineRecord> rects() const;
    QList<SVGPolylineRecord> polylines() const;
    /// To be drawn closed.
    QList<SVGPolylineRecord> polygons() const;
    QList<SVGTextRecord> texts() const;

    /// Reads every path element into pathPolylines() and pathSplines(). The current point and the last
    /// control point carry over from one path to the next; a second call would append everything again.
    void parsePathData();
    /// The straight runs in reading order, one for each straight command; empty before parsePathData().
    QList<SVGPolylineRecord> pathPolylines() const { return m_pathPolylines; }
    /// The curves in reading order, one for each curve command; empty before parsePathData().
    QList<SVGSplineRecord> pathSplines() const { return m_pathSplines; }
    /// Whether any path of the document closes itself. The answer holds for all straight runs of the
    /// document.
    bool pathClosed() const { return m_pathClosed; }

private:
    /// The elements named `tag`: the name of a shape, "text" or "path".
    const std::vector<QDomElement> &elements(const char *tag) const;
    template <class Record, class Fill>
    QList<Record> readAll(const char *tag, Fill fill) const;

    void addPath(const QDomElement &path);
    void addStraightCommand(const std::vector<double> &numbers, char letter, const QString &transform);
    void addCurveCommand(const std::vector<double> &numbers, char letter, const QString &transform);

    bool m_pathClosed = false;
    PathPoint m_currentPoint;
    PathPoint m_lastControlPoint;
    std::vector<double> m_pathNumbers;
    QList<SVGPolylineRecord> m_pathPolylines;
    QList<SVGSplineRecord> m_pathSplines;
    QDomDocument m_document;
    QHash<QString, std::vector<QDomElement>> m_elements;
};
