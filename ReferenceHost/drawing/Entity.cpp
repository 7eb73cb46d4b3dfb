// What holds for every entity: finite numbers only, and an ellipse's longer axis first when it is saved.

#include "drawing/Entity.h"

#include <algorithm>
#include <cmath>

namespace refhost {

namespace {

bool finite(double number)
{
    return std::isfinite(number);
}

bool finite(const Point &point)
{
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

bool finite(const Line &line)
{
    return finite(line.start) && finite(line.end);
}

bool finite(const Circle &circle)
{
    return finite(circle.center) && finite(circle.radius);
}

bool finite(const Ellipse &ellipse)
{
    return finite(ellipse.center) && finite(planarLength(ellipse.axis)) && finite(ellipse.otherRadius);
}

bool finite(const Polyline &polyline)
{
    return std::all_of(polyline.points.begin(), polyline.points.end(),
                       [](double number) { return finite(number); });
}

bool finite(const Spline &spline)
{
    return std::all_of(spline.controlPoints.begin(), spline.controlPoints.end(),
                       [](const Point &point) { return finite(point); });
}

bool finite(const Note &note)
{
    return finite(note.position) && finite(note.height) && finite(note.rotation);
}

bool finite(const BlockInstance &instance)
{
    const Placement &placement = instance.placement;
    return finite(placement.position) && finite(placement.scale) && finite(placement.rotation);
}

} // namespace

bool isFinite(const Entity &entity)
{
    return std::visit([](const auto &shape) { return finite(shape); }, entity);
}

Ellipse normalised(const Ellipse &ellipse)
{
    const double axisLength = planarLength(ellipse.axis);
    if (axisLength <= 0.0 || ellipse.otherRadius <= axisLength)
        return ellipse;
    const double factor = ellipse.otherRadius / axisLength;
    return {ellipse.center, {-ellipse.axis.y * factor, ellipse.axis.x * factor, 0.0}, axisLength};
}

} // namespace refhost
