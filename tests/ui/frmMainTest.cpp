#include <gtest/gtest.h>

#include <QDropEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMimeData>

#include "Desk.h"

namespace morvane::test {
namespace {

class frmMainCommands : public testing::Test, public Desk {
protected:
    bool Enabled(const char* Action) { return Find<QAction>(Action).isEnabled(); }
    QMdiArea& Area() { return *Frame.findChild<QMdiArea*>(); }
};

TEST_F(frmMainCommands, FollowTheOpenDocuments)
{
    const char* const needDocument[] = {"mnuFileClose", "mnuProcessTraceV", "mnuProcessTraceH",
        "mnuWindowCascade", "mnuProcessAnalyzeFringes", "mnuWindowTileHorizontal"};
    const auto expectAll = [&](bool enabled) {
        for (const char* name : needDocument)
            EXPECT_EQ(Enabled(name), enabled) << name;
    };
    expectAll(false);
    Open(130, 90);
    expectAll(true);
    EXPECT_FALSE(Enabled("mnuViewZernikes"));
    EXPECT_EQ(Find<QLabel>("lblImageSize").text(), "130x90");
    Trigger("mnuFileClose");
    expectAll(false);
    EXPECT_EQ(Find<QLabel>("lblImageSize").text(), "");
}

TEST_F(frmMainCommands, TraceWithoutApertureWarns)
{
    Open();
    Trigger("mnuProcessTraceV");
    ASSERT_EQ(User.Messages.size(), 1u);
    EXPECT_EQ(User.Messages[0].Text, "Set aperture before automatic fringe tracing");
}

TEST_F(frmMainCommands, BadFileIsToldAndLeavesNothingOpen)
{
    const std::string absent = Folder.filePath("absent.bmp").toStdString();
    const std::string text = Folder.filePath("text.bmp").toStdString();
    WriteWholeFile(text, "no picture\r\n");
    const auto numWindows = Area().subWindowList().size();
    const struct {
        std::string Path, Begin;
    } cases[] = {{absent, "Could not find file " + absent},
        {text, "Could not load image file " + text}, {Folder.path().toStdString(), "Could not"}};
    for (const auto& c : cases) {
        User.Messages.clear();
        Session.OpenFiles({c.Path}, false);
        ASSERT_EQ(User.Messages.size(), 1u) << c.Path;
        EXPECT_TRUE(User.Messages[0].Text.starts_with(c.Begin)) << User.Messages[0].Text;
        EXPECT_EQ(User.Messages[0].Title, "Error");
        EXPECT_EQ(Session.NumOpenDocuments(), 0);
        EXPECT_EQ(Area().subWindowList().size(), numWindows);
    }
}

TEST_F(frmMainCommands, DroppedFilesAreOpened)
{
    QMimeData files;
    for (const int width : {30, 40})
        files.setUrls(
            files.urls() << QUrl::fromLocalFile(QString::fromStdString(WritePicture(width, 20))));
    QDragEnterEvent enter({300, 300}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&Frame, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({300, 300}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&Frame, &drop);
    EXPECT_EQ(Session.NumOpenDocuments(), 2);
}

TEST_F(frmMainCommands, WindowMenuListsWhatIsShown)
{
    Open();
    OpenAnalyzed();
    QMenu& menu = *qobject_cast<QMenu*>(Find<QAction>("mnuWindowCascade").parent());
    for (int time = 0; time < 2; ++time)
        emit menu.aboutToShow();
    QStringList titles;
    for (const QAction* action : menu.actions())
        if (action->isCheckable())
            titles.append(action->text() + (action->isChecked() ? " *" : ""));
    EXPECT_EQ(titles, QStringList({"1.bmp", "2.bmp *", "Aberrations - 2.bmp"}));
    menu.actions().at(4)->trigger();
    EXPECT_EQ(Session.ActiveDocument(), 1);
}

TEST_F(frmMainCommands, TilesFillTheAreaWithoutOverlap)
{
    for (int i = 0; i < 5; ++i)
        Open();
    for (const char* command : {"mnuWindowTileHorizontal", "mnuWindowTileVertical"}) {
        Trigger(command);
        QRegion covered;
        for (const QMdiSubWindow* window : Area().subWindowList()) {
            EXPECT_FALSE(covered.intersects(window->geometry())) << command;
            covered += window->geometry();
        }
        EXPECT_EQ(covered, QRegion(Area().viewport()->rect())) << command;
    }
}

TEST_F(frmMainCommands, ClosingTheFrameClosesAllDocuments)
{
    OpenAnalyzed();
    Open();
    Frame.close();
    EXPECT_EQ(Session.NumOpenDocuments(), 0);
    EXPECT_FALSE(Frame.findChild<frmAnalyze*>()->isVisible());
}

} // namespace
} // namespace morvane::test
