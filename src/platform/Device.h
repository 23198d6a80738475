// The one drawing surface: a window's picture, a printed page, a recorder in a test. Integer
// device units, x right, y down. Line ends are exclusive, rectangle right and bottom too.
//
// State is set by scope objects and restored at the brace:
//     const clsPenScope pen(device, {White, 1});
// Drawing twice with RasterOp::Xor leaves no trace.
#pragma once
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace morvane {

struct Color {
    std::uint8_t Red = 0, Green = 0, Blue = 0;
    friend bool operator==(const Color&, const Color&) = default;
};
inline constexpr Color Black{0, 0, 0}, White{255, 255, 255};
inline constexpr Color Cyan{0, 255, 255}, Magenta{255, 0, 255}, Yellow{255, 255, 0};

enum class RasterOp { Copy, Xor };

// The numbers are those that files and settings keep.
enum class PenStyle { Solid = 0, Dash = 1, Dot = 2, DashDot = 3, None = 5 };

struct Pen {
    Color Ink = Black;
    int Width = 1; // device units
    PenStyle Style = PenStyle::Solid;
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

struct DeviceSize {
    int Width = 0, Height = 0;
    friend bool operator==(const DeviceSize&, const DeviceSize&) = default;
};

// Device units throughout, but for the resolution.
struct DeviceFigures {
    int PixelsPerInchX = 96, PixelsPerInchY = 96;
    DeviceSize Printable, Physical; // of a window the same
    DevicePoint Offset; // of what can be printed from the edge of the sheet
};

// How many times longer the diagonal of Of is than that of To; never below 1, and 1 if either has
// none. What is so many pixels long on the screen is that much longer on a page.
double DiagonalRatio(DeviceSize Of, DeviceSize To);

// Which way a text runs, and with it its lines. The numbers are those that files and settings keep.
enum class TextRotation { Horizontal = 1, Down = 2, Up = 3, UpsideDown = 4 };

struct Font {
    std::string FaceName = "Arial";
    int Height = 13; // of the letters' square, device units
    bool Bold = false, Italic = false, Underline = false;
    TextRotation Rotation = TextRotation::Horizontal;
    friend bool operator==(const Font&, const Font&) = default;
};

// Which point of a text lies at the one it is drawn at, as its reader sees it: the left of a text
// that runs down is its upper end.
enum class TextAcross { Left, Center, Right };
enum class TextDown { Top, Bottom };
struct TextAlign {
    TextAcross Across = TextAcross::Left;
    TextDown Down = TextDown::Top;
    friend bool operator==(const TextAlign&, const TextAlign&) = default;
};

// The box of a text whose extent, as its reader sees it, is Extent.
DeviceRect TextBox(DevicePoint At, DeviceSize Extent, TextAlign Align, TextRotation Rotation);

// An 8-bit picture, rows top-down without padding, and the colour of each value.
struct PictureView {
    std::span<const std::uint8_t> Pixels;
    int Width = 0, Height = 0;
    const std::array<Color, 256>* Palette = nullptr;
};

// A picture in colours, rows top-down without padding.
struct ColorPictureView {
    std::span<const Color> Pixels;
    int Width = 0, Height = 0;
};

class Device {
public:
    virtual ~Device() = default;

    virtual int BitsPerPixel() const = 0;
    // Nothing shows outside of it.
    virtual DeviceRect Bounds() const = 0;
    virtual DeviceFigures Figures() const = 0;

    virtual Pen CurrentPen() const = 0;
    virtual void SetPen(const Pen& NewPen) = 0;
    virtual RasterOp CurrentRasterOp() const = 0;
    virtual void SetRasterOp(RasterOp NewOp) = 0;
    // What ellipses and polygons are filled with; none leaves them hollow.
    virtual std::optional<Color> CurrentBrush() const = 0;
    virtual void SetBrush(std::optional<Color> NewBrush) = 0;
    virtual Font CurrentFont() const = 0;
    virtual void SetFont(const Font& NewFont) = 0;
    // Nothing is drawn outside of it.
    virtual DeviceRect CurrentClip() const = 0;
    virtual void SetClip(const DeviceRect& NewClip) = 0;

    // Through all points with the pen; the last point itself is not drawn.
    virtual void DrawPolyline(std::span<const DevicePoint> Points) = 0;
    // Upright crosses with arms of Arm device units, their ends included, with the pen.
    virtual void DrawCrosses(std::span<const DevicePoint> Centers, int Arm);
    // The ellipse that fills Box, outlined with the pen, filled with the brush.
    virtual void DrawEllipse(const DeviceRect& Box) = 0;
    // Its last corner is joined to the first.
    virtual void DrawPolygon(std::span<const DevicePoint> Corners) = 0;
    virtual void FillRectangle(const DeviceRect& Box, Color Fill) = 0;
    // The part Source of Picture scaled into Target by the nearest pixel; on a page, a whole
    // picture that is larger becomes the mean. Where Source leaves the picture, Target keeps what
    // it has.
    virtual void DrawPicture(
        const DeviceRect& Target, const PictureView& Picture, const DeviceRect& Source) = 0;
    // All of Picture scaled into Target, up by the nearest pixel, down by the mean.
    virtual void DrawColorPicture(const DeviceRect& Target, const ColorPictureView& Picture) = 0;

    // One line of UTF-8 in the font, over what is there. The extent is that of the text as its
    // reader sees it, whatever the rotation; its height is that of a line.
    virtual DeviceSize MeasureText(std::string_view Text) const = 0;
    virtual int AverageCharacterWidth() const = 0;
    virtual void DrawText(DevicePoint At, std::string_view Text, TextAlign Align, Color Ink) = 0;

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

class clsBrushScope {
public:
    clsBrushScope(Device& On, std::optional<Color> NewBrush)
        : m_device(On), m_before(On.CurrentBrush())
    {
        m_device.SetBrush(NewBrush);
    }
    ~clsBrushScope() { m_device.SetBrush(m_before); }
    clsBrushScope(const clsBrushScope&) = delete;
    clsBrushScope& operator=(const clsBrushScope&) = delete;

private:
    Device& m_device;
    std::optional<Color> m_before;
};

class clsFontScope {
public:
    clsFontScope(Device& On, const Font& NewFont) : m_device(On), m_before(On.CurrentFont())
    {
        m_device.SetFont(NewFont);
    }
    ~clsFontScope() { m_device.SetFont(m_before); }
    clsFontScope(const clsFontScope&) = delete;
    clsFontScope& operator=(const clsFontScope&) = delete;

private:
    Device& m_device;
    Font m_before;
};

// Within the clip that is set already.
class clsClipScope {
public:
    clsClipScope(Device& On, const DeviceRect& To);
    ~clsClipScope() { m_device.SetClip(m_before); }
    clsClipScope(const clsClipScope&) = delete;
    clsClipScope& operator=(const clsClipScope&) = delete;

private:
    Device& m_device;
    DeviceRect m_before;
};

// Where image pixels fall on a device: device = round((image - Offset) * Zoom), halves to even.
struct ImageMapping {
    double Zoom = 1.0, OffsetX = 0.0, OffsetY = 0.0;

    DevicePoint ToDevice(double X, double Y) const;
};

} // namespace morvane
