// The commands of the main window as the operator meets them: menus, tool bar, zoom box, status bar
// and the menu over a picture.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QDesktopServices>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QSet>
#include <QTextBrowser>
#include <QToolBar>

#include "Desk.h"
#include "interferogram/ZoomLevels.h"
#include "shell/qt/WindowPlaces.h"

namespace morvane::test {
namespace {

class frmMainBars : public testing::Test, public Desk {
protected:
    bool Checked(const char* Action) { return Find<QAction>(Action).isChecked(); }
    std::string Panel(int Number)
    {
        return Find<QLabel>(("panel" + std::to_string(Number)).c_str()).text().toStdString();
    }
    QWidget& Canvas()
    {
        auto& front = *Frame.findChild<QMdiArea*>()->activeSubWindow();
        return *qobject_cast<QAbstractScrollArea*>(front.widget())->viewport();
    }
    void MoveMouse(QPoint To)
    {
        QMouseEvent move(QEvent::MouseMove, To, Canvas().mapToGlobal(To), Qt::NoButton,
            Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&Canvas(), &move);
    }
};

QStringList TreeOf(const QMenu& Menu)
{
    QStringList tree{Menu.objectName() + " " + Menu.title()};
    for (const QAction* action : Menu.actions())
        tree += action->isSeparator() ? "-" : action->objectName() + " " + action->text();
    return tree;
}

TEST_F(frmMainBars, MenusHaveTheirNamesAndCaptions)
{
    QStringList tree;
    for (const QAction* top : Frame.menuBar()->actions())
        tree += TreeOf(*top->menu());
    tree += TreeOf(Find<QMenu>("mnuPopupFringe"));
    EXPECT_EQ(tree.join("\n").toStdString(), R"(mnuFile &File
mnuFileOpen &Open...
mnuFileClose &Close
-
mnuFileSave &Save
mnuFileSaveAs Save &As...
mnuFileExportMap Export &Map...
mnuFileExportZernikes Export &Zernikes...
-
mnuFilePageSetup Page Set&up...
mnuFilePrint &Print...
-
mnuFilePreferences P&references...
-
mnuFileMRU 
mnuFileMRU 
mnuFileMRU 
mnuFileMRU 
-
mnuFileExit E&xit
mnuEdit &Edit
mnuEditCopy &Copy
-
mnuEditUserData User &Data...
mnuEditClearFringes Clea&r Fringes
mnuEditProperties &Properties...
mnuView &View
mnuViewToolbar &Toolbar
mnuViewStatusBar Status Ba&r
mnuViewToolBox Toolbo&x
mnuViewAnalyzeBox &Analyze
mnuViewGridAnalyzeBox Analyze &Grid
mnuViewAverageBox A&verage
mnuViewRefZernike Reference Zernikes
mnuViewMathBox Math
-
mnuViewSurfacePlot &Surface Plot
mnuViewContourPlot &Contour Plot
mnuViewLineProfile &Line Profile
mnuViewSFringe Synthetic &Finges
mnuViewAberrations A&berrations
mnuViewZernikes &Zernikes
mnuViewGridResults Gr&id Results
mnuProcess &Process
mnuProcessGrabImage &Grab Image
mnuProcessGrabberProps Grabber Properties
mnuProcessAdjustAspectRatio A&djust Aspect Ratio
mnuProcessTraceV Trace &Vertically
mnuProcessTraceH Trace &Horizontally
mnuProcessAnalyzeFringes &Analyze Fringes
mnuProcessAddAverage Add To Ave&rage
mnuWindow &Window
mnuWindowCascade &Cascade
mnuWindowTileHorizontal Tile &Horizontal
mnuWindowTileVertical Tile &Vertical
mnuWindowArrangeIcons &Arrange Icons
mnuHelp &Help
mnuHelpContents &Contents
-
mnuHelpAbout &About Morvane...
mnuPopupFringe 
mnuPopupFringe_DeleteCenter Delete Fringe Center
mnuPopupFringe_IncreaseOrder Increase Current Order
mnuPopupFringe_DecreaseOrder Decrease Current Order
-
mnuPopupFringe_Insert Insert Fringe Order
mnuPopupFringe_Delete Delete Current Order
mnuPopupFringe_Renumber Renumber Fringes
-
mnuPopupFringe_AddAperture Add Aperture
mnuPopupFringe_ClearAperture Clear Aperture
mnuPopupFringe_AddObstruction Add Obstruction
mnuPopupFringe_ClearObstruction Clear Obstruction
-
mnuPopupFringe_TraceV Trace Vertically
mnuPopupFringe_TraceH Trace Horizontally
mnuPopupFringe_Analyze Analyze Fringes
mnuPopupFringe_AddAverage Add To Average)");
}

TEST_F(frmMainBars, ButtonsStandAtTheirPlacesAndFit)
{
    const QToolBar& bar = Find<QToolBar>("tbToolbar");
    const std::pair<int, const char*> places[] = {{2, "mnuFileOpen"}, {4, "Print"},
        {7, "mnuViewToolBox"}, {12, "mnuViewMathBox"}, {14, "mnuViewSurfacePlot"},
        {20, "mnuViewGridResults"}, {22, "mnuProcessGrabImage"}, {25, "mnuProcessTraceH"},
        {26, "mnuProcessTraceV"}, {28, "HandTool"}, {29, "EditTool"}, {30, "SetZoom"},
        {31, "ZoomIn"}, {32, "ZoomOut"}};
    for (const auto& [index, name] : places)
        EXPECT_EQ(bar.actions().at(index - 2)->objectName(), name) << index;
    for (const QAction* action : bar.actions()) {
        const bool isButton = !action->isSeparator() && action->objectName() != "SetZoom";
        EXPECT_EQ(!action->icon().isNull(), isButton) << action->objectName().toStdString();
    }
    EXPECT_TRUE(Find<QAction>("mnuFileOpen").toolTip().endsWith("(Ctrl+O)"));
    EXPECT_LE(bar.sizeHint().width(), 1280);
}

TEST_F(frmMainBars, NoTwoCommandsShareAKey)
{
    QSet<QKeySequence> seen;
    for (const QAction* action : Frame.findChildren<QAction*>())
        for (const QKeySequence& keys : action->shortcuts()) {
            EXPECT_FALSE(seen.contains(keys)) << keys.toString().toStdString();
            seen.insert(keys);
        }
    EXPECT_GE(seen.size(), 30);
}

TEST_F(frmMainBars, ZoomBoxAndButtonsGoThroughAllLevels)
{
    const clsDocument& document = Open();
    QComboBox& box = Find<QComboBox>("cboZoom");
    ASSERT_EQ(box.count(), int(ZoomLevels.size()));
    EXPECT_EQ(box.currentText(), "100%");
    const auto expectLevel = [&](int index, const char* by) {
        EXPECT_EQ(document.ImageView()->ZoomPercent(), ZoomLevels[std::size_t(index)]) << by;
        EXPECT_EQ(box.currentText(), QString("%1%").arg(ZoomLevels[std::size_t(index)])) << by;
    };
    for (int index = 5; index >= -1; --index) {
        Trigger("ZoomIn");
        expectLevel(std::max(index, 0), "in");
    }
    for (int index = 1; index <= box.count(); ++index) {
        Trigger("ZoomOut");
        expectLevel(std::min(index, box.count() - 1), "out");
    }
    for (int index = 0; index < box.count(); ++index) {
        box.setFocus();
        box.setCurrentIndex(index);
        emit box.activated(index);
        expectLevel(index, "box");
        EXPECT_FALSE(box.hasFocus()) << "the keys are the picture's again";
    }
    QTest::keyClick(&Frame, Qt::Key_0, Qt::ControlModifier);
    expectLevel(6, "key");
}

TEST_F(frmMainBars, ZoomFollowsTheDocumentInFront)
{
    clsDocument& first = Open();
    Trigger("ZoomIn");
    Open();
    EXPECT_EQ(Find<QComboBox>("cboZoom").currentText(), "100%");
    Session.BringToFront(first);
    EXPECT_EQ(Find<QComboBox>("cboZoom").currentText(), "150%");
}

TEST_F(frmMainBars, HandAndEditAreUpWhileATextIsActive)
{
    clsDocument& document = OpenAnalyzed();
    const auto expect = [&](bool enabled, bool hand, bool edit, const char* when) {
        for (const char* name : {"HandTool", "EditTool", "SetZoom"})
            EXPECT_EQ(Find<QAction>(name).isEnabled(), enabled) << name << when;
        EXPECT_EQ(Checked("HandTool"), hand) << when;
        EXPECT_EQ(Checked("EditTool"), edit) << when;
    };
    expect(true, false, true, " at first");
    for (int time = 0; time < 2; ++time) {
        Trigger("HandTool");
        expect(true, true, false, " after the hand");
        EXPECT_FALSE(document.ImageView()->Tools().EditMode());
    }
    document.View(ViewType::Aberrations)->Show(Activation::TakeFocus);
    expect(false, false, false, " in front of the text");
    Session.BringToFront(document);
    expect(true, true, false, " back on the picture");
    Open();
    expect(true, true, false, " on a new picture, as on the last");
    Trigger("mnuViewToolbar");
    Open();
    expect(true, false, true, " on a new picture, without a tool bar");
    QTest::keyClick(&Frame, Qt::Key_F2);
    expect(true, true, false, " by its key, without a tool bar");
}

TEST_F(frmMainBars, ViewItemsToggleTheirFlags)
{
    clsDocument& document = OpenAnalyzed();
    const std::pair<const char*, bool PerView<bool>::*> views[] = {
        {"mnuViewLineProfile", &PerView<bool>::LineProfile},
        {"mnuViewAberrations", &PerView<bool>::Aberrations},
        {"mnuViewZernikes", &PerView<bool>::Zernikes},
        {"mnuViewGridResults", &PerView<bool>::GridResults}};
    for (const auto& [name, flag] : views)
        for (int time = 0; time < 2; ++time) {
            PerView<bool> expected = document.Visible;
            expected.*flag = !(expected.*flag);
            Trigger(name);
            EXPECT_EQ(document.Visible, expected) << name;
            EXPECT_EQ(Checked(name), expected.*flag) << name;
        }
}

// They have no window yet.
TEST_F(frmMainBars, ViewItemsWithoutAWindowSaySo)
{
    clsDocument& document = OpenAnalyzed();
    const PerView<bool> before = document.Visible;
    for (const char* name : {"mnuViewSurfacePlot", "mnuViewContourPlot", "mnuViewSFringe"}) {
        EXPECT_FALSE(Checked(name)) << name;
        Trigger(name);
        EXPECT_FALSE(Checked(name)) << name;
        EXPECT_EQ(Panel(1), "This view is not available yet.");
    }
    EXPECT_EQ(document.Visible, before);
}

TEST_F(frmMainBars, PanelsTellOfThePictureInFront)
{
    clsDocument& document = OpenAnalyzed();
    EXPECT_EQ(Panel(1), "Click to add a fringe center.") << "before the mouse has moved";
    EXPECT_EQ(Panel(2), "120x100");
    MoveMouse({2, 3});
    const std::string at = Panel(3);
    EXPECT_EQ(at.front(), '(');
    EXPECT_EQ(Panel(4), "i: 128");
    Frame.UpdateMainFrame();
    EXPECT_EQ(Panel(3), at) << "contents change in the middle of a drag";
    Trigger("ZoomIn");
    EXPECT_EQ(Panel(3) + Panel(4), "");
    MoveMouse({2, 3});
    document.View(ViewType::Aberrations)->Show(Activation::TakeFocus);
    EXPECT_EQ(Panel(1) + Panel(3) + Panel(4), "");
    EXPECT_EQ(Panel(2), "120x100");
    Trigger("mnuFileClose");
    EXPECT_EQ(Panel(1) + Panel(2) + Panel(3) + Panel(4), "");
}

TEST_F(frmMainBars, PanelsKeepTheirPlaces)
{
    Frame.resize(700, 400);
    Open();
    Settle();
    const QRect before = Find<QLabel>("panel3").geometry();
    Frame.ShowHint(std::string(500, 'w'));
    Frame.ShowPosition("(10000 ,10000)", "i: 255");
    Settle();
    EXPECT_EQ(Find<QLabel>("panel3").geometry(), before);
    EXPECT_EQ(Frame.width(), 700);
}

TEST_F(frmMainBars, CommandsWithoutATargetSaySo)
{
    OpenAnalyzed();
    for (const char* name : {"mnuEditProperties", "mnuProcessAddAverage"}) {
        Frame.ShowHint("");
        EXPECT_TRUE(Find<QAction>(name).isEnabled()) << name;
        Trigger(name);
        EXPECT_TRUE(Panel(1).ends_with("not available yet.")) << name;
    }
    for (const char* name : {"mnuFilePreferences", "mnuViewAverageBox", "mnuViewGridAnalyzeBox",
             "mnuViewRefZernike", "mnuViewMathBox"})
        EXPECT_FALSE(Find<QAction>(name).isEnabled()) << name;
}

TEST_F(frmMainBars, BoxFollowsItsCommandAndItsCloseBox)
{
    QWidget& box = *Frame.findChild<frmAnalyze*>();
    EXPECT_TRUE(box.isVisible());
    const QPoint place(140, 90);
    box.move(place);
    Trigger("mnuViewAnalyzeBox");
    EXPECT_FALSE(box.isVisible());
    QTest::keyClick(&Frame, Qt::Key_2, Qt::ControlModifier);
    EXPECT_TRUE(box.isVisible());
    EXPECT_EQ(box.pos(), place);
    box.close();
    EXPECT_FALSE(Checked("mnuViewAnalyzeBox"));
}

TEST(WindowPlaces, AnalysisComesUpWholeOnALowScreen)
{
    const QRect screen(0, 0, 1280, 720);
    const QRect box(PlaceOfAnalysis({0, 94, 1280, 600}, {306, 622}, screen), QSize(306, 622));
    EXPECT_TRUE(screen.contains(box));
}

class frmMainPopup : public frmMainBars {
protected:
    // The menu as a right click at the place opens it.
    QMenu& OpenPopup(QPoint At)
    {
        QTest::mousePress(&Canvas(), Qt::RightButton, Qt::NoModifier, At);
        return Find<QMenu>("mnuPopupFringe");
    }
    void Choose(QPoint At, const char* Item)
    {
        QMenu& menu = OpenPopup(At);
        EXPECT_TRUE(menu.isVisible());
        EXPECT_TRUE(Session.Tools.PopupActive);
        menu.setActiveAction(&Find<QAction>(Item));
        QTest::keyClick(&menu, Qt::Key_Return);
        Settle();
        EXPECT_FALSE(menu.isVisible());
        EXPECT_FALSE(Session.Tools.PopupActive);
    }
};

TEST_F(frmMainPopup, ShowsWhatTheObjectAllows)
{
    clsDocument& document = OpenAnalyzed();
    const auto enabled = [&](const char* item) { return Find<QAction>(item).isEnabled(); };
    OpenPopup({2, 2});
    EXPECT_EQ(Find<QAction>("mnuPopupFringe_AddAperture").text(), "Add Circular Aperture");
    EXPECT_EQ(Find<QAction>("mnuPopupFringe_AddObstruction").text(), "Add Circular Obstruction");
    EXPECT_TRUE(enabled("mnuPopupFringe_AddAperture"));
    EXPECT_FALSE(enabled("mnuPopupFringe_DeleteCenter"));
    EXPECT_FALSE(enabled("mnuPopupFringe_ClearAperture"));
    EXPECT_TRUE(enabled("mnuPopupFringe_AddAverage")) << "with results";
    Find<QMenu>("mnuPopupFringe").hide();
    EXPECT_FALSE(Session.Tools.PopupActive) << "given up";
    const Point center = document.Aperture.GetCenter(), radii = document.Aperture.GetRadii();
    OpenPopup({int(center.X - radii.X), int(center.Y)});
    EXPECT_TRUE(enabled("mnuPopupFringe_ClearAperture"));
    EXPECT_FALSE(enabled("mnuPopupFringe_AddAperture"));
}

TEST_F(frmMainPopup, ItemsReachTheSession)
{
    clsDocument& document = OpenAnalyzed();
    const int fringes = document.Fringes.NumFringes();
    const QPoint free(2, 2);
    Choose(free, "mnuPopupFringe_IncreaseOrder");
    EXPECT_EQ(Session.Tools.CurrentOrder(), 2);
    Choose(free, "mnuPopupFringe_DecreaseOrder");
    Choose(free, "mnuPopupFringe_DecreaseOrder");
    EXPECT_EQ(Session.Tools.CurrentOrder(), 1) << "there is none before";

    const int ticks = document.Fringes.TotalNumTicks();
    Choose({25, 50}, "mnuPopupFringe_DeleteCenter");
    EXPECT_EQ(document.Fringes.TotalNumTicks(), ticks - 1);
    Choose(free, "mnuPopupFringe_Insert");
    EXPECT_EQ(document.Fringes.GetFringeIndex(1), NoFringe) << "room for a fringe";
    Choose(free, "mnuPopupFringe_Delete");
    EXPECT_EQ(document.Fringes.NumFringes(), fringes);
    Choose(free, "mnuPopupFringe_AddObstruction");
    EXPECT_EQ(document.ImageView()->Tools().Target(), DrawTarget::Obstruction);
    EXPECT_EQ(Panel(1), "Click 4 points to define a circle.");
    Choose(free, "mnuPopupFringe_AddAverage");
    EXPECT_EQ(Panel(1), "Averaging is not available yet.");
    Choose(free, "mnuPopupFringe_TraceV");
    EXPECT_EQ(document.Fringes.TotalNumTicks(), 0) << "a flat picture has no fringes";
    Choose(free, "mnuPopupFringe_Analyze");
    ASSERT_FALSE(User.Messages.empty());
    EXPECT_EQ(User.Messages.back().Text, "No fringe centers to analyze");
}

TEST_F(frmMainBars, ClearFringesDeletesThemAll)
{
    const clsDocument& document = OpenAnalyzed();
    ASSERT_GT(document.Fringes.TotalNumTicks(), 0);
    User.Answers = {MessageAnswer::Yes};
    Trigger("mnuEditClearFringes");
    EXPECT_EQ(document.Fringes.TotalNumTicks(), 0);
}

TEST_F(frmMainBars, MinimisedWindowsAreLinedUp)
{
    for (int i = 0; i < 4; ++i)
        Open();
    QMdiArea& area = *Frame.findChild<QMdiArea*>();
    for (QMdiSubWindow* window : area.subWindowList()) {
        window->showMinimized();
        window->move(50, 40);
    }
    Trigger("mnuWindowArrangeIcons");
    QRegion covered;
    for (const QMdiSubWindow* window : area.subWindowList()) {
        EXPECT_FALSE(covered.intersects(window->geometry()));
        EXPECT_TRUE(area.viewport()->rect().contains(window->geometry()));
        covered += window->geometry();
    }
    EXPECT_EQ(covered.boundingRect().bottomLeft(), area.viewport()->rect().bottomLeft());
}

TEST_F(frmMainBars, HelpOpensThePageBesideTheProgram)
{
    QTextBrowser reader;
    QDesktopServices::setUrlHandler("file", &reader, "setSource");
    QTest::keyClick(&Frame, Qt::Key_F1);
    QDesktopServices::unsetUrlHandler("file");
    EXPECT_TRUE(reader.source().path().endsWith("/help/index.html"));
    EXPECT_TRUE(reader.toPlainText().contains("All shortcuts"));
    EXPECT_TRUE(User.Messages.empty());
}

} // namespace
} // namespace morvane::test
