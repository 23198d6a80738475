// The unit circle of the terms, laid over the image: x = (X - CenterX) * ScaleX, likewise y.
#pragma once
#include "geometry/clsShape.h"

namespace morvane {

struct Pupil {
    double CenterX = 0, CenterY = 0; // image pixels
    double ScaleX = 0, ScaleY = 0; // pupil units per image pixel: 1 / radius
    ShapeKind ApertureType = ShapeKind::None;

    bool IsDefined() const { return ScaleX != 0 && ScaleY != 0; }
    // Image cell under a pupil position, halves to even.
    int Column(double X) const;
    int Row(double Y) const;
    // Cells that trimming takes off: 3 percent of the mean radius.
    int TrimRim() const;

    // Circle: each axis by its own radius. Ellipse: both by the larger. Polygon: the smallest
    // circle through three vertices that holds them all, its radius written back to the shape.
    // Other types, and shapes without a usable radius, keep center and scales.
    void SetScalefactors(clsShape& Aperture);
};

} // namespace morvane
