#include "interferogram/qt/ImageCanvas.h"

#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>
#include <cmath>

#include "platform/Numbers.h"
#include "platform/qt/QtDevice.h"

namespace morvane {
namespace {

constexpr int TickSize = 3; // half arm of a tick's cross, logical pixels
constexpr int ScrollStep = 16;

void SetRange(QScrollBar& Bar, int Whole, int Shown)
{
    Bar.setRange(0, std::max(0, Whole - Shown));
    Bar.setPageStep(Shown);
    Bar.setSingleStep(ScrollStep);
}

} // namespace

ImageCanvas::ImageCanvas(const clsDocument& Of, QWidget* Parent)
    : QAbstractScrollArea(Parent), m_document(Of)
{
    setFrameShape(QFrame::NoFrame);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    horizontalScrollBar()->setObjectName("hsbImage");
    verticalScrollBar()->setObjectName("vsbImage");
}

void ImageCanvas::SetPalette(const std::array<Color, 256>& Palette)
{
    m_palette = Palette;
    Invalidate();
}

// A bar takes room that may make the other one necessary. The present viewport says nothing: it
// leaves out bars that are not needed any more.
void ImageCanvas::RefreshSize()
{
    const QSize picture = PictureSize();
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    QSize shown = maximumViewportSize();
    const bool tooHigh = picture.height() > shown.height();
    const bool tooWide = picture.width() > shown.width() - (tooHigh ? bar : 0);
    if (tooWide)
        shown.rheight() -= bar;
    if (picture.height() > shown.height())
        shown.rwidth() -= bar;
    SetRange(*horizontalScrollBar(), picture.width(), shown.width());
    SetRange(*verticalScrollBar(), picture.height(), shown.height());
    Invalidate();
}

void ImageCanvas::Invalidate()
{
    m_valid = false;
    viewport()->update();
}

QSize ImageCanvas::PictureSize() const
{
    const RasterSize size = m_document.GetImageSize();
    if (size.Width == NoSize || size.Height == NoSize)
        return {0, 0};
    return {size.Width, size.Height};
}

QSize ImageCanvas::sizeHint() const
{
    const QSize picture = PictureSize();
    return picture.isEmpty() ? QSize(400, 300) : picture;
}

void ImageCanvas::paintEvent(QPaintEvent*)
{
    const double zoom = devicePixelRatioF();
    const QSize physical(static_cast<int>(std::ceil(viewport()->width() * zoom)),
        static_cast<int>(std::ceil(viewport()->height() * zoom)));
    if (m_client.size() != physical) {
        m_client = QImage(physical, QImage::Format_RGB32);
        m_valid = false;
    }
    if (m_client.isNull())
        return;
    if (!m_valid)
        Compose(zoom);
    m_valid = true;
    QPainter painter(viewport());
    painter.drawImage(QRectF(QPointF(0, 0), QSizeF(physical) / zoom), m_client);
}

void ImageCanvas::resizeEvent(QResizeEvent*)
{
    RefreshSize();
}

void ImageCanvas::scrollContentsBy(int, int)
{
    Invalidate();
}

void ImageCanvas::Compose(double Zoom)
{
    QtDevice device(m_client, std::max(1, RoundToLong(Zoom)));
    const ImageMapping map{Zoom, static_cast<double>(horizontalScrollBar()->value()),
        static_cast<double>(verticalScrollBar()->value())};
    DrawPicture(device, map);
    DrawOverlays(device, map);
}

void ImageCanvas::DrawPicture(Device& On, const ImageMapping& Map) const
{
    const int width = m_client.width(), height = m_client.height();
    if (m_document.BlankImage) {
        const QColor face = palette().color(QPalette::Button);
        On.FillRectangle({0, 0, width, height},
            {static_cast<std::uint8_t>(face.red()), static_cast<std::uint8_t>(face.green()),
                static_cast<std::uint8_t>(face.blue())});
        return;
    }
    const ImageBuffer& image = m_document.Image();
    const DevicePoint topLeft = Map.ToDevice(0, 0);
    const DevicePoint bottomRight = Map.ToDevice(image.Size.Width, image.Size.Height);
    On.DrawPicture({topLeft.X, topLeft.Y, bottomRight.X, bottomRight.Y},
        {image.Pixels, image.Size.Width, image.Size.Height, &m_palette});
    On.FillRectangle({bottomRight.X, 0, width, height}, Black);
    On.FillRectangle({0, bottomRight.Y, width, height}, Black);
}

void ImageCanvas::DrawOverlays(Device& On, const ImageMapping& Map) const
{
    m_document.Aperture.Draw(On, Map, RasterOp::Copy);
    m_document.Obstruction.Draw(On, Map, RasterOp::Copy);
    m_document.Fringes.DrawAll(On, Map, {.TickSize = RoundToLong(TickSize * Map.Zoom)});
}

} // namespace morvane
