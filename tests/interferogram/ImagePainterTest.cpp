#include "interferogram/ImagePainter.h"

#include <gtest/gtest.h>

#include "FringePicture.h"
#include "RecordingDevice.h"
#include "TemporaryFolder.h"
#include "ToolDesk.h"

namespace morvane {
namespace {

constexpr Color Empty{1, 2, 3};
constexpr DeviceRect ClientRect{0, 0, 401, 299};

class ClientDevice final : public RecordingDevice {
public:
    DeviceRect Bounds() const override { return ClientRect; }
};

class ImagePainterTest : public testing::Test {
protected:
    void ShowPicture(int percent, RasterSize size)
    {
        WritePicture(VerticalFringes(size.Width, size.Height, 8), folder / "a.bmp");
        ASSERT_TRUE(desk.Document.LoadFileIntoDataBuffer(folder / "a.bmp", true));
        desk.View.SetZoomPercent(percent);
        desk.View.Layout(ClientRect.Right, ClientRect.Bottom, 1, size);
    }
    std::vector<DeviceCall> Paint()
    {
        painter.SetDisplay({}, Empty);
        ClientDevice device;
        painter.Paint(device, desk.Tools);
        return device.Calls;
    }

    TemporaryFolder folder;
    ToolDesk desk;
    ImagePainter painter{desk.Document, desk.View, desk.Box};
};

// What a call draws, a lower case letter for exclusive or: Picture, Fill, Aperture, Obstruction,
// Tick, Grid, Click.
char LetterOf(const DeviceCall& call)
{
    const auto letter = [&]() -> char {
        switch (call.What) {
        case DeviceCall::Kind::Picture:
            return 'P';
        case DeviceCall::Kind::Fill:
            return 'F';
        case DeviceCall::Kind::Ellipse:
            return call.Box.Width() > 100 ? 'A' : 'O';
        case DeviceCall::Kind::Polyline:
        case DeviceCall::Kind::Polygon:
        case DeviceCall::Kind::Text:
            break;
        }
        const DevicePoint a = call.Points[0], b = call.Points[1];
        if (call.With.Ink == Cyan)
            return 'T';
        return b.X - a.X + b.Y - a.Y == 7 ? 'C' : 'G';
    }();
    return static_cast<char>(call.Op == RasterOp::Xor ? std::tolower(letter) : letter);
}

std::string Drawn(const std::vector<DeviceCall>& calls)
{
    std::string text;
    for (const DeviceCall& call : calls)
        if (const char letter = LetterOf(call); text.empty() || text.back() != letter)
            text += letter;
    return text;
}

TEST_F(ImagePainterTest, WhatIsSelectedComesLastInExclusiveOr)
{
    ShowPicture(100, ToolDesk::Picture);
    SetCircle(desk.Document.Aperture, 150, 150, 100);
    SetCircle(desk.Document.Obstruction, 150, 150, 40);
    desk.Document.Fringes.InsertOrder(3, std::vector<Point>{{150, 150}, {170, 150}});
    desk.Document.Grid.SetBounds(20, 20, 280, 280);
    desk.Down(5, 5, 0); // a click whose figure is not finished

    const struct {
        const char* Name;
        Point Grabbed;
        std::string Expected;
    } rows[] = {
        {"nothing", {300, 5}, "PAOTGC"},
        {"aperture", {250, 150}, "POTGCa"},
        {"obstruction", {110, 150}, "PATGCo"},
        {"tick", {170, 150}, "PAOTGCt"},
        {"grid", {20, 20}, "PAOTCg"},
    };
    for (const auto& row : rows) {
        desk.Down(row.Grabbed.X, row.Grabbed.Y, 3);
        const std::vector<DeviceCall> calls = Paint();
        EXPECT_EQ(Drawn(calls), row.Expected) << row.Name;
        EXPECT_EQ(
            std::ranges::count_if(calls, [](const auto& call) { return call.With.Ink == Cyan; }), 4)
            << row.Name << ": both arms of both ticks, once";
        desk.Up(3);
    }
}

TEST_F(ImagePainterTest, PixelsAreShownInWholeStepsOfTheZoom)
{
    for (const int percent : {1600, 150, 100}) {
        SCOPED_TRACE(percent);
        ShowPicture(percent, {640, 480});
        desk.View.ScrollTo(10, 20);
        const DeviceCall picture = Paint().front();
        ASSERT_EQ(picture.What, DeviceCall::Kind::Picture);
        const int num = desk.View.ZoomNum(), den = desk.View.ZoomDen();
        EXPECT_EQ(picture.Source.Left, 10);
        EXPECT_EQ(picture.Source.Top, 20);
        EXPECT_EQ(picture.Box.Left, 0);
        EXPECT_EQ(picture.Box.Top, 0);
        EXPECT_GE(picture.Box.Right, ClientRect.Right) << "covers the client";
        EXPECT_GE(picture.Box.Bottom, ClientRect.Bottom);
        EXPECT_EQ(picture.Source.Width() * num, picture.Box.Width() * den) << "exactly the zoom";
        EXPECT_EQ(picture.Source.Height() * num, picture.Box.Height() * den);
    }
    ShowPicture(50, {1641, 1480});
    desk.View.ScrollTo(11, 20);
    const DeviceCall reduced = Paint().front();
    EXPECT_EQ(reduced.Box, ClientRect);
    EXPECT_EQ(reduced.Source, (DeviceRect{5, 10, 5 + 401, 10 + 299})) << "a plain copy";
}

TEST_F(ImagePainterTest, BlackBeginsInsideTheLastColumnAndRow)
{
    for (const int percent : {200, 50}) {
        ShowPicture(percent, {100, 80});
        const int width = percent - 1, height = percent * 8 / 10 - 1;
        const std::vector<DeviceCall> calls = Paint();
        ASSERT_EQ(Drawn(calls), "PF");
        EXPECT_EQ(calls[1].Box, (DeviceRect{width, 0, 401, 299}));
        EXPECT_EQ(calls[2].Box, (DeviceRect{0, height, 401, 299}));
        EXPECT_EQ(calls[1].Fill, Black);
        EXPECT_EQ(calls[2].Fill, Black);
    }
}

// The range of a bar is rounded: what of the client lies beyond the picture must not keep what an
// earlier paint has left there.
TEST_F(ImagePainterTest, EveryPixelIsDrawnWhenScrolledToTheEnd)
{
    ShowPicture(100, {1651, 1207});
    for (const int percent : ZoomLevels)
        for (const double density : {1.0, 1.25, 1.5, 2.0}) {
            desk.View.SetZoomPercent(percent);
            desk.View.Layout(ClientRect.Right, ClientRect.Bottom, density, {1651, 1207});
            desk.View.ScrollTo(5000, 5000);
            const std::vector<DeviceCall> calls = Paint();
            const DeviceCall& picture = calls[0];
            const bool isReduced = desk.View.IsReduced();
            const auto lastShown = [](int client, int box, int source) {
                return (client - 1) * source / box;
            };
            const int column = picture.Source.Left
                + lastShown(ClientRect.Right, picture.Box.Width(), picture.Source.Width());
            const int row = picture.Source.Top
                + lastShown(ClientRect.Bottom, picture.Box.Height(), picture.Source.Height());
            std::size_t strips = column >= (isReduced ? desk.View.ZoomedWidth() : 1651);
            strips += row >= (isReduced ? desk.View.ZoomedHeight() : 1207);
            EXPECT_EQ(calls.size(), 1 + strips) << percent << "% at " << density;
        }
}

TEST_F(ImagePainterTest, WithoutAPictureTheOverlaysStay)
{
    SetCircle(desk.Document.Aperture, 150, 150, 100);
    const std::vector<DeviceCall> calls = Paint();
    EXPECT_EQ(Drawn(calls), "FA");
    EXPECT_EQ(calls[0].Box, ClientRect);
    EXPECT_EQ(calls[0].Fill, Empty);
}

} // namespace
} // namespace morvane
