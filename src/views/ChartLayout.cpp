#include "views/ChartLayout.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ranges>

#include "platform/Numbers.h"

namespace morvane {
namespace {

bool RunsUpright(TextRotation rotation)
{
    return rotation == TextRotation::Down || rotation == TextRotation::Up;
}

DeviceSize Turned(DeviceSize extent, TextRotation rotation)
{
    return RunsUpright(rotation) ? DeviceSize{extent.Height, extent.Width} : extent;
}

// So that the upper left corner of the box of the text is where it is drawn.
TextAlign CornerAlign(TextRotation rotation)
{
    const bool isFromRight = rotation == TextRotation::Up || rotation == TextRotation::UpsideDown;
    const bool isFromBottom =
        rotation == TextRotation::Down || rotation == TextRotation::UpsideDown;
    return {isFromRight ? TextAcross::Right : TextAcross::Left,
        isFromBottom ? TextDown::Bottom : TextDown::Top};
}

// How a label stands at its tick. Shift times half the height of a label is added to its place
// along the axis.
struct LabelStand {
    TextAlign Align;
    int Shift;
};

LabelStand StandOf(int axis, TextRotation rotation)
{
    using enum TextAcross;
    using enum TextDown;
    static constexpr LabelStand stands[4][4] = {
        {{{Center, Top}, 0}, {{Left, Top}, 1}, {{Right, Top}, -1}, {{Center, Bottom}, 0}},
        {{{Right, Bottom}, 1}, {{Center, Top}, 0}, {{Center, Bottom}, 0}, {{Left, Top}, 1}},
        {{{Center, Bottom}, 0}, {{Right, Top}, 1}, {{Left, Top}, -1}, {{Center, Top}, 0}},
        {{{Left, Bottom}, 1}, {{Center, Bottom}, 0}, {{Center, Top}, 0}, {{Right, Top}, 1}},
    };
    return stands[axis][static_cast<int>(rotation) - 1];
}

// How far labels stand off the plot area.
int TickRoom(const ChartAxis& axis, TickLengths ticks)
{
    const auto isOutside = [](TickMarkStyle style) {
        return style == TickMarkStyle::Outside || style == TickMarkStyle::Both;
    };
    if (isOutside(axis.MajorTicks))
        return ticks.Major;
    return isOutside(axis.MinorTicks) ? ticks.Minor : 0;
}

// What is one pixel on the screen, as much longer as the ticks are.
int Unit(TickLengths ticks)
{
    return std::max(1, RoundToLong(static_cast<double>(ticks.Major) / TickLengths().Major));
}

// The room that one axis asks for.
struct AxisRoom {
    DeviceSize Title; // as it is turned
    std::vector<DeviceSize> Labels; // as they are turned
    int Across = 0; // away from the plot area, from its edge to the end of the title
    int First = 0, Last = 0; // along the axis, of the labels at its ends

