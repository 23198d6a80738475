// A drawing surface that draws nothing and remembers each call with the pen and the raster
// operation that were set then.
#pragma once
#include <ostream>
#include <vector>

#include "platform/Device.h"

namespace morvane {

struct DeviceCall {
    enum class Kind { Polyline, Ellipse, Fill, Picture };
    Kind What;
    Pen With;
    RasterOp Op;
    std::vector<DevicePoint> Points; // of a polyline
    DeviceRect Box; // of the others
    DeviceRect Source; // of a picture
    Color Fill; // of a filled rectangle
};

class RecordingDevice : public Device {
public:
    explicit RecordingDevice(int bitsPerPixel = 24) : m_bitsPerPixel(bitsPerPixel) { }

    std::vector<DeviceCall> Calls;

    int BitsPerPixel() const override { return m_bitsPerPixel; }
    DeviceRect Bounds() const override { return {-1 << 30, -1 << 30, 1 << 30, 1 << 30}; }
    Pen CurrentPen() const override { return m_pen; }
    void SetPen(const Pen& NewPen) override { m_pen = NewPen; }
    RasterOp CurrentRasterOp() const override { return m_op; }
    void SetRasterOp(RasterOp NewOp) override { m_op = NewOp; }

    void DrawPolyline(std::span<const DevicePoint> Points) override
    {
        Record(DeviceCall::Kind::Polyline).Points.assign(Points.begin(), Points.end());
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

private:
    DeviceCall& Record(DeviceCall::Kind what)
    {
        return Calls.emplace_back(DeviceCall{what, m_pen, m_op, {}, {}, {}, {}});
    }

    int m_bitsPerPixel;
    Pen m_pen;
    RasterOp m_op = RasterOp::Copy;
};

inline void PrintTo(const DevicePoint& point, std::ostream* out)
{
    *out << '(' << point.X << ", " << point.Y << ')';
}

} // namespace morvane
