// Checks that numbers are finite, and puts an ellipse's longer axis first.

#include "drawing/Entity.h"

#include <algorithm>
#include <cmath>

namespace refhost {

namespace {

bool finite(double number)
{
    return std::isfinite(number);
}

bool finite(const Line &line)
{
    return isFinite(line.start) && isFinite(line.end);
}

bool finite(const Circle &circle)
{
    return isFinite(circle.center) && finite(circle.radius);
}

bool finite(const Ellipse &ellipse)
{
    return isFinite(ellipse.center) && finite(planarLength(ellipse.axis)) && finite(ellipse.otherRadius);
}

bool finite(const Polyline &polyline)
{
    return std::all_of(polyline.points.begin(), polyline.points.end(),
                       [](double number) { return finite(number); });
}

bool finite(const Spline &spline)
{
    return std::all_of(spline.controlPoints.begin(), spline.controlPoints.end(),
                       [](const Point &point) { return isFinite(point); });
}

bool finite(const Note &note)
{
    return isFinite(note.position) && finite(note.height) && finite(note.rotation);
}

bool finite(const BlockInstance &instance)
{
    return isFinite(instance.placement);
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
    const Point other = {-ellipse.axis.y, ellipse.axis.x, 0.0};
    return {ellipse.center, withLength(other, ellipse.otherRadius), axisLength};
}

} // namespace refhost