    int WidestLabel() const
    {
        return Labels.empty() ? 0 : std::ranges::max(Labels, {}, &DeviceSize::Width).Width;
    }
    int HighestLabel() const
    {
        return Labels.empty() ? 0 : std::ranges::max(Labels, {}, &DeviceSize::Height).Height;
    }
};

bool HasLabels(const ChartAxis& axis)
{
    const auto isText = [](const std::string& label) { return !label.empty(); };
    return axis.LabelText.Shown && std::ranges::any_of(axis.Labels, isText);
}

DeviceSize MeasureTurned(Device& on, const ChartText& text)
{
    if (!text.IsVisible())
        return {};
    const clsFontScope font(on, DeviceFont(on, text.Style, text.Rotation));
    return Turned(on.MeasureText(text.Text), text.Rotation);
}

std::vector<DeviceSize> MeasureLabels(Device& on, const ChartAxis& axis)
{
    const TextRotation rotation = axis.LabelText.Rotation;
    const clsFontScope font(on, DeviceFont(on, axis.LabelText.Style, rotation));
    std::vector<DeviceSize> sizes;
    for (const std::string& label : axis.Labels)
        sizes.push_back(Turned(on.MeasureText(label), rotation));
    return sizes;
}

AxisRoom MeasureAxis(Device& on, const ChartAxis& axis, bool isVertical, TickLengths ticks)
{
    const auto along = [isVertical](
                           DeviceSize size) { return isVertical ? size.Height : size.Width; };
    AxisRoom room;
    room.Title = MeasureTurned(on, axis.Title);
    room.Across = TickRoom(axis, ticks) + (isVertical ? room.Title.Width : room.Title.Height);
    if (!HasLabels(axis))
        return room;
    room.Labels = MeasureLabels(on, axis);
    room.Across += isVertical ? room.WidestLabel() : room.HighestLabel();
    room.First = along(room.Labels.front());
    room.Last = along(room.Labels.back());
    if (axis.Max < axis.Min)
        std::swap(room.First, room.Last);
    return room;
}

// The plot area in what the rooms leave of the box.
DeviceRect PlotWithin(const DeviceRect& box, const std::array<AxisRoom, 4>& rooms, int titleHeight,
    bool keepSquare, int unit)
{
    const int space = 2 * unit;
    const auto &bottom = rooms[BottomAxis], &left = rooms[LeftAxis], &top = rooms[TopAxis],
               &right = rooms[RightAxis];
    int leftMargin = std::max(left.Across, std::max(bottom.First, top.First) / 2) + space;
    int topMargin = std::max(RoundToLong(4 * titleHeight / 3.0 + top.Across),
                        std::max(left.Last, right.Last) / 2)
        + space;
    const int bottomMargin = std::max(bottom.Across, std::max(left.First, right.First) / 2);
    const int rightMargin = std::max(right.Across + unit - 1, std::max(bottom.Last, top.Last) / 2);
    int height = box.Height() - topMargin - bottomMargin - 1;
    int width = box.Width() - leftMargin - rightMargin - 1;
    if (keepSquare && width <= height) {
        topMargin += RoundToLong((height - width) / 2.0);
        height = width;
    } else if (keepSquare) {
        leftMargin += RoundToLong((width - height) / 2.0);
        width = height;
    }
    const int x = box.Left + leftMargin, y = box.Top + topMargin;
    return {x, y, x + width, y + height};
}

bool IsInsideCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xc0) == 0x80; // of UTF-8
}

// As much of the text as the room holds, the rest as three points; empty if that is nothing.
std::string Shortened(const Device& on, std::string text, int room)
{
    if (on.MeasureText(text).Width <= room)
        return text;
    while (!text.empty()) {
        while (IsInsideCharacter(text.back()))
            text.pop_back();
        text.pop_back();
        const std::string shorter = text.substr(0, text.find_last_not_of(' ') + 1) + "...";
        if (!text.empty() && on.MeasureText(shorter).Width <= room)
            return shorter;
    }
    return text;
}

// The text with the middle of its box along a line as near to Middle as From and To allow; Edge is
// the upper or left side of the box across that line.
struct TitlePlace {
    bool IsUprightLine;
    int Middle, From, To, Edge;
};

PlacedText PlaceTitle(Device& on, const ChartText& title, const TitlePlace& place)
{
    if (!title.IsVisible())
        return {};
    PlacedText placed{title.Text, DeviceFont(on, title.Style, title.Rotation), {},
        CornerAlign(title.Rotation), title.Style.Ink, {}};
    const clsFontScope font(on, placed.In);
    if (RunsUpright(title.Rotation) == place.IsUprightLine)
        placed.Text = Shortened(on, title.Text, place.To - place.From);
    const DeviceSize size = Turned(on.MeasureText(placed.Text), title.Rotation);
    const int length = place.IsUprightLine ? size.Height : size.Width;
    const int start = std::max(place.From, std::min(place.Middle - length / 2, place.To - length));
    placed.At =
        place.IsUprightLine ? DevicePoint{place.Edge, start} : DevicePoint{start, place.Edge};
    return placed;
}

