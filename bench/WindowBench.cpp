// The interferogram's window under the hand: each figure is one event with all that it brings to
// the screen, on a picture of 4096 x 4096 with 100,000 ticks, against one blit of the client area.
#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTemporaryDir>
#include <cmath>

#include <benchmark/benchmark.h>

#include "analysis/ModMathLib.h"
#include "bench/BenchApplication.h"
#include "bench/BenchPicture.h"
#include "document/Dib.h"
#include "interferogram/frmImage.h"
#include "interferogram/qt/ImageCanvas.h"
#include "platform/File.h"
#include "shell/frmMain.h"
#include "shell/qt/Screens.h"
#include "views/frmLineProfile.h"

namespace morvane {
namespace {

constexpr int NumFringes = 100, TicksEach = 1000;

class SilentUser final : public MessageAnswerer {
public:
    MessageAnswer Answer(const Message&) override { return MessageAnswer::No; }
};

// The program as it runs, with its window open off screen.
class Workbench {
public:
    Workbench()
    {
        m_session.ReadSettings(m_settings, Screens(), "");
        m_frame.Attach(m_session, m_settings);
        m_frame.resize(1280, 800);
        m_frame.show();
        QApplication::processEvents();
        const BenchPicture& picture = LargePicture();
        const std::string path = m_folder.filePath("large.bmp").toStdString();
        WriteWholeFile(path, BmpFromBuffer({picture.Pixels, picture.Size}));
        m_session.OpenFiles({path}, true);
        DrawOn(picture);
        Window().showMaximized();
        QApplication::processEvents();
    }

    clsDocument& Document() { return *m_session.Active(); }
    frmImage& Window() { return *dynamic_cast<frmImage*>(Document().ImageView()); }
    ImageCanvas& Canvas() { return *dynamic_cast<ImageCanvas*>(Window().widget()); }
    QSize Client() { return Canvas().viewport()->size(); }

