#include "platform/qt/PageDevice.h"

#include <QPageLayout>

#include "platform/Numbers.h"

namespace morvane {
namespace {

constexpr double PenUnitsPerInch = 120;

DeviceRect PrintableOf(const QPagedPaintDevice& device)
{
    return {0, 0, device.width(), device.height()};
}

int PenScaleOf(const QPagedPaintDevice& device)
{
    return std::max(1, RoundToLong(device.logicalDpiY() / PenUnitsPerInch));
}

DeviceFigures FiguresOf(const QPagedPaintDevice& device)
{
    const int resolution = device.logicalDpiY();
    const QRect sheet = device.pageLayout().fullRectPixels(resolution);
    const QRect printable = device.pageLayout().paintRectPixels(resolution);
    return {device.logicalDpiX(), resolution, {device.width(), device.height()},
        {sheet.width(), sheet.height()}, {printable.x(), printable.y()}};
}

} // namespace

PageDevice::PageDevice(QPagedPaintDevice& Of)
    : PainterDevice(Of, PrintableOf(Of), PenScaleOf(Of)), m_figures(FiguresOf(Of))
{
}

} // namespace morvane
