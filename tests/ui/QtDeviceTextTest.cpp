#include <gtest/gtest.h>

#include <QImage>

#include "platform/qt/QtDevice.h"

namespace morvane {
namespace {

QImage WhiteImage()
{
    QImage image(200, 200, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

QRect Inked(const QImage& image)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                box |= QRect(x, y, 1, 1);
    return box;
}

QRect ToRect(const DeviceRect& box)
{
    return {box.Left, box.Top, box.Width(), box.Height()};
}

TEST(QtDeviceText, LiesInItsBoxInEveryRotationAndAlignment)
{
    for (int rotation = 1; rotation <= 4; ++rotation)
        for (const TextAcross across : {TextAcross::Left, TextAcross::Center, TextAcross::Right})
            for (const TextDown down : {TextDown::Top, TextDown::Bottom}) {
                QImage image = WhiteImage();
                QtDevice device(image);
                const clsFontScope font(device,
                    {"Arial", 20, false, false, false, static_cast<TextRotation>(rotation)});
                const DeviceSize extent = device.MeasureText("Hxg0");
                const QRect box = ToRect(
                    TextBox({100, 100}, extent, {across, down}, device.CurrentFont().Rotation));
                device.DrawText({100, 100}, "Hxg0", {across, down}, Black);
                const QRect ink = Inked(image);
                EXPECT_TRUE(box.contains(ink)) << rotation;
                // Letters fill their line along, and half of it across.
                const bool isLevel = rotation == 1 || rotation == 4;
                EXPECT_GT(isLevel ? ink.width() : ink.height(), extent.Width - 6) << rotation;
                EXPECT_GT(isLevel ? ink.height() : ink.width(), extent.Height / 2) << rotation;
                EXPECT_TRUE(ToRect(device.Touched()).contains(ink)) << rotation;
            }
}

TEST(QtDeviceText, ReadsInItsDirection)
{
    // The ink of a low and a high mark tells where the reader's upper right is.
    const struct {
        TextRotation Rotation;
        int X, Y; // from the middle of the box to the high mark, which ends the text
    } cases[] = {
        {TextRotation::Horizontal, 1, -1},
        {TextRotation::Down, 1, 1},
        {TextRotation::Up, -1, -1},
        {TextRotation::UpsideDown, -1, 1},
    };
    for (const auto& c : cases) {
        QImage image = WhiteImage();
        QtDevice device(image);
        const clsFontScope font(device, {"Arial", 20, false, false, false, c.Rotation});
        const DeviceSize extent = device.MeasureText("    '");
        const TextAlign center{TextAcross::Center, TextDown::Top};
        device.DrawText({100, 100}, "    '", center, Black);
        const DeviceRect box = TextBox({100, 100}, extent, center, c.Rotation);
        const QPoint mark = Inked(image).center();
        EXPECT_GT(c.X * (2 * mark.x() - box.Left - box.Right), 0);
        EXPECT_GT(c.Y * (2 * mark.y() - box.Top - box.Bottom), 0);
    }
}

TEST(QtDeviceText, IsClippedAndReplacesWhateverThePenDoes)
{
    QImage plain = WhiteImage(), clipped = WhiteImage();
    const DeviceRect clip{40, 40, 70, 50};
    for (QImage* image : {&plain, &clipped}) {
        QtDevice device(*image);
        const clsRasterOpScope operation(device, RasterOp::Xor);
        const clsPenScope pen(device, {White, 2});
        const clsClipScope inner(device, image == &clipped ? clip : device.Bounds());
        device.DrawText({30, 35}, "Clipped", {}, Color{200, 0, 0});
    }
    EXPECT_TRUE(ToRect(clip).contains(Inked(clipped)));
    EXPECT_EQ(plain.copy(ToRect(clip)), clipped.copy(ToRect(clip)));
    EXPECT_NE(Inked(clipped), QRect());
}

TEST(QtDeviceText, ColoursItsEdgesInGreysOnly)
{
    QImage image = WhiteImage();
    QtDevice device(image);
    device.DrawText({20, 20}, "Waves 0.25", {}, Black);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ASSERT_TRUE(qIsGray(image.pixel(x, y))) << x << ", " << y;
}

TEST(QtDeviceClip, HoldsForEveryOperationAndEndsAtTheBrace)
{
    QImage image = WhiteImage();
    const DeviceRect clip{50, 60, 90, 80};
    QtDevice device(image, 2);
    {
        const clsClipScope outer(device, {50, 0, 90, 300});
        const clsClipScope inner(device, {-10, 60, 150, 80});
        EXPECT_EQ(device.CurrentClip(), clip);
        for (const int width : {1, 3}) {
            const clsPenScope pen(device, {Black, width});
            device.DrawPolyline(std::array{DevicePoint{0, 0}, DevicePoint{200, 170}});
            device.DrawPolyline(std::array{DevicePoint{0, 70}, DevicePoint{200, 70}});
            device.DrawCrosses(std::array{DevicePoint{50, 60}, DevicePoint{70, 70}}, 30);
            device.DrawEllipse({0, 0, 200, 200});
            const clsBrushScope brush(device, Cyan);
            device.DrawPolygon(
                std::array{DevicePoint{0, 0}, DevicePoint{199, 10}, DevicePoint{80, 199}});
        }
        device.FillRectangle({60, 0, 200, 200}, Magenta);
    }
    EXPECT_EQ(Inked(image), ToRect(clip));
    device.FillRectangle({0, 0, 200, 200}, Magenta);
    EXPECT_EQ(Inked(image), image.rect());
}

TEST(QtDevicePens, StylesLeaveTheirGaps)
{
    const struct {
        PenStyle Style;
        int Fewest, Most; // of 100 pixels
    } cases[] = {
        {PenStyle::Solid, 100, 100},
        {PenStyle::Dash, 50, 95},
        {PenStyle::Dot, 25, 75},
        {PenStyle::DashDot, 40, 90},
        {PenStyle::None, 0, 0},
    };
    for (const auto& c : cases)
        for (const DevicePoint to : {DevicePoint{120, 20}, DevicePoint{20, 120}}) {
            QImage image = WhiteImage();
            QtDevice device(image);
            const clsPenScope pen(device, {Black, 1, c.Style});
            device.DrawPolyline(std::array{DevicePoint{20, 20}, to});
            int count = 0;
            for (int i = 0; i < 200; ++i)
                count +=
                    image.pixel(to.Y == 20 ? i : 20, to.Y == 20 ? 20 : i) != qRgb(255, 255, 255);
            EXPECT_GE(count, c.Fewest) << static_cast<int>(c.Style);
            EXPECT_LE(count, c.Most) << static_cast<int>(c.Style);
        }
}

} // namespace
} // namespace morvane
