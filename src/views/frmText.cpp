#include "views/frmText.h"

#include <QKeyEvent>
#include <QMdiArea>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocumentFragment>

#include "shell/qt/WindowPlaces.h"

namespace morvane {
namespace {

constexpr double StopsPerCharacter = 4; // a tab stop is a quarter of the average character
constexpr int TextMargin = 8;

// Keys that select, copy, move or ask for help; whatever would edit is none of them.
bool Passes(const QKeyEvent& Key)
{
    switch (Key.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_F1:
        return true;
    case Qt::Key_C:
        return Key.modifiers() == Qt::ControlModifier;
    default:
        return false;
    }
}

} // namespace

frmText::frmText(clsDocument& Of, ViewType Kind, Session& In)
    : OutputView(Of, Kind, In), m_text(new QPlainTextEdit)
{
    setObjectName(Kind == ViewType::Aberrations ? "frmAberrations"
            : Kind == ViewType::Zernikes        ? "frmZernikes"
                                                : "frmGridResults");
    m_text->setObjectName("txtOutput");
    m_text->setFrameShape(QFrame::NoFrame);
    m_text->setReadOnly(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setUndoRedoEnabled(false);
    m_text->setAcceptDrops(false); // a file dropped here is opened by the main window
    m_text->document()->setDocumentMargin(TextMargin);
    setWidget(m_text);
    m_text->viewport()->installEventFilter(this);
}

void frmText::Repaint()
{
    m_text->viewport()->update();
}

QRect frmText::Room(QSize WorkArea) const
{
    return PlaceOfText(WorkArea, m_kind, SizeOfText() + (sizeHint() - m_text->sizeHint()));
}

void frmText::SetText(const std::string& Text, const TextFont& Font, std::span<const int> TabStops)
{
    SetFont(Font);
    SetTabStops(TabStops);
    m_text->setPlainText(QString::fromStdString(Text));
    if (!std::exchange(m_hasText, true) && !IsPlaced() && mdiArea())
        FindRoom();
}

std::string frmText::TextToCopy() const
{
    const QTextCursor cursor = m_text->textCursor();
    const QString text =
        cursor.hasSelection() ? cursor.selection().toPlainText() : m_text->toPlainText();
    return text.toStdString();
}

void frmText::SetFont(const TextFont& Font)
{
    QFont font(QString::fromStdString(Font.FaceName), Font.Size);
    font.setStyleHint(QFont::Monospace);
    font.setBold(Font.Bold);
    font.setItalic(Font.Italic);
    font.setUnderline(Font.Underline);
    m_text->setFont(font);
    QPalette colors = m_text->palette();
    colors.setColor(QPalette::Text, QColor(Font.Ink.Red, Font.Ink.Green, Font.Ink.Blue));
    m_text->setPalette(colors);
}

void frmText::SetTabStops(std::span<const int> TabStops)
{
    const double unit = QFontMetricsF(m_text->font()).averageCharWidth() / StopsPerCharacter;
    QTextOption option = m_text->document()->defaultTextOption();
    QList<QTextOption::Tab> tabs;
    for (const int stop : TabStops)
        tabs.append(QTextOption::Tab(stop * unit, QTextOption::LeftTab));
    option.setTabs(tabs);
    m_text->document()->setDefaultTextOption(option);
}

QSize frmText::SizeOfText() const
{
    QSizeF size(0, 0);
    const QAbstractTextDocumentLayout& layout = *m_text->document()->documentLayout();
    for (QTextBlock block = m_text->document()->begin(); block.isValid(); block = block.next()) {
        const double height = layout.blockBoundingRect(block).height(); // lays the line out
        const double width = block.layout()->lineAt(0).naturalTextWidth();
        size = {std::max(size.width(), width), size.height() + height};
    }
    const int bar = m_text->verticalScrollBar()->sizeHint().width();
    return size.toSize() + QSize(2 * TextMargin + bar, 2 * TextMargin + bar);
}

bool frmText::eventFilter(QObject* Watched, QEvent* Event)
{
    // What is selected is copied by the box itself, before any command of the main window.
    if (Watched == m_text->viewport() && Event->type() == QEvent::MouseButtonPress)
        raise();
    if (Watched == m_text && Event->type() == QEvent::ShortcutOverride
        && m_text->textCursor().hasSelection()
        && static_cast<QKeyEvent*>(Event)->matches(QKeySequence::Copy)) {
        Event->accept();
        return true;
    }
    if (Watched == m_text && Event->type() == QEvent::KeyPress
        && !Passes(*static_cast<QKeyEvent*>(Event)))
        return true;
    return ChildWindow::eventFilter(Watched, Event);
}

} // namespace morvane
