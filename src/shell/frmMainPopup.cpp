// The right button's menu over a picture.
#include <QCursor>
#include <QMenu>

#include "shell/frmMain.h"

namespace morvane {

void frmMain::MakePopup()
{
    m_popup->setObjectName("mnuPopupFringe");
    m_popup->setAttribute(
        Qt::WA_NoMouseReplay); // the click that closes it is no click on the picture
    connect(m_popup, &QMenu::aboutToHide, this, [this] { m_session->Tools.PopupActive = false; });
    const auto item = [this](const char* name, const char* caption, auto act) -> QAction& {
        return Add(*m_popup, name, caption, [this, act] {
            m_session->Tools.PopupActive = false;
            act(*m_session);
        });
    };
    const auto step = [](int by) {
        return [by](Session& in) { in.SelectOrder(in.Tools.CurrentOrder() + by); };
    };
    const auto add = [](ShapeRole role) { return [role](Session& in) { in.AddShape(role); }; };
    const auto clear = [](ShapeRole role) { return [role](Session& in) { in.ClearShape(role); }; };
    const auto trace = [](FringeDirection direction) {
        return [direction](Session& in) { in.TraceFringes(direction); };
    };
    item("mnuPopupFringe_DeleteCenter", "Delete Fringe Center",
        [](Session& in) { in.DeleteFringeCenter(); });
    item("mnuPopupFringe_IncreaseOrder", "Increase Current Order", step(1));
    item("mnuPopupFringe_DecreaseOrder", "Decrease Current Order", step(-1));
    m_popup->addSeparator();
    item("mnuPopupFringe_Insert", "Insert Fringe Order", [](Session& in) { in.InsertFringe(); });
    item("mnuPopupFringe_Delete", "Delete Current Order", [](Session& in) { in.RemoveFringe(); });
    item("mnuPopupFringe_Renumber", "Renumber Fringes", [](Session& in) { in.RenumberFringe(); });
    m_popup->addSeparator();
    item("mnuPopupFringe_AddAperture", "Add Aperture", add(ShapeRole::Aperture));
    item("mnuPopupFringe_ClearAperture", "Clear Aperture", clear(ShapeRole::Aperture));
    item("mnuPopupFringe_AddObstruction", "Add Obstruction", add(ShapeRole::Obstruction));
    item("mnuPopupFringe_ClearObstruction", "Clear Obstruction", clear(ShapeRole::Obstruction));
    m_popup->addSeparator();
    item("mnuPopupFringe_TraceV", "Trace Vertically", trace(FringeDirection::Vertical));
    item("mnuPopupFringe_TraceH", "Trace Horizontally", trace(FringeDirection::Horizontal));
    item("mnuPopupFringe_Analyze", "Analyze Fringes", [](Session& in) { in.AnalyzeFringes(); });
    QAction& average = item("mnuPopupFringe_AddAverage", "Add To Average",
        [this](Session&) { Refuse("Averaging is not available yet.")(); });
    m_ruled.append({Command::AddAverage, &average});
}

void frmMain::ShowFringePopup(const FringePopup& Menu)
{
    const struct {
        const char* Name;
        bool Enabled;
        std::string Caption; // empty: it stays
    } items[] = {
        {"mnuPopupFringe_DeleteCenter", Menu.DeleteCenter, {}},
        {"mnuPopupFringe_AddAperture", Menu.AddAperture, Menu.AddApertureCaption},
        {"mnuPopupFringe_ClearAperture", Menu.ClearAperture, {}},
        {"mnuPopupFringe_AddObstruction", Menu.AddObstruction, Menu.AddObstructionCaption},
        {"mnuPopupFringe_ClearObstruction", Menu.ClearObstruction, {}},
    };
    for (const auto& item : items) {
        QAction& action = *m_popup->findChild<QAction*>(item.Name);
        action.setEnabled(item.Enabled);
        if (!item.Caption.empty())
            action.setText(QString::fromStdString(item.Caption));
    }
    m_popup->popup(QCursor::pos());
}

} // namespace morvane
