// The results of the reader: one plain record per shape, with the coordinates of the file and the one
// transform text that applies to them. Records are values and do not refer back to the document.

#pragma once

#include "kvTextConversion.h"

#include "kvArray.h"
#include "kvString.h"

#include <QString>

#include <utility>

/// The common part of all records: the transform text of the element or of its parent, empty for none.
class SVGRecord {
public:
    kvString transform() const { return toKvString(m_transform); }
    /// The same text as a Qt string, with the characters it was set from.
    const QString &transformText() const { return m_transform; }
    void setTransform(const kvString &transform) { m_transform = toQString(transform); }
    /// Shares the characters of `transform`. All commands of a path and all children of a group have them in
    /// common.
    void setTransform(const QString &transform) { m_transform = transform; }

protected:
    SVGRecord() = default;

private:
    QString m_transform;
};

/// A record with one list of numbers, in drawing order.
class SVGValuesRecord : public SVGRecord {
public:
    kvDoubleArray values() const { return m_values; }
    void setValues(kvDoubleArray values) { m_values = std::move(values); }
    void addValue(double value) { m_values.add(value); }

protected:
    SVGValuesRecord() = default;

private:
    kvDoubleArray m_values;
};

/// A straight line; `values()` are x1, y1, x2, y2.
class SVGLineRecord : public SVGValuesRecord {};

/// A circle; `center()` is cx, cy.
class SVGCircleRecord : public SVGRecord {
public:
    kvDoubleArray center() const { return m_center; }
    void setCenter(kvDoubleArray center) { m_center = std::move(center); }
    void addCenterValue(double value) { m_center.add(value); }

    /// The radius as read: it may be 0 or negative.
    double radius() const { return m_radius; }
    void setRadius(double radius) { m_radius = radius; }

private:
    kvDoubleArray m_center;
    double m_radius = 0.0;
};

/// An ellipse; `values()` are four pairs: the origin, the point (cx + rx, 0), the radii rx, ry and the centre
/// cx, cy.
class SVGEllipseRecord : public SVGValuesRecord {};

/// A rectangle, a polyline, a polygon or a straight run of a path; `values()` are x, y pairs. The list that
/// holds the record tells whether it is drawn closed.
class SVGPolylineRecord : public SVGValuesRecord {};

/// A curve of a path, both arrays as x, y pairs. The fit points are its start and the end of each segment.
/// The control points are the two inner ones of each segment.
class SVGSplineRecord : public SVGRecord {
public:
    kvDoubleArray fitPoints() const { return m_fitPoints; }
    void setFitPoints(kvDoubleArray fitPoints) { m_fitPoints = std::move(fitPoints); }
    void addFitPointValue(double value) { m_fitPoints.add(value); }

    kvDoubleArray controlPoints() const { return m_controlPoints; }
    void setControlPoints(kvDoubleArray controlPoints) { m_controlPoints = std::move(controlPoints); }
    void addControlPointValue(double value) { m_controlPoints.add(value); }

private:
    kvDoubleArray m_fitPoints;
    kvDoubleArray m_controlPoints;
};

/// A label; `values()` are x, y, and `texts()` holds its one line of text.
class SVGTextRecord : public SVGValuesRecord {
public:
    kvStringArray texts() const { return m_texts; }
    void setTexts(kvStringArray texts) { m_texts = std::move(texts); }
    void addText(const kvString &text) { m_texts.add(text); }

    /// The font-size attribute as written. It becomes a number only when the label is drawn.
    kvString fontSize() const { return m_fontSize; }
    void setFontSize(const kvString &fontSize) { m_fontSize = fontSize; }

private:
    kvStringArray m_texts;
    kvString m_fontSize;
};
