// Straight vertical fringes with known orders, for tests that need a picture but no aberrations.
#pragma once
#include <cmath>
#include <cstdint>
#include <vector>

#include "document/Dib.h"
#include "geometry/clsShape.h"
#include "platform/File.h"

namespace morvane {

// Dark centers at the columns Spacing / 2, Spacing / 2 + Spacing, ...
inline ImageBuffer VerticalFringes(int Width, int Height, double Spacing)
{
    ImageBuffer picture;
    picture.Size = {Width, Height};
    picture.Pixels.resize(static_cast<std::size_t>(Width) * Height);
    for (int y = 0; y < Height; ++y)
        for (int x = 0; x < Width; ++x) {
            const double phase = 2 * 3.14159265358979323846 * (x / Spacing - 0.5);
            picture.Pixels[static_cast<std::size_t>(y) * Width + x] =
                static_cast<std::uint8_t>(std::lround(127 - 120 * std::cos(phase)));
        }
    return picture;
}

inline void WritePicture(const ImageBuffer& Picture, const std::string& Path)
{
    WriteWholeFile(Path, BmpFromBuffer(Picture));
}

// The circle around (X, Y) through its four outermost points.
inline void SetCircle(clsShape& Shape, double X, double Y, double Radius)
{
    const Point points[] = {{X - Radius, Y}, {X + Radius, Y}, {X, Y - Radius}, {X, Y + Radius}};
    Shape.Save(ShapeKind::Circle, points);
}

} // namespace morvane
