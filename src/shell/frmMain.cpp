#include "shell/frmMain.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QMdiArea>
#include <QMenu>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QScreen>
#include <QToolBar>

#include "analysis/frmAnalyze.h"
#include "interferogram/ZoomLevels.h"
#include "interferogram/frmImage.h"
#include "interferogram/frmToolBox.h"
#include "shell/frmInput.h"
#include "shell/qt/Appearance.h"
#include "shell/qt/FileChooser.h"
#include "shell/qt/PagePrinters.h"
#include "shell/qt/Screens.h"
#include "shell/qt/WindowPlaces.h"
#include "shell/qt/WorkArea.h"
#include "views/frmLineProfile.h"
#include "views/frmText.h"

namespace morvane {
namespace {

// The bytes of the names as they stand in the URLs: not every name of a file is UTF-8.
std::vector<std::string> LocalFiles(const QMimeData& Dropped)
{
    std::vector<std::string> paths;
    for (const QUrl& url : Dropped.urls())
        if (url.isLocalFile())
            paths.push_back(QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toUtf8())
                                .toStdString());
    return paths;
}

} // namespace

frmMain::frmMain()
    : m_area(new WorkArea(this)), m_toolBar(new QToolBar(this)), m_zoomBox(new QComboBox),
      m_popup(new QMenu(this))
{
    setWindowTitle(m_title);
    setAcceptDrops(true);
    setContextMenuPolicy(Qt::NoContextMenu); // it would hide the tool bar past its command
    setCentralWidget(m_area);
    MakeStatusBar();
    MakeFileMenu();
    MakeEditMenu();
    MakeViewMenu();
    MakeProcessMenu();
    MakeWindowMenu();
    MakeHelpMenu();
    MakePopup();
    MakeTools();
    SetShortcuts();
    MakeToolBar();
    connect(m_area, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* front) {
        auto* const window = dynamic_cast<ChildWindow*>(front);
        if (!window || !m_session)
            return;
        window->Activated();
        // A maximised view of the set that has gone takes the activation with it.
        const QMdiSubWindow* const active = m_area->activeSubWindow();
        if (window->isVisible() && (!active || !active->isVisible()))
            m_area->setActiveSubWindow(window);
    });
}

void frmMain::Attach(Session& Shown, SettingsStore& Settings)
{
    m_session = &Shown;
    m_settings = &Settings;
    auto* const analyze = new frmAnalyze(Shown, this);
    AddToolWindow(analyze, "mnuViewAnalyzeBox", {&MainWindowSettings::AnalyzeBox, AnalyzePlace},
        [this](QSize wanted) {
            return PlaceOfAnalysis(AreaOnScreen(), wanted, screen()->availableGeometry());
        });
    AddToolWindow(new frmToolBox(Shown, this), "mnuViewToolBox",
        {&MainWindowSettings::Toolbox, ToolBoxPlace, ToolWindowKeeping::Within::Screen},
        [this, analyze](QSize wanted) {
            const QRect taken = analyze->isVisible() ? analyze->frameGeometry() : QRect();
            return PlaceOfToolBox(
                frameGeometry(), AreaOnScreen(), taken, wanted, screen()->availableGeometry());
        });
    ReadSettings();
    UpdateMainFrame();
}

template <typename Form>
void frmMain::AddToolWindow(
    Form* Window, const char* Command, const ToolWindowKeeping& Kept, ToolWindow::FirstPlace First)
{
    auto* const added =
        new ToolWindow(*Window, *findChild<QAction*>(Command), Kept, std::move(First));
    connect(Window, &Form::VisibilityChanged, added, &ToolWindow::NoteVisible);
    m_toolWindows.append(added);
}

std::optional<FileChoice> frmMain::AskOpen(const FileRequest& Request)
{
    return AskOpenFiles(this, Request);
}

std::optional<FileChoice> frmMain::AskSave(const FileRequest& Request)
{
    return AskSaveFile(this, Request);
}

std::unique_ptr<Printer> frmMain::AskPrinter(const PageRequest& Request)
{
    return AskPagePrinter(this, Request);
}

std::unique_ptr<Printer> frmMain::DefaultPrinter(const PageRequest& Request)
{
    return DefaultPagePrinter(Request);
}

std::unique_ptr<Printer> frmMain::PdfPrinter(const PageRequest& Request, const std::string& Path)
{
    return PagePrinterToPdf(Request, Path);
}

DeviceSize frmMain::ScreenSize() const
{
    return PhysicalSizeOf(*screen());
}

std::string frmMain::ProgramFolder() const
{
    return QApplication::applicationDirPath().toStdString();
}

// After the event that asks for it: a message must keep neither a menu nor the program waiting that
// files are dropped from.
void frmMain::OpenQueued(std::vector<std::string> Paths)
{
    QMetaObject::invokeMethod(
        this, [this, paths = std::move(Paths)] { m_session->OpenFiles(paths, false); },
        Qt::QueuedConnection);
}

