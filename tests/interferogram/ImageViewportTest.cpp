#include "interferogram/ImageViewport.h"

#include <utility>

#include <gtest/gtest.h>

namespace morvane {
namespace {

ImageViewport At(int percent, RasterSize client, RasterSize image, double density = 1)
{
    ImageViewport view;
    view.SetZoomPercent(percent);
    view.Layout(client.Width, client.Height, density, image);
    return view;
}

TEST(ImageViewport, ZoomIsAReducedFraction)
{
    const struct {
        double Density;
        std::pair<int, int> Expected[ZoomLevels.size()];
    } rows[] = {
        {1, {{16, 1}, {8, 1}, {4, 1}, {3, 1}, {2, 1}, {3, 2}, {1, 1}, {3, 4}, {1, 2}, {1, 4}}},
        {1.25,
            {{20, 1}, {10, 1}, {5, 1}, {15, 4}, {5, 2}, {15, 8}, {5, 4}, {15, 16}, {5, 8},
                {5, 16}}},
        {1.5, {{24, 1}, {12, 1}, {6, 1}, {9, 2}, {3, 1}, {9, 4}, {3, 2}, {9, 8}, {3, 4}, {3, 8}}},
        {2, {{32, 1}, {16, 1}, {8, 1}, {6, 1}, {4, 1}, {3, 1}, {2, 1}, {3, 2}, {1, 1}, {1, 2}}},
    };
    for (const auto& row : rows)
        for (std::size_t i = 0; i < ZoomLevels.size(); ++i) {
            const ImageViewport view = At(ZoomLevels[i], {400, 300}, {640, 480}, row.Density);
            EXPECT_EQ(std::pair(view.ZoomNum(), view.ZoomDen()), row.Expected[i])
                << ZoomLevels[i] << "% at " << row.Density;
            EXPECT_EQ(view.Zoom(), static_cast<double>(view.ZoomNum()) / view.ZoomDen());
        }
}

TEST(ImageViewport, StepsThroughTheLevelsAndEndsThere)
{
    EXPECT_EQ(NextZoom(100, ZoomStep::In), 150);
    EXPECT_EQ(NextZoom(100, ZoomStep::Out), 75);
    EXPECT_EQ(NextZoom(1600, ZoomStep::In), std::nullopt);
    EXPECT_EQ(NextZoom(25, ZoomStep::Out), std::nullopt);
    EXPECT_EQ(ZoomIndexOf(123), 6u) << "a value that is not in the list is 100%";
}

TEST(ImageViewport, RangesAndSizes)
{
    const struct {
        const char* Name;
        int Percent;
        RasterSize Image;
        int MaxH, MaxV; // 0: disabled
        RasterSize Zoomed;
    } rows[] = {
        // of a client of 400 by 300
        {"doubled", 200, {1000, 400}, 800, 250, {1999, 799}},
        {"halves to even", 150, {1001, 1003}, 734, 803, {1501, 1503}},
        {"one more than fits", 100, {401, 300}, 1, 0, {400, 299}},
        {"reduced", 50, {1000, 400}, 200, 0, {499, 199}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        ImageViewport view = At(row.Percent, {400, 300}, row.Image);
        const auto bar = [](int max, int value) {
            return ScrollBar{max ? value : 0, max, max > 0};
        };
        EXPECT_EQ(view.Horizontal(), bar(row.MaxH, 0));
        EXPECT_EQ(view.Vertical(), bar(row.MaxV, 0));
        EXPECT_EQ(view.ZoomedWidth(), row.Zoomed.Width);
        EXPECT_EQ(view.ZoomedHeight(), row.Zoomed.Height);
        view.ScrollTo(5000, 5000);
        EXPECT_EQ(view.Horizontal(), bar(row.MaxH, row.MaxH)) << "held; a disabled bar stays at 0";
        EXPECT_EQ(view.Vertical(), bar(row.MaxV, row.MaxV));
        view.ScrollTo(-1, -1);
        EXPECT_EQ(view.Horizontal(), bar(row.MaxH, 0));
    }
}

TEST(ImageViewport, AClientBelowOnePixelKeepsItsLayout)
{
    ImageViewport view = At(200, {400, 300}, {1000, 800});
    view.ScrollTo(300, 200);
    for (const RasterSize client : {RasterSize{0, 300}, RasterSize{400, 0}, RasterSize{-5, -5}}) {
        view.Layout(client.Width, client.Height, 1, {1000, 800});
        EXPECT_EQ(view.ClientWidth(), 400);
        EXPECT_EQ(view.ClientHeight(), 300);
        EXPECT_EQ(view.Horizontal(), (ScrollBar{300, 800, true}));
        EXPECT_EQ(view.ZoomedWidth(), 1999);
    }
}

TEST(ImageViewport, CentersAPointOnTheComingLevel)
{
    const struct {
        const char* Name;
        int Percent;
        Point Center;
        int Left, Top, MaxH, MaxV;
    } rows[] = {
        // from 100%, client 400 by 300, image 1000 by 800
        {"in the middle", 200, {500, 400}, 400, 325, 800, 650},
        {"near the upper left: 1, not 0", 200, {50, 60}, 1, 1, 800, 650},
        {"near the lower right: held", 200, {990, 790}, 800, 650, 800, 650},
        {"rounded", 150, {500.4, 400}, 367, 300, 733, 600},
        {"out", 75, {500, 400}, 233, 200, 467, 400},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        ImageViewport view = At(100, {400, 300}, {1000, 800});
        view.CenterOn(row.Center, row.Percent);
        EXPECT_EQ(view.Horizontal(), (ScrollBar{row.Left, row.MaxH, true}));
        EXPECT_EQ(view.Vertical(), (ScrollBar{row.Top, row.MaxV, true}));
        view.SetZoomPercent(row.Percent);
        view.Layout(400, 300, 1, {1000, 800});
        EXPECT_EQ(view.Horizontal(), (ScrollBar{row.Left, row.MaxH, true})) << "stays";
    }
    ImageViewport view = At(75, {400, 300}, {450, 300});
    view.CenterOn({200, 100}, 50);
    view.SetZoomPercent(50);
    view.Layout(400, 300, 1, {450, 300});
    EXPECT_EQ(view.Horizontal(), ScrollBar()) << "all of the picture shows";
}

TEST(ImageViewport, ToImageIsTheWayBackOfMapping)
{
    for (const int percent : ZoomLevels)
        for (const double density : {1.0, 1.25, 2.0}) {
            ImageViewport view = At(percent, {400, 300}, {4000, 3000}, density);
            view.ScrollTo(123, 77);
            EXPECT_EQ(view.ToImage(0, 0), (Point{123, 77}));
            for (const DevicePoint at : {DevicePoint{0, 0}, {1, 299}, {399, 7}, {201, 150}}) {
                const Point image = view.ToImage(at.X, at.Y);
                EXPECT_EQ(view.Mapping().ToDevice(image.X, image.Y), at) << percent;
            }
        }
}

} // namespace
} // namespace morvane
