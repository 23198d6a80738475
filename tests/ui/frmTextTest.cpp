#include "views/frmText.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QDropEvent>
#include <QMdiArea>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>

#include "Desk.h"
#include "document/DocumentTexts.h"

namespace morvane::test {
namespace {

class frmTextView : public testing::Test, public Desk {
protected:
    clsDocument& Document = OpenAnalyzed();
    frmText& Window = Find<frmText>("frmAberrations");
    const Preferences& Main() const { return Session.Prefs; }
    QPlainTextEdit& Box = *Window.findChild<QPlainTextEdit*>("txtOutput");
};

TEST_F(frmTextView, NothingCanBeTyped)
{
    const QString before = Box.toPlainText();
    ASSERT_TRUE(before.startsWith("Output Units: Waves\n\nRMS\t"));
    Box.setFocus();
    Box.selectAll();
    for (const Qt::Key key :
        {Qt::Key_X, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Space})
        QTest::keyClick(&Box, key);
    for (const Qt::Key key : {Qt::Key_X, Qt::Key_V, Qt::Key_Z})
        QTest::keyClick(&Box, key, Qt::ControlModifier);
    EXPECT_EQ(Box.toPlainText(), before);
    EXPECT_TRUE(Box.textCursor().hasSelection());
}

TEST_F(frmTextView, KeysSelectAndCopy)
{
    QTest::keyClick(&Box, Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(&Box, Qt::Key_End, Qt::ShiftModifier);
    QTest::keyClick(&Box, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "Output Units: Waves");
}

TEST_F(frmTextView, WithoutASelectionTheKeyCopiesAll)
{
    Window.Show(Activation::TakeFocus);
    Box.setFocus();
    Settle();
    QTest::keyClick(&Box, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), Box.toPlainText());
}

TEST_F(frmTextView, OnlySelectingCopyingAndHelpKeysReachTheBox)
{
    const struct {
        const char* Name;
        Qt::Key Key;
        Qt::KeyboardModifiers With;
        bool Selects;
    } cases[] = {
        {"line down", Qt::Key_Down, Qt::ShiftModifier, true},
        {"word", Qt::Key_Right, Qt::ShiftModifier | Qt::ControlModifier, true},
        {"page", Qt::Key_PageDown, Qt::ShiftModifier, true},
        {"to the end", Qt::Key_End, Qt::ShiftModifier | Qt::ControlModifier, true},
        {"all", Qt::Key_A, Qt::ControlModifier, false},
        {"letter", Qt::Key_C, Qt::ShiftModifier, false},
    };
    for (const auto& c : cases) {
        Box.moveCursor(QTextCursor::Start);
        QTest::keyClick(&Box, c.Key, c.With);
        EXPECT_EQ(Box.textCursor().hasSelection(), c.Selects) << c.Name;
    }
}

TEST_F(frmTextView, NothingCanBeDropped)
{
    QMimeData text;
    text.setText("dropped");
    for (QWidget* const target : {static_cast<QWidget*>(&Box), Box.viewport()}) {
        QDragEnterEvent enter(
            QPoint(20, 20), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &enter);
        QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &drop);
    }
    EXPECT_FALSE(Box.toPlainText().contains("dropped"));
}

TEST_F(frmTextView, TheCommandCopiesWhatIsSelectedOrAll)
{
    Window.Activated();
    Trigger("mnuEditCopy");
    EXPECT_EQ(QApplication::clipboard()->text(), Box.toPlainText());
    QTextCursor cursor = Box.textCursor();
    cursor.movePosition(QTextCursor::Down, QTextCursor::KeepAnchor, 3);
    Box.setTextCursor(cursor);
    Trigger("mnuEditCopy");
    EXPECT_EQ(QApplication::clipboard()->text(),
        "Output Units: Waves\n\nRMS\t"
            + Box.document()->findBlockByNumber(2).text().section('\t', 1) + "\n");
    Session.BringToFront(Document);
    Session.ActivateDocument(Document, ViewType::Interferogram);
    QApplication::clipboard()->setText("kept");
    Trigger("mnuEditCopy");
    EXPECT_EQ(QApplication::clipboard()->text(), "kept");
}

TEST_F(frmTextView, EachKindTakesTheScreenFontAndFillsItsWindow)
{
    Document.ScreenText = {.FaceName = "Liberation Serif",
        .Size = 14,
        .Ink = {200, 10, 20},
        .Bold = true,
        .Italic = true,
        .Underline = true};
    Document.AnalysisValid = false;
    Session.AnalyzeFringes();
    const std::pair<const char*, int> kinds[] = {{"frmAberrations", AberrationsTabStops[0]},
        {"frmZernikes", ZernikesTabStops[0]},
        {"frmGridResults", GridResultsTabStops(Document.Grid)[0]}};
    for (const auto& [name, stop] : kinds) {
        auto& window = Find<frmText>(name);
        const auto& box = *window.findChild<QPlainTextEdit*>("txtOutput");
        EXPECT_EQ(box.font().family(), "Liberation Serif") << name;
        EXPECT_EQ(box.font().pointSize(), 14) << name;
        EXPECT_TRUE(box.font().bold() && box.font().italic() && box.font().underline()) << name;
        EXPECT_EQ(box.palette().color(QPalette::Text), QColor(200, 10, 20)) << name;
        const QList<QTextOption::Tab> tabs = box.document()->defaultTextOption().tabs();
        const double character = QFontMetricsF(box.font()).averageCharWidth();
        EXPECT_NEAR(tabs[0].position / character * 4, stop, 0.1) << name;
        window.Show(Activation::TakeFocus);
        window.resize(430, 300);
        Settle();
        EXPECT_EQ(box.geometry(), window.contentsRect()) << name;
    }
}

TEST_F(frmTextView, ShowsTheWholeTextInItsColumns)
{
    EXPECT_FALSE(Box.horizontalScrollBar()->isVisible());
    EXPECT_FALSE(Box.verticalScrollBar()->isVisible());
    // The first stop is at 60 quarters of a character, that is after 15.
    const QTextBlock rms = Box.document()->findBlockByNumber(2);
    const double column = rms.layout()->lineAt(0).cursorToX(4);
    const double character = QFontMetricsF(Box.font()).averageCharWidth();
    EXPECT_NEAR(column - Box.document()->documentMargin(), 15 * character, 1.0);
}

TEST_F(frmTextView, CloseBoxHidesItUntilTheMenuShowsItAgain)
{
    QAction& command = Find<QAction>("mnuViewAberrations");
    EXPECT_TRUE(command.isChecked());
    Window.close();
    Settle();
    EXPECT_FALSE(Window.isVisible());
    EXPECT_FALSE(Document.Visible.Aberrations);
    EXPECT_FALSE(command.isChecked());
    EXPECT_EQ(Frame.findChild<QMdiArea*>()->activeSubWindow()->objectName(), "frmImage");
    Trigger("mnuViewAberrations");
    EXPECT_TRUE(Window.isVisible());
    EXPECT_TRUE(Document.Visible.Aberrations);
    EXPECT_EQ(Document.ActiveView, ViewType::Aberrations);
}

TEST_F(frmTextView, IsFoundWhereTheUserPutItInTheNextDocument)
{
    const QRect first = Window.geometry();
    EXPECT_NE(Window.GetPlace(), DefaultPlaces(Screens()).Aberrations);
    Window.setGeometry(20, 30, 260, 240);
    Open();
    clsDocument& next = OpenAnalyzed();
    EXPECT_EQ(next.View(ViewType::Aberrations)->GetPlace(), (WindowPlace{20, 30, 260, 240}));
    EXPECT_NE(first, QRect(20, 30, 260, 240));
}

// Else a maximised view of one picture would come back over the views of all others.
TEST_F(frmTextView, OfTheCommonSetStandsInItsPlaceWhateverItsStateWas)
{
    for (const Qt::WindowState state :
        {Qt::WindowNoState, Qt::WindowMaximized, Qt::WindowMinimized}) {
        Window.setGeometry(20, 30, 260, 240);
        Window.setWindowState(state);
        Settle();
        OpenAnalyzed();
        EXPECT_FALSE(Window.isVisible());
        QMdiArea& area = *Frame.findChild<QMdiArea*>();
        area.setActiveSubWindow(dynamic_cast<QMdiSubWindow*>(Document.ImageView()));
        Settle();
        EXPECT_TRUE(Window.isVisible());
        EXPECT_EQ(Window.windowState() & (Qt::WindowMaximized | Qt::WindowMinimized), 0);
        EXPECT_EQ(Window.geometry(), QRect(20, 30, 260, 240));
        EXPECT_EQ(area.activeSubWindow(), dynamic_cast<QMdiSubWindow*>(Document.ImageView()));
        Session.Active()->View(ViewType::Aberrations)->Show(Activation::TakeFocus);
        Window.setWindowState(state); // and away from it by the other road
        area.setActiveSubWindow(dynamic_cast<QMdiSubWindow*>(Session.Document(2)->ImageView()));
        Settle();
        EXPECT_EQ(
            area.activeSubWindow(), dynamic_cast<QMdiSubWindow*>(Session.Document(2)->ImageView()));
        area.setActiveSubWindow(dynamic_cast<QMdiSubWindow*>(Document.ImageView()));
    }
}

TEST_F(frmTextView, KeepsNoPlaceThatNobodyChose)
{
    EXPECT_FALSE(Main().IsArranged(ViewType::Aberrations));
    const WindowPlace narrow = Window.GetPlace();
    Frame.resize(1200, 800);
    Settle();
    EXPECT_GT(OpenAnalyzed().View(ViewType::Aberrations)->GetPlace().Left, narrow.Left);
    Window.move(40, 50);
    EXPECT_FALSE(Main().IsArranged(ViewType::Aberrations)) << "it is hidden";
    dynamic_cast<QMdiSubWindow&>(*Session.Active()->ImageView()).move(2000, 20);
    Settle();
    QScrollBar& bar = *Frame.findChild<QMdiArea*>()->horizontalScrollBar();
    bar.setValue(bar.maximum());
    Settle();
    EXPECT_GT(bar.value(), 0);
    EXPECT_FALSE(Main().IsArranged(ViewType::Aberrations)) << "the area was scrolled";
    bar.setValue(0);
    auto& shown = dynamic_cast<frmText&>(*Session.Active()->View(ViewType::Aberrations));
    shown.move(40, 50);
    EXPECT_TRUE(Main().IsArranged(ViewType::Aberrations));
    EXPECT_EQ(Main().Places.Aberrations.Left, 40);
}

TEST(frmTextViews, OfTheirOwnForEachPictureCascadeFromWhereTheFirstArrangedThemselves)
{
    Desk desk;
    const Preferences& preferences = desk.Session.Prefs;
    desk.Session.Prefs.HogWindows = false;
    const auto placeOfNext = [&] {
        return desk.OpenAnalyzed().View(ViewType::Aberrations)->GetPlace();
    };
    const WindowPlace first = placeOfNext();
    EXPECT_NE(first, preferences.DefaultPlaces.Aberrations);
    EXPECT_EQ(placeOfNext(),
        (WindowPlace{first.Left + preferences.CascadeX, first.Top + preferences.CascadeY,
            first.Width, first.Height}));
}

TEST_F(frmTextView, ComesWithoutTakingTheFocus)
{
    const QMdiArea& area = *Frame.findChild<QMdiArea*>();
    const QMdiSubWindow* const picture = area.activeSubWindow();
    EXPECT_EQ(picture->objectName(), "frmImage") << "the analysis has shown the text";
    Window.Hide();
    Window.Show(Activation::LeaveFocus);
    Settle();
    EXPECT_TRUE(Window.isVisible());
    EXPECT_EQ(area.activeSubWindow(), picture);
    EXPECT_EQ(Document.ActiveView, ViewType::Interferogram);
}

} // namespace
} // namespace morvane::test
