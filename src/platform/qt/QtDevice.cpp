#include "platform/qt/QtDevice.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstdlib>
#include <cstring>

namespace morvane {
namespace {

QRgb ToRgb(Color Of)
{
    return qRgb(Of.Red, Of.Green, Of.Blue);
}

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

} // namespace

QtDevice::QtDevice(QImage& On, int PenScale)
    : m_bits(On.bits()), m_stride(On.bytesPerLine()), m_width(On.width()), m_height(On.height()),
      m_painter(&On), m_penScale(PenScale)
{
    assert(On.format() == QImage::Format_RGB32);
    SetPen(m_pen);
}

int QtDevice::BitsPerPixel() const
{
    return 32;
}

void QtDevice::SetPen(const Pen& NewPen)
{
    m_pen = NewPen;
    m_penWidth = std::max(1, NewPen.Width * m_penScale);
    m_painter.setPen(
        QPen(QColor(ToRgb(m_pen.Ink)), m_penWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    const int shift = m_penWidth % 2 == 0 ? 1 : 0;
    m_painter.setTransform(QTransform::fromTranslate(shift, shift));
}

void QtDevice::SetRasterOp(RasterOp NewOp)
{
    m_operation = NewOp;
    m_painter.setCompositionMode(NewOp == RasterOp::Xor ? QPainter::RasterOp_SourceXorDestination
                                                        : QPainter::CompositionMode_SourceOver);
}

QtDevice::Area QtDevice::Visible(const Area& Wanted) const
{
    return {std::max<std::int64_t>(Wanted.Left, 0), std::max<std::int64_t>(Wanted.Top, 0),
        std::min<std::int64_t>(Wanted.Right, m_width),
        std::min<std::int64_t>(Wanted.Bottom, m_height)};
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

QRgb* QtDevice::Row(std::int64_t Y) const
{
    return reinterpret_cast<QRgb*>(m_bits + Y * m_stride);
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
    const std::int64_t run = std::abs(end - start);
    const std::int64_t first = std::max<std::int64_t>(std::min(start, end + 1), 0);
    const std::int64_t past =
        std::min<std::int64_t>(std::max(end, start + 1), flat ? m_width : m_height);
    if (run == 0)
        return;
    for (std::int64_t at = first; at < past; ++at) {
        const std::int64_t across =
            side + FloorOfQuotient(2 * std::abs(at - start) * rise + run, 2 * run);
        const std::int64_t x = flat ? at : across, y = flat ? across : at;
        Fill({x, y, x + 1, y + 1}, m_pen.Ink, m_operation);
    }
}

// Ticks are drawn of such lines by the ten thousand, so that they go past the painter.
void QtDevice::DrawUprightLine(DevicePoint From, DevicePoint To)
{
    const std::int64_t before = (m_penWidth - 1) / 2, after = m_penWidth / 2 + 1;
    const auto along = [](std::int64_t from, std::int64_t to) {
        return from < to ? std::pair(from, to) : std::pair(to + 1, from + 1);
    };
    if (From.Y == To.Y) {
        const auto [left, right] = along(From.X, To.X);
        Fill({left, From.Y - before, right, From.Y + after}, m_pen.Ink, m_operation);
    } else {
        const auto [top, bottom] = along(From.Y, To.Y);
        Fill({From.X - before, top, From.X + after, bottom}, m_pen.Ink, m_operation);
    }
}

void QtDevice::DrawPolyline(std::span<const DevicePoint> Points)
{
    if (Points.size() < 2)
        return;
    if (Points.size() == 2 && (Points[0].X == Points[1].X || Points[0].Y == Points[1].Y)) {
        DrawUprightLine(Points[0], Points[1]);
    } else if (m_penWidth == 1) {
        for (std::size_t i = 1; i < Points.size(); ++i)
            DrawThinLine(Points[i - 1], Points[i]);
    } else {
        QPolygon polyline;
        polyline.reserve(static_cast<qsizetype>(Points.size()));
        for (const DevicePoint& point : Points)
            polyline.append({point.X, point.Y});
        m_painter.drawPolyline(polyline);
        TouchBox(Points, m_penWidth + 1);
    }
}

// Ticks come by the ten thousand: those that lie wholly inside, with the thinnest pen, are written
// straight into the rows.
void QtDevice::DrawCrosses(std::span<const DevicePoint> Centers, int Arm)
{
    const bool isPlain = m_penWidth == 1 && m_operation == RasterOp::Copy && Arm >= 0;
    const int right = m_width - Arm, bottom = m_height - Arm;
    for (const DevicePoint& center : Centers) {
        if (isPlain && center.X >= Arm && center.X < right && center.Y >= Arm && center.Y < bottom)
            DrawWholeCross(center, Arm);
        else
            Device::DrawCrosses({&center, 1}, Arm);
    }
    if (isPlain && !Centers.empty())
        TouchBox(Centers, Arm + 1);
}

void QtDevice::DrawWholeCross(DevicePoint Center, int Arm)
{
    const QRgb ink = ToRgb(m_pen.Ink);
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
        Fill({Box.Left, Box.Top, Box.Right, Box.Bottom}, m_pen.Ink, m_operation);
        return;
    }
    m_painter.drawEllipse(QRectF(Box.Left, Box.Top, width - 1, height - 1));
    TouchBox(std::array{DevicePoint{Box.Left, Box.Top}, DevicePoint{Box.Right, Box.Bottom}},
        m_penWidth + 1);
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
    const bool isOneToOne = Source.Width() == Target.Width();
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

} // namespace morvane