    void SetZoom(int Percent)
    {
        m_session.SetZoom(Percent);
        Show();
    }
    void Mouse(QEvent::Type Type, QPointF At, Qt::MouseButtons Buttons)
    {
        const Qt::MouseButton button = Type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QWidget* const viewport = Canvas().viewport();
        QMouseEvent event(Type, At, viewport->mapToGlobal(At), button, Buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(viewport, &event);
    }
    // What is due to be painted, at once.
    void Show()
    {
        QEvent update(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(&m_frame, &update);
    }
    void SetEditMode(bool Edit) { m_session.SetEditMode(Edit); }
    // The line profile of the picture, of 1000 points in 800 by 600 pixels.
    frmLineProfile& Profile()
    {
        clsDocument& document = Document();
        if (!document.OutputViewsExist()) {
            m_session.Prefs.LineSize = 1000;
            m_session.AnalyzeFringes();
            document.Visible.LineProfile = true;
            document.OutputViews_UpdateVisibility(Activation::LeaveFocus);
        }
        auto& window = dynamic_cast<frmLineProfile&>(*document.View(ViewType::LineProfile));
        QApplication::processEvents();
        window.Raise();
        window.resize(window.size() + QSize(800, 600) - CanvasOf(window).size());
        QApplication::processEvents();
        return window;
    }
    static QWidget& CanvasOf(frmLineProfile& Window)
    {
        return *Window.findChild<QWidget*>("picProfile");
    }

private:
    void DrawOn(const BenchPicture& picture)
    {
        clsDocument& document = Document();
        document.Aperture = picture.Aperture;
        const double width = picture.Size.Width, height = picture.Size.Height;
        for (int order = 1; order <= NumFringes; ++order) {
            int index = document.Fringes.AddOrder(order);
            for (int i = 0; i < TicksEach; ++i)
                document.Fringes.AddCenter(order,
                    {(order - 0.5) * width / NumFringes, (i + 0.5) * height / TicksEach}, index);
        }
        document.ImageView()->Repaint();
    }

    QTemporaryDir m_folder;
    SettingsStore m_settings{m_folder.filePath("settings.ini").toStdString()};
    SilentUser m_user;
    frmMain m_frame;
    Session m_session{m_user, m_frame};
};

// Made once and never ended: the application has no place to end it from.
Workbench& Bench()
{
    static Workbench* const bench = [] {
        HaveApplication();
        return new Workbench;
    }();
    return *bench;
}

void blitClient(benchmark::State& state)
{
    const QSize client = Bench().Client();
    const QImage source(client, QImage::Format_RGB32);
    QImage target(client, QImage::Format_RGB32);
    while (state.KeepRunning()) {
        QPainter(&target).drawImage(0, 0, source);
        benchmark::DoNotOptimize(target.bits());
    }
}

void panAt(benchmark::State& state, int percent)
{
    Workbench& bench = Bench();
    bench.SetZoom(percent);
    bench.SetEditMode(false);
    QScrollBar& down = *bench.Canvas().verticalScrollBar();
    down.setValue(down.maximum() / 2);
    const QPointF middle(bench.Client().width() / 2, bench.Client().height() / 2);
    bench.Mouse(QEvent::MouseButtonPress, middle, Qt::LeftButton);
    const int before = down.value();
    int step = 0;
    while (state.KeepRunning()) {
        step = (step + 16) % 128;
        bench.Mouse(QEvent::MouseMove, middle - QPointF(step, step), Qt::LeftButton);
        bench.Show();
    }
    bench.Mouse(QEvent::MouseMove, middle - QPointF(32, 32), Qt::LeftButton);
    if (down.value() == before)
        state.SkipWithError("the picture has not moved");
    bench.Mouse(QEvent::MouseButtonRelease, middle, Qt::NoButton);
}

void pan25(benchmark::State& state)
{
    panAt(state, 25);
}
void pan100(benchmark::State& state)
{
    panAt(state, 100);
}
void pan150(benchmark::State& state)
{
    panAt(state, 150);
}

void scroll(benchmark::State& state)
{
    Workbench& bench = Bench();
    bench.SetZoom(75);
    QScrollBar& down = *bench.Canvas().verticalScrollBar();
    int at = 1000;
    while (state.KeepRunning()) {
        at = at == 1000 ? 1016 : 1000;
        down.setValue(at);
        bench.Show();
    }
}

// There and back, each the longer way: the smallest picture is made anew each time.
void zoom(benchmark::State& state)
{
    Workbench& bench = Bench();
    int percent = 25;
    while (state.KeepRunning()) {
        percent = percent == 25 ? 50 : 25;
        bench.SetZoom(percent);
    }
}

void hover(benchmark::State& state)
{
    Workbench& bench = Bench();
    bench.SetZoom(100);
    bench.SetEditMode(true);
    double at = 100;
    while (state.KeepRunning()) {
        at = at > 600 ? 100 : at + 7;
        bench.Mouse(QEvent::MouseMove, {at, at / 2}, Qt::NoButton);
        bench.Show();
    }
}

// Drags what lies at an image position to and fro; Moved tells where it is.
template <typename Position>
void drag(benchmark::State& state, int percent, Point image, Position moved)
{
    Workbench& bench = Bench();
    bench.SetZoom(percent);
    bench.SetEditMode(true);
    QScrollBar &across = *bench.Canvas().horizontalScrollBar(),
               &down = *bench.Canvas().verticalScrollBar();
    across.setValue(std::lround(image.X - bench.Client().width() * 50.0 / percent));
    down.setValue(std::lround(image.Y - bench.Client().height() * 50.0 / percent));
    bench.Show();
    const QPointF start(
        (image.X - across.value()) * percent / 100, (image.Y - down.value()) * percent / 100);
    const Point before = moved();
    bench.Mouse(QEvent::MouseButtonPress, start, Qt::LeftButton);
    bench.Show();
    int step = 0;
    while (state.KeepRunning()) {
        step = (step + 3) % 60;
        bench.Mouse(QEvent::MouseMove, start + QPointF(step, step), Qt::LeftButton);
        bench.Show();
    }
    bench.Mouse(QEvent::MouseMove, start + QPointF(30, 30), Qt::LeftButton);
    if (moved() == before)
        state.SkipWithError("nothing was dragged");
    bench.Mouse(QEvent::MouseMove, start, Qt::LeftButton);
    bench.Mouse(QEvent::MouseButtonRelease, start, Qt::NoButton);
}

void dragTick(benchmark::State& state)
{
    const auto tick = [] {
        int index = 50;
        return Bench().Document().Fringes.GetCenter(50, 500, index);
    };
    drag(state, 100, tick(), tick);
}

void dragShape(benchmark::State& state)
{
    const auto center = [] { return Bench().Document().Aperture.GetCenter(); };
    const Point at = center(), radii = Bench().Document().Aperture.GetRadii();
    const double along = std::sqrt(0.5); // between two fringes
    drag(state, 25, {at.X + radii.X * along, at.Y - radii.Y * along}, center);
}

void turnProfile(benchmark::State& state)
{
    frmLineProfile& window = Bench().Profile();
    QScrollBar& angle = *window.findChild<QScrollBar*>("hsbLine");
    if (Workbench::CanvasOf(window).size() != QSize(800, 600))
        state.SkipWithError("the plot has another size");
    while (state.KeepRunning()) {
        angle.setValue((angle.value() + 1) % 360);
        Bench().Show();
    }
    if (Bench().Document().LineProfileAngle != angle.value())
        state.SkipWithError("the profile has not turned");
}

void repaintProfile(benchmark::State& state)
{
    QWidget& canvas = Workbench::CanvasOf(Bench().Profile());
    while (state.KeepRunning())
        canvas.repaint();
}

BENCHMARK(turnProfile)->Name("ProfileStep/ours");
BENCHMARK(repaintProfile)->Name("ProfileStep/reference");
BENCHMARK(pan25)->Name("PanStep25/ours");
BENCHMARK(blitClient)->Name("PanStep25/reference");
BENCHMARK(pan100)->Name("PanStep100/ours");
BENCHMARK(blitClient)->Name("PanStep100/reference");
BENCHMARK(pan150)->Name("PanStep150/ours");
BENCHMARK(blitClient)->Name("PanStep150/reference");
BENCHMARK(scroll)->Name("ScrollStep/ours");
BENCHMARK(blitClient)->Name("ScrollStep/reference");
BENCHMARK(zoom)->Name("ZoomStep/ours");
BENCHMARK(blitClient)->Name("ZoomStep/reference");
BENCHMARK(hover)->Name("HoverMove/ours");
BENCHMARK(blitClient)->Name("HoverMove/reference");
BENCHMARK(dragTick)->Name("DragTick/ours");
BENCHMARK(blitClient)->Name("DragTick/reference");
BENCHMARK(dragShape)->Name("DragShape/ours");
BENCHMARK(blitClient)->Name("DragShape/reference");

} // namespace
} // namespace morvane
