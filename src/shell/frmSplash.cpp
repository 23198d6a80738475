#include "shell/frmSplash.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QSysInfo>

namespace morvane {
namespace {

constexpr int PictureSize = 96, Margin = 24;

QLabel* MakeText(const QString& text, double size, bool bold)
{
    auto* const label = new QLabel(text);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * size);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

} // namespace

frmSplash::frmSplash(QWidget* Owner)
    : QDialog(Owner, Owner ? Qt::Dialog : Qt::SplashScreen | Qt::WindowStaysOnTopHint)
{
    setObjectName("frmSplash");
    setWindowTitle(tr("About Morvane"));
    auto* const picture = new QLabel;
    picture->setPixmap(QIcon(":/icons/morvane.svg").pixmap(PictureSize, PictureSize));
    auto* const texts = new QVBoxLayout;
    texts->addStretch();
    texts->addWidget(MakeText("Morvane", 2, true));
    texts->addWidget(MakeText(
        tr("Version %1, %2").arg(QApplication::applicationVersion(), QSysInfo::prettyProductName()),
        1, false));
    texts->addSpacing(Margin / 2);
    texts->addWidget(MakeText(tr("Analyzes interferograms of mirrors and lenses: from the\n"
                                 "picture of the fringes to the aberrations of the optic."),
        1, false));
    texts->addStretch();
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(Margin, Margin, Margin, Margin);
    row->setSpacing(Margin);
    row->addWidget(picture);
    row->addLayout(texts);
    row->setSizeConstraint(QLayout::SetFixedSize);
    if (Owner)
        return;
    adjustSize();
    move(screen()->availableGeometry().center() - rect().center());
}

void frmSplash::mousePressEvent(QMouseEvent*)
{
    close();
}

// A splash has no frame of the window system.
void frmSplash::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace morvane
