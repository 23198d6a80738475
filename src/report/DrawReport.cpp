#include "report/DrawReport.h"

#include <algorithm>
#include <array>
#include <span>

#include "document/Dib.h"
#include "platform/Numbers.h"
#include "report/LogoPane.h"
#include "report/PageText.h"
#include "report/PaneViews.h"
#include "report/ProfilePane.h"
#include "report/ReportPage.h"

namespace morvane {
namespace {

struct PaneBox {
    DeviceRect Whole, Inside; // right and bottom of the first included, of the second not
    int Gap;
};

template <typename Maker>
void DrawText(Device& on, const PaneBox& pane, const ReportSource& of, Maker make)
{
    DrawTextPane(on, pane.Inside, make, of.Document.PrinterText);
}

void DrawAberrations(Device& on, const PaneBox& pane, const ReportSource& of)
{
    DrawText(on, pane, of, [&] { return AberrationsPane(of.Document, of.Chosen.Report); });
}

void DrawZernikes(Device& on, const PaneBox& pane, const ReportSource& of)
{
    DrawText(on, pane, of, [&] { return ZernikesPane(of.Document); });
}

void DrawGridResults(Device& on, const PaneBox& pane, const ReportSource& of)
{
    DrawText(on, pane, of, [&] {
        const int lines = (pane.Inside.Height() - 1) / std::max(1, on.MeasureText({}).Height);
        const int characters = (pane.Inside.Width() - 1) / std::max(1, on.AverageCharacterWidth());
        return GridResultsPane(of.Document.Grid, lines, characters);
    });
}

void DrawLineProfile(Device& on, const PaneBox& pane, const ReportSource& of)
{
    DrawProfilePane(on, pane.Inside, of.Document.Profile(), of.Screen);
}

// Half arm of a tick on the page, device units: that of the screen grows with the sheet, but a
// picture in a small pane must not disappear under its ticks.
int TickSizeOn(const Device& on, const DeviceRect& picture, DeviceSize screen)
{
    constexpr double onScreen = 3, largestPart = 1.0 / 150;
    const double scale = DiagonalRatio(on.Figures().Physical, screen);
    const double most = largestPart * std::min(picture.Width(), picture.Height());
    return std::max(1, RoundToLong(std::min(onScreen * scale, most)));
}

// The ticks keep the colours of their orders. Their pen is that of all lines, for on paper it is as
// wide as the crosses need.
void DrawOverlays(Device& on, const ImageMapping& map, int tickSize, const ReportSource& of)
{
    const clsBrushScope hollow(on, std::nullopt);
    of.Document.Aperture.Draw(on, map, RasterOp::Copy);
    of.Document.Obstruction.Draw(on, map, RasterOp::Copy);
    of.Document.Fringes.DrawAll(on, map, {.TickSize = tickSize});
}

void DrawInterferogram(Device& on, const PaneBox& pane, const ReportSource& of)
{
    if (!of.Document.HasImageBuffer())
        return;
    const ImageBuffer& image = of.Document.Image();
    const auto [width, height] = image.Size;
    const DeviceRect target = FitInto(pane.Inside, {width, height});
    const auto palette = BuildDisplayPalette(of.Chosen.RedDisplay, false, {}); // all intensities
    on.DrawPicture(target, {image.Pixels, width, height, &palette}, {0, 0, width, height});
    const double zoom = std::min(static_cast<double>(pane.Inside.Width()) / width,
        static_cast<double>(pane.Inside.Height()) / height);
    DrawOverlays(
        on, {zoom, -target.Left / zoom, -target.Top / zoom}, TickSizeOn(on, target, of.Screen), of);
}

void DrawLogoAndComments(Device& on, const PaneBox& pane, const ReportSource& of)
{
    if (of.Chosen.Report.ShowComments)
        DrawComments(on, pane.Whole, pane.Gap, of.Document.Optic.Comments, of.Document.PrinterText);
    DrawLogo(on, pane.Whole, pane.Gap, of.LogoPath);
}

struct PaneDrawing {
    PaneView View;
    bool NeedsAnalysis;
    void (*Draw)(Device&, const PaneBox&, const ReportSource&); // nullptr: it stays empty
};

constexpr PaneDrawing PaneDrawings[] = {
    {PaneView::Aberrations, true, DrawAberrations},
    {PaneView::ContourPlot, true, nullptr},
    {PaneView::Interferogram, false, DrawInterferogram},
    {PaneView::LineProfile, true, DrawLineProfile},
    {PaneView::Logo, false, DrawLogoAndComments},
    {PaneView::SurfacePlot, true, nullptr},
    {PaneView::SyntheticFringes, true, nullptr},
    {PaneView::Zernikes, true, DrawZernikes},
    {PaneView::GridResults, true, DrawGridResults},
};

// nullptr for none.
const PaneDrawing* DrawingOf(int code)
{
    const auto drawing =
        std::ranges::find(PaneDrawings, static_cast<PaneView>(code), &PaneDrawing::View);
    return drawing == std::end(PaneDrawings) ? nullptr : drawing;
}

std::span<const int> PanesOf(const ReportPreferences& of)
{
    const int most = static_cast<int>(of.Pane.size());
    const bool isKnown = of.NumPanes >= 1 && of.NumPanes <= most;
    return std::span(of.Pane).first(isKnown ? static_cast<std::size_t>(of.NumPanes) : 0);
}

void DrawPane(Device& on, const PaneBox& pane, const PaneDrawing* drawing, const ReportSource& of)
{
    const bool hasRoom = pane.Inside.Width() > 0 && pane.Inside.Height() > 0;
    if (!drawing || !drawing->Draw || !hasRoom)
        return;
    if (drawing->NeedsAnalysis && !of.Document.OutputViewsExist())
        return;
    const clsClipScope clip(on, pane.Inside);
    drawing->Draw(on, pane, of);
}

void DrawPageGrid(Device& on, const ReportPage& page)
{
    const clsPenScope pen(on, {});
    const clsBrushScope hollow(on, std::nullopt);
    const auto [left, top, right, bottom] = page.Box;
    on.DrawPolygon(std::array{DevicePoint{left, top}, DevicePoint{right, top},
        DevicePoint{right, bottom}, DevicePoint{left, bottom}});
    for (const auto& [from, to] : page.InnerLines)
        on.DrawPolyline(std::array{from, to});
}

} // namespace

bool HasEmptyPanes(const ReportSource& Of)
{
    return !Of.Document.OutputViewsExist()
        && std::ranges::any_of(PanesOf(Of.Chosen.Report), [](int code) {
               const PaneDrawing* const drawing = DrawingOf(code);
               return drawing && drawing->NeedsAnalysis;
           });
}

void DrawReport(Device& On, const ReportSource& Of)
{
    const clsFontScope font(On, DeviceFont(On, {"Times New Roman", 14}));
    const ReportPreferences& chosen = Of.Chosen.Report;
    const ReportPage page = LayOutPage(On.Figures(), On.MeasureText({}).Height, chosen.NumPanes);
    On.DrawText(page.Title, "Morvane Test Report", {TextAcross::Center, TextDown::Top}, Black);
    if (chosen.DrawPageGrid)
        DrawPageGrid(On, page);
    for (std::size_t i = 0; i < page.Panes.size(); ++i) {
        const DeviceRect& pane = page.Panes[i];
        DrawPane(On, {pane, page.Inside(pane), page.Gap}, DrawingOf(chosen.Pane[i]), Of);
    }
}

} // namespace morvane
