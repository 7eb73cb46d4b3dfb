// What the reader hands over: one plain record per shape, with its coordinates as the file gives them and the
// one transform text that applies to it. Records are values; nothing in them refers back to the document.

#pragma once

#include "kvTextConversion.h"

#include "kvArray.h"
#include "kvString.h"

#include <QString>

#include <utility>

/// The part all records share: the transform text of the element, or of its parent. Empty means none.
class SVGRecord {
public:
    kvString transform() const { return toKvString(m_transform); }
    /// The same text as it was set.
    const QString &transformText() const { return m_transform; }
    void setTransform(const kvString &transform) { m_transform = toQString(transform); }
    /// Shares the characters of `transform`, which all commands of a path and all children of a group have in
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

/// A rectangle, polyline, polygon or a straight run of a path; `values()` are x, y pairs. Whether it is drawn
/// closed depends on the list it came in.
class SVGPolylineRecord : public SVGValuesRecord {};

/// A curve of a path, both arrays as x, y pairs: the fit points are its start and the end of each segment,
/// the control points the two inner ones of each segment.
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

/// A label; `values()` are x, y, and `texts()` holds the one line of text.
class SVGTextRecord : public SVGValuesRecord {
public:
    kvStringArray texts() const { return m_texts; }
    void setTexts(kvStringArray texts) { m_texts = std::move(texts); }
    void addText(const kvString &text) { m_texts.add(text); }

    /// The font-size attribute as written; it is read as a number only when the label is drawn.
    kvString fontSize() const { return m_fontSize; }
    void setFontSize(const kvString &fontSize) { m_fontSize = fontSize; }

private:
    kvStringArray m_texts;
    kvString m_fontSize;
};
