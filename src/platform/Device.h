// The one drawing surface: a window's picture, a printed page, a recorder in a test. Integer
// device units, x right, y down. Line ends are exclusive, rectangle right and bottom too.
//
// State is set by scope objects and restored at the brace:
//     const clsPenScope pen(device, {White, 1});
// Drawing twice with RasterOp::Xor leaves no trace.
#pragma once
#include <array>
#include <cstdint>
#include <span>

namespace morvane {

struct Color {
    std::uint8_t Red = 0, Green = 0, Blue = 0;
    friend bool operator==(const Color&, const Color&) = default;
};
inline constexpr Color Black{0, 0, 0}, White{255, 255, 255};
inline constexpr Color Cyan{0, 255, 255}, Magenta{255, 0, 255}, Yellow{255, 255, 0};

enum class RasterOp { Copy, Xor };

struct Pen {
    Color Ink = Black;
    int Width = 1; // device units
    friend bool operator==(const Pen&, const Pen&) = default;
};

struct DevicePoint {
    int X = 0, Y = 0;
    friend bool operator==(const DevicePoint&, const DevicePoint&) = default;
};

struct DeviceRect {
    int Left = 0, Top = 0, Right = 0, Bottom = 0; // right and bottom exclusive
    int Width() const { return Right - Left; }
    int Height() const { return Bottom - Top; }
    friend bool operator==(const DeviceRect&, const DeviceRect&) = default;
};

// An 8-bit picture, rows top-down without padding, and the colour of each value.
struct PictureView {
    std::span<const std::uint8_t> Pixels;
    int Width = 0, Height = 0;
    const std::array<Color, 256>* Palette = nullptr;
};

class Device {
public:
    virtual ~Device() = default;

    virtual int BitsPerPixel() const = 0;
    // Nothing shows outside of it.
    virtual DeviceRect Bounds() const = 0;

    virtual Pen CurrentPen() const = 0;
    virtual void SetPen(const Pen& NewPen) = 0;
    virtual RasterOp CurrentRasterOp() const = 0;
    virtual void SetRasterOp(RasterOp NewOp) = 0;

    // Through all points with the pen; the last point itself is not drawn.
    virtual void DrawPolyline(std::span<const DevicePoint> Points) = 0;
    // Upright crosses with arms of Arm device units, their ends included, with the pen.
    virtual void DrawCrosses(std::span<const DevicePoint> Centers, int Arm);
    // The outline of the ellipse that fills Box, with the pen.
    virtual void DrawEllipse(const DeviceRect& Box) = 0;
    virtual void FillRectangle(const DeviceRect& Box, Color Fill) = 0;
    // The part Source of Picture scaled into Target by the nearest pixel. Where Source leaves the
    // picture, Target keeps what it has.
    virtual void DrawPicture(
        const DeviceRect& Target, const PictureView& Picture, const DeviceRect& Source) = 0;

protected:
    Device() = default;
    Device(const Device&) = default;
    Device& operator=(const Device&) = default;
};

class clsPenScope {
public:
    clsPenScope(Device& On, const Pen& NewPen) : m_device(On), m_before(On.CurrentPen())
    {
        m_device.SetPen(NewPen);
    }
    ~clsPenScope() { m_device.SetPen(m_before); }
    clsPenScope(const clsPenScope&) = delete;
    clsPenScope& operator=(const clsPenScope&) = delete;

private:
    Device& m_device;
    Pen m_before;
};

class clsRasterOpScope {
public:
    clsRasterOpScope(Device& On, RasterOp NewOp) : m_device(On), m_before(On.CurrentRasterOp())
    {
        m_device.SetRasterOp(NewOp);
    }
    ~clsRasterOpScope() { m_device.SetRasterOp(m_before); }
    clsRasterOpScope(const clsRasterOpScope&) = delete;
    clsRasterOpScope& operator=(const clsRasterOpScope&) = delete;

private:
    Device& m_device;
    RasterOp m_before;
};

// Where image pixels fall on a device: device = round((image - Offset) * Zoom), halves to even.
struct ImageMapping {
    double Zoom = 1.0, OffsetX = 0.0, OffsetY = 0.0;

    DevicePoint ToDevice(double X, double Y) const;
};

} // namespace morvane
