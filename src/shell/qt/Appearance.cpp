#include "shell/qt/Appearance.h"

#include <QApplication>
#include <QPalette>
#include <QProxyStyle>

namespace morvane {
namespace {

// Fusion without pictures on the buttons of its dialogs.
class PlainFusion final : public QProxyStyle {
public:
    PlainFusion() : QProxyStyle("Fusion") { }

    int styleHint(StyleHint Hint, const QStyleOption* Option, const QWidget* Widget,
        QStyleHintReturn* Data) const override
    {
        if (Hint == SH_DialogButtonBox_ButtonsHaveIcons)
            return false;
        return QProxyStyle::styleHint(Hint, Option, Widget, Data);
    }
};

} // namespace

void ApplyAppearance(QApplication& To)
{
    const QColor text(0x20, 0x24, 0x2a), faint(0x8b, 0x91, 0x9a), face(0xec, 0xee, 0xf1);
    QPalette colors(face);
    for (const QPalette::ColorRole role :
        {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        colors.setColor(role, text);
        colors.setColor(QPalette::Disabled, role, faint);
    }
    colors.setColor(QPalette::Base, Qt::white);
    colors.setColor(QPalette::AlternateBase, QColor(0xf6, 0xf7, 0xf9));
    colors.setColor(QPalette::ToolTipBase, Qt::white);
    colors.setColor(QPalette::PlaceholderText, faint);
    colors.setColor(QPalette::Highlight, QColor(0x3b, 0x6e, 0xa5));
    colors.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0xc3, 0xc9, 0xd1));
    colors.setColor(QPalette::HighlightedText, Qt::white);
    colors.setColor(QPalette::Inactive, QPalette::HighlightedText, text);
    colors.setColor(QPalette::Link, QColor(0x1f, 0x5a, 0x99));
    QApplication::setStyle(new PlainFusion);
    To.setPalette(colors);
}

} // namespace morvane
