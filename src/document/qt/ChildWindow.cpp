#include "document/qt/ChildWindow.h"

#include <QCloseEvent>
#include <QMdiArea>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollBar>

#include "shell/qt/WindowPlaces.h"

namespace morvane {

QString MarkableTitle(QString Name)
{
    // "[*]" in a file name is no mark of a change.
    return Name.replace("[*]", "[*][*]") + "[*]";
}

ChildWindow::ChildWindow(clsDocument& Of, ViewType Kind, Session& In)
    : m_document(Of), m_session(In), m_kind(Kind)
{
    setAttribute(Qt::WA_DeleteOnClose, false);
    setWindowTitle(MarkableTitle({}));
    // Ctrl+W is the main window's; the same on both would do nothing at all.
    for (QAction* const action : systemMenu()->actions())
        if (action->shortcut() == QKeySequence("Ctrl+W"))
            action->setShortcut(QKeySequence("Ctrl+F4"));
}

void ChildWindow::ShowWindow(Activation How)
{
    if (How == Activation::LeaveFocus) {
        const QScopedValueRollback quiet(m_leavesFocus, true);
        const bool appears = !isVisible();
        setVisible(true);
        if (appears)
            raise();
        return;
    }
    if (isMinimized())
        showNormal();
    else
        show();
    if (mdiArea())
        Activate();
}

// As a normal one: a view that comes back with its set must not cover the others, and a hidden
// window cannot be restored without being shown and activated.
void ChildWindow::HideWindow()
{
    if (isVisible() && (isMaximized() || isMinimized()))
        setWindowState(Qt::WindowNoState);
    hide();
}

// The area also raises the window that was active before, over views that were shown without the
// focus; and it does nothing for the active one, however deep it lies. So: the windows as they lay,
// this one over them, and on top what has appeared with it.
void ChildWindow::Activate()
{
    const auto shown = [area = mdiArea()] {
        QList<QMdiSubWindow*> windows = area->subWindowList(QMdiArea::StackingOrder);
        windows.removeIf([](const QMdiSubWindow* window) { return !window->isVisible(); });
        return windows;
    };
    const QList<QMdiSubWindow*> before = shown();
    mdiArea()->setActiveSubWindow(this);
    const QList<QMdiSubWindow*> after = shown();
    for (QMdiSubWindow* const window : before)
        if (after.contains(window))
            window->raise();
    raise();
    for (QMdiSubWindow* const window : after)
        if (!before.contains(window))
            window->raise();
}

void ChildWindow::mousePressEvent(QMouseEvent* Event)
{
    raise();
    QMdiSubWindow::mousePressEvent(Event);
}

void ChildWindow::ShowCaption(const std::string& Caption)
{
    m_caption = QString::fromStdString(Caption);
    setWindowTitle(MarkableTitle(m_caption));
    MarkChanges();
}

WindowPlace ChildWindow::NormalPlace() const
{
    // A hidden window is not told of its moves.
    const bool isNormal = !isMaximized() && !isMinimized();
    const QRect place = isNormal ? geometry().translated(Scrolled()) : m_normal;
    return {place.left(), place.top(), place.width(), place.height()};
}

// A place may come from a file: no window needs to be larger than the whole desktop.
void ChildWindow::TakePlace(const WindowPlace& Place)
{
    const QSize size(Place.Width, Place.Height);
    TakeGeometry({QPoint(Place.Left, Place.Top), size.boundedTo(screen()->virtualSize())});
}

void ChildWindow::TakePlaceOrFindRoom(const WindowPlace& Place)
{
    const bool isArranged = Place != m_session.GetPreferences().DefaultPlaces.At(m_kind);
    if (isArranged || !mdiArea()) {
        TakePlace(Place);
        m_isPlaced = true;
    } else {
        FindRoom();
    }
}

void ChildWindow::FindRoom()
{
    const Preferences& preferences = m_session.GetPreferences();
    const QSize area = mdiArea()->size();
    const QPoint step(preferences.CascadeX, preferences.CascadeY);
    TakeGeometry(preferences.HogWindows
            ? Room(area)
            : PlaceInCascade(area, Room(area), step, m_document.DocNumber));
    m_isPlaced = false;
}

void ChildWindow::FollowFrame()
{
    if (m_kind != ViewType::Interferogram && !m_isPlaced && !isMaximized() && !isMinimized())
        FindRoom();
}

QPoint ChildWindow::Scrolled() const
{
    const QMdiArea* const area = mdiArea();
    return area ? QPoint(area->horizontalScrollBar()->value(), area->verticalScrollBar()->value())
                : QPoint();
}

// A maximised or minimised window would go back to the place that it remembers itself.
void ChildWindow::TakeGeometry(const QRect& Normal)
{
    const QScopedValueRollback quiet(m_takesPlace, true);
    if (isMaximized() || isMinimized())
        setWindowState(Qt::WindowNoState);
    setGeometry(Normal.translated(-Scrolled()));
    m_normal = geometry().translated(Scrolled());
}

void ChildWindow::moveEvent(QMoveEvent* Event)
{
    QMdiSubWindow::moveEvent(Event);
    NotePlace();
}

void ChildWindow::resizeEvent(QResizeEvent* Event)
{
    QMdiSubWindow::resizeEvent(Event);
    NotePlace();
}

void ChildWindow::NotePlace()
{
    const QRect place = geometry().translated(Scrolled());
    if (isMaximized() || isMinimized() || m_takesPlace || place == m_normal)
        return;
    m_normal = place;
    m_isPlaced = true;
    // The common set of views stands where it was left last.
    Preferences& preferences = m_session.GetPreferences();
    if (m_kind != ViewType::Interferogram && preferences.HogWindows && isVisible())
        preferences.Places.At(m_kind) = NormalPlace();
}

// A sub window makes itself the active one when it or the widget inside is shown: both roads are
// closed while it is to leave the focus where it is.
void ChildWindow::showEvent(QShowEvent* Event)
{
    if (m_leavesFocus)
        QWidget::showEvent(Event); // NOLINT(bugprone-parent-virtual-call)
    else
        QMdiSubWindow::showEvent(Event);
}

void ChildWindow::closeEvent(QCloseEvent* Event)
{
    Event->ignore();
    m_session.HideView(m_document, m_kind);
}

bool ChildWindow::eventFilter(QObject* Watched, QEvent* Event)
{
    if (m_leavesFocus && Event->type() == QEvent::Show)
        return false;
    return QMdiSubWindow::eventFilter(Watched, Event);
}

// One that is being destroyed is none any more.
QList<ChildWindow*> ChildWindowsIn(const QMdiArea& Area)
{
    QList<ChildWindow*> windows;
    for (QMdiSubWindow* const window : Area.subWindowList())
        if (auto* const child = dynamic_cast<ChildWindow*>(window))
            windows.append(child);
    return windows;
}

} // namespace morvane
