#include "platform/qt/PainterDevice.h"

#include <algorithm>
#include <cmath>

#include "platform/Numbers.h"

namespace morvane {
namespace {

Qt::PenStyle ToQt(PenStyle style)
{
    switch (style) {
    case PenStyle::Solid:
        return Qt::SolidLine;
    case PenStyle::Dash:
        return Qt::DashLine;
    case PenStyle::Dot:
        return Qt::DotLine;
    case PenStyle::DashDot:
        return Qt::DashDotLine;
    case PenStyle::None:
        return Qt::NoPen;
    }
    return Qt::SolidLine;
}

// Grey at the edges, not coloured: the pictures are also copied, scaled and turned.
QFont ToQt(const Font& of)
{
    QFont font(QString::fromStdString(of.FaceName));
    font.setPixelSize(std::max(1, of.Height));
    font.setBold(of.Bold);
    font.setItalic(of.Italic);
    font.setUnderline(of.Underline);
    font.setStyleStrategy(
        static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    return font;
}

QString ToQt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QPolygon ToQt(std::span<const DevicePoint> points)
{
    QPolygon polygon;
    polygon.reserve(static_cast<qsizetype>(points.size()));
    for (const DevicePoint& point : points)
        polygon.append({point.X, point.Y});
    return polygon;
}

QRect ToQt(const DeviceRect& box)
{
    return {box.Left, box.Top, std::max(0, box.Width()), std::max(0, box.Height())};
}

// Whole pixels that hold so much, where letters are not fitted to the pixels.
int WholePixels(double length)
{
    constexpr double noise = 0.01;
    return static_cast<int>(std::ceil(length - noise));
}

DeviceSize ExtentOf(const QFontMetricsF& metrics, const QString& text)
{
    return {WholePixels(metrics.horizontalAdvance(text)),
        WholePixels(metrics.ascent()) + WholePixels(metrics.descent())};
}

// Whether there is such a picture, with all of its pixels.
template <typename View>
bool IsWhole(const View& picture)
{
    return picture.Width > 0 && picture.Height > 0
        && picture.Pixels.size() / static_cast<std::size_t>(picture.Width)
        >= static_cast<std::size_t>(picture.Height);
}

int ClockwiseDegrees(TextRotation rotation)
{
    switch (rotation) {
    case TextRotation::Horizontal:
        return 0;
    case TextRotation::Down:
        return 90;
    case TextRotation::Up:
        return 270;
    case TextRotation::UpsideDown:
        return 180;
    }
    return 0;
}

} // namespace

QRgb ToRgb(Color Of)
{
    return qRgb(Of.Red, Of.Green, Of.Blue);
}

PainterDevice::PainterDevice(QPaintDevice& On, const DeviceRect& Bounds, int PenScale)
    : m_painter(&On), m_bounds(Bounds), m_penScale(PenScale), m_clip(Bounds),
      m_metrics(m_painter.font(), &On)
{
    m_painter.setRenderHint(QPainter::LosslessImageRendering);
    PainterDevice::SetPen(m_pen);
}

void PainterDevice::SetPen(const Pen& NewPen)
{
    m_pen = NewPen;
    m_penWidth = std::max(1, NewPen.Width * m_penScale);
    m_painter.setPen(
        QPen(QColor(ToRgb(m_pen.Ink)), m_penWidth, ToQt(m_pen.Style), Qt::FlatCap, Qt::MiterJoin));
    const int shift = m_penWidth % 2 == 0 ? 1 : 0;
    m_painter.setTransform(QTransform::fromTranslate(shift, shift));
}

void PainterDevice::SetRasterOp(RasterOp NewOp)
{
    m_operation = NewOp;
    m_painter.setCompositionMode(NewOp == RasterOp::Xor ? QPainter::RasterOp_SourceXorDestination
                                                        : QPainter::CompositionMode_SourceOver);
}

void PainterDevice::SetBrush(std::optional<Color> NewBrush)
{
    m_brush = NewBrush;
    m_painter.setBrush(NewBrush ? QBrush(QColor(ToRgb(*NewBrush))) : QBrush(Qt::NoBrush));
}

void PainterDevice::SetClip(const DeviceRect& NewClip)
{
    m_clip = {std::max(NewClip.Left, m_bounds.Left), std::max(NewClip.Top, m_bounds.Top),
        std::min(NewClip.Right, m_bounds.Right), std::min(NewClip.Bottom, m_bounds.Bottom)};
    const QTransform before = m_painter.transform();
    m_painter.resetTransform();
    m_painter.setClipRect(ToQt(m_clip));
    m_painter.setTransform(before);
}

void PainterDevice::DrawPolyline(std::span<const DevicePoint> Points)
{
    m_painter.drawPolyline(ToQt(Points));
}

void PainterDevice::DrawEllipse(const DeviceRect& Box)
{
    const double width = static_cast<double>(Box.Right) - Box.Left;
    const double height = static_cast<double>(Box.Bottom) - Box.Top;
    m_painter.drawEllipse(QRectF(Box.Left, Box.Top, width - 1, height - 1));
}

void PainterDevice::DrawPolygon(std::span<const DevicePoint> Corners)
{
    m_painter.drawPolygon(ToQt(Corners));
}

// Ticks come by the ten thousand: in a file, those of a batch are one shape.
void PainterDevice::DrawCrosses(std::span<const DevicePoint> Centers, int Arm)
{
    QList<QLine> lines;
    lines.reserve(2 * static_cast<qsizetype>(Centers.size()));
    for (const auto& [x, y] : Centers) {
        lines.append({x - Arm, y, x + Arm + 1, y});
        lines.append({x, y - Arm, x, y + Arm + 1});
    }
    m_painter.drawLines(lines);
}

void PainterDevice::FillRectangle(const DeviceRect& Box, Color Fill)
{
    m_painter.save();
    m_painter.resetTransform();
    m_painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    m_painter.fillRect(ToQt(Box), QColor(ToRgb(Fill)));
    m_painter.restore();
}

void PainterDevice::PaintImage(const DeviceRect& Target, const QImage& Image, const QRect& Source)
{
    const QTransform transformBefore = m_painter.transform();
    m_painter.resetTransform();
    m_painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    const QRect target = ToQt(Target);
    if (Source == Image.rect() && Image.width() > target.width()
        && Image.height() > target.height())
        m_painter.drawImage(target.topLeft(),
            Image.scaled(target.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    else
        m_painter.drawImage(target, Image, Source);
    m_painter.setTransform(transformBefore);
    SetRasterOp(m_operation);
}

void PainterDevice::DrawPicture(
    const DeviceRect& Target, const PictureView& Picture, const DeviceRect& Source)
{
    if (!Picture.Palette || !IsWhole(Picture))
        return;
    QImage image(Picture.Pixels.data(), Picture.Width, Picture.Height, Picture.Width,
        QImage::Format_Indexed8);
    QList<QRgb> colors;
    for (const Color& color : *Picture.Palette)
        colors.append(ToRgb(color));
    image.setColorTable(colors);
    PaintImage(Target, image, ToQt(Source));
}

void PainterDevice::DrawColorPicture(const DeviceRect& Target, const ColorPictureView& Picture)
{
    static_assert(sizeof(Color) == 3, "a pixel of QImage::Format_RGB888");
    if (!IsWhole(Picture))
        return;
    const QImage image(reinterpret_cast<const uchar*>(Picture.Pixels.data()), Picture.Width,
        Picture.Height, 3 * Picture.Width, QImage::Format_RGB888);
    PaintImage(Target, image, image.rect());
}

const QFontMetricsF& PainterDevice::Metrics() const
{
    if (m_painterFont != m_font) {
        m_painterFont = m_font;
        m_painter.setFont(ToQt(m_font));
        m_metrics = QFontMetricsF(m_painter.font(), m_painter.device());
    }
    return m_metrics;
}

DeviceSize PainterDevice::MeasureText(std::string_view Text) const
{
    return ExtentOf(Metrics(), ToQt(Text));
}

int PainterDevice::AverageCharacterWidth() const
{
    return RoundToLong(Metrics().averageCharWidth());
}

void PainterDevice::DrawText(DevicePoint At, std::string_view Text, TextAlign Align, Color Ink)
{
    PaintText(At, Text, Align, Ink);
}

DeviceRect PainterDevice::PaintText(
    DevicePoint At, std::string_view Text, TextAlign Align, Color Ink)
{
    const QFontMetricsF& metrics = Metrics();
    const QString text = ToQt(Text);
    const DeviceSize extent = ExtentOf(metrics, text);
    const DeviceRect asRead = TextBox({}, extent, Align, TextRotation::Horizontal);
    const QPen penBefore = m_painter.pen();
    const QTransform transformBefore = m_painter.transform();
    m_painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    m_painter.setPen(QColor(ToRgb(Ink)));
    m_painter.setTransform(QTransform::fromTranslate(At.X, At.Y));
    m_painter.rotate(ClockwiseDegrees(m_font.Rotation));
    m_painter.drawText(asRead.Left, asRead.Top + WholePixels(metrics.ascent()), text);
    m_painter.setTransform(transformBefore);
    m_painter.setPen(penBefore);
    SetRasterOp(m_operation);
    return TextBox(At, extent, Align, m_font.Rotation);
}

} // namespace morvane