// Titles along x have the whole width of the box, for nothing else is there; those along y keep off
// the titles at the top and the labels at the bottom.
TitlePlace PlaceOfTitle(int axis, const AxisRoom& room, const DeviceRect& plot,
    const DeviceRect& box, int firstY, int unit)
{
    const int middleX = (plot.Left + plot.Right) / 2, middleY = (plot.Top + plot.Bottom) / 2;
    switch (axis) {
    case BottomAxis:
        return {false, middleX, box.Left, box.Right, plot.Bottom + room.Across - room.Title.Height};
    case LeftAxis:
        return {true, middleY, firstY, plot.Bottom, plot.Left - unit - room.Across};
    case TopAxis:
        return {false, middleX, box.Left, box.Right, plot.Top - unit - room.Across};
    default:
        return {
            true, middleY, firstY, plot.Bottom, plot.Right + unit + room.Across - room.Title.Width};
    }
}

// The edge of the plot area where the labels of an axis start, less what stands in between.
int LabelEdge(int axis, const DeviceRect& plot, int tickRoom, int unit)
{
    switch (axis) {
    case BottomAxis:
        return plot.Bottom + tickRoom;
    case LeftAxis:
        return plot.Left - unit - tickRoom;
    case TopAxis:
        return plot.Top - unit - tickRoom;
    default:
        return plot.Right + unit + tickRoom;
    }
}

// The ticks whose labels can be drawn without touching each other: every so manieth, and both ends
// where both have room, so that the range of the scale is to be read.
std::vector<int> LabelledTicks(const TickRow& ticks, const std::vector<DeviceSize>& sizes,
    bool isVertical, TextRotation rotation)
{
    const bool isLined = RunsUpright(rotation) == isVertical; // one label behind the other
    const auto along = [&](int i) {
        const DeviceSize size =
            ticks.OnlyEnds && i > 0 ? sizes.back() : sizes[static_cast<std::size_t>(i)];
        const int height = RunsUpright(rotation) ? size.Width : size.Height;
        return (isVertical ? size.Height : size.Width) + (isLined ? height / 3 : 0);
    };
    const auto touch = [&](int i, int next) {
        return std::abs(ticks.At(next) - ticks.At(i)) < (along(i) + along(next) + 1) / 2;
    };
    const auto fits = [&](int step) {
        for (int i = 0; i + step < ticks.Count; i += step)
            if (touch(i, i + step))
                return false;
        return true;
    };
    if (ticks.Count == 0)
        return {};
    int step = 1;
    while (!fits(step))
        ++step;
    const int last = ticks.Count - 1;
    std::vector<int> labelled;
    for (int i = 0; i < last; i += step)
        labelled.push_back(i);
    while (labelled.size() > 1 && touch(labelled.back(), last))
        labelled.pop_back();
    if (labelled.empty() || !touch(labelled.back(), last))
        labelled.push_back(last);
    return labelled;
}

// The labels that have a tick and room.
std::vector<PlacedText> PlaceLabels(Device& on, int axis, const ChartAxis& of, const AxisRoom& room,
    const DeviceRect& plot, TickLengths lengths)
{
    if (room.Labels.empty() || !of.Visible)
        return {};
    const TickRow ticks = MajorTicks(of, AlongPlot(axis, plot), lengths.Minor);
    const ChartText& style = of.LabelText;
    const auto [align, shift] = StandOf(axis, style.Rotation);
    const int height =
        RunsUpright(style.Rotation) ? room.Labels.front().Width : room.Labels.front().Height;
    const int edge = LabelEdge(axis, plot, TickRoom(of, lengths), Unit(lengths));
    const Font font = DeviceFont(on, style.Style, style.Rotation);
    std::vector<PlacedText> labels;
    for (const int i : LabelledTicks(ticks, room.Labels, IsVertical(axis), style.Rotation)) {
        const auto label =
            static_cast<std::size_t>(ticks.OnlyEnds && i > 0 ? of.NumMajor() - 1 : i);
        const int at = ticks.At(i) + shift * (height / 2);
        const DevicePoint point = IsVertical(axis) ? DevicePoint{edge, at} : DevicePoint{at, edge};
        const DeviceSize extent = Turned(room.Labels[label], style.Rotation);
        labels.push_back({of.Labels[label], font, point, align, style.Style.Ink,
            TextBox(point, extent, align, style.Rotation)});
    }
    return labels;
}

