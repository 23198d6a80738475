#include "shell/qt/ElidedLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace morvane {

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

QString ElidedLabel::Shown() const
{
    return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(),
        isEnabled(), Shown(), foregroundRole());
}

bool ElidedLabel::event(QEvent* Event)
{
    if (Event->type() != QEvent::ToolTip)
        return QLabel::event(Event);
    const QString tip = Shown() == text() ? QString() : text();
    QToolTip::showText(static_cast<QHelpEvent*>(Event)->globalPos(), tip, this);
    return true;
}

} // namespace morvane
