// The menus of the main window, with the files opened last and the list of windows.
#include <QActionGroup>
#include <QApplication>
#include <QMenuBar>
#include <QMessageBox>

#include "analysis/frmAnalyze.h"
#include "document/frmAspectRatio.h"
#include "document/qt/ChildWindow.h"
#include "shell/frmMain.h"
#include "shell/modFileLib.h"
#include "shell/qt/Tiling.h"
#include "shell/qt/WorkArea.h"

namespace morvane {
namespace {

QAction* AddCommand(QMenu& To, const char* Name, const char* Caption)
{
    QAction* const action = To.addAction(Caption);
    action->setObjectName(Name);
    return action;
}

} // namespace

void frmMain::MakeFileMenu()
{
    QMenu& menu = *menuBar()->addMenu("&File");
    QAction* const open = AddCommand(menu, "mnuFileOpen", "&Open...");
    open->setShortcut(QKeySequence::Open);
    connect(open, &QAction::triggered, this, [this] { m_session->OpenDialog(); });
    const auto command = [&](const char* name, const char* caption, auto act) {
        QAction* const action = AddCommand(menu, name, caption);
        connect(action, &QAction::triggered, this, [this, act] {
            // Held, for a script may close it while a dialog is on the screen.
            if (const auto active = m_session->SharedDocument(m_session->ActiveDocument()))
                act(*m_session, *active);
        });
        return action;
    };
    m_close = command("mnuFileClose", "&Close",
        [](Session& session, clsDocument& active) { session.CloseAsking(active); });
    m_close->setShortcut(QKeySequence("Ctrl+W"));
    menu.addSeparator();
    m_save = command("mnuFileSave", "&Save",
        [](Session& session, clsDocument& active) { session.SaveDocument(active); });
    m_save->setShortcut(QKeySequence::Save);
    m_saveAs = command("mnuFileSaveAs", "Save &As...", [](Session& session, clsDocument& active) {
        session.SaveAsDialog(active, Session::SaveMode::Document);
    });
    m_saveAs->setShortcut(QKeySequence("Ctrl+Shift+S"));
    m_exportMap = command("mnuFileExportMap", "Export &Map...",
        [](Session& session, clsDocument& active) { session.ExportMapDialog(active); });
    m_exportZernikes = command("mnuFileExportZernikes", "Export &Zernikes...",
        [](Session& session, clsDocument& active) { session.ExportZernikesDialog(active); });
    menu.addSeparator();
    MakeRecentFiles(menu);
    QAction* const exit = AddCommand(menu, "mnuFileExit", "E&xit");
    exit->setShortcut(QKeySequence("Ctrl+Q"));
    connect(exit, &QAction::triggered, this, &QWidget::close);
}

void frmMain::MakeRecentFiles(QMenu& In)
{
    In.setToolTipsVisible(true);
    for (QAction*& entry : m_recentFiles) {
        entry = AddCommand(In, "mnuFileMRU", "");
        connect(entry, &QAction::triggered, this,
            [this, entry] { OpenQueued({entry->data().toString().toStdString()}); });
    }
    m_recentBar = In.addSeparator();
    m_recentBar->setObjectName("mnuFileBar5");
}

void frmMain::ShowRecentFiles()
{
    const std::vector<std::string>& paths = m_session->Recent.Paths();
    for (std::size_t i = 0; i < m_recentFiles.size(); ++i) {
        QAction& entry = *m_recentFiles[i];
        entry.setVisible(i < paths.size());
        if (!entry.isVisible())
            continue;
        const QString path = QString::fromStdString(paths[i]);
        entry.setText(QString::fromStdString(FileTitle(paths[i], false)).replace("&", "&&"));
        entry.setToolTip(path);
        entry.setData(path);
    }
    m_recentBar->setVisible(!paths.empty());
}

void frmMain::MakeViewMenu()
{
    QMenu& menu = *menuBar()->addMenu("&View");
    m_analyzeBox = AddCommand(menu, "mnuViewAnalyzeBox", "&Analyze");
    m_analyzeBox->setCheckable(true);
    connect(m_analyzeBox, &QAction::triggered, this,
        [this](bool shown) { shown ? ShowAnalysis() : m_analyze->hide(); });
    menu.addSeparator();
    const auto view = [&](const char* name, const char* caption, ViewType kind) {
        QAction* const action = AddCommand(menu, name, caption);
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, kind] { m_session->ToggleView(kind); });
        return action;
    };
    m_aberrations = view("mnuViewAberrations", "A&berrations", ViewType::Aberrations);
    m_zernikes = view("mnuViewZernikes", "&Zernikes", ViewType::Zernikes);
}

