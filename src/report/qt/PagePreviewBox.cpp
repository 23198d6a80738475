#include "report/qt/PagePreviewBox.h"

#include <QPainter>
#include <QSvgRenderer>

#include "platform/qt/QtDevice.h"
#include "report/PagePreview.h"

namespace morvane {
namespace {

// Invalid if the view has no miniature.
void LoadMiniature(QSvgRenderer& into, PaneView of)
{
    for (const PaneChoice& choice : PaneChoices)
        if (choice.View == of && of != PaneView::None)
            into.load(":/miniatures/" + QString(choice.Name).toLower().replace(' ', '-') + ".svg");
}

void DrawMiniature(QPainter& on, const PreviewedPane& pane)
{
    QSvgRenderer miniature;
    LoadMiniature(miniature, pane.View);
    if (!miniature.isValid())
        return;
    const QSize size = miniature.defaultSize();
    const DeviceRect box = FitInto(pane.Box, {size.width(), size.height()});
    miniature.render(&on, QRectF(box.Left, box.Top, box.Width(), box.Height()));
}

} // namespace

void PagePreviewBox::ShowPage(const ReportPreferences& Chosen)
{
    m_chosen = Chosen;
    update();
}

void PagePreviewBox::paintEvent(QPaintEvent*)
{
    QImage picture(size() * devicePixelRatioF(), QImage::Format_RGB32);
    {
        QtDevice device(picture, qRound(devicePixelRatioF()));
        DrawPagePreview(device, m_chosen);
    }
    QPainter miniatures(&picture);
    for (const PreviewedPane& pane : PreviewedPanes({picture.width(), picture.height()}, m_chosen))
        DrawMiniature(miniatures, pane);
    miniatures.end();
    picture.setDevicePixelRatio(devicePixelRatioF());
    QPainter(this).drawImage(0, 0, picture);
}

} // namespace morvane
