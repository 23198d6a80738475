#include "document/qt/ChildWindow.h"

#include <QEvent>
#include <QMdiArea>
#include <QScopedValueRollback>

namespace morvane {

ChildWindow::ChildWindow(clsDocument& Of, ViewType Kind, Session& In)
    : m_document(Of), m_session(In), m_kind(Kind)
{
    setAttribute(Qt::WA_DeleteOnClose, false);
}

void ChildWindow::ShowWindow(Activation How)
{
    if (How == Activation::LeaveFocus) {
        const QScopedValueRollback quiet(m_leavesFocus, true);
        setVisible(true);
        return;
    }
    if (isMinimized())
        showNormal();
    else
        show();
    if (mdiArea())
        mdiArea()->setActiveSubWindow(this);
}

void ChildWindow::ShowCaption(const std::string& Caption)
{
    // "[*]" in a file name is no mark of a change.
    setWindowTitle(QString::fromStdString(Caption).replace("[*]", "[*][*]"));
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

bool ChildWindow::eventFilter(QObject* Watched, QEvent* Event)
{
    if (m_leavesFocus && Event->type() == QEvent::Show)
        return false;
    return QMdiSubWindow::eventFilter(Watched, Event);
}

} // namespace morvane
