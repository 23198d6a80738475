// Every gesture on an interferogram, by the events of a real window.
#include <gtest/gtest.h>

#include <malloc.h>

#include <QLabel>
#include <QMouseEvent>
#include <QPixmapCache>
#include <QScrollBar>
#include <QWheelEvent>
#include <cmath>
#include <random>

#include "Desk.h"
#include "interferogram/frmImage.h"
#include "interferogram/qt/ImageCanvas.h"

namespace morvane::test {
namespace {

constexpr Qt::KeyboardModifiers NoKeys = Qt::NoModifier, Shift = Qt::ShiftModifier,
                                Ctrl = Qt::ControlModifier, Both = Shift | Ctrl;

class Gestures : public testing::Test, public Desk {
protected:
    // A picture of noise, so that no two places look the same.
    clsDocument& OpenNoise(int Width, int Height)
    {
        ImageBuffer image;
        image.Size = {Width, Height};
        std::mt19937 random(7);
        for (int i = 0; i < Width * Height; ++i) // low bits differ, high ones stay dark
            Pixels.push_back(static_cast<std::uint8_t>(random() % 200));
        image.Pixels = Pixels;
        const std::string path = Folder.filePath("noise.bmp").toStdString();
        WriteWholeFile(path, BmpFromBuffer(image));
        Session.OpenFiles({path}, true);
        Settle();
        return *Session.Active();
    }
    clsDocument& Document() { return *Session.Active(); }
    frmImage& Window() { return *dynamic_cast<frmImage*>(Document().ImageView()); }
    ImageCanvas& Canvas() { return *dynamic_cast<ImageCanvas*>(Window().widget()); }
    double Zoom() { return Canvas().ZoomPercent() / 100.0; }
    Point Origin()
    {
        return {double(Canvas().horizontalScrollBar()->value()),
            double(Canvas().verticalScrollBar()->value())};
    }
    QPointF ToClient(Point Image)
    {
        return QPointF(Image.X - Origin().X, Image.Y - Origin().Y) * Zoom();
    }
    void SendMouse(QEvent::Type Type, QPointF At, Qt::MouseButton Button, Qt::MouseButtons Held,
        Qt::KeyboardModifiers Keys)
    {
        QWidget* const viewport = Canvas().viewport();
        QMouseEvent event(Type, At, viewport->mapToGlobal(At), Button, Held, Keys);
        QCoreApplication::sendEvent(viewport, &event);
    }
    void Press(Point At, Qt::KeyboardModifiers Keys = NoKeys)
    {
        SendMouse(QEvent::MouseButtonPress, ToClient(At), Qt::LeftButton, Qt::LeftButton, Keys);
    }
    void Move(Point To, Qt::KeyboardModifiers Keys = NoKeys)
    {
        SendMouse(QEvent::MouseMove, ToClient(To), Qt::NoButton, Qt::LeftButton, Keys);
    }
    void Release(Point At, Qt::KeyboardModifiers Keys = NoKeys)
    {
        SendMouse(QEvent::MouseButtonRelease, ToClient(At), Qt::LeftButton, Qt::NoButton, Keys);
    }
    void Click(Point At, Qt::KeyboardModifiers Keys = NoKeys)
    {
        Press(At, Keys);
        Release(At, Keys);
    }
    void Drag(Point From, std::initializer_list<Point> To, Qt::KeyboardModifiers Keys = NoKeys)
    {
        Press(From, Keys);
        for (const Point& at : To)
            Move(at, Keys);
        Release(*(To.end() - 1), Keys);
    }
    void Key(QEvent::Type Type, int Code, Qt::KeyboardModifiers Keys = NoKeys)
    {
        QKeyEvent event(Type, Code, Keys);
        QCoreApplication::sendEvent(&Canvas(), &event);
    }
    void Space(Qt::KeyboardModifiers Keys = NoKeys)
    {
        Key(QEvent::KeyPress, Qt::Key_Space, Keys);
        Key(QEvent::KeyRelease, Qt::Key_Space, Keys);
    }
    QImage Shown() { return Canvas().viewport()->grab().toImage(); }
    // What is on the screen is what a full repaint would show.
    bool IsCurrent()
    {
        const QImage shown = Shown();
        Canvas().Repaint();
        return shown == Shown();
    }
    int NumTicks(int Order)
    {
        int index = NoFringe;
        return Document().Fringes.GetNumTicks(Order, index);
    }
    Point Tick(int Order, int Number)
    {
        int index = NoFringe;
        return Document().Fringes.GetCenter(Order, Number, index);
    }
    void AddTick(int Order, Point At)
    {
        int index = Document().Fringes.GetFringeIndex(Order);
        if (index == NoFringe)
            index = Document().Fringes.AddOrder(Order);
        Document().Fringes.AddCenter(Order, At, index);
        Canvas().Repaint();
    }
    void SetGrid(double X1, double Y1, double X2, double Y2)
    {
        clsGrid& grid = Document().Grid;
        grid.PhysicalWidth = 100;
        grid.CellWidth = grid.CellHeight = 20;
        grid.SetBounds(X1, Y1, X2, Y2);
        Canvas().Repaint();
    }

