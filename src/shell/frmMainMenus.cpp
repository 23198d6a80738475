// The menus of the main window, with the files opened last and the list of windows.
#include <QActionGroup>
#include <QApplication>
#include <QDesktopServices>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QUrl>

#include "document/frmAspectRatio.h"
#include "document/frmUserData.h"
#include "document/qt/ChildWindow.h"
#include "report/frmPageSetup.h"
#include "shell/HelpPage.h"
#include "shell/frmMain.h"
#include "shell/frmSplash.h"
#include "shell/modFileLib.h"
#include "shell/qt/Tiling.h"
#include "shell/qt/WorkArea.h"

namespace morvane {
namespace {

QMenu& AddMenu(QMenuBar& to, const char* name, const char* caption)
{
    QMenu& menu = *to.addMenu(caption);
    menu.setObjectName(name);
    return menu;
}

QString HelpTopicOf(const Session& in)
{
    if (!in.Active())
        return {};
    switch (in.Active()->ActiveView) {
    case ViewType::Aberrations:
        return "aberrations";
    case ViewType::Zernikes:
        return "zernikes";
    case ViewType::GridResults:
        return "grid";
    case ViewType::LineProfile:
        return "profile";
    default:
        return {};
    }
}

} // namespace

QAction& frmMain::Add(QMenu& To, const char* Name, const char* Caption, Action Act)
{
    QAction* const action = To.addAction(Caption);
    action->setObjectName(Name);
    connect(action, &QAction::triggered, this, std::move(Act));
    return *action;
}

QAction& frmMain::Add(QMenu& To, Command Rule, const char* Name, const char* Caption, Action Act)
{
    QAction& action = Add(To, Name, Caption, std::move(Act));
    m_ruled.append({Rule, &action});
    return action;
}

frmMain::Action frmMain::Refuse(const char* Reason)
{
    return [this, Reason] { ShowHint(Reason); };
}

void frmMain::MakeFileMenu()
{
    QMenu& menu = AddMenu(*menuBar(), "mnuFile", "&File");
    Add(menu, "mnuFileOpen", "&Open...", [this] { m_session->OpenDialog(); });
    Add(menu, Command::Close, "mnuFileClose", "&Close",
        OnActive([](Session& session, clsDocument& active) { session.CloseAsking(active); }));
    menu.addSeparator();
    Add(menu, Command::Save, "mnuFileSave", "&Save",
        OnActive([](Session& session, clsDocument& active) { session.SaveDocument(active); }));
    Add(menu, Command::SaveAs, "mnuFileSaveAs", "Save &As...",
        OnActive([](Session& session, clsDocument& active) {
            session.SaveAsDialog(active, Session::SaveMode::Document);
        }));
    Add(menu, Command::ExportMap, "mnuFileExportMap", "Export &Map...",
        OnActive([](Session& session, clsDocument& active) { session.ExportMapDialog(active); }));
    Add(menu, Command::ExportZernikes, "mnuFileExportZernikes", "Export &Zernikes...",
        OnActive(
            [](Session& session, clsDocument& active) { session.ExportZernikesDialog(active); }));
    menu.addSeparator();
    Add(menu, Command::PageSetup, "mnuFilePageSetup", "Page Set&up...",
        [this] { frmPageSetup(m_session->Prefs.Report, *m_settings, this).exec(); });
    Add(menu, Command::Print, "mnuFilePrint", "&Print...",
        OnActive([](Session& session, clsDocument& active) { session.PrintDialog(active); }));
    menu.addSeparator();
    QAction* const preferences = menu.addAction("P&references...");
    preferences->setObjectName("mnuFilePreferences");
    preferences->setEnabled(false);
    menu.addSeparator();
    MakeRecentFiles(menu);
    Add(menu, "mnuFileExit", "E&xit", [this] { close(); });
}

void frmMain::MakeRecentFiles(QMenu& In)
{
    for (std::size_t i = 0; i < m_recentFiles.size(); ++i)
        m_recentFiles[i] =
            &Add(In, "mnuFileMRU", "", [this, i] { OpenQueued({m_session->Recent.Paths()[i]}); });
    // The tips of the other items are the tool bar's.
    connect(&In, &QMenu::hovered, this,
        [&In](const QAction* on) { In.setToolTipsVisible(on->objectName() == "mnuFileMRU"); });
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
        entry.setText(QString::fromStdString(FileTitle(paths[i], false)).replace("&", "&&"));
        entry.setToolTip(QString::fromStdString(paths[i]));
    }
    m_recentBar->setVisible(!paths.empty());
}

void frmMain::MakeEditMenu()
{
    QMenu& menu = AddMenu(*menuBar(), "mnuEdit", "&Edit");
    Add(menu, Command::Copy, "mnuEditCopy", "&Copy", [this] { m_session->CopyText(); });
    menu.addSeparator();
    Add(menu, Command::UserData, "mnuEditUserData", "User &Data...",
        OnActive([this](Session& session, clsDocument& active) {
            frmUserData(active, session, *m_settings, this).exec();
        }));
    Add(menu, Command::ClearFringes, "mnuEditClearFringes", "Clea&r Fringes",
        [this] { m_session->ClearFringes(); });
    Add(menu, Command::Properties, "mnuEditProperties", "&Properties...",
        Refuse("The properties are not available yet."));
}

void frmMain::MakeViewMenu()
{
    QMenu& menu = AddMenu(*menuBar(), "mnuView", "&View");
    AddBars(menu);
    AddBoxes(menu);
    menu.addSeparator();
    AddViews(menu);
}

