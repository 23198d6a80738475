// A drawing surface that draws nothing and remembers each call with the pen and the raster
// operation that were set then. Its font is simple: each character is half as wide as the font is
// high, and a line is a fifth higher.
#pragma once
#include <ostream>
#include <vector>

#include "platform/Device.h"

namespace morvane {

struct DeviceCall {
    enum class Kind { Polyline, Polygon, Ellipse, Fill, Picture, Text };
    Kind What;
    Pen With;
    RasterOp Op;
    DeviceRect Clip;
    std::optional<Color> Brush;
    std::vector<DevicePoint> Points{}; // of a polyline or polygon; where a text is drawn
    DeviceRect Box{}; // of the others
    DeviceRect Source{}; // of a picture
    Color Fill{}; // of a filled rectangle or a text
    std::string Text{};
    TextAlign Align{};
    Font In{};
};

class RecordingDevice : public Device {
public:
    explicit RecordingDevice(int bitsPerPixel = 24) : m_bitsPerPixel(bitsPerPixel) { }

    std::vector<DeviceCall> Calls;
    DeviceFigures Shape; // what it says of itself

    int BitsPerPixel() const override { return m_bitsPerPixel; }
    DeviceRect Bounds() const override { return {-1 << 30, -1 << 30, 1 << 30, 1 << 30}; }
    DeviceFigures Figures() const override { return Shape; }
    Pen CurrentPen() const override { return m_pen; }
    void SetPen(const Pen& NewPen) override { m_pen = NewPen; }
    RasterOp CurrentRasterOp() const override { return m_op; }
    void SetRasterOp(RasterOp NewOp) override { m_op = NewOp; }
    std::optional<Color> CurrentBrush() const override { return m_brush; }
    void SetBrush(std::optional<Color> NewBrush) override { m_brush = NewBrush; }
    Font CurrentFont() const override { return m_font; }
    void SetFont(const Font& NewFont) override { m_font = NewFont; }
    DeviceRect CurrentClip() const override { return m_clip; }
    void SetClip(const DeviceRect& NewClip) override { m_clip = NewClip; }

    void DrawPolyline(std::span<const DevicePoint> Points) override
    {
        Record(DeviceCall::Kind::Polyline).Points.assign(Points.begin(), Points.end());
    }
    void DrawPolygon(std::span<const DevicePoint> Corners) override
    {
        Record(DeviceCall::Kind::Polygon).Points.assign(Corners.begin(), Corners.end());
    }
    void DrawEllipse(const DeviceRect& Box) override
    {
        Record(DeviceCall::Kind::Ellipse).Box = Box;
    }
    void FillRectangle(const DeviceRect& Box, Color Fill) override
    {
        DeviceCall& call = Record(DeviceCall::Kind::Fill);
        call.Box = Box;
        call.Fill = Fill;
    }
    void DrawPicture(
        const DeviceRect& Target, const PictureView&, const DeviceRect& Source) override
    {
        DeviceCall& call = Record(DeviceCall::Kind::Picture);
        call.Box = Target;
        call.Source = Source;
    }
    void DrawColorPicture(const DeviceRect& Target, const ColorPictureView&) override
    {
        Record(DeviceCall::Kind::Picture).Box = Target;
    }
    DeviceSize MeasureText(std::string_view Text) const override
    {
        return {static_cast<int>(Text.size()) * m_font.Height / 2, m_font.Height * 6 / 5};
    }
    int AverageCharacterWidth() const override { return m_font.Height / 2; }
    void DrawText(DevicePoint At, std::string_view Text, TextAlign Align, Color Ink) override
    {
        DeviceCall& call = Record(DeviceCall::Kind::Text);
        call.Points = {At};
        call.Box = TextBox(At, MeasureText(Text), Align, m_font.Rotation);
        call.Fill = Ink;
        call.Text = Text;
        call.Align = Align;
        call.In = m_font;
    }

private:
    DeviceCall& Record(DeviceCall::Kind what)
    {
        return Calls.emplace_back(DeviceCall{what, m_pen, m_op, m_clip, m_brush});
    }

    int m_bitsPerPixel;
    Pen m_pen;
    RasterOp m_op = RasterOp::Copy;
    std::optional<Color> m_brush;
    Font m_font;
    DeviceRect m_clip = Bounds();
};

inline void PrintTo(const DevicePoint& point, std::ostream* out)
{
    *out << '(' << point.X << ", " << point.Y << ')';
}

} // namespace morvane
