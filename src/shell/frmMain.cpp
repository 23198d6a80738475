#include "shell/frmMain.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMdiArea>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>

#include "analysis/frmAnalyze.h"
#include "interferogram/frmImage.h"
#include "shell/qt/Appearance.h"
#include "shell/qt/Tiling.h"
#include "shell/qt/WindowPlaces.h"
#include "shell/qt/WorkArea.h"
#include "views/frmText.h"

namespace morvane {
namespace {

QAction* AddCommand(QMenu& To, const char* Name, const char* Caption)
{
    QAction* const action = To.addAction(Caption);
    action->setObjectName(Name);
    return action;
}

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
    setWindowTitle("Morvane");
    setAcceptDrops(true);
    setCentralWidget(m_area);
    m_imageSize->setObjectName("lblImageSize");
    statusBar()->addPermanentWidget(m_imageSize);
    MakeFileMenu();
    MakeViewMenu();
    MakeProcessMenu();
    MakeWindowMenu();
    MakeHelpMenu();
    PlaceOnScreen();
    connect(m_area, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* front) {
        if (auto* const window = dynamic_cast<ChildWindow*>(front); window && m_session)
            window->Activated();
    });
}

void frmMain::PlaceOnScreen()
{
    const QRect room = screen()->availableGeometry();
    resize(QSize(1440, 900).boundedTo(room.size() * 0.92));
    move(room.center() - rect().center());
}

void frmMain::Attach(Session& Shown)
{
    m_session = &Shown;
    m_analyze = new frmAnalyze(Shown, this);
    connect(m_analyze, &frmAnalyze::VisibilityChanged, m_analyzeBox, &QAction::setChecked);
    UpdateMainFrame();
}

void frmMain::MakeFileMenu()
{
    QMenu& menu = *menuBar()->addMenu("&File");
    QAction* const open = AddCommand(menu, "mnuFileOpen", "&Open...");
    open->setShortcut(QKeySequence::Open);
    connect(open, &QAction::triggered, this, &frmMain::OpenDialog);
    m_close = AddCommand(menu, "mnuFileClose", "&Close");
    m_close->setShortcut(QKeySequence("Ctrl+W"));
    connect(m_close, &QAction::triggered, this, &frmMain::CloseActive);
    menu.addSeparator();
    QAction* const exit = AddCommand(menu, "mnuFileExit", "E&xit");
    exit->setShortcut(QKeySequence("Ctrl+Q"));
    connect(exit, &QAction::triggered, this, &QWidget::close);
}

void frmMain::MakeViewMenu()
{
    QMenu& menu = *menuBar()->addMenu("&View");
    m_analyzeBox = AddCommand(menu, "mnuViewAnalyzeBox", "&Analyze");
    m_analyzeBox->setCheckable(true);
    connect(m_analyzeBox, &QAction::triggered, this,
        [this](bool shown) { m_analyze->setVisible(shown); });
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
    for (QMdiSubWindow* const window : m_area->subWindowList()) {
        if (!window->isVisible())
            continue;
        QAction* const action = Below.addAction(window->windowTitle().replace("&", "&&"));
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

void frmMain::OpenDialog()
{
    // The names of the filters say what the user knows; the patterns behind them match either case.
    const QStringList filters{"All Files (*.*)(*)",
        "Graphic Files (*.jpg *.bmp *.rle)"
        "(*.jpg *.bmp *.rle *.JPG *.BMP *.RLE)"};
    QFileDialog dialog(this, tr("Open"), m_openFolder);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.last());
    if (dialog.exec() != QDialog::Accepted)
        return;
    m_openFolder = dialog.directory().absolutePath();
    m_session->OpenFiles(ToPaths(dialog.selectedFiles()), false);
}

void frmMain::CloseActive()
{
    if (clsDocument* const active = m_session->Active())
        m_session->CloseDocument(*active);
}

void frmMain::ShowAbout()
{
    QMessageBox::about(this, "About Morvane",
        "<h3>Morvane " + QApplication::applicationVersion()
            + "</h3><p>Analyzes interferograms of mirrors and lenses: from the "
              "picture of the fringes to the aberrations of the optic.</p>");
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
    SetStatusBar();
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

// A tool window that comes before its owner would end up below it.
void frmMain::showEvent(QShowEvent* Event)
{
    QMainWindow::showEvent(Event);
    if (m_placed || !m_analyze)
        return;
    m_placed = true;
    QMetaObject::invokeMethod(this, &frmMain::ShowAnalysis, Qt::QueuedConnection);
}

void frmMain::ShowAnalysis()
{
    const QPoint place = PlaceOfAnalysis(m_area->size(), m_analyze->sizeHint());
    m_analyze->move(m_area->mapToGlobal(place));
    m_analyze->show();
}

void frmMain::closeEvent(QCloseEvent* Event)
{
    m_session->CloseAllDocuments();
    m_analyze->hide();
    QMainWindow::closeEvent(Event);
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
    m_session->OpenFiles(ToPaths(LocalFiles(*Event->mimeData())), false);
}

} // namespace morvane
