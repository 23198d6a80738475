// The drawing surface of a window: a QImage of 32 bits a pixel, one device unit a physical pixel.
// Nothing outside the image is touched, whatever the coordinates. The image's dots per meter say
// how large a point of a text is; its pixels are written past the painter where that is faster or
// more exact.
#pragma once
#include <QImage>

#include "platform/qt/PainterDevice.h"

namespace morvane {

class QtDevice final : public PainterDevice {
public:
    // On must be of QImage::Format_RGB32 and must not be copied from while this lives.
    explicit QtDevice(QImage& On, int PenScale = 1);

    int BitsPerPixel() const override;
    DeviceFigures Figures() const override;
    // Of all that lines, outlines, fills and texts may have changed so far; empty at first.
    DeviceRect Touched() const { return m_touched; }

    void DrawPolyline(std::span<const DevicePoint> Points) override;
    void DrawCrosses(std::span<const DevicePoint> Centers, int Arm) override;
    void DrawEllipse(const DeviceRect& Box) override;
    void DrawPolygon(std::span<const DevicePoint> Corners) override;
    void FillRectangle(const DeviceRect& Box, Color Fill) override;
    void DrawPicture(
        const DeviceRect& Target, const PictureView& Picture, const DeviceRect& Source) override;
    void DrawColorPicture(const DeviceRect& Target, const ColorPictureView& Picture) override;
    void DrawText(DevicePoint At, std::string_view Text, TextAlign Align, Color Ink) override;

private:
    struct Area {
        std::int64_t Left, Top, Right, Bottom;
    };
    Area Visible(const Area& Wanted) const;
    void Touch(const Area& Changed);
    void TouchPixels(DevicePoint One, DevicePoint Other);
    void TouchBox(std::span<const DevicePoint> Corners, std::int64_t Around);
    void DrawThinLine(DevicePoint From, DevicePoint To);
    void DrawWholeCross(DevicePoint Center, int Arm);
    void DrawUprightLine(DevicePoint From, DevicePoint To);
    void Fill(const Area& Wanted, Color Ink, RasterOp How);
    void FillWithPen(const Area& Wanted);
    QRgb* Row(std::int64_t Y) const { return reinterpret_cast<QRgb*>(m_bits + Y * m_stride); }

    uchar* m_bits;
    qsizetype m_stride;
    int m_pixelsPerInchX, m_pixelsPerInchY;
    DeviceRect m_touched{};
};

} // namespace morvane
