// Points and the one kind of transform a drawing knows: scale, then turn, then move.

#pragma once

namespace refhost {

/// A point or a vector, in drawing units.
struct Point {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

/// The place of a block instance, as InsertBlock2 takes it.
struct Placement {
    Point position;
    Point scale = {1.0, 1.0, 1.0};
    double rotation = 0.0; ///< radians, counter-clockwise
};

/// An affine map of the drawing plane, [a c e; b d f; 0 0 1]; z is scaled and moved on its own.
struct Affine {
    double a = 1.0;
    double b = 0.0;
    double c = 0.0;
    double d = 1.0;
    double e = 0.0;
    double f = 0.0;
    double zScale = 1.0;
    double zOffset = 0.0;

    /// The map from the coordinates of a block with the base point `base` to its instance at `placement`.
    static Affine fromPlacement(const Placement &placement, const Point &base);

    Point mapPoint(const Point &point) const;
    /// Maps a direction: turned and scaled, not moved.
    Point mapVector(const Point &vector) const;
    double determinant() const { return a * d - b * c; }
};

/// The map that applies `first` and then `second`.
Affine combined(const Affine &first, const Affine &second);

/// The length of `vector` in the drawing plane.
double planarLength(const Point &vector);

/// `vector` brought to `length` in the drawing plane. Its own length must not be 0.
Point withLength(const Point &vector, double length);

bool isFinite(const Point &point);
bool isFinite(const Placement &placement);

} // namespace refhost
