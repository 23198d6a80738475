// The drawing surface of a printed page or a PDF, at the resolution of the printer. Its coordinates
// start where the printer can. A pen of width 1 is as wide on any of them: 5 dots at 600 dots per
// inch, 0.6 points.
#pragma once
#include <QPagedPaintDevice>

#include "platform/qt/PainterDevice.h"

namespace morvane {

class PageDevice final : public PainterDevice {
public:
    // Starts the document; Of has a painter then unless that failed. It ends with this.
    explicit PageDevice(QPagedPaintDevice& Of);

    int BitsPerPixel() const override { return 24; }
    DeviceFigures Figures() const override { return m_figures; }

private:
    DeviceFigures m_figures;
};

} // namespace morvane
