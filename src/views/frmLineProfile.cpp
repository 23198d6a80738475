#include "views/frmLineProfile.h"

#include <QMdiArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "shell/qt/WindowPlaces.h"
#include "views/qt/ProfileCanvas.h"

namespace morvane {

frmLineProfile::frmLineProfile(clsDocument& Of, Session& In)
    : OutputView(Of, ViewType::LineProfile, In), m_canvas(new ProfileCanvas),
      m_angle(new QScrollBar(Qt::Horizontal))
{
    setObjectName("frmLineProfile");
    m_angle->setObjectName("hsbLine");
    m_angle->setRange(0, 359);
    m_angle->setSingleStep(1);
    m_angle->setPageStep(5);
    m_angle->setInvertedControls(false); // else the left key would turn the line to the right
    m_angle->setFocusPolicy(Qt::StrongFocus);
    m_angle->setToolTip(tr("Angle of the line, in degrees"));
    auto* const inside = new QWidget;
    inside->setFocusProxy(m_angle);
    auto* const layout = new QVBoxLayout(inside);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_canvas, 1);
    layout->addWidget(m_angle);
    setWidget(inside);
    connect(m_angle, &QScrollBar::valueChanged, this, [this](int degrees) {
        if (m_canvas->height() < 1)
            return;
        const bool wasMarked = m_document.HasUnsavedChanges();
        m_document.RefreshLineViewData(degrees);
        if (!wasMarked)
            m_session.Frame().UpdateMainFrame();
        m_canvas->repaint();
    });
}

QRect frmLineProfile::Room(QSize WorkArea) const
{
    return PlaceOfProfile(WorkArea);
}

void frmLineProfile::Repaint()
{
    m_canvas->Renew();
}

void frmLineProfile::SetProfile(const ProfileData& Shown)
{
    const QSignalBlocker quiet(m_angle);
    m_angle->setValue(Shown.Angle);
    m_canvas->SetProfile(Shown);
}

} // namespace morvane
