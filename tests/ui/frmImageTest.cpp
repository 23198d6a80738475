#include "interferogram/frmImage.h"

#include <gtest/gtest.h>

#include <QMdiArea>
#include <QScreen>
#include <QScrollBar>

#include "Desk.h"
#include "interferogram/qt/ImageCanvas.h"

namespace morvane::test {
namespace {

class frmImageWindow : public testing::Test, public Desk {
protected:
    static QScrollBar& Bar(clsDocument& Of, const char* Name)
    {
        return *Window(Of).findChild<QScrollBar*>(Name);
    }
    static frmImage& Window(clsDocument& Of) { return *dynamic_cast<frmImage*>(Of.ImageView()); }
    // What the window shows of an image pixel: its middle, in physical pixels.
    static QColor Shown(clsDocument& Of, double X, double Y)
    {
        const auto* canvas = dynamic_cast<ImageCanvas*>(Window(Of).widget());
        const QImage client = canvas->viewport()->grab().toImage();
        const double zoom = client.devicePixelRatio();
        return client.pixelColor(
            static_cast<int>((X + 0.5) * zoom), static_cast<int>((Y + 0.5) * zoom));
    }
};

TEST_F(frmImageWindow, FitsASmallPictureAndBlackensTheRest)
{
    clsDocument& document = Open(120, 100);
    EXPECT_FALSE(Bar(document, "hsbImage").isEnabled());
    EXPECT_FALSE(Bar(document, "vsbImage").isEnabled());
    EXPECT_EQ(Shown(document, 60, 50), QColor(128, 0, 0)) << "in red";
    Window(document).resize(300, 300);
    EXPECT_EQ(Shown(document, 150, 50), QColor(Qt::black));
    EXPECT_EQ(Shown(document, 60, 150), QColor(Qt::black));
}

TEST_F(frmImageWindow, ScrollsAPictureLargerThanTheFrame)
{
    clsDocument& document = Open(3000, 2000);
    const QMdiArea& area = *Frame.findChild<QMdiArea*>();
    EXPECT_TRUE(area.rect().contains(Window(document).geometry()));
    QScrollBar &across = Bar(document, "hsbImage"), &down = Bar(document, "vsbImage");
    EXPECT_EQ(across.maximum() + across.pageStep(), 3000);
    EXPECT_EQ(down.maximum() + down.pageStep(), 2000);
    int index = document.Fringes.AddOrder(2); // yellow
    document.Fringes.AddCenter(2, {1000, 1000}, index);
    across.setValue(990);
    down.setValue(980);
    EXPECT_EQ(Shown(document, 10, 20), QColor(255, 255, 0));
}

TEST_F(frmImageWindow, DrawsTheOverlaysAfterARepaint)
{
    clsDocument& document = Open(120, 100);
    const QColor bare = Shown(document, 60, 20);
    document.Aperture.Save(
        ShapeKind::Circle, std::array{Point{20, 50}, Point{60, 20}, Point{100, 50}, Point{60, 80}});
    int index = document.Fringes.AddOrder(4); // magenta
    document.Fringes.AddCenter(4, {60, 50}, index);
    EXPECT_EQ(Shown(document, 60, 20), bare);
    document.ImageView()->Repaint();
    EXPECT_EQ(Shown(document, 20, 50), QColor(Qt::white));
    EXPECT_EQ(Shown(document, 60, 20), QColor(Qt::white));
    for (const int arm : {-3, 0, 2}) {
        EXPECT_EQ(Shown(document, 60 + arm, 50), QColor(255, 0, 255)) << arm;
        EXPECT_EQ(Shown(document, 60, 50 + arm), QColor(255, 0, 255)) << arm;
    }
    EXPECT_EQ(Shown(document, 64, 50), bare);
}

TEST_F(frmImageWindow, ShowsTheButtonFaceWithoutAPicture)
{
    clsDocument& document = Open(120, 100);
    document.LoadBlankImage(NoSize, NoSize);
    document.ImageView_Refresh();
    EXPECT_EQ(Shown(document, 60, 50), Frame.palette().color(QPalette::Button));
}

TEST_F(frmImageWindow, CloseBoxClosesTheDocument)
{
    clsDocument& first = Open();
    clsDocument& second = OpenAnalyzed();
    Window(second).close();
    EXPECT_EQ(Session.NumOpenDocuments(), 2) << "not inside the window's own event";
    Settle();
    EXPECT_EQ(Session.NumOpenDocuments(), 1);
    EXPECT_EQ(Session.Active(), &first);
    EXPECT_EQ(Frame.findChild<QMdiArea*>()->subWindowList().size(), 1);
}

TEST_F(frmImageWindow, CloseBoxAsksOnceForAModifiedDocument)
{
    clsDocument& document = Open();
    document.Modified = true;
    User.Answers = {MessageAnswer::Cancel};
    for (int time = 0; time < 2; ++time)
        Window(document).close();
    Settle();
    EXPECT_EQ(User.Messages.size(), 1u);
    EXPECT_EQ(Session.NumOpenDocuments(), 1);
    User.Answers = {MessageAnswer::No};
    Window(document).close();
    Settle();
    EXPECT_EQ(Session.NumOpenDocuments(), 0);
}

TEST_F(frmImageWindow, GivenPlaceStaysWhateverThePictureAndTheState)
{
    clsDocument& document = Open(120, 100);
    const WindowPlace given{30, 40, 260, 210};
    document.ImageView()->SetPlace(given);
    document.ImageView()->ResizeWindow();
    EXPECT_EQ(document.ImageView()->GetPlace(), given);
    Window(document).showMaximized();
    Settle();
    EXPECT_EQ(document.ImageView()->GetPlace(), given) << "maximised";
    Window(document).showMinimized();
    Settle();
    EXPECT_EQ(document.ImageView()->GetPlace(), given) << "minimised";
    Window(document).showNormal();
    Settle();
    EXPECT_EQ(document.ImageView()->GetPlace(), given) << "normal again";
    Window(document).resize(300, 250);
    EXPECT_EQ(document.ImageView()->GetPlace(), (WindowPlace{30, 40, 300, 250}));
}

TEST_F(frmImageWindow, PlaceFromAFileTakesNoMoreThanTheDesktop)
{
    clsDocument& document = Open(120, 100);
    document.ImageView()->SetPlace({-32767, 32767, 32767, 32767});
    Settle();
    const QSize desktop = Frame.screen()->virtualSize();
    EXPECT_LE(Window(document).width(), desktop.width());
    EXPECT_LE(Window(document).height(), desktop.height());
}

// Each window that goes brings the next of the same document to the front.
TEST_F(frmImageWindow, ClosingTheOnlyDocumentLeavesNoneActive)
{
    clsDocument& document = OpenAnalyzed();
    document.View(ViewType::Aberrations)->Show(Activation::TakeFocus);
    Session.CloseDocument(document);
    EXPECT_EQ(Session.ActiveDocument(), 0);
}

TEST_F(frmImageWindow, ActivationFromOutsideMakesItsDocumentTheActiveOne)
{
    clsDocument& first = OpenAnalyzed();
    clsDocument& second = Open();
    EXPECT_EQ(Session.Active(), &second);
    EXPECT_FALSE(Find<QAction>("mnuViewAberrations").isEnabled());
    first.ImageView()->Show(Activation::TakeFocus);
    Settle();
    EXPECT_EQ(Session.Active(), &first);
    EXPECT_TRUE(Find<QAction>("mnuViewAberrations").isEnabled());
    EXPECT_TRUE(first.Visible.Aberrations);
}

} // namespace
} // namespace morvane::test