    std::vector<std::uint8_t> Pixels;
};

TEST_F(Gestures, DrawFiguresByClicks)
{
    Open(300, 260);
    const struct {
        ShapeKind Kind;
        std::vector<Point> Clicks;
    } cases[] = {
        {ShapeKind::Circle, {{40, 100}, {100, 40}, {160, 100}, {100, 160}}},
        {ShapeKind::Ellipse, {{60, 60}, {200, 140}, {120, 130}}},
        {ShapeKind::Polygon, {{50, 50}, {200, 60}, {180, 200}, {60, 180}, {52, 48}}},
    };
    for (const ShapeRole role : {ShapeRole::Aperture, ShapeRole::Obstruction})
        for (const auto& c : cases) {
            clsShape& shape =
                role == ShapeRole::Aperture ? Document().Aperture : Document().Obstruction;
            Session.Tools.SetKind(role, c.Kind);
            Session.AddShape(role);
            for (const Point& at : c.Clicks) {
                EXPECT_EQ(shape.GetShapeType(), ShapeKind::None);
                Click(at);
            }
            EXPECT_EQ(shape.GetShapeType(), c.Kind);
            EXPECT_TRUE(IsCurrent());
            Session.ClearShape(role);
            EXPECT_EQ(shape.GetShapeType(), ShapeKind::None);
        }
    EXPECT_EQ(Document().Fringes.NumFringes(), 0) << "no click became a tick";
}

TEST_F(Gestures, DrawTheGridByTwoCorners)
{
    Open(300, 260);
    Document().Grid.PhysicalWidth = 100;
    Document().Grid.CellWidth = Document().Grid.CellHeight = 20;
    Window().Tools().StartGrid();
    Click({240, 210});
    Click({40, 10});
    EXPECT_EQ(Document().Grid.GetVertex(0), (Point{40, 10}));
    EXPECT_EQ(Document().Grid.CellCountX, 5);
    EXPECT_EQ(Document().Grid.CellCountY, 5);
    EXPECT_TRUE(Document().Modified);
    EXPECT_TRUE(IsCurrent());
}

TEST_F(Gestures, PlaceMoveAndDeleteCenters)
{
    Open(300, 260);
    Click({50, 60});
    Click({80, 60});
    EXPECT_EQ(NumTicks(1), 2);
    Session.SelectOrder(7);
    Click({120, 90});
    EXPECT_EQ(NumTicks(7), 1);

    Drag({51, 61}, {{55, 80}, {71, 91}});
    EXPECT_EQ(Tick(1, 1), (Point{70, 90})) << "moved by the step of the mouse";
    Drag({70, 90}, {{75, 60}}, Both);
    EXPECT_EQ(Tick(1, 1), (Point{70, 60})) << "up and down only";
    Click({71, 61}, Shift);
    EXPECT_EQ(Session.Tools.CurrentOrder(), 1);
    EXPECT_EQ(NumTicks(1), 2) << "selecting moves nothing";
    Click({80, 60}, Ctrl);
    EXPECT_EQ(NumTicks(1), 1);
    Drag({120, 90}, {{100, 50}, {60, -20}});
    EXPECT_EQ(NumTicks(7), 0) << "dragged off the picture";
    EXPECT_TRUE(IsCurrent());
}

// The second press of two quick clicks comes as an event of its own.
TEST_F(Gestures, QuickClicksAllCount)
{
    Open(300, 260);
    Click({50, 60});
    SendMouse(
        QEvent::MouseButtonDblClick, ToClient({80, 60}), Qt::LeftButton, Qt::LeftButton, NoKeys);
    Release({80, 60});
    EXPECT_EQ(NumTicks(1), 2);
}

TEST_F(Gestures, KeysRunThroughTheOrders)
{
    Open(300, 260);
    Space();
    Space();
    EXPECT_EQ(Session.Tools.CurrentOrder(), 3);
    Space(Shift);
    EXPECT_EQ(Session.Tools.CurrentOrder(), 2);
    Space(Ctrl);
    EXPECT_EQ(Session.Tools.CurrentOrder(), 2);
    QKeyEvent repeated(QEvent::KeyRelease, Qt::Key_Space, NoKeys, " ", true);
    QCoreApplication::sendEvent(&Canvas(), &repeated);
    EXPECT_EQ(Session.Tools.CurrentOrder(), 2) << "held down";
}

TEST_F(Gestures, KeysInTheMiddleOfADragChangeWhatItDoes)
{
    Open(300, 260);
    const std::array ellipse{Point{50, 100}, Point{250, 100}, Point{150, 60}};
    Document().Aperture.Save(ShapeKind::Ellipse, ellipse);
    Canvas().Repaint();
    Press({250, 100});
    Move({260, 110});
    EXPECT_EQ(Document().Aperture.GetCenter(), (Point{160, 110}));
    Move({260, 110}, Shift);
    Move({280, 110}, Shift);
    EXPECT_NEAR(Document().Aperture.GetRadii().X, 110, 1e-9);
    EXPECT_NEAR(Document().Aperture.GetCenter().X, 170, 1e-9) << "the far side stays";
    Move({280, 110}, Ctrl);
    Move({170, 0}, Ctrl);
    EXPECT_NEAR(std::abs(Document().Aperture.GetAngle()), Pi / 2, 1e-9);
    Move({170, 0}, Both);
    Move({190, 5}, Both);
    EXPECT_NEAR(Document().Aperture.GetCenter().X, 190, 1e-9);
    EXPECT_NEAR(Document().Aperture.GetCenter().Y, 110, 1e-9) << "left and right only";
    EXPECT_TRUE(IsCurrent()) << "within the drag";
    Release({190, 5}, Both);
    EXPECT_TRUE(IsCurrent());
    EXPECT_FALSE(Document().AnalysisValid);
}

// Of each kind of object: one point on it, and where it goes.
struct Dragged {
    const char* Name;
    Point From;
    Qt::KeyboardModifiers Keys;
};
constexpr Point CircleSide{150, 90}, PolygonCorner{190, 150}, PolygonEdge{225, 150};

class DragsAtEveryZoom : public Gestures {
protected:
    void DrawAll()
    {
        clsDocument& document = Document();
        document.Fringes.DeleteAll();
        document.Aperture.Save(ShapeKind::Circle,
            std::array{Point{50, 90}, Point{100, 40}, CircleSide, Point{100, 140}});
        document.Obstruction.Save(ShapeKind::Polygon,
            std::array{PolygonCorner, Point{260, 150}, Point{250, 220}, Point{200, 210}});
        SetGrid(20, 160, 120, 240);
        AddTick(3, {200, 60});
        for (double x = 60; x < 280; x += 7)
            AddTick(2, {x, 20 + x / 2}); // across all of them
    }
};

TEST_F(DragsAtEveryZoom, LeaveNoTrace)
{
    OpenNoise(300, 260);
    const Dragged drags[] = {{"circle moved", CircleSide, NoKeys},
        {"circle resized", CircleSide, Shift}, {"corner moved", PolygonCorner, NoKeys},
        {"polygon moved", PolygonEdge, NoKeys}, {"polygon resized", PolygonCorner, Shift},
        {"polygon turned", PolygonEdge, Ctrl}, {"tick moved", {200, 60}, NoKeys},
        {"grid moved", {20, 200}, NoKeys}, {"grid resized", {20, 160}, Shift}};
    for (const int percent : ZoomLevels)
        for (const Dragged& drag : drags) {
            DrawAll();
            SCOPED_TRACE(std::string(drag.Name) + " at " + std::to_string(percent));
            Session.SetZoom(percent);
            Canvas().horizontalScrollBar()->setValue(
                int(drag.From.X - Canvas().viewport()->width() / 2 / Zoom()));
            Canvas().verticalScrollBar()->setValue(
                int(drag.From.Y - Canvas().viewport()->height() / 2 / Zoom()));
            const std::string before = Document().DataText();
            Press(drag.From, drag.Keys);
            Shown();
            for (const Point step : {Point{3, 2}, Point{9, -4}, Point{-5, 11}})
                Move({drag.From.X + step.X, drag.From.Y + step.Y}, drag.Keys);
            EXPECT_FALSE(Document().DataText() == before) << "nothing has moved";
            EXPECT_TRUE(IsCurrent()) << "within the drag";
            Release(drag.From, drag.Keys);
            EXPECT_TRUE(IsCurrent()) << "after it";
        }
}

TEST_F(Gestures, ZoomLevelsMapPixelsAsTold)
{
    clsDocument& document = OpenNoise(900, 700);
    const std::array<Color, 256> palette = BuildDisplayPalette(
        Session.Prefs.RedDisplay, Session.Prefs.AutoStretch, document.Image().Pixels);
    std::mt19937 random(11);
    for (const int percent : ZoomLevels) {
        Session.SetZoom(percent);
        const double num = percent * Canvas().devicePixelRatioF();
        for (int scroll = 0; scroll < 6; ++scroll) {
            for (QScrollBar* bar : {Canvas().horizontalScrollBar(), Canvas().verticalScrollBar()})
                bar->setValue(int(random() % unsigned(bar->maximum() + 1)));
            EXPECT_TRUE(IsCurrent());
            const QImage shown = Shown();
            for (int probe = 0; probe < 200 && num >= 100; ++probe) { // below, means of several
                const int x = int(random() % unsigned(shown.width()));
                const int y = int(random() % unsigned(shown.height()));
                // Whole levels show a pixel on so many of the screen; one and a half by the
                // nearest.
                const double column = Origin().X + std::floor((x + 0.5) * 100 / num);
                const double row = Origin().Y + std::floor((y + 0.5) * 100 / num);
                if (column >= 899 || row >= 699)
                    continue;
                const Color want = palette[Pixels[std::size_t(row * 900 + column)]];
                ASSERT_EQ(shown.pixelColor(x, y), QColor(want.Red, want.Green, want.Blue))
                    << percent << "% at " << x << ", " << y;
            }
        }
    }
}

TEST_F(Gestures, PanScrollsByTheStepOfTheMouseWithinThePicture)
{
    OpenNoise(1200, 900);
    Session.SetEditMode(false);
    for (const int percent : {300, 150, 100, 75}) {
        Session.SetZoom(percent);
        Canvas().horizontalScrollBar()->setValue(100);
        Canvas().verticalScrollBar()->setValue(90);
        const Point origin = Origin();
        const QPointF start(200, 150);
        SendMouse(QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton, NoKeys);
        SendMouse(QEvent::MouseMove, start - QPointF(30, 12), Qt::NoButton, Qt::LeftButton, NoKeys);
        EXPECT_NEAR(Origin().X, origin.X + 30 / Zoom(), 0.5) << percent;
        EXPECT_NEAR(Origin().Y, origin.Y + 12 / Zoom(), 0.5) << percent;
        SendMouse(QEvent::MouseMove, QPointF(9000, 9000), Qt::NoButton, Qt::LeftButton, NoKeys);
        EXPECT_EQ(Origin(), (Point{0, 0}));
        EXPECT_TRUE(IsCurrent());
        SendMouse(QEvent::MouseButtonRelease, start, Qt::LeftButton, Qt::NoButton, NoKeys);
    }
}

TEST_F(Gestures, ZoomByClicksAndWheelKeepsThePointInTheMiddle)
{
    OpenNoise(900, 700);
    Session.SetZoom(100);
    Session.SetEditMode(false);
    const auto middle = [this] {
        const QSize client = Canvas().viewport()->size();
        return Point{
            Origin().X + client.width() / 2 / Zoom(), Origin().Y + client.height() / 2 / Zoom()};
    };
    const Point target{450, 360};
    Click(target, Shift);
    EXPECT_EQ(Canvas().ZoomPercent(), 150);
    EXPECT_NEAR(middle().X, target.X, 1);
    EXPECT_NEAR(middle().Y, target.Y, 1);
    Click(target, Ctrl);
    EXPECT_EQ(Canvas().ZoomPercent(), 100);
    const QPointF at = ToClient(target);
    QWheelEvent turn(at, Canvas().viewport()->mapToGlobal(at), {}, {0, 120}, Qt::NoButton, Ctrl,
        Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(Canvas().viewport(), &turn);
    EXPECT_EQ(Canvas().ZoomPercent(), 150);
    EXPECT_NEAR(middle().X, target.X, 1);
    for (const int percent : {1600, 25}) {
        Session.SetZoom(percent);
        Click({1, 1}, percent == 1600 ? Shift : Ctrl);
        EXPECT_EQ(Canvas().ZoomPercent(), percent) << "the end of the list";
    }
}

TEST_F(Gestures, SurviveTheWindowsEnd)
{
    for (const bool drawing : {false, true}) {
        Open(300, 260);
        AddTick(1, {50, 60});
        if (drawing)
            Session.AddShape(ShapeRole::Aperture);
        Press(drawing ? Point{90, 90} : Point{50, 60});
        Move({70, 70});
        Session.CloseDocument(Document());
        Settle();
        EXPECT_EQ(Session.NumOpenDocuments(), 0);
        clsDocument& next = Open(300, 260);
        Click({80, 80});
        EXPECT_EQ(next.Fringes.TotalNumTicks(), 1);
        EXPECT_EQ(Session.Tools.Controls(), ToolControls{}) << "nothing is being drawn any more";
        Session.CloseDocument(next);
    }
}

TEST_F(Gestures, SurviveWindowsWithoutRoom)
{
    Open(300, 260);
    AddTick(1, {50, 60});
    for (const QSize size : {QSize(1, 1), QSize(30, 20), QSize(0, 400)}) {
        Window().resize(size);
        Settle();
        Drag({50, 60}, {{60, 70}, {50, 60}});
        Click({10, 10}, Shift);
        Session.SetZoom(25);
        Shown();
        Session.SetZoom(1600);
        Shown();
    }
    Window().showMinimized();
    Settle();
    Session.SetZoom(100);
    Window().showNormal();
    Window().resize(400, 360);
    Settle();
    EXPECT_EQ(Tick(1, 1), (Point{50, 60}));
    EXPECT_TRUE(IsCurrent());
}

// A message, or a menu, may take the release: the next move without the button ends the drag.
TEST_F(Gestures, ALostReleaseEndsTheDragAtTheNextMove)
{
    Open(300, 260);
    AddTick(1, {50, 60});
    Press({50, 60});
    Move({70, 60});
    SendMouse(QEvent::MouseMove, ToClient({150, 150}), Qt::NoButton, Qt::NoButton, NoKeys);
    EXPECT_EQ(Tick(1, 1), (Point{70, 60}));
    Click({200, 200});
    EXPECT_EQ(NumTicks(1), 2) << "the click after it counts";
    Session.SetEditMode(false);
    Session.SetZoom(1600);
    SendMouse(QEvent::MouseButtonPress, {90, 90}, Qt::LeftButton, Qt::LeftButton, NoKeys);
    const Point origin = Origin();
    SendMouse(QEvent::MouseMove, {10, 10}, Qt::NoButton, Qt::NoButton, NoKeys);
    EXPECT_EQ(Origin(), origin);
}

TEST_F(Gestures, TracingEndsADragOfWhatWasThere)
{
    OpenAnalyzed();
    Press({25, 50});
    Session.TraceFringes(FringeDirection::Vertical);
    const std::string traced = Document().DataText();
    Move({60, 90});
    Release({60, 90});
    EXPECT_TRUE(Document().DataText() == traced);
}

TEST_F(Gestures, HintsFollowWhatIsUnderTheMouse)
{
    Open(300, 260);
    AddTick(1, {50, 60});
    const auto hint = [this] { return Find<QLabel>("panel1").text(); };
    const auto hover = [this](Point at, Qt::KeyboardModifiers keys = NoKeys) {
        SendMouse(QEvent::MouseMove, ToClient(at), Qt::NoButton, Qt::NoButton, keys);
    };
    hover({50, 60});
    EXPECT_TRUE(hint().startsWith("Drag mouse to move fringe center.")) << hint().toStdString();
    hover({50, 60}, Ctrl);
    EXPECT_EQ(hint(), "Click to clear fringe order.");
    Click({50, 60}, Ctrl);
    EXPECT_EQ(hint(), "Click to add a fringe center.");
    Session.SetEditMode(false);
    hover({50, 60}, Shift);
    EXPECT_EQ(hint(), "Click to zoom in, centered on mouse position.");
    hover({50, 60});
    EXPECT_TRUE(hint().startsWith("Drag mouse to pan image.")) << "the key went up elsewhere";
}

TEST_F(Gestures, EachInterferogramShowsTheCurrentOrderWhenItComesToTheFront)
{
    clsDocument& first = Open(300, 260);
    AddTick(1, {50, 60});
    const auto color = [this] {
        const double density = Canvas().devicePixelRatioF();
        return Shown().pixelColor(int(50.5 * density), int(60.5 * density));
    };
    EXPECT_EQ(color(), QColor(Qt::white));
    Open(300, 260);
    Session.SelectOrder(3);
    Session.BringToFront(first);
    Settle();
    EXPECT_EQ(color(), QColor(255, 0, 255));
}

TEST_F(Gestures, EscapeGivesUpADrawing)
{
    Open(300, 260);
    Session.AddShape(ShapeRole::Aperture);
    Click({40, 100});
    Key(QEvent::KeyPress, Qt::Key_Escape);
    EXPECT_EQ(Session.Tools.Controls(), ToolControls{});
    Click({80, 100});
    EXPECT_EQ(Document().Fringes.TotalNumTicks(), 1) << "a tick again, and not those of the figure";
}

TEST_F(Gestures, AWindowBelowItsViewsComesUpWhenItIsPressedOrAskedFor)
{
    OpenAnalyzed();
    QWidget& view = *dynamic_cast<QWidget*>(Document().View(ViewType::Aberrations));
    const auto isOnTop = [&] {
        const QObjectList& stack = view.parentWidget()->children();
        return stack.indexOf(&Window()) > stack.indexOf(&view);
    };
    ASSERT_FALSE(isOnTop());
    Press({5, 5});
    Release({5, 5});
    EXPECT_TRUE(isOnTop());
    view.raise();
    Session.BringToFront(Document());
    EXPECT_TRUE(isOnTop());
}

TEST_F(Gestures, AnotherPictureEndsTheDrag)
{
    Open(300, 260);
    AddTick(1, {50, 60});
    Press({50, 60});
    Move({60, 60});
    Session.ReplacePicture(Document(), WritePicture(200, 150), true);
    Move({150, 140});
    Release({150, 140});
    EXPECT_EQ(Document().Fringes.TotalNumTicks(), 0);
    EXPECT_TRUE(IsCurrent());
}

#if !defined(__SANITIZE_ADDRESS__) // which has an allocator, and a check for leaks, of its own
TEST_F(Gestures, WindowsOpenedAndClosedLeaveNothingBehind)
{
    const std::string path = WritePicture(300, 260);
    const auto openAndClose = [&] {
        Session.OpenFiles({path}, true);
        Settle();
        AddTick(1, {50, 60});
        Drag({50, 60}, {{60, 70}, {50, 60}});
        Shown();
        Document().Modified = false;
        Session.CloseDocument(Document());
        Settle();
        QPixmapCache::clear(); // Qt keeps icons there, up to a limit
    };
    for (int i = 0; i < 20; ++i)
        openAndClose();
    const std::size_t before = mallinfo2().uordblks;
    for (int i = 0; i < 100; ++i)
        openAndClose();
    // Qt itself keeps about a kilobyte of every window that was shown; a picture here has 78.
    EXPECT_LT(mallinfo2().uordblks, before + 100 * 4096) << "bytes in use";
    EXPECT_EQ(Frame.findChildren<frmImage*>().size(), 0);
}
#endif

} // namespace
} // namespace morvane::test
