#include "views/frmLineProfile.h"

#include <gtest/gtest.h>

#include <QMdiArea>
#include <QScrollBar>

#include "Desk.h"

namespace morvane::test {
namespace {

class frmLineProfileWindow : public testing::Test, public Desk {
protected:
    frmLineProfile& Profile(clsDocument& Of)
    {
        return dynamic_cast<frmLineProfile&>(*Of.View(ViewType::LineProfile));
    }
    QScrollBar& Angle(clsDocument& Of) { return *Profile(Of).findChild<QScrollBar*>("hsbLine"); }
    void Show(clsDocument& Of)
    {
        if (!Of.Visible.LineProfile)
            Session.ToggleView(ViewType::LineProfile);
        Settle();
    }
    // The names of the windows of the document in front, the lowest first.
    QStringList Stack()
    {
        QStringList names;
        for (const QMdiSubWindow* window :
            Frame.findChild<QMdiArea*>()->subWindowList(QMdiArea::StackingOrder))
            if (window->isVisible())
                names.append(window->objectName());
        return names;
    }
};

TEST_F(frmLineProfileWindow, KeysTurnTheLineTheirWay)
{
    clsDocument& document = OpenAnalyzed();
    Show(document);
    document.Modified = false;
    Session.Frame().UpdateMainFrame();
    EXPECT_FALSE(Frame.isWindowModified());
    const struct {
        Qt::Key Key;
        int Angle;
    } steps[] = {{Qt::Key_Right, 1}, {Qt::Key_Right, 2}, {Qt::Key_Left, 1}, {Qt::Key_PageUp, 6},
        {Qt::Key_PageDown, 1}, {Qt::Key_End, 359}, {Qt::Key_Home, 0}, {Qt::Key_Left, 0}};
    for (const auto& step : steps) {
        QTest::keyClick(&Angle(document), step.Key);
        EXPECT_EQ(document.LineProfileAngle, step.Angle) << step.Key;
    }
    EXPECT_TRUE(Frame.isWindowModified());
}

// The trace has a mask of its own, of a small picture twice as large.
TEST_F(frmLineProfileWindow, ATraceLeavesTheProfileOfTheResults)
{
    clsDocument& document = OpenAnalyzed();
    Show(document);
    Angle(document).setValue(30);
    const std::vector<double> before = document.Maps().ProfileY;
    Session.TraceFringes(FringeDirection::Vertical);
    Angle(document).setValue(31);
    Angle(document).setValue(30);
    EXPECT_EQ(document.Maps().ProfileY, before);
}

TEST_F(frmLineProfileWindow, ViewsThatAppearLieAboveThePicture)
{
    clsDocument& first = OpenAnalyzed();
    EXPECT_EQ(Stack(), (QStringList{"frmImage", "frmAberrations"}));
    Open();
    Session.BringToFront(first);
    Settle();
    EXPECT_EQ(Stack().last(), "frmAberrations") << "those of the interferogram that comes up too";
}

TEST_F(frmLineProfileWindow, ShowingAViewLeavesTheOthersAboveThePicture)
{
    Session.Prefs.HogWindows = false;
    clsDocument& document = OpenAnalyzed();
    Show(document);
    EXPECT_EQ(Stack(), (QStringList{"frmImage", "frmAberrations", "frmLineProfile"}));
    Profile(document).close();
    Settle();
    EXPECT_FALSE(document.Visible.LineProfile);
    EXPECT_FALSE(Find<QAction>("mnuViewLineProfile").isChecked());
}

} // namespace
} // namespace morvane::test
