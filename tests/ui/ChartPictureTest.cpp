#include <gtest/gtest.h>

#include <QImage>

#include "platform/qt/QtDevice.h"
#include "views/clsLineProfile.h"

namespace morvane {
namespace {

constexpr int Around = 40; // pixels of the picture about the chart

struct Screen {
    int Width, Height, PixelsPerInch, PenScale;
    double TickScale;
};

QImage PictureOf(clsLineProfile& plot, const Screen& on)
{
    QImage image(on.Width + 2 * Around, on.Height + 2 * Around, QImage::Format_RGB32);
    image.fill(Qt::white);
    constexpr double metersPerInch = 0.0254;
    image.setDotsPerMeterX(qRound(on.PixelsPerInch / metersPerInch));
    image.setDotsPerMeterY(qRound(on.PixelsPerInch / metersPerInch));
    QtDevice device(image, on.PenScale);
    plot.Chart.SetTickMarkLengths(on.TickScale);
    plot.Chart.CreateChartLimits(device, {Around, Around, Around + on.Width, Around + on.Height});
    plot.PlotRedraw(device);
    return image;
}

clsLineProfile ProfileOf(double low, double high)
{
    clsLineProfile plot;
    plot.PopulateTrace(plot.CreateTrace(3), std::array{-1.0, 0.0, 1.0}, std::array{low, high, low});
    for (const int axis : {BottomAxis, LeftAxis}) {
        plot.AutoScale(axis);
        plot.Chart.Axes[static_cast<std::size_t>(axis)].CreateTickLabels();
    }
    plot.Chart.SetTitle(BottomAxis, "Profile along 45 degs");
    plot.Chart.SetTitle(LeftAxis, "Micrometers");
    plot.Chart.SetTitle(ChartTitleText, "Left mirror");
    return plot;
}

const Screen screens[] = {
    {120, 90, 96, 1, 1},
    {320, 240, 96, 1, 1},
    {180, 135, 144, 2, 1.5},
    {640, 480, 192, 2, 2},
    {1500, 1200, 600, 6, 3.9},
};

TEST(ChartPicture, NoInkLeavesTheBoxOfTheChart)
{
    for (const Screen& screen : screens)
        for (const double low : {-0.02, -12345.0, 1e-7}) {
            clsLineProfile plot = ProfileOf(low, low + 0.31);
            const QImage image = PictureOf(plot, screen);
            ASSERT_GT(plot.Chart.PlotArea().Width(), 0) << screen.Width << ' ' << low;
            const QRect box(Around, Around, screen.Width, screen.Height);
            QRect ink;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    ink |= image.pixel(x, y) == qRgb(255, 255, 255) ? QRect() : QRect(x, y, 1, 1);
            EXPECT_TRUE(box.contains(ink)) << screen.Width << ' ' << low;
        }
}

TEST(ChartPicture, FrameIsAsWideAsThePenAndNotSmoothed)
{
    for (const Screen& screen : screens) {
        clsLineProfile plot = ProfileOf(-0.02, 0.31);
        const QImage image = PictureOf(plot, screen);
        const DeviceRect area = plot.Chart.PlotArea();
        // Across the right side of the frame, between two ticks and clear of the trace.
        const int y = area.Top + area.Height() / 15;
        int numBlack = 0;
        for (int x = area.Right - 12; x < area.Right + 12; ++x) {
            const QRgb pixel = image.pixel(x, y);
            EXPECT_TRUE(pixel == qRgb(0, 0, 0) || pixel == qRgb(255, 255, 255)) << screen.Width;
            numBlack += pixel == qRgb(0, 0, 0);
        }
        EXPECT_EQ(numBlack, screen.PenScale) << screen.Width;
    }
}

} // namespace
} // namespace morvane
