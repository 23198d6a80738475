#include "shell/qt/Icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

namespace morvane {
namespace {

// What the drawings are made with. The accent reads on light and on dark faces as it stands.
constexpr char Ink[] = "#000001", Accent[] = "#d9631e";

class CommandIconEngine final : public QIconEngine {
public:
    explicit CommandIconEngine(const QByteArray& Drawing) : m_drawing(Drawing) { }

    QIconEngine* clone() const override { return new CommandIconEngine(*this); }

    void paint(QPainter* Painter, const QRect& Into, QIcon::Mode Mode, QIcon::State) override
    {
        QSvgRenderer renderer(Colored(Mode));
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        renderer.render(Painter, Into);
    }

    QPixmap pixmap(const QSize& Size, QIcon::Mode Mode, QIcon::State State) override
    {
        QPixmap picture(Size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, picture.rect(), Mode, State);
        return picture;
    }

private:
    QByteArray Colored(QIcon::Mode Mode) const
    {
        const bool disabled = Mode == QIcon::Disabled;
        const QByteArray text =
            QGuiApplication::palette()
                .color(disabled ? QPalette::Disabled : QPalette::Active, QPalette::ButtonText)
                .name()
                .toLatin1();
        QByteArray drawing = m_drawing;
        drawing.replace(Ink, text);
        return disabled ? drawing.replace(Accent, text) : drawing;
    }

    QByteArray m_drawing; // SVG
};

} // namespace

QIcon CommandIcon(const QString& Name)
{
    QFile file(":/icons/" + Name + ".svg");
    return file.open(QIODevice::ReadOnly) ? QIcon(new CommandIconEngine(file.readAll())) : QIcon();
}

} // namespace morvane
