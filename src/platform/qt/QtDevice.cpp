#include "platform/qt/QtDevice.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstdlib>
#include <cstring>

namespace morvane {
namespace {

// Divisor above 0.
std::int64_t FloorOfQuotient(std::int64_t Dividend, std::int64_t Divisor)
{
    const std::int64_t quotient = Dividend / Divisor;
    return Dividend % Divisor < 0 ? quotient - 1 : quotient;
}

// One axis of a stretch: the pixels from Start to End show the source from Source on, Length of it.
struct Stretch {
    std::int64_t Start, End, Source, Length;

    // Source column or row under the center of a pixel.
    std::int64_t SourceOf(std::int64_t at) const
    {
        return Source + FloorOfQuotient((2 * (at - Start) + 1) * Length, 2 * (End - Start));
    }
    // Those of the pixels from first on before end whose source lies in a picture of that extent;
    // first becomes that of the first of them.
    std::vector<int> SourcesWithin(std::int64_t extent, std::int64_t& first, std::int64_t end) const
    {
        std::vector<int> sources;
        while (first < end && SourceOf(first) < 0)
            ++first;
        for (std::int64_t at = first; at < end && SourceOf(at) < extent; ++at)
            sources.push_back(static_cast<int>(SourceOf(at)));
        return sources;
    }
};

// How high a line has climbed, to the nearest pixel, step by step along its run. The quotient is
// kept beside what remains of it: a division takes longer than all else that a pixel needs.
class Climb {
public:
    Climb(std::int64_t rise, std::int64_t run, std::int64_t step) : m_rise(2 * rise), m_run(2 * run)
    {
        const std::int64_t dividend = step * m_rise + run;
        m_height = FloorOfQuotient(dividend, m_run);
        m_rest = dividend - m_height * m_run;
    }
    std::int64_t Height() const { return m_height; }
    void Next()
    {
        m_rest += m_rise; // no more than a run either way
        if (m_rest >= m_run) {
            m_rest -= m_run;
            ++m_height;
        } else if (m_rest < 0) {
            m_rest += m_run;
            --m_height;
        }
    }

private:
    std::int64_t m_rise, m_run, m_height, m_rest;
};

} // namespace

QtDevice::QtDevice(QImage& On, int PenScale)
    : PainterDevice(On, {0, 0, On.width(), On.height()}, PenScale), m_bits(On.bits()),
      m_stride(On.bytesPerLine()), m_pixelsPerInchX(On.logicalDpiX()),
      m_pixelsPerInchY(On.logicalDpiY())
{
    assert(On.format() == QImage::Format_RGB32);
}

int QtDevice::BitsPerPixel() const
{
    return 32;
}

DeviceFigures QtDevice::Figures() const
{
    const DeviceSize size{Bounds().Width(), Bounds().Height()};
    return {m_pixelsPerInchX, m_pixelsPerInchY, size, size, {}};
}

QtDevice::Area QtDevice::Visible(const Area& Wanted) const
{
    const DeviceRect clip = CurrentClip();
    return {std::max<std::int64_t>(Wanted.Left, clip.Left),
        std::max<std::int64_t>(Wanted.Top, clip.Top),
        std::min<std::int64_t>(Wanted.Right, clip.Right),
        std::min<std::int64_t>(Wanted.Bottom, clip.Bottom)};
}

// Changed lies within the image and is not empty.
void QtDevice::Touch(const Area& Changed)
{
    const DeviceRect box{static_cast<int>(Changed.Left), static_cast<int>(Changed.Top),
        static_cast<int>(Changed.Right), static_cast<int>(Changed.Bottom)};
    if (m_touched.Width() == 0)
        m_touched = box;
    m_touched = {std::min(m_touched.Left, box.Left), std::min(m_touched.Top, box.Top),
        std::max(m_touched.Right, box.Right), std::max(m_touched.Bottom, box.Bottom)};
}

// Opposite corners of what has changed, within the image.
void QtDevice::TouchPixels(DevicePoint One, DevicePoint Other)
{
    const auto [left, right] = std::minmax(One.X, Other.X);
    const auto [top, bottom] = std::minmax(One.Y, Other.Y);
    Touch({left, top, right + 1, bottom + 1});
}

// What lies between the corners and so many pixels around them.
void QtDevice::TouchBox(std::span<const DevicePoint> Corners, std::int64_t Around)
{
    const auto [left, right] = std::ranges::minmax(Corners, {}, &DevicePoint::X);
    const auto [top, bottom] = std::ranges::minmax(Corners, {}, &DevicePoint::Y);
    const Area area =
        Visible({left.X - Around, top.Y - Around, right.X + Around, bottom.Y + Around});
    if (area.Left < area.Right && area.Top < area.Bottom)
        Touch(area);
}

void QtDevice::Fill(const Area& Wanted, Color Ink, RasterOp How)
{
    const Area area = Visible(Wanted);
    if (area.Left >= area.Right || area.Top >= area.Bottom)
        return;
    Touch(area);
    for (std::int64_t y = area.Top; y < area.Bottom; ++y) {
        QRgb* const first = Row(y) + area.Left;
        QRgb* const end = Row(y) + area.Right;
        if (How == RasterOp::Copy)
            std::fill(first, end, ToRgb(Ink));
        else
            for (QRgb* pixel = first; pixel < end; ++pixel)
                *pixel ^= ToRgb(Ink) & RGB_MASK;
    }
}

void QtDevice::FillWithPen(const Area& Wanted)
{
    if (CurrentPen().Style != PenStyle::None)
        Fill(Wanted, CurrentPen().Ink, CurrentRasterOp());
}

// One pixel for each step along the longer axis; the painter's own lines leave out the wrong end
// when they run upwards.
void QtDevice::DrawThinLine(DevicePoint From, DevicePoint To)
{
    constexpr int farOff = 1 << 29; // keeps the products below within 64 bits
    for (int* coordinate : {&From.X, &From.Y, &To.X, &To.Y})
        *coordinate = std::clamp(*coordinate, -farOff, farOff);
    const bool flat = std::abs(To.X - From.X) >= std::abs(To.Y - From.Y);
    const std::int64_t start = flat ? From.X : From.Y, end = flat ? To.X : To.Y;
    const std::int64_t side = flat ? From.Y : From.X, rise = (flat ? To.Y : To.X) - side;
    const std::int64_t run = std::abs(end - start), forward = end > start ? 1 : -1;
    const DeviceRect clip = CurrentClip();
    const std::int64_t low = flat ? clip.Left : clip.Top, high = flat ? clip.Right : clip.Bottom;
    const std::int64_t first =
        std::max<std::int64_t>(0, forward > 0 ? low - start : start - high + 1);
    const std::int64_t past = std::min(run, forward > 0 ? high - start : start - low + 1);
    if (first >= past)
        return;
    const QRgb ink = ToRgb(CurrentPen().Ink);
    const bool isXor = CurrentRasterOp() == RasterOp::Xor;
    std::optional<DevicePoint> firstInk;
    DevicePoint lastInk;
    Climb climb(rise, run, first);
    for (std::int64_t step = first; step < past; ++step, climb.Next()) {
        const auto along = static_cast<int>(start + forward * step);
        const auto across = static_cast<int>(side + climb.Height());
        const DevicePoint at = flat ? DevicePoint{along, across} : DevicePoint{across, along};
        if (at.X < clip.Left || at.X >= clip.Right || at.Y < clip.Top || at.Y >= clip.Bottom)
            continue;
        QRgb& pixel = Row(at.Y)[at.X];
        pixel = isXor ? pixel ^ (ink & RGB_MASK) : ink;
        if (!firstInk)
            firstInk = at;
        lastInk = at;
    }
    if (firstInk)
        TouchPixels(*firstInk, lastInk);
}

// Ticks are drawn of such lines by the ten thousand, so that they go past the painter.
void QtDevice::DrawUprightLine(DevicePoint From, DevicePoint To)
{
    const std::int64_t before = (PenWidth() - 1) / 2, after = PenWidth() / 2 + 1;
    const auto along = [](std::int64_t from, std::int64_t to) {
        return from < to ? std::pair(from, to) : std::pair(to + 1, from + 1);
    };
    if (From.Y == To.Y) {
        const auto [left, right] = along(From.X, To.X);
        FillWithPen({left, From.Y - before, right, From.Y + after});
    } else {
        const auto [top, bottom] = along(From.Y, To.Y);
        FillWithPen({From.X - before, top, From.X + after, bottom});
    }
}

void QtDevice::DrawPolyline(std::span<const DevicePoint> Points)
{
    const PenStyle style = CurrentPen().Style;
    if (Points.size() < 2 || style == PenStyle::None)
        return;
    const bool isUpright =
        Points.size() == 2 && (Points[0].X == Points[1].X || Points[0].Y == Points[1].Y);
    if (style == PenStyle::Solid && isUpright) {
        DrawUprightLine(Points[0], Points[1]);
    } else if (style == PenStyle::Solid && PenWidth() == 1) {
        for (std::size_t i = 1; i < Points.size(); ++i)
            DrawThinLine(Points[i - 1], Points[i]);
    } else {
        PainterDevice::DrawPolyline(Points);
        TouchBox(Points, PenWidth() + 1);
    }
}

// Ticks come by the ten thousand: those that lie wholly inside, with the thinnest pen, are written
// straight into the rows.
void QtDevice::DrawCrosses(std::span<const DevicePoint> Centers, int Arm)
{
    const bool isPlain = PenWidth() == 1 && CurrentPen().Style == PenStyle::Solid
        && CurrentRasterOp() == RasterOp::Copy && Arm >= 0;
    const DeviceRect clip = CurrentClip();
    const int left = clip.Left + Arm, right = clip.Right - Arm;
    const int top = clip.Top + Arm, bottom = clip.Bottom - Arm;
    for (const DevicePoint& center : Centers) {
        if (isPlain && center.X >= left && center.X < right && center.Y >= top && center.Y < bottom)
            DrawWholeCross(center, Arm);
        else
            PainterDevice::DrawCrosses({&center, 1}, Arm);
    }
    if (isPlain && !Centers.empty())
        TouchBox(Centers, Arm + 1);
}

void QtDevice::DrawWholeCross(DevicePoint Center, int Arm)
{
    const QRgb ink = ToRgb(CurrentPen().Ink);
    QRgb* const middle = Row(Center.Y) + Center.X;
    const qsizetype below = m_stride / static_cast<qsizetype>(sizeof(QRgb));
    for (int step = -Arm; step <= Arm; ++step) {
        middle[step] = ink;
        middle[step * below] = ink;
    }
}

void QtDevice::DrawEllipse(const DeviceRect& Box)
{
    const double width = static_cast<double>(Box.Right) - Box.Left;
    const double height = static_cast<double>(Box.Bottom) - Box.Top;
    if (width < 2 || height < 2) { // the painter draws no ellipse as thin as a line
        FillWithPen({Box.Left, Box.Top, Box.Right, Box.Bottom});
        return;
    }
    PainterDevice::DrawEllipse(Box);
    TouchBox(std::array{DevicePoint{Box.Left, Box.Top}, DevicePoint{Box.Right, Box.Bottom}},
        PenWidth() + 1);
}

void QtDevice::DrawPolygon(std::span<const DevicePoint> Corners)
{
    if (Corners.empty())
        return;
    PainterDevice::DrawPolygon(Corners);
    TouchBox(Corners, PenWidth() + 1);
}

void QtDevice::FillRectangle(const DeviceRect& Box, Color Fill)
{
    this->Fill({Box.Left, Box.Top, Box.Right, Box.Bottom}, Fill, RasterOp::Copy);
}

void QtDevice::DrawPicture(
    const DeviceRect& Target, const PictureView& Picture, const DeviceRect& Source)
{
    Area area = Visible({Target.Left, Target.Top, Target.Right, Target.Bottom});
    const auto cells = static_cast<std::size_t>(std::max(Picture.Width, 0))
        * static_cast<std::size_t>(std::max(Picture.Height, 0));
    if (!Picture.Palette || cells == 0 || Picture.Pixels.size() < cells || area.Left >= area.Right
        || area.Top >= area.Bottom)
        return;

    std::array<QRgb, 256> colors;
    std::transform(Picture.Palette->begin(), Picture.Palette->end(), colors.begin(), ToRgb);
    const Stretch across{Target.Left, Target.Right, Source.Left, Source.Width()};
    const Stretch down{Target.Top, Target.Bottom, Source.Top, Source.Height()};
    const std::vector<int> columns = across.SourcesWithin(Picture.Width, area.Left, area.Right);
    const std::vector<int> rows = down.SourcesWithin(Picture.Height, area.Top, area.Bottom);
    const bool isOneToOne = across.Length == across.End - across.Start;
    for (std::size_t y = 0; y < rows.size(); ++y) {
        QRgb* const to = Row(area.Top + static_cast<std::int64_t>(y)) + area.Left;
        if (y > 0 && rows[y] == rows[y - 1]) {
            std::memcpy(to, reinterpret_cast<uchar*>(to) - m_stride, columns.size() * sizeof(QRgb));
            continue;
        }
        const std::uint8_t* const from =
            Picture.Pixels.data() + static_cast<std::size_t>(rows[y]) * Picture.Width;
        if (isOneToOne)
            for (std::size_t x = 0; x < columns.size(); ++x)
                to[x] = colors[from[columns.front() + x]];
        else
            for (std::size_t x = 0; x < columns.size(); ++x)
                to[x] = colors[from[columns[x]]];
    }
}

void QtDevice::DrawColorPicture(const DeviceRect& Target, const ColorPictureView& Picture)
{
    PainterDevice::DrawColorPicture(Target, Picture);
    TouchBox(
        std::array{DevicePoint{Target.Left, Target.Top}, DevicePoint{Target.Right, Target.Bottom}},
        0);
}

void QtDevice::DrawText(DevicePoint At, std::string_view Text, TextAlign Align, Color Ink)
{
    const DeviceRect box = PaintText(At, Text, Align, Ink);
    const int overhang = CurrentFont().Height / 2; // slanted letters lean out of their box
    TouchBox(
        std::array{DevicePoint{box.Left, box.Top}, DevicePoint{box.Right, box.Bottom}}, overhang);
}

} // namespace morvane
