#include "interferogram/ImagePainter.h"

#include <algorithm>
#include <cmath>

#include "platform/Numbers.h"

namespace morvane {
namespace {

constexpr double TickSize = 3; // half arm, logical pixels

} // namespace

void ImagePainter::SetDisplay(const std::array<Color, 256>& Palette, Color Empty)
{
    m_palette = Palette;
    m_empty = Empty;
    m_reduced.Clear();
}

void ImagePainter::SetDensity(double Density)
{
    m_tickSize = RoundToLong(TickSize * Density);
}

void ImagePainter::Paint(Device& On, const MouseTools& With)
{
    if (m_document.BlankImage || !m_document.HasImageBuffer())
        On.FillRectangle(On.Bounds(), m_empty);
    else
        DrawPicture(On);
    DrawOverlays(On, With);
}

void ImagePainter::DrawPicture(Device& On)
{
    if (!m_viewport.IsReduced())
        m_reduced.Clear();
    // Also when scrolled to the end, where the range of a bar is rounded.
    const DevicePoint end = m_viewport.IsReduced() ? DrawReduced(On) : DrawFull(On);
    const DeviceRect client = On.Bounds();
    if (end.X < client.Right)
        On.FillRectangle({end.X, 0, client.Right, client.Bottom}, Black);
    if (end.Y < client.Bottom)
        On.FillRectangle({0, end.Y, client.Right, client.Bottom}, Black);
}

// In whole steps of the zoom: ZoomNum device pixels show ZoomDen of the picture.
DevicePoint ImagePainter::DrawFull(Device& On) const
{
    const ImageBuffer& image = m_document.Image();
    const int num = m_viewport.ZoomNum(), den = m_viewport.ZoomDen();
    const DeviceRect client = On.Bounds();
    const int across = (client.Right + num - 1) / num, down = (client.Bottom + num - 1) / num;
    const int left = m_viewport.Horizontal().Value, top = m_viewport.Vertical().Value;
    On.DrawPicture({0, 0, across * num, down * num},
        {image.Pixels, image.Size.Width, image.Size.Height, &m_palette},
        {left, top, left + across * den, top + down * den});
    const auto devicePixels = [num, den](int imagePixels) {
        return static_cast<int>((std::int64_t{imagePixels} * num + den - 1) / den);
    };
    return {std::min(m_viewport.ZoomedWidth(), devicePixels(image.Size.Width - left)),
        std::min(m_viewport.ZoomedHeight(), devicePixels(image.Size.Height - top))};
}

DevicePoint ImagePainter::DrawReduced(Device& On)
{
    const ImageBuffer& image = m_document.Image();
    const RasterSize size{m_viewport.ZoomedWidth(), m_viewport.ZoomedHeight()};
    if (m_reduced.Size() != size)
        m_reduced.Prepare(image.Pixels, image.Size, size);
    const DeviceRect client = On.Bounds();
    const double zoom = m_viewport.Zoom();
    const int left = RoundToLong(std::floor(m_viewport.Horizontal().Value * zoom));
    const int top = RoundToLong(std::floor(m_viewport.Vertical().Value * zoom));
    m_reduced.MakeRows(image.Pixels, top, top + client.Bottom);
    On.DrawPicture(client, {m_reduced.Pixels(), size.Width, size.Height, &m_palette},
        {left, top, left + client.Right, top + client.Bottom});
    return {size.Width - left, size.Height - top};
}

void ImagePainter::DrawOverlays(Device& On, const MouseTools& With) const
{
    const ImageMapping map = m_viewport.Mapping();
    const ImageObject& selected = With.Selected();
    if (selected.Type != ObjectType::Aperture)
        m_document.Aperture.Draw(On, map, RasterOp::Copy);
    if (selected.Type != ObjectType::Obstruction)
        m_document.Obstruction.Draw(On, map, RasterOp::Copy);
    m_document.Fringes.DrawAllExceptOne(
        On, map, StyleOf(RasterOp::Copy), selected.Index, selected.Tick);
    if (selected.Type != ObjectType::Grid)
        m_document.Grid.Draw(On, map, RasterOp::Copy);
    for (const Point& click : With.Clicks())
        DrawClickMark(On, click);
    // Last, so that taking it off again brings back all that it crosses.
    DrawSelected(On, selected);
}

void ImagePainter::DrawSelected(Device& On, const ImageObject& Selected) const
{
    const ImageMapping map = m_viewport.Mapping();
    switch (Selected.Type) {
    case ObjectType::None:
        break;
    case ObjectType::Aperture:
        m_document.Aperture.Draw(On, map, RasterOp::Xor);
        break;
    case ObjectType::Obstruction:
        m_document.Obstruction.Draw(On, map, RasterOp::Xor);
        break;
    case ObjectType::FringeCenter:
        m_document.Fringes.DrawCenter(
            On, map, StyleOf(RasterOp::Xor), Selected.Order, Selected.Tick, Selected.Index);
        break;
    case ObjectType::Grid:
        m_document.Grid.Draw(On, map, RasterOp::Xor);
        break;
    }
}

TickStyle ImagePainter::StyleOf(RasterOp Op) const
{
    return {.CurrentOrder = m_box.CurrentOrder(), .TickSize = m_tickSize, .Op = Op};
}

void ImagePainter::DrawClickMark(Device& On, Point Image) const
{
    const clsRasterOpScope operation(On, RasterOp::Copy);
    const clsPenScope pen(On, {White, 1});
    On.DrawCrosses(std::array{m_viewport.Mapping().ToDevice(Image.X, Image.Y)}, m_tickSize);
}

} // namespace morvane
