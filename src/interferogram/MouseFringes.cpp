// What the mouse tools do to the fringe store.
#include "interferogram/MouseTools.h"

namespace morvane {

void MouseTools::SaveFringe(int Order)
{
    // The clicks of a figure are its own, whatever happens to the orders meanwhile.
    if (m_numClicks == 0 || m_target != DrawTarget::FringeCenters)
        return;
    const int before = m_document.Fringes.TotalNumTicks();
    int index = m_document.Fringes.GetFringeIndex(Order);
    if (index == NoFringe)
        m_document.Fringes.InsertOrder(Order, Clicks());
    else
        m_document.Fringes.AddCenters(Order, Clicks(), index);
    m_numClicks = 0;
    FringesChanged();
    if (m_document.Fringes.TotalNumTicks() == before) // refused: their marks must not stay
        m_host.Repaint();
}

bool MouseTools::InsertFringe(int Order)
{
    const clsFringes& fringes = m_document.Fringes;
    for (int index = 1; index <= fringes.NumFringes(); ++index) {
        const int order = fringes.GetFringeOrder(index);
        if (order != NoFringe && order >= Order && order >= MaxFringes)
            return false;
    }
    m_document.Fringes.Renumber(Order, false);
    FringesChanged();
    return true;
}

void MouseTools::DeleteFringe(int Order)
{
    Forget();
    m_document.Fringes.DeleteOrder(Order);
    FringesChanged();
}

void MouseTools::RenumberFringe(int NewOrder, int OldOrder)
{
    if (NewOrder == OldOrder)
        return;
    Forget();
    clsFringes& fringes = m_document.Fringes;
    int into = fringes.GetFringeIndex(NewOrder), from = fringes.GetFringeIndex(OldOrder);
    if (into == NoFringe) {
        fringes.SetOrder(NewOrder, from);
    } else if (fringes.CombineOrders(NewOrder, OldOrder, into, from)) {
        fringes.Defrag(NoFringe);
        fringes.Renumber(OldOrder, true);
    }
    FringesChanged();
    m_host.Repaint();
}

void MouseTools::DeleteHoverCenter()
{
    if (m_hover.Type != ObjectType::FringeCenter)
        return;
    m_document.Fringes.DeleteCenter(m_hover.Order, m_hover.Tick, m_hover.Index);
    Forget();
    FringesChanged();
    m_host.Repaint();
}

void MouseTools::FringesChanged()
{
    m_document.AnalysisValid = false;
    NoteChange();
}

} // namespace morvane
