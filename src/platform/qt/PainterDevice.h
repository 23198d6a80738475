// What all surfaces of a QPainter share, whatever they paint on and at what resolution: the state,
// texts, shapes and pictures. Lines and pictures are never smoothed, texts always are.
//
// The raster operation is the pen's: fills, pictures and texts always replace what was there. Pens
// are PenScale times as wide as asked for, so that lines look the same on every screen and page;
// one of even width lies right of and below its coordinate by the pixel that cannot be shared out.
#pragma once
#include <QPainter>

#include "platform/Device.h"

namespace morvane {

QRgb ToRgb(Color Of);

class PainterDevice : public Device {
public:
    DeviceRect Bounds() const override { return m_bounds; }

    Pen CurrentPen() const override { return m_pen; }
    void SetPen(const Pen& NewPen) override;
    RasterOp CurrentRasterOp() const override { return m_operation; }
    void SetRasterOp(RasterOp NewOp) override;
    std::optional<Color> CurrentBrush() const override { return m_brush; }
    void SetBrush(std::optional<Color> NewBrush) override;
    Font CurrentFont() const override { return m_font; }
    void SetFont(const Font& NewFont) override { m_font = NewFont; }
    DeviceRect CurrentClip() const override { return m_clip; }
    void SetClip(const DeviceRect& NewClip) override;

    void DrawPolyline(std::span<const DevicePoint> Points) override;
    void DrawEllipse(const DeviceRect& Box) override;
    void DrawPolygon(std::span<const DevicePoint> Corners) override;
    void DrawCrosses(std::span<const DevicePoint> Centers, int Arm) override;
    void FillRectangle(const DeviceRect& Box, Color Fill) override;
    void DrawPicture(
        const DeviceRect& Target, const PictureView& Picture, const DeviceRect& Source) override;
    void DrawColorPicture(const DeviceRect& Target, const ColorPictureView& Picture) override;

    DeviceSize MeasureText(std::string_view Text) const override;
    int AverageCharacterWidth() const override;
    void DrawText(DevicePoint At, std::string_view Text, TextAlign Align, Color Ink) override;

protected:
    PainterDevice(QPaintDevice& On, const DeviceRect& Bounds, int PenScale);

    int PenWidth() const { return m_penWidth; } // physical pixels
    // DrawText, and the box of the text.
    DeviceRect PaintText(DevicePoint At, std::string_view Text, TextAlign Align, Color Ink);

private:
    const QFontMetricsF& Metrics() const;
    // A whole picture of more pixels than Target has is reduced to those first: a page keeps no
    // more than it shows.
    void PaintImage(const DeviceRect& Target, const QImage& Image, const QRect& Source);

    mutable QPainter m_painter; // its font is taken over when it is needed
    const DeviceRect m_bounds;
    const int m_penScale;
    Pen m_pen;
    int m_penWidth = 1;
    RasterOp m_operation = RasterOp::Copy;
    std::optional<Color> m_brush;
    Font m_font;
    DeviceRect m_clip;
    mutable std::optional<Font> m_painterFont;
    mutable QFontMetricsF m_metrics;
};

} // namespace morvane
