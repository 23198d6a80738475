// The drawing surface of a window: a QImage of 32 bits a pixel, one device unit a physical pixel.
// Nothing outside the image is touched, whatever the coordinates.
//
// The raster operation is the pen's: fills and pictures always replace what was there. Pens are
// PenScale times as wide as asked for, so that lines look the same on every screen; one of even
// width lies right of and below its coordinate by the pixel that cannot be shared out.
#pragma once
#include <QPainter>

#include "platform/Device.h"

namespace morvane {

class QtDevice final : public Device {
public:
    // On must be of QImage::Format_RGB32 and must not be copied from while this lives.
    explicit QtDevice(QImage& On, int PenScale = 1);

    int BitsPerPixel() const override;
    DeviceRect Bounds() const override { return {0, 0, m_width, m_height}; }
    // Of all that lines, outlines and fills may have changed so far; empty at first.
    DeviceRect Touched() const { return m_touched; }

    Pen CurrentPen() const override { return m_pen; }
    void SetPen(const Pen& NewPen) override;
    RasterOp CurrentRasterOp() const override { return m_operation; }
    void SetRasterOp(RasterOp NewOp) override;

    void DrawPolyline(std::span<const DevicePoint> Points) override;
    void DrawCrosses(std::span<const DevicePoint> Centers, int Arm) override;
    void DrawEllipse(const DeviceRect& Box) override;
    void FillRectangle(const DeviceRect& Box, Color Fill) override;
    void DrawPicture(
        const DeviceRect& Target, const PictureView& Picture, const DeviceRect& Source) override;

private:
    struct Area {
        std::int64_t Left, Top, Right, Bottom;
    };
    Area Visible(const Area& Wanted) const;
    void Touch(const Area& Changed);
    void TouchBox(std::span<const DevicePoint> Corners, std::int64_t Around);
    void DrawThinLine(DevicePoint From, DevicePoint To);
    void DrawWholeCross(DevicePoint Center, int Arm);
    void DrawUprightLine(DevicePoint From, DevicePoint To);
    void Fill(const Area& Wanted, Color Ink, RasterOp How);
    QRgb* Row(std::int64_t Y) const;

    uchar* m_bits;
    qsizetype m_stride;
    int m_width, m_height;
    QPainter m_painter;
    const int m_penScale;
    Pen m_pen;
    int m_penWidth = 1; // of m_pen, physical pixels
    RasterOp m_operation = RasterOp::Copy;
    DeviceRect m_touched{};
};

} // namespace morvane
