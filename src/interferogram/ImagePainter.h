// Draws what an interferogram's window shows: the part of the picture that the viewport tells,
// black beyond it, and over it aperture, obstruction, ticks and grid. What is being dragged is
// drawn in exclusive or from the start, so that the drag can take it off and put it on again.
#pragma once
#include <array>

#include "document/clsDocument.h"
#include "interferogram/ImageViewport.h"
#include "interferogram/MouseTools.h"
#include "interferogram/ReducedPicture.h"

namespace morvane {

class ImagePainter {
public:
    ImagePainter(const clsDocument& Of, const ImageViewport& Through, const ToolBox& Shared)
        : m_document(Of), m_viewport(Through), m_box(Shared)
    {
    }

    // The picture or its display has changed. Empty is shown where there is no picture.
    void SetDisplay(const std::array<Color, 256>& Palette, Color Empty);
    // The size on the device of what has one of its own, lines and crosses.
    void SetDensity(double Density);

    void Paint(Device& On, const MouseTools& With);
    void DrawSelected(Device& On, const ImageObject& Selected) const;
    void DrawClickMark(Device& On, Point Image) const;

private:
    void DrawPicture(Device& On);
    // Both tell where the picture ends on the device.
    DevicePoint DrawFull(Device& On) const;
    DevicePoint DrawReduced(Device& On);
    void DrawOverlays(Device& On, const MouseTools& With) const;
    TickStyle StyleOf(RasterOp Op) const;

    const clsDocument& m_document;
    const ImageViewport& m_viewport;
    const ToolBox& m_box;
    std::array<Color, 256> m_palette{};
    Color m_empty;
    int m_tickSize = 3; // half arm of a cross, device pixels
    ReducedPicture m_reduced;
};

} // namespace morvane