void frmMain::AddBars(QMenu& To)
{
    const std::tuple<const char*, const char*, QWidget*> bars[] = {
        {"mnuViewToolbar", "&Toolbar", m_toolBar},
        {"mnuViewStatusBar", "Status Ba&r", statusBar()},
    };
    for (const auto& [name, caption, bar] : bars) {
        QAction* const action = To.addAction(caption);
        action->setObjectName(name);
        action->setCheckable(true);
        action->setChecked(true);
        connect(action, &QAction::toggled, bar, &QWidget::setVisible);
    }
}

// Live as soon as they have a window.
void frmMain::AddBoxes(QMenu& To)
{
    constexpr std::pair<const char*, const char*> boxes[] = {
        {"mnuViewToolBox", "Toolbo&x"},
        {"mnuViewAnalyzeBox", "&Analyze"},
        {"mnuViewGridAnalyzeBox", "Analyze &Grid"},
        {"mnuViewAverageBox", "A&verage"},
        {"mnuViewRefZernike", "Reference Zernikes"},
        {"mnuViewMathBox", "Math"},
    };
    for (const auto& [name, caption] : boxes) {
        QAction* const action = To.addAction(caption);
        action->setObjectName(name);
        action->setCheckable(true);
        action->setEnabled(false);
    }
}

void frmMain::AddViews(QMenu& To)
{
    constexpr std::tuple<Command, ViewType, const char*, const char*> views[] = {
        {Command::SurfacePlot, ViewType::SurfacePlot, "mnuViewSurfacePlot", "&Surface Plot"},
        {Command::ContourPlot, ViewType::ContourPlot, "mnuViewContourPlot", "&Contour Plot"},
        {Command::LineProfile, ViewType::LineProfile, "mnuViewLineProfile", "&Line Profile"},
        {Command::SFringe, ViewType::SFringe, "mnuViewSFringe", "Synthetic &Finges"},
        {Command::Aberrations, ViewType::Aberrations, "mnuViewAberrations", "A&berrations"},
        {Command::Zernikes, ViewType::Zernikes, "mnuViewZernikes", "&Zernikes"},
        {Command::GridResults, ViewType::GridResults, "mnuViewGridResults", "Gr&id Results"},
    };
    for (const auto& [command, view, name, caption] : views)
        Add(To, command, name, caption, [this, view = view] {
            m_session->ToggleView(view);
        }).setCheckable(true);
}

void frmMain::MakeProcessMenu()
{
    QMenu& menu = AddMenu(*menuBar(), "mnuProcess", "&Process");
    const auto trace = [this](FringeDirection direction) {
        return [this, direction] { m_session->TraceFringes(direction); };
    };
    Add(menu, Command::GrabImage, "mnuProcessGrabImage", "&Grab Image",
        [this] { m_session->GrabImage(); });
    Add(menu, Command::GrabberProperties, "mnuProcessGrabberProps", "Grabber Properties",
        [this] { m_session->GrabberProperties(); });
    Add(menu, Command::AdjustAspectRatio, "mnuProcessAdjustAspectRatio", "A&djust Aspect Ratio",
        [this] { frmAspectRatio(*m_session, this).exec(); });
    Add(menu, Command::Trace, "mnuProcessTraceV", "Trace &Vertically",
        trace(FringeDirection::Vertical));
    Add(menu, Command::Trace, "mnuProcessTraceH", "Trace &Horizontally",
        trace(FringeDirection::Horizontal));
    Add(menu, Command::AnalyzeFringes, "mnuProcessAnalyzeFringes", "&Analyze Fringes",
        [this] { m_session->AnalyzeFringes(); });
    Add(menu, Command::AddAverage, "mnuProcessAddAverage", "Add To Ave&rage",
        Refuse("Averaging is not available yet."));
}

void frmMain::MakeWindowMenu()
{
    QMenu& menu = AddMenu(*menuBar(), "mnuWindow", "&Window");
    const auto arrangement = [&](const char* name, const char* caption, auto arrange) {
        Add(menu, Command::ArrangeWindows, name, caption, arrange);
    };
    arrangement("mnuWindowCascade", "&Cascade", [this] { m_area->cascadeSubWindows(); });
    arrangement(
        "mnuWindowTileHorizontal", "Tile &Horizontal", [this] { Tile(*m_area, Qt::Horizontal); });
    arrangement("mnuWindowTileVertical", "Tile &Vertical", [this] { Tile(*m_area, Qt::Vertical); });
    arrangement("mnuWindowArrangeIcons", "&Arrange Icons", [this] { ArrangeIcons(*m_area); });
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
        connect(action, &QAction::triggered, window, [window] { window->BringToFront(); });
    }
    for (QAction* const action : m_windowList->actions())
        action->setParent(m_windowList);
}

void frmMain::MakeHelpMenu()
{
    QMenu& menu = AddMenu(*menuBar(), "mnuHelp", "&Help");
    Add(menu, "mnuHelpContents", "&Contents", [this] { ShowHelp(); });
    menu.addSeparator();
    Add(menu, "mnuHelpAbout", "&About Morvane...", [this] { ShowAbout(); });
}

// At what it says of the view in front, or at the beginning.
void frmMain::ShowHelp()
{
    const auto page = HelpPage(QApplication::applicationDirPath().toStdString());
    if (!page) {
        m_session->ShowMessage("Could not find the help page beside the program",
            MessageOk | MessageWarningSign, "Help");
        return;
    }
    QUrl place = QUrl::fromLocalFile(QString::fromStdString(*page));
    place.setFragment(HelpTopicOf(*m_session));
    if (!QDesktopServices::openUrl(place))
        m_session->ShowMessage(
            "Could not open the help page " + *page, MessageOk | MessageWarningSign, "Help");
}

void frmMain::ShowAbout()
{
    frmSplash(this).exec();
}

} // namespace morvane
