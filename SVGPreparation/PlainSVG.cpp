// Separates straight steps from round ones and writes each as the import draws it best.

#include "SVGPreparation/PlainSVG.h"

#include <algorithm>
#include <cmath>

namespace svgprep {

namespace {

constexpr double largestCoordinate = 1e15;
constexpr int mostFlattenedPoints = 20'000'000; // in one subpath
constexpr int largestText = 1'500'000'000;      // bytes; Qt's arrays end at 2 GiB

bool isDrawable(QPointF point)
{
    return std::abs(point.x()) <= largestCoordinate && std::abs(point.y()) <= largestCoordinate;
}

bool isSamePoint(QPointF a, QPointF b)
{
    return a.x() == b.x() && a.y() == b.y(); // QPointF's own comparison is fuzzy
}

bool isPoint(QPointF start, const Segment &segment)
{
    return isSamePoint(start, segment.end)
        && (!segment.isCurve
            || (isSamePoint(start, segment.control1) && isSamePoint(start, segment.control2)));
}

/// The number of equal pieces that each stay within `tolerance` of their chord. A curve is at most an eighth
/// of its second derivative away from its chord, and the control points bound that derivative.
int piecesOf(QPointF start, const Segment &curve, double tolerance)
{
    const QPointF bend1 = start - 2.0 * curve.control1 + curve.control2;
    const QPointF bend2 = curve.control1 - 2.0 * curve.control2 + curve.end;
    const double bend = 6.0 * std::max(std::hypot(bend1.x(), bend1.y()), std::hypot(bend2.x(), bend2.y()));
    constexpr double most = 2.0 * mostFlattenedPoints;
    return static_cast<int>(std::clamp(std::ceil(std::sqrt(bend / 8.0 / tolerance)), 1.0, most));
}

/// The segments of a subpath, from a place where straight and curved ones meet. A closing line counts as one.
std::vector<Segment> segmentsFromCorner(const Subpath &subpath, QPointF &start)
{
    std::vector<Segment> segments = subpath.segments;
    start = subpath.start;
    if (!subpath.isClosed)
        return segments;
    if (!isSamePoint(subpath.end(), subpath.start))
        segments.push_back({false, true, {}, {}, subpath.start});
    const auto isCorner = [&segments](std::size_t i) {
        return segments[i].isCurve != segments[(i + segments.size() - 1) % segments.size()].isCurve;
    };
    for (std::size_t i = 1; i < segments.size() && !isCorner(0); ++i) {
        if (!isCorner(i))
            continue;
        start = segments[i - 1].end;
        std::rotate(segments.begin(), segments.begin() + static_cast<std::ptrdiff_t>(i), segments.end());
        break;
    }
    return segments;
}

} // namespace

PlainSVG::PlainSVG(const Page &page, double flattenTolerance, int mostShapes)
    : m_page(page)
    , m_grid(std::max(page.viewBox.width(), page.viewBox.height()))
    , m_flattenTolerance(flattenTolerance)
    , m_mostShapes(mostShapes)
{
}

void PlainSVG::addOutline(const Outline &outline, const QTransform &transform)
{
    QByteArray curves;
    for (Subpath subpath : outline) {
        if (m_isFull)
            return;
        if (snapToGrid(subpath, transform))
            addSubpath(subpath, curves);
    }
    if (curves.isEmpty())
        return;
    m_body += "<path d=\"";
    m_body += curves;
    m_body += '"';
    endElement();
    --m_shapeCount; // each curve counts already
}

void PlainSVG::addRectangle(const QRectF &rectangle, const QTransform &transform)
{
    Subpath outline;
    outline.start = rectangle.topLeft();
    for (const QPointF corner : {rectangle.topRight(), rectangle.bottomRight(), rectangle.bottomLeft()})
        outline.lineTo(corner);
    outline.isClosed = true;
    Subpath placed = outline;
    if (!snapToGrid(placed, transform))
        return;
    const bool isUpright = placed.segments.size() == 3 && placed.start.y() == placed.segments[0].end.y()
        && placed.segments[0].end.x() == placed.segments[1].end.x()
        && placed.segments[1].end.y() == placed.segments[2].end.y()
        && placed.segments[2].end.x() == placed.start.x();
    if (!isUpright) {
        addOutline({outline}, transform);
        return;
    }
    const QPointF opposite = placed.segments[1].end;
    m_body += "<rect";
    appendAttribute("x", std::min(placed.start.x(), opposite.x()));
    appendAttribute("y", std::min(placed.start.y(), opposite.y()));
    appendAttribute("width", std::abs(opposite.x() - placed.start.x()));
    appendAttribute("height", std::abs(opposite.y() - placed.start.y()));
    endElement();
}

void PlainSVG::addEllipse(const UprightEllipse &ellipse, const QTransform &transform)
{
    const std::optional<UprightEllipse> upright = transformedEllipse(ellipse, transform);
    const double rx = upright ? m_grid.snapped(upright->rx) : 0.0;
    const double ry = upright ? m_grid.snapped(upright->ry) : 0.0;
    if (upright && rx == ry) {
        addCircle({upright->center, rx});
        return;
    }
    const QPointF center = upright ? m_grid.snapped(upright->center) : QPointF();
    // The host gets one axis from the origin to (cx + rx, 0) and refuses an axis without length.
    constexpr double shortestAxis = 1e-6;
    if (!(rx > 0.0 && ry > 0.0) || std::abs(center.x() + rx) < shortestAxis * rx) {
        addOutline(ellipseOutline(ellipse.center, ellipse.rx, ellipse.ry), transform);
        return;
    }
    if (!isDrawable(center) || !isDrawable({rx, ry}))
        return;
    extend(center - QPointF(rx, ry));
    extend(center + QPointF(rx, ry));
    m_body += "<ellipse";
    appendAttribute("cx", center.x());
    appendAttribute("cy", center.y());
    appendAttribute("rx", rx);
    appendAttribute("ry", ry);
    endElement();
}

void PlainSVG::addText(const QString &text, QPointF leftEnd, double size)
{
    const QPointF position = m_grid.snapped(leftEnd);
    const double height = m_grid.snapped(size);
    if (text.isEmpty() || !isDrawable(position) || !(height > 0.0 && height <= largestCoordinate))
        return;
    extend(position);
    extend(position + QPointF(height, -height));
    m_body += "<text";
    appendAttribute("x", position.x());
    appendAttribute("y", position.y());
    appendAttribute("font-size", height);
    m_body += R"( fill="black" stroke="none")";
    if (text.contains(QLatin1String("  ")))
        m_body += R"( xml:space="preserve")";
    m_body += '>';
    m_body += text.toHtmlEscaped().toUtf8();
    m_body += "</text>\n";
    ++m_shapeCount;
    m_isFull = m_isFull || m_shapeCount > m_mostShapes || m_body.size() > largestText;
}

QRectF PlainSVG::extents() const
{
    return m_hasExtents ? QRectF(m_least, m_most) : QRectF();
}

QByteArray PlainSVG::text() const
{
    const QRectF &box = m_page.viewBox;
    QByteArray text = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox=")";
    text += m_grid.text(box.x()) + ' ' + m_grid.text(box.y()) + ' ' + m_grid.sizeText(box.width()) + ' '
        + m_grid.sizeText(box.height());
    text += "\" width=\"" + m_page.width + "\" height=\"" + m_page.height + '"';
    if (!m_page.aspectRatio.isEmpty())
        text += " preserveAspectRatio=\"" + m_page.aspectRatio + '"';
    // A browser shows lines as thin as on paper, whatever the unit.
    const double lineWidth = std::max(box.width(), box.height()) / 500.0;
    text += " stroke-width=\"" + DrawingGrid(lineWidth * 1e8).text(lineWidth) + "\">\n";
    text += R"svg(<g transform="matrix(1,0,0,1,0,0)" fill="none" stroke="black">)svg";
    text += '\n' + m_body + "</g>\n</svg>\n";
    return text;
}

/// Moves `subpath` to the grid and drops steps without length. False when nothing is left, or when a number
/// is too large.
bool PlainSVG::snapToGrid(Subpath &subpath, const QTransform &transform)
{
    const auto placed = [&](QPointF point) { return m_grid.snapped(mapped(transform, point)); };
    subpath.start = placed(subpath.start);
    bool isGood = isDrawable(subpath.start);
    QPointF from = subpath.start;
    std::size_t kept = 0;
    for (Segment segment : subpath.segments) {
        segment.end = placed(segment.end);
        if (segment.isCurve) {
            segment.control1 = placed(segment.control1);
            segment.control2 = placed(segment.control2);
            isGood = isGood && isDrawable(segment.control1) && isDrawable(segment.control2);
        }
        isGood = isGood && isDrawable(segment.end);
        if (isPoint(from, segment))
            continue;
        from = segment.end;
        subpath.segments[kept] = segment;
        ++kept;
    }
    subpath.segments.resize(kept);
    return isGood && kept > 0;
}

void PlainSVG::addSubpath(const Subpath &subpath, QByteArray &curves)
{
    extend(subpath.start);
    for (const Segment &segment : subpath.segments) {
        extend(segment.end);
        if (segment.isCurve) {
            extend(segment.control1);
            extend(segment.control2);
        }
    }
    QPointF from;
    const std::vector<Segment> segments = segmentsFromCorner(subpath, from);
    const auto isCurve = [](const Segment &segment) { return segment.isCurve; };
    const bool isStraight = std::none_of(segments.begin(), segments.end(), isCurve);
    if (isStraight
        || (m_flattenTolerance > 0.0
            && !circleAlong(from, segments.data(), segments.data() + segments.size()))) {
        addAsOneRun(subpath);
        return;
    }
    const Segment *first = segments.data();
    const Segment *end = first + segments.size();
    while (first != end) {
        const Segment *last = std::find_if(
            first, end, [first](const Segment &segment) { return segment.isCurve != first->isCurve; });
        addRun(from, first, last, curves);
        from = (last - 1)->end;
        first = last;
    }
}

/// Adds steps that are all straight or all curved. Curves that form no circle go to `curves`.
void PlainSVG::addRun(QPointF start, const Segment *first, const Segment *last, QByteArray &curves)
{
    if (!first->isCurve) {
        std::vector<QPointF> points = {start};
        for (const Segment *line = first; line != last; ++line)
            points.push_back(line->end);
        addStraight(points, false);
        return;
    }
    if (const std::optional<Circle> circle = circleAlong(start, first, last)) {
        addCircle(*circle);
        return;
    }
    curves += 'M';
    appendPoint(curves, start);
    for (const Segment *curve = first; curve != last; ++curve) {
        curves += 'C';
        appendPoint(curves, curve->control1);
        curves += ' ';
        appendPoint(curves, curve->control2);
        curves += ' ';
        appendPoint(curves, curve->end);
        ++m_shapeCount;
    }
    m_isFull = m_isFull || m_shapeCount > m_mostShapes || m_body.size() + curves.size() > largestText;
}

/// Adds points of the grid as a line, polyline or polygon. No two neighbours among them are equal.
void PlainSVG::addStraight(const std::vector<QPointF> &points, bool isClosed)
{
    if (points.size() == 2) {
        m_body += "<line";
        appendAttribute("x1", points[0].x());
        appendAttribute("y1", points[0].y());
        appendAttribute("x2", points[1].x());
        appendAttribute("y2", points[1].y());
        endElement();
        return;
    }
    m_body += isClosed ? "<polygon points=\"" : "<polyline points=\"";
    for (const QPointF point : points) {
        appendPoint(m_body, point);
        m_body += ' ';
    }
    m_body.chop(1);
    m_body += '"';
    endElement();
}

/// Adds a subpath as one run of straight steps; its curves are cut into pieces.
void PlainSVG::addAsOneRun(const Subpath &subpath)
{
    std::vector<QPointF> points = {subpath.start};
    bool hasCurve = false;
    for (const Segment &segment : subpath.segments) {
        const QPointF from = points.back();
        const int pieces = segment.isCurve ? piecesOf(from, segment, m_flattenTolerance) : 1;
        hasCurve = hasCurve || segment.isCurve;
        if (points.size() + static_cast<std::size_t>(pieces) > mostFlattenedPoints) {
            m_isFull = true;
            return;
        }
        for (int i = 1; i < pieces; ++i) {
            const QPointF point = m_grid.snapped(pointAt(from, segment, double(i) / pieces));
            if (!isSamePoint(point, points.back()))
                points.push_back(point);
        }
        if (!isSamePoint(segment.end, points.back()))
            points.push_back(segment.end);
    }
    // Curves that come back to their start make a closed outline, even when the author left it open.
    const bool isLoop = points.size() > 3 && isSamePoint(points.front(), points.back());
    const bool isClosed = subpath.isClosed || (isLoop && hasCurve);
    if (isClosed && isSamePoint(points.front(), points.back()))
        points.pop_back();
    if (points.size() > 1)
        addStraight(points, isClosed);
}

void PlainSVG::addCircle(const Circle &circle)
{
    const QPointF center = m_grid.snapped(circle.center);
    const double radius = m_grid.snapped(circle.radius);
    if (!isDrawable(center) || !(radius > 0.0 && radius <= largestCoordinate))
        return;
    extend(center - QPointF(radius, radius));
    extend(center + QPointF(radius, radius));
    m_body += "<circle";
    appendAttribute("cx", center.x());
    appendAttribute("cy", center.y());
    appendAttribute("r", radius);
    endElement();
}

void PlainSVG::appendPoint(QByteArray &text, QPointF point) const
{
    m_grid.append(text, point.x());
    text += ',';
    m_grid.append(text, point.y());
}

void PlainSVG::appendAttribute(const char *name, double value)
{
    m_body += ' ';
    m_body += name;
    m_body += "=\"";
    m_grid.append(m_body, value);
    m_body += '"';
}

void PlainSVG::endElement()
{
    m_body += "/>\n";
    ++m_shapeCount;
    m_isFull = m_isFull || m_shapeCount > m_mostShapes || m_body.size() > largestText;
}

void PlainSVG::extend(QPointF point)
{
    if (!m_hasExtents)
        m_least = m_most = point;
    m_hasExtents = true;
    m_least = {std::min(m_least.x(), point.x()), std::min(m_least.y(), point.y())};
    m_most = {std::max(m_most.x(), point.x()), std::max(m_most.y(), point.y())};
}

} // namespace svgprep
