#include "shell/frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMenuBar>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStatusBar>

#include "analysis/frmAnalyze.h"
#include "interferogram/frmImage.h"
#include "interferogram/frmToolBox.h"
#include "shell/frmInput.h"
#include "shell/qt/Appearance.h"
#include "shell/qt/FileChooser.h"
#include "shell/qt/Screens.h"
#include "shell/qt/WorkArea.h"
#include "views/frmText.h"

namespace morvane {
namespace {

QStringList LocalFiles(const QMimeData& Dropped)
{
    QStringList paths;
    for (const QUrl& url : Dropped.urls())
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    return paths;
}

std::vector<std::string> ToPaths(const QStringList& Paths)
{
    std::vector<std::string> paths;
    for (const QString& path : Paths)
        paths.push_back(path.toStdString());
    return paths;
}

} // namespace

frmMain::frmMain() : m_area(new WorkArea(this)), m_imageSize(new QLabel(this))
{
    setWindowTitle(m_title);
    setAcceptDrops(true);
    setCentralWidget(m_area);
    m_imageSize->setObjectName("lblImageSize");
    statusBar()->addPermanentWidget(m_imageSize);
    MakeFileMenu();
    MakeViewMenu();
    MakeProcessMenu();
    MakeWindowMenu();
    MakeHelpMenu();
    connect(m_area, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* front) {
        if (auto* const window = dynamic_cast<ChildWindow*>(front); window && m_session)
            window->Activated();
    });
}

void frmMain::Attach(Session& Shown, SettingsStore& Settings)
{
    m_session = &Shown;
    m_settings = &Settings;
    m_analyze = new frmAnalyze(Shown, this);
    m_toolBox = new frmToolBox(Shown, this);
    ReadSettings();
    connect(m_analyze, &frmAnalyze::VisibilityChanged, m_analyzeBox, &QAction::setChecked);
    connect(m_toolBox, &frmToolBox::VisibilityChanged, this,
        [this](bool shown) { m_kept.Toolbox = shown; });
    UpdateMainFrame();
}

std::optional<FileChoice> frmMain::AskOpen(const FileRequest& Request)
{
    return AskOpenFiles(this, Request);
}

std::optional<FileChoice> frmMain::AskSave(const FileRequest& Request)
{
    return AskSaveFile(this, Request);
}

// After the event that asks for it: a message must keep neither a menu nor the program waiting that
// files are dropped from.
void frmMain::OpenQueued(std::vector<std::string> Paths)
{
    QMetaObject::invokeMethod(
        this, [this, paths = std::move(Paths)] { m_session->OpenFiles(paths, false); },
        Qt::QueuedConnection);
}

std::unique_ptr<ImageWindow> frmMain::CreateImageWindow(clsDocument& Of)
{
    auto window = std::make_unique<frmImage>(Of, *m_session);
    m_area->addSubWindow(window.get());
    window->hide();
    return window;
}

std::unique_ptr<TextWindow> frmMain::CreateTextWindow(clsDocument& Of, ViewType Kind)
{
    auto window = std::make_unique<frmText>(Of, Kind, *m_session);
    m_area->addSubWindow(window.get());
    window->hide();
    return window;
}

void frmMain::UpdateMainFrame()
{
    const CommandRules rules = RulesFor(StateOf(*m_session));
    m_close->setEnabled(rules.Close);
    m_save->setEnabled(rules.Save);
    m_saveAs->setEnabled(rules.SaveAs);
    m_exportMap->setEnabled(rules.Exports);
    m_exportZernikes->setEnabled(rules.Exports);
    m_adjustAspectRatio->setEnabled(rules.AdjustAspectRatio);
    m_grabImage->setEnabled(rules.Grab);
    m_grabberProps->setEnabled(rules.GrabberProperties);
    for (QAction* const trace : m_traces)
        trace->setEnabled(rules.Trace);
    m_analyzeFringes->setEnabled(rules.Analyze);
    for (QAction* const arrangement : m_arrangements)
        arrangement->setEnabled(rules.Arrange);
    m_aberrations->setEnabled(rules.Views);
    m_zernikes->setEnabled(rules.Views);
    m_aberrations->setChecked(rules.AberrationsChecked);
    m_zernikes->setChecked(rules.ZernikesChecked);
    m_area->viewport()->update(); // what it says while it is empty
    for (ChildWindow* const window : ChildWindowsIn(*m_area))
        window->MarkChanges();
    ShowRecentFiles();
    SetTitle();
    SetStatusBar();
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
}

void frmMain::SetStatusBar()
{
    const clsDocument* const active = m_session->Active();
    const RasterSize size = active ? active->GetImageSize() : RasterSize{NoSize, NoSize};
    m_imageSize->setText(
        size.Width == NoSize ? QString() : QString("%1x%2").arg(size.Width).arg(size.Height));
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

void frmMain::ShowHint(const std::string& Hint)
{
    statusBar()->showMessage(QString::fromStdString(Hint));
}

void frmMain::ShowPosition(const std::string&, const std::string&) { }

void frmMain::ShowFringePopup(const FringePopup&) { }

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
    if (m_placed || !m_analyze)
        return;
    m_placed = true;
    if (!IsReachable(frameGeometry()))
        move(screen()->availableGeometry().topLeft());
    if (m_kept.AnalyzeBox)
        QMetaObject::invokeMethod(this, &frmMain::ShowAnalysis, Qt::QueuedConnection);
    if (m_kept.Toolbox)
        QMetaObject::invokeMethod(this, &frmMain::ShowToolBox, Qt::QueuedConnection);
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
    WriteSettings();
    // Their commands stay checked: the user has not closed them.
    for (QWidget* const box : std::initializer_list<QWidget*>{m_analyze, m_toolBox}) {
        const QSignalBlocker quiet(box);
        box->hide();
    }
}

void frmMain::EndUnasked()
{
    m_session->CloseAllDocuments();
    WriteSettings();
    QApplication::exit();
}

void frmMain::dragEnterEvent(QDragEnterEvent* Event)
{
    if (LocalFiles(*Event->mimeData()).isEmpty())
        return;
    Event->setDropAction(Qt::CopyAction);
    Event->accept();
}

void frmMain::dropEvent(QDropEvent* Event)
{
    Event->setDropAction(Qt::CopyAction);
    Event->accept();
    OpenQueued(ToPaths(LocalFiles(*Event->mimeData())));
}

} // namespace morvane
