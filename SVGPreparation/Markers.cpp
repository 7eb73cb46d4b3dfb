// Follows an outline from vertex to vertex and computes the frames of markers.

#include "SVGPreparation/Markers.h"

#include "SVGPreparation/Length.h"
#include "SVGPreparation/Scanner.h"
#include "SVGPreparation/Viewport.h"

#include <QtMath>

#include <cmath>

namespace svgprep {

namespace {

bool isZero(QPointF vector)
{
    return vector.x() == 0.0 && vector.y() == 0.0;
}

QPointF unit(QPointF vector)
{
    const double length = std::hypot(vector.x(), vector.y());
    return length > 0.0 ? vector / length : QPointF();
}

/// The directions in which a step begins and ends; zero vectors for a step without length.
struct Directions {
    QPointF begin;
    QPointF end;
};

QPointF firstNonZero(QPointF a, QPointF b, QPointF c)
{
    if (!isZero(a))
        return unit(a);
    return unit(isZero(b) ? c : b);
}

Directions directionsOf(QPointF from, const Segment &segment)
{
    const QPointF chord = segment.end - from;
    if (!segment.isCurve)
        return {unit(chord), unit(chord)};
    return {firstNonZero(segment.control1 - from, segment.control2 - from, chord),
            firstNonZero(segment.end - segment.control2, segment.end - segment.control1, chord)};
}

double degreesOf(QPointF direction)
{
    return isZero(direction) ? 0.0 : qRadiansToDegrees(std::atan2(direction.y(), direction.x()));
}

/// The direction halfway between arriving and leaving; across when the outline turns back on itself.
double cornerDegrees(QPointF in, QPointF out)
{
    if (isZero(in) || isZero(out))
        return degreesOf(isZero(in) ? out : in);
    const QPointF middle = in + out;
    const bool turnsBack = std::hypot(middle.x(), middle.y()) < 1e-9;
    return degreesOf(turnsBack ? QPointF(-in.y(), in.x()) : middle);
}

/// Appends the vertices of one subpath with their directions. A closed subpath ends at its start again.
void appendPlaces(const Subpath &subpath, std::vector<MarkerPlace> &places)
{
    std::vector<Segment> segments = subpath.segments;
    if (subpath.isClosed)
        segments.push_back({false, true, {}, {}, subpath.start});
    std::vector<Directions> directions;
    QPointF from = subpath.start;
    for (const Segment &segment : segments) {
        directions.push_back(directionsOf(from, segment));
        from = segment.end;
    }
    // A step without length takes its direction from its neighbours.
    for (std::size_t i = 1; i < directions.size(); ++i) {
        if (isZero(directions[i].begin))
            directions[i] = {directions[i - 1].end, directions[i - 1].end};
    }
    for (std::size_t i = directions.size(); i-- > 1;) {
        if (isZero(directions[i - 1].end))
            directions[i - 1] = {directions[i].begin, directions[i].begin};
    }

    const QPointF leaving = directions.empty() ? QPointF() : directions.front().begin;
    const QPointF arriving = subpath.isClosed && !directions.empty() ? directions.back().end : QPointF();
    places.push_back({MarkerPlace::Kind::Mid, subpath.start, cornerDegrees(arriving, leaving)});
    for (std::size_t i = 0; i < segments.size(); ++i) {
        if (!segments[i].endsAtVertex)
            continue;
        const bool isLast = i + 1 == segments.size();
        const QPointF next = !isLast ? directions[i + 1].begin : (subpath.isClosed ? leaving : QPointF());
        places.push_back({MarkerPlace::Kind::Mid, segments[i].end, cornerDegrees(directions[i].end, next)});
    }
}

/// The attribute refX or refY. A word stands for a place within the viewBox.
double reference(const QDomElement &marker, const QString &name, const LengthBase &base, Along along)
{
    struct Row {
        const char *name;
        double share;
    };
    constexpr Row rows[] = {{"left", 0.0}, {"top", 0.0}, {"center", 0.5}, {"right", 1.0}, {"bottom", 1.0}};
    const QString text = marker.attribute(name).trimmed();
    for (const Row &row : rows) {
        if (text == QLatin1String(row.name))
            return row.share * (along == Along::Width ? base.viewport.width() : base.viewport.height());
    }
    return lengthAttribute(marker, name, base, along);
}

double orientation(const QDomElement &marker, const MarkerPlace &place)
{
    const QString orient = marker.attribute(QStringLiteral("orient")).trimmed();
    if (orient == QLatin1String("auto"))
        return place.direction;
    if (orient == QLatin1String("auto-start-reverse"))
        return place.kind == MarkerPlace::Kind::Start ? place.direction + 180.0 : place.direction;
    Scanner scanner(orient);
    const double angle = scanner.number().value_or(0.0);
    const QStringView unit = scanner.word();
    if (unit == QLatin1String("rad"))
        return qRadiansToDegrees(angle);
    if (unit == QLatin1String("turn"))
        return angle * 360.0;
    return unit == QLatin1String("grad") ? angle * 0.9 : angle;
}

} // namespace

std::vector<MarkerPlace> markerPlaces(const Outline &outline)
{
    std::vector<MarkerPlace> places;
    for (const Subpath &subpath : outline)
        appendPlaces(subpath, places);
    if (!places.empty()) {
        places.front().kind = MarkerPlace::Kind::Start;
        places.back().kind = MarkerPlace::Kind::End; // browsers show the end marker at a single vertex
    }
    return places;
}

QTransform markerTransform(const QDomElement &marker, const MarkerPlace &place, double strokeWidth,
                           const LengthBase &base)
{
    constexpr double usualSize = 3.0;
    const bool isInUserUnits =
        marker.attribute(QStringLiteral("markerUnits")).trimmed() == QLatin1String("userSpaceOnUse");
    const double scale = isInUserUnits ? 1.0 : strokeWidth;
    const QRectF room(
        0.0, 0.0, lengthAttribute(marker, QStringLiteral("markerWidth"), base, Along::Width, usualSize),
        lengthAttribute(marker, QStringLiteral("markerHeight"), base, Along::Height, usualSize));
    const std::optional<QRectF> viewBox = viewBoxOf(marker);
    if (!(room.width() > 0.0 && room.height() > 0.0) || !(scale > 0.0) || (viewBox && viewBox->isEmpty()))
        return {0.0, 0.0, 0.0, 0.0, 0.0, 0.0};

    LengthBase inner = base;
    inner.viewport = viewBox ? viewBox->size() : room.size();
    QTransform contents;
    if (viewBox)
        contents = viewBoxTransform(*viewBox, room, marker.attribute(QStringLiteral("preserveAspectRatio")));
    const QPointF anchor = mapped(contents,
                                  {reference(marker, QStringLiteral("refX"), inner, Along::Width),
                                   reference(marker, QStringLiteral("refY"), inner, Along::Height)});
    QTransform turn;
    turn.rotate(orientation(marker, place));
    const QTransform atOrigin = combined(contents, QTransform::fromTranslate(-anchor.x(), -anchor.y()));
    const QTransform turned = combined(combined(atOrigin, QTransform::fromScale(scale, scale)), turn);
    return combined(turned, QTransform::fromTranslate(place.position.x(), place.position.y()));
}

} // namespace svgprep
