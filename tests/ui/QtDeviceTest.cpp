#include "platform/qt/QtDevice.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <random>

namespace morvane {
namespace {

QImage BlackImage(int Width = 40, int Height = 40)
{
    QImage image(Width, Height, QImage::Format_RGB32);
    image.fill(Qt::black);
    return image;
}

QRect Inked(const QImage& Image)
{
    QRect box;
    for (int y = 0; y < Image.height(); ++y)
        for (int x = 0; x < Image.width(); ++x)
            if (Image.pixel(x, y) != qRgb(0, 0, 0))
                box |= QRect(x, y, 1, 1);
    return box;
}

int CountInked(const QImage& Image)
{
    int count = 0;
    for (int y = 0; y < Image.height(); ++y)
        for (int x = 0; x < Image.width(); ++x)
            count += Image.pixel(x, y) != qRgb(0, 0, 0);
    return count;
}

TEST(QtDeviceLines, EndIsExclusiveInEveryDirection)
{
    const struct {
        const char* Name;
        DevicePoint To;
        QRect Inked;
        int Count;
    } cases[] = {
        {"right", {25, 20}, {20, 20, 5, 1}, 5},
        {"left", {15, 20}, {16, 20, 5, 1}, 5},
        {"down", {20, 25}, {20, 20, 1, 5}, 5},
        {"up", {20, 15}, {20, 16, 1, 5}, 5},
        {"down right", {25, 25}, {20, 20, 5, 5}, 5},
        {"up left", {15, 15}, {16, 16, 5, 5}, 5},
        {"nowhere", {20, 20}, {}, 0},
    };
    for (const auto& c : cases)
        for (const RasterOp operation : {RasterOp::Copy, RasterOp::Xor}) {
            QImage image = BlackImage();
            QtDevice device(image);
            const clsRasterOpScope scope(device, operation);
            const clsPenScope pen(device, {White, 1});
            device.DrawPolyline(std::array{DevicePoint{20, 20}, c.To});
            EXPECT_EQ(Inked(image), c.Inked) << c.Name;
            EXPECT_EQ(CountInked(image), c.Count) << c.Name;
        }
}

TEST(QtDeviceLines, PenScaleWidensWithoutMovingTheEnds)
{
    const struct {
        int Scale;
        QRect Inked;
    } cases[] = {{2, {10, 20, 8, 2}}, {3, {10, 19, 8, 3}}};
    for (const auto& c : cases) {
        QImage image = BlackImage();
        QtDevice device(image, c.Scale);
        const clsPenScope pen(device, {White, 1});
        device.DrawPolyline(std::array{DevicePoint{10, 20}, DevicePoint{18, 20}});
        EXPECT_EQ(Inked(image), c.Inked) << c.Scale;
    }
}

// A joint drawn twice would leave a hole in exclusive-or.
TEST(QtDeviceLines, XorOutlineInksTheSamePixelsAsCopy)
{
    const std::array closed{
        DevicePoint{5, 5}, DevicePoint{30, 8}, DevicePoint{20, 33}, DevicePoint{5, 5}};
    const std::function<void(Device&)> figures[] = {
        [&](Device& on) { on.DrawPolyline(closed); },
        [](Device& on) {
            on.DrawEllipse({4, 6, 35, 30});
        },
    };
    for (const int scale : {1, 2})
        for (const auto& draw : figures) {
            QImage copied = BlackImage(), inverted = BlackImage();
            {
                QtDevice copy(copied, scale), invert(inverted, scale);
                const clsRasterOpScope scope(invert, RasterOp::Xor);
                const clsPenScope pen(copy, {White, 1}), other(invert, {White, 1});
                draw(copy);
                draw(invert);
            }
            EXPECT_EQ(copied, inverted) << scale;
        }
}

TEST(QtDeviceEllipse, RightAndBottomAreExclusive)
{
    const DeviceRect boxes[] = {
        {5, 6, 25, 31}, {5, 6, 6, 31}, {5, 6, 25, 7}, {5, 6, 6, 7}, {5, 6, 7, 8}};
    for (const DeviceRect& box : boxes) {
        QImage image = BlackImage();
        QtDevice device(image);
        const clsPenScope pen(device, {White, 1});
        device.DrawEllipse(box);
        EXPECT_EQ(Inked(image), QRect(box.Left, box.Top, box.Width(), box.Height()))
            << box.Width() << " by " << box.Height();
    }
}

TEST(QtDeviceXor, TwiceLeavesNoTrace)
{
    std::mt19937 random(7);
    std::uniform_int_distribution<int> at(-30, 90);
    const auto point = [&] { return DevicePoint{at(random), at(random)}; };
    QImage image(60, 50, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, random() | 0xff000000);
    const QImage before = image.copy();
    for (int round = 0; round < 300; ++round) {
        const std::array points{point(), point(), point(), point()};
        const DeviceRect box{points[0].X, points[0].Y, points[1].X, points[1].Y};
        QtDevice device(image, 1 + round % 3);
        const clsRasterOpScope scope(device, RasterOp::Xor);
        const clsPenScope pen(device, {round % 2 ? White : Cyan, 1 + round % 2});
        for (int time = 0; time < 2; ++time) {
            device.DrawPolyline(std::span(points).first(2 + round % 3));
            device.DrawEllipse(box);
        }
    }
    EXPECT_EQ(image, before);
}

TEST(QtDevice, FarCoordinatesTouchNothingOutside)
{
    constexpr int least = std::numeric_limits<int>::min(), most = std::numeric_limits<int>::max();
    const int values[] = {least, -40000, -1, 0, 5, 40000, most};
    QImage image = BlackImage();
    QtDevice device(image, 2);
    const std::uint8_t pixel = 200;
    const std::array<Color, 256> palette{};
    for (const int a : values)
        for (const int b : values) {
            device.DrawPolyline(std::array{DevicePoint{a, b}, DevicePoint{b, a}});
            device.DrawPolyline(std::array{DevicePoint{a, 3}, DevicePoint{b, 3}});
            device.DrawEllipse({a, a, b, b});
            device.FillRectangle({a, a, b, b}, White);
            device.DrawPicture({a, a, b, b}, {{&pixel, 1}, 1, 1, &palette}, {0, 0, 1, 1});
        }
}

class QtDevicePicture : public testing::Test {
protected:
    QtDevicePicture()
    {
        for (int i = 0; i < 256; ++i)
            Palette[i] = {static_cast<std::uint8_t>(i), 0, static_cast<std::uint8_t>(255 - i)};
    }
    std::array<Color, 256> Palette;
    const std::vector<std::uint8_t> Pixels{10, 20, 30, 40, 50, 60, 70, 80}; // 4 by 2
};

TEST_F(QtDevicePicture, TakesTheNearestPixel)
{
    const struct {
        const char* Name;
        DeviceRect Target, Source;
        std::vector<int> FirstRow; // red, from x = 0
    } cases[] = {
        {"same size", {0, 0, 4, 2}, {0, 0, 4, 2}, {10, 20, 30, 40, 0}},
        {"twice", {0, 0, 8, 4}, {0, 0, 4, 2}, {10, 10, 20, 20, 30, 30, 40, 40, 0}},
        {"half, the pixel right of the center", {0, 0, 2, 1}, {0, 0, 4, 2}, {60, 80, 0}},
        {"one and a half", {0, 0, 6, 3}, {0, 0, 4, 2}, {10, 20, 20, 30, 40, 40, 0}},
        {"cut on the left", {-2, -1, 2, 1}, {0, 0, 4, 2}, {70, 80, 0}},
        {"a part", {1, 0, 5, 2}, {1, 1, 3, 2}, {0, 60, 60, 70, 70, 0}},
        {"beyond the picture", {0, 0, 6, 2}, {-1, 0, 5, 2}, {0, 10, 20, 30, 40, 0}},
    };
    for (const auto& c : cases) {
        QImage image = BlackImage(12, 8);
        QtDevice device(image);
        device.DrawPicture(c.Target, {Pixels, 4, 2, &Palette}, c.Source);
        for (std::size_t x = 0; x < c.FirstRow.size(); ++x) {
            const int red = c.FirstRow[x];
            EXPECT_EQ(image.pixel(static_cast<int>(x), 0), qRgb(red, 0, red ? 255 - red : 0))
                << c.Name << " at " << x;
        }
    }
}

TEST_F(QtDevicePicture, WithTooFewPixelsIsNotDrawn)
{
    QImage image = BlackImage();
    QtDevice device(image);
    device.DrawPicture({0, 0, 40, 40}, {Pixels, 4, 3, &Palette}, {0, 0, 4, 3});
    EXPECT_EQ(CountInked(image), 0);
}

} // namespace
} // namespace morvane