void frmMain::MakeProcessMenu()
{
    QMenu& menu = *menuBar()->addMenu("&Process");
    m_grabImage = AddCommand(menu, "mnuProcessGrabImage", "&Grab Image");
    connect(m_grabImage, &QAction::triggered, this, [this] { m_session->GrabImage(); });
    m_grabberProps = AddCommand(menu, "mnuProcessGrabberProps", "Grabber Properties");
    connect(m_grabberProps, &QAction::triggered, this, [this] { m_session->GrabberProperties(); });
    m_adjustAspectRatio = AddCommand(menu, "mnuProcessAdjustAspectRatio", "A&djust Aspect Ratio");
    connect(m_adjustAspectRatio, &QAction::triggered, this,
        [this] { frmAspectRatio(*m_session, this).exec(); });
    const auto trace = [&](const char* name, const char* caption, FringeDirection direction) {
        QAction* const action = AddCommand(menu, name, caption);
        connect(action, &QAction::triggered, this,
            [this, direction] { m_session->TraceFringes(direction); });
        m_traces.append(action);
    };
    trace("mnuProcessTraceV", "Trace &Vertically", FringeDirection::Vertical);
    trace("mnuProcessTraceH", "Trace &Horizontally", FringeDirection::Horizontal);
    m_analyzeFringes = AddCommand(menu, "mnuProcessAnalyzeFringes", "&Analyze Fringes");
    connect(m_analyzeFringes, &QAction::triggered, this, [this] { m_session->AnalyzeFringes(); });
}

void frmMain::MakeWindowMenu()
{
    QMenu& menu = *menuBar()->addMenu("&Window");
    const auto arrangement = [&](const char* name, const char* caption, auto arrange) {
        QAction* const action = AddCommand(menu, name, caption);
        connect(action, &QAction::triggered, this, arrange);
        m_arrangements.append(action);
    };
    arrangement("mnuWindowCascade", "&Cascade", [this] { m_area->cascadeSubWindows(); });
    arrangement(
        "mnuWindowTileHorizontal", "Tile &Horizontal", [this] { Tile(*m_area, Qt::Horizontal); });
    arrangement("mnuWindowTileVertical", "Tile &Vertical", [this] { Tile(*m_area, Qt::Vertical); });
    connect(&menu, &QMenu::aboutToShow, this, [this, &menu] { ListWindows(menu); });
}

// Below the arrangements; the actions go with the group of the time before.
void frmMain::ListWindows(QMenu& Below)
{
    delete m_windowList;
    m_windowList = new QActionGroup(this);
    m_windowList->addAction(Below.addSeparator());
    for (ChildWindow* const window : ChildWindowsIn(*m_area)) {
        if (!window->isVisible())
            continue;
        QString caption = window->Caption();
        QAction* const action = Below.addAction(caption.replace("&", "&&"));
        action->setCheckable(true);
        action->setChecked(window == m_area->activeSubWindow());
        m_windowList->addAction(action);
        connect(action, &QAction::triggered, window,
            [this, window] { m_area->setActiveSubWindow(window); });
    }
    for (QAction* const action : m_windowList->actions())
        action->setParent(m_windowList);
}

void frmMain::MakeHelpMenu()
{
    QMenu& menu = *menuBar()->addMenu("&Help");
    connect(AddCommand(menu, "mnuHelpAbout", "&About Morvane..."), &QAction::triggered, this,
        &frmMain::ShowAbout);
}

void frmMain::ShowAbout()
{
    QMessageBox::about(this, "About Morvane",
        "<h3>Morvane " + QApplication::applicationVersion()
            + "</h3><p>Analyzes interferograms of mirrors and lenses: from the "
              "picture of the fringes to the aberrations of the optic.</p>");
}

} // namespace morvane
