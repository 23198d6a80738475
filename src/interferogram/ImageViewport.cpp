#include "interferogram/ImageViewport.h"

#include <algorithm>
#include <cmath>

#include "analysis/ModMathLib.h"
#include "platform/Numbers.h"

namespace morvane {
namespace {

// Every level times every usual density (quarters) is a whole number of these.
constexpr int ZoomDenominator = 1200;

// Centered or kept, within what the bar allows.
ScrollBar BarFor(int Image, int Client, double InvZoom, int Value)
{
    const int max = RoundToLong(Image - Client * InvZoom);
    if (max < 1)
        return {};
    return {std::clamp(Value, 0, max), max, true};
}

} // namespace

void ImageViewport::Layout(int ClientWidth, int ClientHeight, double Density, RasterSize Image)
{
    const int num = std::max(1, RoundToLong(m_zoomPercent / 100.0 * Density * ZoomDenominator));
    const int divisor = GreatestCommonDivisor(num, ZoomDenominator);
    m_density = Density;
    m_zoomNum = num / divisor;
    m_zoomDen = ZoomDenominator / divisor;
    m_zoom = static_cast<double>(m_zoomNum) / m_zoomDen;
    m_image = Image;
    if (ClientWidth < 1 || ClientHeight < 1)
        return;
    m_clientWidth = ClientWidth;
    m_clientHeight = ClientHeight;
    m_horizontal = BarFor(Image.Width, ClientWidth, InvZoom(), m_horizontal.Value);
    m_vertical = BarFor(Image.Height, ClientHeight, InvZoom(), m_vertical.Value);
    m_zoomedWidth = RoundToLong(Image.Width * m_zoom) - 1;
    m_zoomedHeight = RoundToLong(Image.Height * m_zoom) - 1;
}

void ImageViewport::ScrollTo(int Horizontal, int Vertical)
{
    const auto scroll = [](ScrollBar& bar, int value) {
        if (bar.Enabled)
            bar.Value = std::clamp(value, 0, bar.Max);
    };
    scroll(m_horizontal, Horizontal);
    scroll(m_vertical, Vertical);
}

void ImageViewport::CenterOn(Point Image, int Percent)
{
    const double percent = Percent * m_density;
    const auto center = [percent](ScrollBar& bar, double at, int client, int image) {
        bar.Max = image - RoundToLong(client * 100 / percent);
        bar.Value = std::min(std::max(1, RoundToLong(at - client * 50 / percent)), bar.Max);
    };
    center(m_horizontal, Image.X, m_clientWidth, m_image.Width);
    center(m_vertical, Image.Y, m_clientHeight, m_image.Height);
}

Point ImageViewport::ToImage(double ClientX, double ClientY) const
{
    return {ClientX * InvZoom() + m_horizontal.Value, ClientY * InvZoom() + m_vertical.Value};
}

ImageMapping ImageViewport::Mapping() const
{
    return {m_zoom, static_cast<double>(m_horizontal.Value), static_cast<double>(m_vertical.Value)};
}

} // namespace morvane
