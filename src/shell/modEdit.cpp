// The session's side of the edit menu: the texts of a document that the user takes out or puts in.
#include "shell/modMain.h"

namespace morvane {

void Session::CopyText()
{
    const clsDocument* const active = Active();
    if (!active || !active->OutputViewsExist())
        return;
    if (const TextWindow* const view = active->TextView(active->ActiveView))
        m_frame.PutOnClipboard(view->TextToCopy());
}

void Session::SetUserData(clsDocument& Of, const UserData& Typed, bool AsDefault)
{
    if (Document(Of.DocNumber) != &Of)
        return;
    if (Of.Optic != Typed) {
        Of.Optic = Typed;
        Of.Modified = true;
    }
    Prefs.SetAsDefault = AsDefault;
    if (AsDefault)
        Prefs.DefaultUserData = Typed;
    m_frame.UpdateMainFrame();
}

} // namespace morvane
