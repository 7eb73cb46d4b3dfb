// The arithmetic of Geometry.h.

#include "drawing/Geometry.h"

#include <cmath>

namespace refhost {

Affine Affine::fromPlacement(const Placement &placement, const Point &base)
{
    const double cosine = std::cos(placement.rotation);
    const double sine = std::sin(placement.rotation);

    Affine map;
    map.a = cosine * placement.scale.x;
    map.b = sine * placement.scale.x;
    map.c = -sine * placement.scale.y;
    map.d = cosine * placement.scale.y;
    map.zScale = placement.scale.z;
    const Point movedBase = map.mapVector(base);
    map.e = placement.position.x - movedBase.x;
    map.f = placement.position.y - movedBase.y;
    map.zOffset = placement.position.z - movedBase.z;
    return map;
}

Point Affine::mapPoint(const Point &point) const
{
    const Point turned = mapVector(point);
    return {turned.x + e, turned.y + f, turned.z + zOffset};
}

Point Affine::mapVector(const Point &vector) const
{
    return {a * vector.x + c * vector.y, b * vector.x + d * vector.y, zScale * vector.z};
}

Affine combined(const Affine &first, const Affine &second)
{
    Affine map;
    map.a = second.a * first.a + second.c * first.b;
    map.b = second.b * first.a + second.d * first.b;
    map.c = second.a * first.c + second.c * first.d;
    map.d = second.b * first.c + second.d * first.d;
    const Point offset = second.mapPoint({first.e, first.f, first.zOffset});
    map.e = offset.x;
    map.f = offset.y;
    map.zOffset = offset.z;
    map.zScale = first.zScale * second.zScale;
    return map;
}

double planarLength(const Point &vector)
{
    return std::hypot(vector.x, vector.y);
}

Point withLength(const Point &vector, double length)
{
    // Divided first: the quotient of two lengths may be too large for a number.
    const double present = planarLength(vector);
    return {vector.x / present * length, vector.y / present * length, 0.0};
}

bool isFinite(const Point &point)
{
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

bool isFinite(const Placement &placement)
{
    return isFinite(placement.position) && isFinite(placement.scale) && std::isfinite(placement.rotation);
}

} // namespace refhost
