// The session's side of the edit menu: the texts of a document that the user takes out or puts in.
#include "shell/modMain.h"

namespace morvane {
namespace {

// In bytes: a document keeps each text on a line of its own, with two for a line break, and no
// reader takes longer lines than LineReader.
constexpr std::size_t LongestText = LineReader::MaxLineLength / 4;

// False if Text was longer. A character in UTF-8 stays whole; its bytes behind the first are
// 10xxxxxx.
bool CutText(std::string& text)
{
    if (text.size() <= LongestText)
        return true;
    std::size_t end = LongestText;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xc0) == 0x80)
        --end;
    text.resize(end);
    return false;
}

} // namespace

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
    UserData taken = Typed;
    bool isWhole = true;
    for (std::string* const text :
        {&taken.Description, &taken.Date, &taken.Operator, &taken.Comments})
        isWhole = CutText(*text) && isWhole;
    if (Of.Optic != taken) {
        Of.Optic = taken;
        Of.Modified = true;
    }
    Prefs.SetAsDefault = AsDefault;
    if (AsDefault) {
        Prefs.DefaultUserData = taken;
        if (m_settings) {
            ChooseDefaultUserData(*m_settings, Prefs);
            m_settings->Save(); // what fails is tried, and told, again at the end
        }
    }
    m_frame.UpdateMainFrame();
    if (!isWhole)
        ShowMessage("Only the first " + std::to_string(LongestText)
                + " bytes of each text of the user data are kept",
            MessageWarningSign, "Warning");
}

} // namespace morvane