template <typename Window>
std::unique_ptr<Window> frmMain::AddWindow(std::unique_ptr<Window> Added)
{
    m_area->addSubWindow(Added.get());
    Added->hide();
    return Added;
}

std::unique_ptr<ImageWindow> frmMain::CreateImageWindow(clsDocument& Of)
{
    auto window = AddWindow(std::make_unique<frmImage>(Of, *m_session));
    // Without the tool bar nobody would see why the mouse does not edit.
    window->Tools().SetEditMode(m_session->Tools.EditMode || m_toolBar->isHidden());
    return window;
}

std::unique_ptr<TextWindow> frmMain::CreateTextWindow(clsDocument& Of, ViewType Kind)
{
    return AddWindow(std::make_unique<frmText>(Of, Kind, *m_session));
}

std::unique_ptr<ProfileWindow> frmMain::CreateProfileWindow(clsDocument& Of)
{
    return AddWindow(std::make_unique<frmLineProfile>(Of, *m_session));
}

void frmMain::UpdateMainFrame()
{
    const CommandState state = StateOf(*m_session);
    UpdateCommands(state);
    m_area->viewport()->update(); // what it says while it is empty
    for (ChildWindow* const window : ChildWindowsIn(*m_area))
        window->MarkChanges();
    ShowRecentFiles();
    SetTitle();
    SetStatusBar(state);
}

void frmMain::UpdateCommands(const CommandState& State)
{
    for (const auto& [command, action] : m_ruled) {
        const CommandRule rule = RuleFor(command, State);
        action->setEnabled(rule.Enabled);
        action->setChecked(rule.Checked);
    }
    if (State.ZoomPercent)
        m_zoomBox->setCurrentIndex(static_cast<int>(ZoomIndexOf(*State.ZoomPercent)));
}

void frmMain::SetTitle()
{
    const clsDocument* const active = m_session->Active();
    m_title = "Morvane";
    if (active)
        m_title.prepend(MarkableTitle(QString::fromStdString(active->ShownName())) + " - ");
    m_isMarked = active && active->HasUnsavedChanges();
    setWindowTitle(m_title);
    setWindowModified(m_isMarked);
}

// A maximised window would add its name a second time, and take the mark with it when it is
// restored.
void frmMain::changeEvent(QEvent* Event)
{
    QMainWindow::changeEvent(Event);
    if (Event->type() == QEvent::WindowTitleChange && windowTitle() != m_title)
        setWindowTitle(m_title);
    if (Event->type() == QEvent::ModifiedChange && isWindowModified() != m_isMarked)
        setWindowModified(m_isMarked);
    if (Event->type() == QEvent::WindowStateChange && m_isGrown && !isMaximized()
        && !isMinimized()) {
        m_isGrown = false;
        TakeKeptPlace();
    }
}

void frmMain::SetHourglass(bool Shown)
{
    if (Shown == m_hourglass)
        return;
    m_hourglass = Shown;
    if (Shown)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void frmMain::PutOnClipboard(const std::string& Text)
{
    QApplication::clipboard()->setText(QString::fromStdString(Text));
}

std::optional<InputAnswer> frmMain::AskInput(const InputRequest& Request)
{
    frmInput prompt(Request, *m_settings, this);
    if (prompt.exec() != QDialog::Accepted)
        return std::nullopt;
    return prompt.Answer();
}

// A tool window that comes before its owner would end up below it.
void frmMain::showEvent(QShowEvent* Event)
{
    QMainWindow::showEvent(Event);
    if (m_placed || !m_session)
        return;
    m_placed = true;
    for (ToolWindow* const window : m_toolWindows)
        QMetaObject::invokeMethod(window, &ToolWindow::Restore, Qt::QueuedConnection);
}

void frmMain::closeEvent(QCloseEvent* Event)
{
    if (m_isClosing) { // a question of that time is still on the screen
        Event->ignore();
        return;
    }
    const QScopedValueRollback closing(m_isClosing, true);
    Event->setAccepted(m_session->CloseAllAsking());
    if (!Event->isAccepted())
        return;
    if (const FileResult written = WriteSettings(); !written)
        m_session->TellUnsavedSettings(written);
    for (ToolWindow* const window : m_toolWindows)
        window->HideWithOwner();
}

void frmMain::EndUnasked()
{
    m_session->CloseAllDocuments();
    WriteSettings();
    QApplication::exit();
}

void frmMain::dragEnterEvent(QDragEnterEvent* Event)
{
    if (LocalFiles(*Event->mimeData()).empty())
        return;
    Event->setDropAction(Qt::CopyAction);
    Event->accept();
}

void frmMain::dropEvent(QDropEvent* Event)
{
    Event->setDropAction(Qt::CopyAction);
    Event->accept();
    OpenQueued(LocalFiles(*Event->mimeData()));
}

} // namespace morvane