// Letters leave a sixth of the line free above and below them.
DeviceRect InkOf(const PlacedText& text)
{
    DeviceRect ink = text.Box;
    const int across = RunsUpright(text.In.Rotation) ? ink.Width() / 6 : 0;
    const int down = RunsUpright(text.In.Rotation) ? 0 : ink.Height() / 6;
    return {ink.Left + across, ink.Top + down, ink.Right - across, ink.Bottom - down};
}

bool Touch(const PlacedText& one, const PlacedText& other)
{
    const DeviceRect a = InkOf(one), b = InkOf(other);
    return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}

// In the corners of the plot area the labels along y have the right of way.
void ClearCorners(ChartLayout& layout)
{
    for (const int across : {BottomAxis, TopAxis})
        for (const int along : {LeftAxis, RightAxis})
            std::erase_if(layout.Labels[static_cast<std::size_t>(across)], [&](const auto& label) {
                return std::ranges::any_of(layout.Labels[static_cast<std::size_t>(along)],
                    [&](const auto& other) { return Touch(label, other); });
            });
}

} // namespace

void Draw(Device& On, const PlacedText& Text)
{
    if (Text.Text.empty())
        return;
    const clsFontScope font(On, Text.In);
    On.DrawText(Text.At, Text.Text, Text.Align, Text.Ink);
}

AxisPixels AlongPlot(int Axis, const DeviceRect& Plot)
{
    if (IsVertical(Axis))
        return {Plot.Bottom - 1, 1 - Plot.Height()};
    return {Plot.Left, Plot.Width() - 1};
}

ChartLayout LayOut(Device& On, const DeviceRect& Box, bool KeepSquare,
    const std::array<ChartAxis, 4>& Axes, const ChartText& ChartTitle, TickLengths Ticks)
{
    std::array<AxisRoom, 4> rooms;
    for (std::size_t i = 0; i < Axes.size(); ++i)
        rooms[i] = MeasureAxis(On, Axes[i], IsVertical(static_cast<int>(i)), Ticks);
    const DeviceSize title = MeasureTurned(On, ChartTitle);
    ChartLayout layout;
    layout.Plot = PlotWithin(Box, rooms, title.Height, KeepSquare, Unit(Ticks));
    if (!layout.HasPlot())
        return layout;
    layout.ChartTitle = PlaceTitle(
        On, ChartTitle, {false, (Box.Left + Box.Right) / 2, Box.Left, Box.Right, Box.Top});
    const AxisRoom& top = rooms[TopAxis];
    const bool isTopTaken = !top.Labels.empty() || top.Title.Height > 0;
    const int firstY = isTopTaken ? layout.Plot.Top : Box.Top + RoundToLong(4 * title.Height / 3.0);
    for (int axis = 0; axis < 4; ++axis) {
        const auto i = static_cast<std::size_t>(axis);
        layout.Labels[i] = PlaceLabels(On, axis, Axes[i], rooms[i], layout.Plot, Ticks);
        layout.Titles[i] = PlaceTitle(
            On, Axes[i].Title, PlaceOfTitle(axis, rooms[i], layout.Plot, Box, firstY, Unit(Ticks)));
    }
    ClearCorners(layout);
    return layout;
}

} // namespace morvane
