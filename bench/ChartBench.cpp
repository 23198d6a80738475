// A line profile of 1000 points, drawn anew in a window of 800 x 600, against a bare painter that
// draws the same lines and texts; what those are is recorded from the chart itself.
#include <QImage>
#include <QPainter>
#include <cmath>
#include <numbers>

#include <benchmark/benchmark.h>

#include "bench/BenchApplication.h"
#include "platform/qt/QtDevice.h"
#include "tests/RecordingDevice.h"
#include "views/clsLineProfile.h"

namespace morvane {
namespace {

constexpr int Width = 800, Height = 600, NumPoints = 1000;

clsLineProfile waves()
{
    std::vector<double> x, y;
    for (int i = 0; i < NumPoints; ++i) {
        x.push_back(-1 + 2.0 * i / (NumPoints - 1));
        y.push_back(0.3 * std::sin(3 * std::numbers::pi * x.back()) + 0.02 * std::sin(200.0 * i));
    }
    clsLineProfile plot;
    ChartAxis& across = plot.Chart.Axes[BottomAxis];
    across.SetMinMax(-1, 1, -1);
    across.AutoScaleMajor(-1, 1, 0);
    across.AutoScaleMinor();
    plot.PopulateTrace(plot.CreateTrace(NumPoints), x, y);
    plot.AutoScale(LeftAxis);
    plot.Chart.SetTitle(BottomAxis, "Profile along 45 degs");
    plot.Chart.SetTitle(LeftAxis, "Waves");
    across.CreateTickLabels();
    plot.Chart.Axes[LeftAxis].CreateTickLabels();
    return plot;
}

QImage client()
{
    return QImage(Width, Height, QImage::Format_RGB32);
}

void repaintChart(benchmark::State& state)
{
    HaveApplication();
    clsLineProfile plot = waves();
    QImage image = client();
    {
        QtDevice device(image);
        plot.Chart.CreateChartLimits(device, {0, 0, Width - 1, Height});
    }
    while (state.KeepRunning()) {
        QtDevice device(image);
        device.FillRectangle(device.Bounds(), White);
        plot.PlotRedraw(device);
        benchmark::DoNotOptimize(image.bits());
    }
    if (image == client())
        state.SkipWithError("nothing was drawn");
}

// One line or text, in the painter's own terms.
struct Primitive {
    QPolygon Line;
    bool IsClipped = false;
    QString Text;
    QFont Font;
    QPoint At;
    int Degrees = 0;
};

std::vector<Primitive> primitivesOf(clsLineProfile& plot)
{
    QImage image = client();
    QtDevice device(image);
    plot.Chart.CreateChartLimits(device, {0, 0, Width - 1, Height});
    RecordingDevice recorder;
    plot.PlotRedraw(recorder);
    std::vector<Primitive> primitives;
    for (const DeviceCall& call : recorder.Calls) {
        Primitive& made = primitives.emplace_back();
        made.IsClipped = call.Clip == plot.Chart.PlotArea();
        for (const DevicePoint& point : call.Points)
            made.Line.append({point.X, point.Y});
        if (call.What == DeviceCall::Kind::Polygon)
            made.Line.append(made.Line.front());
        if (call.What != DeviceCall::Kind::Text)
            continue;
        made.Text = QString::fromStdString(call.Text);
        made.Font = QFont(QString::fromStdString(call.In.FaceName));
        made.Font.setPixelSize(call.In.Height);
        made.At = {call.Points[0].X, call.Points[0].Y};
        made.Degrees = call.In.Rotation == TextRotation::Up ? -90 : 0;
    }
    return primitives;
}

void draw(QPainter& painter, const Primitive& what)
{
    if (what.Text.isEmpty()) {
        painter.drawPolyline(what.Line);
        return;
    }
    painter.setFont(what.Font);
    painter.translate(what.At);
    painter.rotate(what.Degrees);
    painter.drawText(0, 0, what.Text);
    painter.resetTransform();
}

void repaintBare(benchmark::State& state)
{
    HaveApplication();
    clsLineProfile plot = waves();
    const std::vector<Primitive> primitives = primitivesOf(plot);
    const DeviceRect area = plot.Chart.PlotArea();
    QImage image = client();
    while (state.KeepRunning()) {
        QPainter painter(&image);
        painter.fillRect(image.rect(), Qt::white);
        painter.setPen(QPen(Qt::black, 1, Qt::SolidLine, Qt::FlatCap));
        for (const Primitive& primitive : primitives) {
            if (primitive.IsClipped)
                painter.setClipRect(area.Left, area.Top, area.Width(), area.Height());
            draw(painter, primitive);
        }
        benchmark::DoNotOptimize(image.bits());
    }
}

BENCHMARK(repaintChart)->Name("ChartRepaint/ours");
BENCHMARK(repaintBare)->Name("ChartRepaint/reference");

} // namespace
} // namespace morvane
