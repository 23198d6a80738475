// Operations on byte pictures: rows top-down, no padding, pixel (x, y) at y * width + x.
#pragma once
#include <cstdint>
#include <span>

namespace morvane {

struct RasterSize {
    int Width = 0, Height = 0;
    friend bool operator==(const RasterSize&, const RasterSize&) = default;
};

struct PixelPosition {
    int Column = 0, Row = 0;
};

// Size of the picture that ResampleImage makes: round(width * Scale * Aspect) by
// round(height * Scale).
RasterSize ResampledSize(RasterSize Source, double Aspect, double Scale);

// Bilinear resampling: each of two source rows is interpolated and rounded, then the two are.
// Where the integer part of the source position exceeds size - 2 the pixel is 0. With Aspect and
// Scale both 1 a plain copy. Nothing happens unless both pictures have their exact sizes.
void ResampleImage(std::span<const std::uint8_t> Source, RasterSize SourceSize,
    std::span<std::uint8_t> Target, double Aspect, double Scale);

// Pixels of a row of the smoothed picture, from FirstColumn on, as many as Target holds. Inner
// pixels are round(0.125 * (north + south + east + west) + 0.5 * center), halves to even; those on
// the border of the picture are 0.
void SmoothRow(std::span<const std::uint8_t> Source, RasterSize Size, int Row, int FirstColumn,
    std::span<std::uint8_t> Target);

} // namespace morvane
