#include "geometry/modRaster.h"

#include <algorithm>

#include "platform/Numbers.h"

namespace morvane {

namespace {

std::size_t pixelCount(RasterSize size)
{
    return size.Width < 1 || size.Height < 1 ? 0
                                             : static_cast<std::size_t>(size.Width) * size.Height;
}

// A position between two pixels of a row or column.
struct Between {
    int First; // the other one is First + 1
    double Fraction; // 0 at First, towards 1 at the other

    explicit Between(double position)
        : First(static_cast<int>(position)), Fraction(position - First)
    {
    }

    int Mix(int a, int b) const { return RoundToLong(a + (b - a) * Fraction); }
};

} // namespace

RasterSize ResampledSize(RasterSize Source, double Aspect, double Scale)
{
    return {RoundToLong(Source.Width * Scale * Aspect), RoundToLong(Source.Height * Scale)};
}

void ResampleImage(std::span<const std::uint8_t> Source, RasterSize SourceSize,
    std::span<std::uint8_t> Target, double Aspect, double Scale)
{
    const RasterSize size = ResampledSize(SourceSize, Aspect, Scale);
    if (Target.empty() || Target.size() != pixelCount(size)
        || Source.size() != pixelCount(SourceSize))
        return;
    if (Aspect == 1 && Scale == 1) {
        std::copy(Source.begin(), Source.end(), Target.begin());
        return;
    }
    std::fill(Target.begin(), Target.end(), std::uint8_t{0});
    const double columnStep = 1 / (Aspect * Scale), rowStep = 1 / Scale;
    for (int row = 0; row < size.Height; ++row) {
        const Between y(row * rowStep);
        if (y.First > SourceSize.Height - 2)
            return;
        const std::uint8_t* upper = &Source[static_cast<std::size_t>(y.First) * SourceSize.Width];
        const std::uint8_t* lower = upper + SourceSize.Width;
        std::uint8_t* target = &Target[static_cast<std::size_t>(row) * size.Width];
        for (int column = 0; column < size.Width; ++column) {
            const Between x(column * columnStep);
            if (x.First > SourceSize.Width - 2)
                break;
            target[column] =
                static_cast<std::uint8_t>(y.Mix(x.Mix(upper[x.First], upper[x.First + 1]),
                    x.Mix(lower[x.First], lower[x.First + 1])));
        }
    }
}

namespace {

// Of pixels in inner rows; at the ends of a row, the neighbour is taken from the next row.
void smoothPixels(const std::uint8_t* row, int width, std::uint8_t* target, int count)
{
    const std::uint8_t *above = row - width, *below = row + width;
    for (int x = 0; x < count; ++x) {
        // Eight times the smoothed level.
        const int sum = above[x] + below[x] + row[x - 1] + row[x + 1] + 4 * row[x];
        target[x] = static_cast<std::uint8_t>((sum + 3 + (sum >> 3 & 1)) >> 3);
    }
}

} // namespace

void SmoothRow(std::span<const std::uint8_t> Source, RasterSize Size, int Row, int FirstColumn,
    std::span<std::uint8_t> Target)
{
    if (Row == 0 || Row == Size.Height - 1) {
        std::fill(Target.begin(), Target.end(), std::uint8_t{0});
        return;
    }
    const std::uint8_t* row =
        Source.data() + static_cast<std::size_t>(Row) * Size.Width + FirstColumn;
    smoothPixels(row, Size.Width, Target.data(), static_cast<int>(Target.size()));
    if (FirstColumn == 0)
        Target.front() = 0;
    if (FirstColumn + static_cast<int>(Target.size()) == Size.Width)
        Target.back() = 0;
}

} // namespace morvane
