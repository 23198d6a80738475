// Which part of an interferogram its window shows, and how large: the zoom as an exact fraction,
// the scroll bars, and the way between client and image positions.
//
// Client positions and sizes are device pixels. On a screen with Density device pixels a logical
// one, every level shows the picture Density times as large, so it has its size for the eye and
// still uses every pixel. Scroll values count image columns and rows.
#pragma once
#include "geometry/clsShape.h"
#include "geometry/modRaster.h"
#include "interferogram/ZoomLevels.h"
#include "platform/Device.h"

namespace morvane {

struct ScrollBar {
    int Value = 0, Max = 0;
    bool Enabled = false;
    friend bool operator==(const ScrollBar&, const ScrollBar&) = default;
};

class ImageViewport {
public:
    int ZoomPercent() const { return m_zoomPercent; }
    double Zoom() const { return m_zoom; } // device pixels an image pixel
    double InvZoom() const { return 1 / m_zoom; }
    // Zoom as a reduced fraction.
    int ZoomNum() const { return m_zoomNum; }
    int ZoomDen() const { return m_zoomDen; }
    bool IsReduced() const { return m_zoomNum < m_zoomDen; }
    // Of the picture at this zoom, less one: black begins inside its last column and row.
    int ZoomedWidth() const { return m_zoomedWidth; }
    int ZoomedHeight() const { return m_zoomedHeight; }
    int ClientWidth() const { return m_clientWidth; }
    int ClientHeight() const { return m_clientHeight; }
    const ScrollBar& Horizontal() const { return m_horizontal; }
    const ScrollBar& Vertical() const { return m_vertical; }

    // Percent must be one of ZoomLevels; the layout follows with the next Layout.
    void SetZoomPercent(int Percent) { m_zoomPercent = Percent; }
    // A client below one pixel in either axis keeps the layout of before.
    void Layout(int ClientWidth, int ClientHeight, double Density, RasterSize Image);

    // Held to the range of the bar; a bar that is not enabled stays.
    void ScrollTo(int Horizontal, int Vertical);
    // Puts the image point in the middle of the client of the coming level, Percent; its layout
    // must follow.
    void CenterOn(Point Image, int Percent);

    Point ToImage(double ClientX, double ClientY) const;
    // For what is drawn over the picture.
    ImageMapping Mapping() const;

private:
    int m_zoomPercent = DefaultZoom;
    double m_zoom = 1, m_density = 1;
    int m_zoomNum = 1, m_zoomDen = 1;
    int m_clientWidth = 0, m_clientHeight = 0;
    RasterSize m_image{0, 0};
    int m_zoomedWidth = 0, m_zoomedHeight = 0;
    ScrollBar m_horizontal, m_vertical;
};

} // namespace morvane
