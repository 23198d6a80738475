#include "views/frmText.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QMdiArea>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>

#include "Desk.h"

namespace morvane::test {
namespace {

class frmTextView : public testing::Test, public Desk {
protected:
    clsDocument& Document = OpenAnalyzed();
    frmText& Window = Find<frmText>("frmAberrations");
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
