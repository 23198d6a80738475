// The session's workspace: whether all interferograms share the places of one set of output views.
#include "shell/modMain.h"

namespace morvane {

void Session::ShareViews(bool Common)
{
    if (Common == Prefs.HogWindows)
        return;
    if (Active() && Common)
        GatherViews();
    else if (Active())
        SpreadViews();
    Prefs.HogWindows = Common;
}

// Each further document a step of the cascade beyond the one before, the active one on top.
void Session::SpreadViews()
{
    int steps = 0;
    for (int slot = 1; slot <= MaxDocuments; ++slot) {
        clsDocument* const other = Document(slot);
        if (!other || slot == m_activeDocument || !other->OutputViewsExist())
            continue;
        ++steps;
        other->OutputViews_ShowNoActivate();
        other->OutputViews_Offset(steps * Prefs.CascadeX, steps * Prefs.CascadeY, true);
    }
    clsDocument& active = *Active();
    active.OutputViews_Select(ViewType::Interferogram);
    active.OutputViews_UpdateVisibility(Activation::LeaveFocus);
    for (const ViewType view : OutputViewTypes)
        active.OutputViews_Select(view);
}

// All sets lie on one another at the places of one of them, and only the active document's shows.
void Session::GatherViews()
{
    clsDocument* model = Active();
    for (int slot = 1; slot <= MaxDocuments && !model->OutputViewsExist(); ++slot)
        if (Document(slot) && Document(slot)->OutputViewsExist())
            model = Document(slot);
    model->OutputViews_NotePlaces();
    for (int slot = 1; slot <= MaxDocuments; ++slot)
        if (clsDocument* const other = Document(slot)) {
            if (slot != m_activeDocument)
                other->OutputViews_HideAll();
            other->OutputViews_TakePlaces();
        }
    Active()->OutputViews_ShowNoActivate();
}

} // namespace morvane
