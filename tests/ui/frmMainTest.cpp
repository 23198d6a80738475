#include <cstdio>

#include <gtest/gtest.h>

#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>

#include "Desk.h"

namespace morvane::test {
namespace {

class frmMainCommands : public testing::Test, public Desk {
protected:
    bool Enabled(const char* Action) { return Find<QAction>(Action).isEnabled(); }
    QMdiArea& Area() { return *Frame.findChild<QMdiArea*>(); }
    void Drop(const QMimeData& Files)
    {
        QDragEnterEvent enter({300, 300}, Qt::CopyAction, &Files, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&Frame, &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop({300, 300}, Qt::CopyAction, &Files, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&Frame, &drop);
    }
};

TEST_F(frmMainCommands, FollowTheOpenDocuments)
{
    const char* const needDocument[] = {"mnuFileClose", "mnuFileSave", "mnuFileSaveAs",
        "mnuProcessAdjustAspectRatio", "mnuProcessTraceV", "mnuProcessTraceH", "mnuWindowCascade",
        "mnuProcessAnalyzeFringes", "mnuWindowTileHorizontal", "mnuWindowArrangeIcons",
        "mnuFilePrint", "Print", "mnuFilePageSetup", "mnuEditUserData", "mnuEditClearFringes",
        "HandTool", "EditTool", "SetZoom", "ZoomIn", "ZoomOut"};
    const auto expectAll = [&](bool enabled) {
        for (const char* name : needDocument)
            EXPECT_EQ(Enabled(name), enabled) << name;
    };
    expectAll(false);
    Open(130, 90);
    expectAll(true);
    EXPECT_FALSE(Enabled("mnuViewZernikes"));
    Trigger("mnuFileClose");
    expectAll(false);
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
    Drop(files);
    EXPECT_EQ(Session.NumOpenDocuments(), 0) << "the program dragged from must not wait";
    Settle();
    ASSERT_EQ(Session.NumOpenDocuments(), 2);
    EXPECT_EQ(Session.Document(1)->GetImageSize().Width, 30) << "in the order delivered";
}

// From another system, or of an old camera.
TEST_F(frmMainCommands, FilesWhoseNamesAreNotUtf8AreOpenedAndAgain)
{
    const std::string path = Folder.path().toStdString() + "/lat\xE9 50%.bmp";
    ASSERT_EQ(std::rename(WritePicture(30, 20).c_str(), path.c_str()), 0);
    QMimeData files;
    files.setUrls(
        {QUrl::fromEncoded("file://" + QByteArray::fromStdString(path).toPercentEncoding("/"))});
    Drop(files);
    Settle();
    ASSERT_EQ(Session.NumOpenDocuments(), 1);
    Frame.findChildren<QAction*>("mnuFileMRU").first()->trigger();
    Settle();
    EXPECT_EQ(Session.NumOpenDocuments(), 2);
    EXPECT_TRUE(User.Messages.empty());
    std::remove(path.c_str()); // the temporary folder cannot do it
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
    menu.actions().at(5)->trigger();
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

TEST_F(frmMainCommands, KeysReachTheirCommands)
{
    Open();
    QTest::keyClick(Area().activeSubWindow(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(Session.NumOpenDocuments(), 0);
}

TEST_F(frmMainCommands, ClosingTheFrameStopsAtTheFirstCancel)
{
    for (int i = 0; i < 5; ++i)
        Open().Modified = true;
    User.Answers = {MessageAnswer::No, MessageAnswer::No, MessageAnswer::Cancel};
    EXPECT_FALSE(Frame.close());
    Settle();
    EXPECT_EQ(User.Messages.size(), 3u);
    EXPECT_TRUE(Frame.isVisible());
    EXPECT_EQ(Session.NumOpenDocuments(), 3);
    for (int slot = 1; slot <= 5; ++slot)
        EXPECT_EQ(Session.Document(slot) != nullptr, slot >= 3) << slot;
    EXPECT_TRUE(Session.Active()) << "a document is in front";
}

TEST_F(frmMainCommands, UnsavedChangesAreMarkedUntilTheyAreSaved)
{
    clsDocument& document = OpenAnalyzed();
    const auto expectMarks = [&](bool marked, const char* when) {
        for (const QMdiSubWindow* window : Area().subWindowList())
            EXPECT_EQ(window->isWindowModified(), marked) << when;
        EXPECT_EQ(Frame.isWindowModified(), marked) << when;
    };
    expectMarks(true, "after an analysis");
    const std::string path = Folder.filePath("saved.mvd").toStdString();
    ASSERT_TRUE(Session.WriteDocument(path, document));
    expectMarks(false, "after saving");
    EXPECT_EQ(Frame.windowTitle(), "saved.mvd[*] - Morvane");
    Trigger("mnuProcessTraceV");
    expectMarks(true, "after a trace");
    for (const auto show : {&QWidget::showMaximized, &QWidget::showNormal}) {
        (Area().activeSubWindow()->*show)();
        Settle();
        expectMarks(true, "in another window state");
        EXPECT_EQ(Frame.windowTitle(), "saved.mvd[*] - Morvane");
    }
    User.Answers = {MessageAnswer::No};
    Trigger("mnuFileClose");
    EXPECT_FALSE(Frame.isWindowModified());
    EXPECT_EQ(Frame.windowTitle(), "Morvane");
}

TEST_F(frmMainCommands, RecentFilesShowTheLastFourAndOpenAgain)
{
    const auto shown = [&] {
        QStringList captions;
        for (const QAction* entry : Frame.findChildren<QAction*>("mnuFileMRU"))
            if (entry->isVisible())
                captions.append(entry->text());
        return captions;
    };
    EXPECT_EQ(shown(), QStringList());
    EXPECT_FALSE(Find<QAction>("mnuFileBar5").isVisible());
    for (int i = 0; i < 4; ++i)
        Open();
    const std::string last = Folder.filePath("a & b.bmp").toStdString();
    QFile::rename(QString::fromStdString(WritePicture(50, 40)), QString::fromStdString(last));
    Session.OpenFiles({last}, false);
    EXPECT_EQ(shown(), QStringList({"a && b.bmp", "4.bmp", "3.bmp", "2.bmp"}));
    EXPECT_TRUE(Find<QAction>("mnuFileBar5").isVisible());
    QAction& first = *Frame.findChildren<QAction*>("mnuFileMRU").first();
    EXPECT_EQ(first.toolTip().toStdString(), last);
    first.trigger();
    Settle();
    EXPECT_EQ(Session.NumOpenDocuments(), 6);

    QFile::remove(QString::fromStdString(last));
    first.trigger();
    Settle();
    EXPECT_EQ(shown(), QStringList({"4.bmp", "3.bmp", "2.bmp"})) << "what is gone drops out";
}

TEST_F(frmMainCommands, AskWhereToSaveWithTheDialog)
{
    Open();
    QTimer::singleShot(0, [&] {
        auto& dialog = *qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "1.bmp");
        dialog.selectFile("other.bmp");
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    Trigger("mnuFileSaveAs");
    EXPECT_TRUE(QFile::exists(Folder.filePath("other.bmp")));
    EXPECT_EQ(Session.Active()->Title, "other.bmp");
}

// Settings of one run as the next one finds them.
TEST_F(frmMainCommands, PlaceAndBoxesComeBackWithTheNextRun)
{
    Frame.move(20, 10);
    Frame.resize(360, 340);
    for (const char* command : {"mnuViewAnalyzeBox", "mnuViewToolbar", "mnuViewStatusBar"})
        Trigger(command);
    ASSERT_FALSE(Frame.findChild<frmAnalyze*>()->isVisible());
    ASSERT_FALSE(Find<QToolBar>("tbToolbar").isVisible());
    ASSERT_FALSE(Frame.statusBar()->isVisible());
    Open();
    Frame.close();

    SettingsStore kept(SettingsFile());
    frmMain next;
    morvane::Session session(User, next);
    session.ReadSettings(kept, Screens(), "");
    EXPECT_EQ(session.Recent.Paths().size(), 1u);
    next.Attach(session, kept);
    next.show();
    Settle();
    EXPECT_EQ(next.pos(), QPoint(20, 10));
    EXPECT_EQ(next.size(), QSize(360, 340));
    EXPECT_FALSE(next.findChild<frmAnalyze*>()->isVisible());
    EXPECT_FALSE(next.findChild<QToolBar*>("tbToolbar")->isVisible());
    EXPECT_FALSE(next.statusBar()->isVisible());
    EXPECT_FALSE(next.findChild<QAction*>("mnuViewToolbar")->isChecked());
}

TEST(frmMainPlace, CanBeReachedAndOutlastsAMaximisedSession)
{
    const QRect screen = QApplication::primaryScreen()->availableGeometry();
    const QPoint corner = screen.topLeft();
    const struct {
        const char* Name;
        const char* Kept;
        QPoint Place;
        std::optional<QSize> Size;
    } cases[] = {
        {"out of reach", "MainLeft = 999999\nMainTop = 999999\n", corner, std::nullopt},
        {"no width", "MainLeft = 300\nMainTop = 150\nMainWidth = 0\n", {20, 10}, std::nullopt},
        {"maximised",
            "MainState = 2\nMainLeft = 300\nMainTop = 150\nMainWidth = 9000\n"
            "MainHeight = 7500\n",
            {20, 10}, QSize(600, 500).boundedTo(screen.size())},
    };
    for (const auto& c : cases) {
        const QTemporaryDir folder;
        const std::string file = folder.filePath("settings.ini").toStdString();
        WriteWholeFile(file, std::string("[CurrentVersion]\n") + c.Kept);
        SettingsStore kept(file);
        NotingAnswerer user;
        frmMain frame;
        Session session(user, frame);
        session.ReadSettings(kept, Screens(), "");
        frame.Attach(session, kept);
        frame.show();
        QTest::qWait(0);
        if (frame.isMaximized())
            frame.showNormal();
        QTest::qWait(0);
        EXPECT_EQ(frame.pos(), c.Place) << c.Name;
        EXPECT_GE(frame.width(), frame.minimumSizeHint().width()) << c.Name;
        EXPECT_EQ(frame.size(), c.Size.value_or(frame.size())) << c.Name;
        frame.close();
    }
}

TEST_F(frmMainCommands, SettingsThatCannotBeWrittenAreToldAtTheEnd)
{
    QFile::remove(Folder.filePath("settings.ini"));
    QDir(Folder.path()).mkdir("settings.ini");
    Frame.close();
    ASSERT_EQ(User.Messages.size(), 1u);
    EXPECT_EQ(User.Messages[0].Text.find("Could not save the settings in " + SettingsFile()), 0u);
}

} // namespace
} // namespace morvane::test
