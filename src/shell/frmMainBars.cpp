// The tool bar with the zoom box, the status bar, and the shortcuts.
#include <QActionGroup>
#include <QComboBox>
#include <QHBoxLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QStatusBar>
#include <QToolBar>

#include "interferogram/ZoomLevels.h"
#include "shell/frmMain.h"
#include "shell/qt/ElidedLabel.h"
#include "shell/qt/Icons.h"

namespace morvane {
namespace {

constexpr int IconSize = 20;
constexpr int ZoomBoxGap = 6, PanelGap = 8; // on either side
constexpr int Hint = 0, Size = 1, Position = 2, Intensity = 3; // panels

// Of the tool bar, from the left; without a name a gap.
constexpr struct {
    const char* Name = nullptr;
    const char* Icon = nullptr;
    const char* Tip = nullptr;
} Buttons[] = {
    {"mnuFileOpen", "open", "Open a picture or a document"},
    {"mnuFileSave", "save", "Save the document"},
    {"Print", "print", "Print at once"},
    {"mnuFilePageSetup", "page-setup", "Page setup"},
    {},
    {"mnuViewToolBox", "tool-box", "Toolbox"},
    {"mnuViewAnalyzeBox", "analyze-box", "Analysis"},
    {"mnuViewAverageBox", "average-box", "Average"},
    {"mnuViewGridAnalyzeBox", "grid-box", "Grid analysis"},
    {"mnuViewRefZernike", "reference-zernikes", "Reference Zernikes"},
    {"mnuViewMathBox", "math-box", "Math"},
    {},
    {"mnuViewSurfacePlot", "surface-plot", "Surface plot"},
    {"mnuViewContourPlot", "contour-plot", "Contour plot"},
    {"mnuViewLineProfile", "line-profile", "Line profile"},
    {"mnuViewSFringe", "synthetic-fringes", "Synthetic fringes"},
    {"mnuViewAberrations", "aberrations", "Aberrations"},
    {"mnuViewZernikes", "zernikes", "Zernikes"},
    {"mnuViewGridResults", "grid-results", "Grid results"},
    {},
    {"mnuProcessGrabImage", "grab-image", "Grab an image"},
    {"mnuProcessGrabberProps", "grabber-properties", "Grabber properties"},
    {"mnuProcessAdjustAspectRatio", "aspect-ratio", "Adjust the aspect ratio"},
    {"mnuProcessTraceH", "trace-horizontally", "Trace horizontally"},
    {"mnuProcessTraceV", "trace-vertically", "Trace vertically"},
    {},
    {"HandTool", "hand-tool", "Hand tool: pan and zoom"},
    {"EditTool", "edit-tool", "Edit tool: draw, add and move"},
    {"SetZoom", "", "Zoom"},
    {"ZoomIn", "zoom-in", "Zoom in"},
    {"ZoomOut", "zoom-out", "Zoom out"},
};

QString TipWithShortcut(const char* tip, const QAction& of)
{
    const QString keys = of.shortcut().toString(QKeySequence::NativeText);
    return keys.isEmpty() ? tip : QString("%1 (%2)").arg(tip, keys);
}

// The platform's keys for it, and the unshifted one of the plus key.
QList<QKeySequence> ZoomInKeys()
{
    QList<QKeySequence> keys = QKeySequence::keyBindings(QKeySequence::ZoomIn);
    if (const QKeySequence equal("Ctrl+="); !keys.contains(equal))
        keys.append(equal);
    return keys;
}

} // namespace

// Beside those of the menus; they hold while the tool bar is hidden too.
QAction& frmMain::AddTool(Command Rule, const char* Name, const char* Caption, Action Act)
{
    auto* const action = new QAction(Caption, this);
    action->setObjectName(Name);
    connect(action, &QAction::triggered, this, std::move(Act));
    addAction(action);
    m_ruled.append({Rule, action});
    return *action;
}

void frmMain::MakeTools()
{
    AddTool(Command::Print, "Print", "Print",
        OnActive([](Session& session, clsDocument& active) { session.PrintAtOnce(active); }));
    QAction& hand =
        AddTool(Command::HandTool, "HandTool", "Hand", [this] { m_session->SetEditMode(false); });
    QAction& edit =
        AddTool(Command::EditTool, "EditTool", "Edit", [this] { m_session->SetEditMode(true); });
    auto* const mode = new QActionGroup(this);
    for (QAction* const tool : {&hand, &edit}) {
        tool->setCheckable(true);
        mode->addAction(tool);
    }
    AddTool(Command::Zoom, "ZoomIn", "Zoom In", [this] { m_session->StepZoom(ZoomStep::In); });
    AddTool(Command::Zoom, "ZoomOut", "Zoom Out", [this] { m_session->StepZoom(ZoomStep::Out); });
    AddTool(
        Command::Zoom, "ZoomNormal", "Zoom to 100%", [this] { m_session->SetZoom(DefaultZoom); });
}

// None is a key that types text: they work in the tool windows too.
void frmMain::SetShortcuts()
{
    const std::pair<const char*, QList<QKeySequence>> shortcuts[] = {
        {"mnuFileOpen", {QKeySequence::Open}},
        {"mnuFileClose", {QKeySequence("Ctrl+W")}},
        {"mnuFileSave", {QKeySequence::Save}},
        {"mnuFileSaveAs", {QKeySequence("Ctrl+Shift+S")}},
        {"mnuFilePrint", {QKeySequence::Print}},
        {"Print", {QKeySequence("Ctrl+Shift+P")}},
        {"mnuFileExit", {QKeySequence("Ctrl+Q")}},
        {"mnuEditCopy", {QKeySequence::Copy}},
        {"mnuViewToolBox", {QKeySequence("Ctrl+1")}},
        {"mnuViewAnalyzeBox", {QKeySequence("Ctrl+2")}},
        {"mnuViewGridAnalyzeBox", {QKeySequence("Ctrl+3")}},
        {"mnuViewAverageBox", {QKeySequence("Ctrl+4")}},
        {"mnuViewRefZernike", {QKeySequence("Ctrl+5")}},
        {"mnuViewMathBox", {QKeySequence("Ctrl+6")}},
        {"mnuViewSurfacePlot", {QKeySequence("Alt+1")}},
        {"mnuViewContourPlot", {QKeySequence("Alt+2")}},
        {"mnuViewLineProfile", {QKeySequence("Alt+3")}},
        {"mnuViewSFringe", {QKeySequence("Alt+4")}},
        {"mnuViewAberrations", {QKeySequence("Alt+5")}},
        {"mnuViewZernikes", {QKeySequence("Alt+6")}},
        {"mnuViewGridResults", {QKeySequence("Alt+7")}},
        {"mnuProcessGrabImage", {QKeySequence("F5")}},
        {"mnuProcessTraceV", {QKeySequence("F6")}},
        {"mnuProcessTraceH", {QKeySequence("F7")}},
        {"mnuProcessAnalyzeFringes", {QKeySequence("F8")}},
        {"mnuHelpContents", {QKeySequence("F1")}},
        {"HandTool", {QKeySequence("F2")}},
        {"EditTool", {QKeySequence("F3")}},
        {"ZoomIn", ZoomInKeys()},
        {"ZoomOut", QKeySequence::keyBindings(QKeySequence::ZoomOut)},
        {"ZoomNormal", {QKeySequence("Ctrl+0")}},
    };
    for (const auto& [name, keys] : shortcuts)
        findChild<QAction*>(name)->setShortcuts(keys);
}

void frmMain::MakeToolBar()
{
    m_toolBar->setObjectName("tbToolbar");
    m_toolBar->setMovable(false);
    m_toolBar->setIconSize(QSize(IconSize, IconSize));
    for (const auto& button : Buttons) {
        if (!button.Name) {
            m_toolBar->addSeparator();
        } else if (button.Name == std::string_view("SetZoom")) {
            MakeZoomBox();
        } else {
            QAction& action = *findChild<QAction*>(button.Name);
            action.setIcon(CommandIcon(button.Icon));
            action.setIconVisibleInMenu(false);
            action.setToolTip(TipWithShortcut(button.Tip, action));
            m_toolBar->addAction(&action);
        }
    }
    addToolBar(m_toolBar);
}

// Only what the user chooses is "activated": it follows the program in silence.
void frmMain::MakeZoomBox()
{
    m_zoomBox->setObjectName("cboZoom");
    m_zoomBox->setAccessibleName("Zoom");
    m_zoomBox->setToolTip("Zoom");
    m_zoomBox->setFocusPolicy(Qt::TabFocus);
    m_zoomBox->setMaxVisibleItems(static_cast<int>(ZoomLevels.size()));
    for (const int percent : ZoomLevels)
        m_zoomBox->addItem(QString("%1%").arg(percent), percent);
    m_zoomBox->setCurrentIndex(static_cast<int>(ZoomIndexOf(DefaultZoom)));
    connect(m_zoomBox, &QComboBox::activated, this, [this] {
        m_session->SetZoom(m_zoomBox->currentData().toInt());
        FocusOnDocument();
    });
    auto* const margins = new QWidget;
    auto* const row = new QHBoxLayout(margins);
    row->setContentsMargins(ZoomBoxGap, 0, ZoomBoxGap, 0);
    row->addWidget(m_zoomBox);
    QAction* const place = m_toolBar->addWidget(margins);
    place->setObjectName("SetZoom");
    m_ruled.append({Command::Zoom, place});
}

// The keys of the mouse tools are for the picture again.
void frmMain::FocusOnDocument()
{
    if (const QMdiSubWindow* const front = m_area->activeSubWindow())
        front->widget()->setFocus();
}

// As wide as the longest text that they usually hold: nothing jumps while the mouse moves.
void frmMain::MakeStatusBar()
{
    const char* const widest[] = {"", "00000x00000", "(00000 ,00000)", "i: 000"};
    QStatusBar& bar = *statusBar();
    bar.setObjectName("sbStatusBar");
    for (std::size_t i = 0; i < m_panels.size(); ++i) {
        QLabel*& panel = m_panels[i];
        panel = i == Hint ? new ElidedLabel(&bar) : new QLabel(&bar);
        panel->setObjectName(QString("panel%1").arg(i + 1));
        panel->setTextFormat(Qt::PlainText);
        panel->setContentsMargins(PanelGap, 0, PanelGap, 0);
        if (i == Hint) {
            bar.addWidget(panel, 1);
            continue;
        }
        panel->setFixedWidth(panel->fontMetrics().horizontalAdvance(widest[i]) + 2 * PanelGap);
        bar.addPermanentWidget(panel);
    }
}

// Not while only the document's contents change: its first change comes in the middle of a drag,
// and the position is to stay.
void frmMain::SetStatusBar(const CommandState& State)
{
    const clsDocument* const active = m_session->Active();
    const RasterSize size = active ? active->GetImageSize() : RasterSize{NoSize, NoSize};
    m_panels[Size]->setText(
        size.Width == NoSize ? QString() : QString("%1x%2").arg(size.Width).arg(size.Height));
    if (State.ActiveView != ViewType::Interferogram)
        m_panels[Hint]->clear();
    const Scene scene{m_session->ActiveDocument(), State.ActiveView, State.ZoomPercent};
    if (scene == m_scene)
        return;
    m_scene = scene;
    m_panels[Position]->clear();
    m_panels[Intensity]->clear();
    m_popup->hide();
}

void frmMain::ShowHint(const std::string& Hint)
{
    m_panels[morvane::Hint]->setText(QString::fromStdString(Hint));
}

void frmMain::ShowPosition(const std::string& Position, const std::string& Intensity)
{
    m_panels[morvane::Position]->setText(QString::fromStdString(Position));
    m_panels[morvane::Intensity]->setText(QString::fromStdString(Intensity));
}

} // namespace morvane
