// A document's window inside the frame: what picture and text windows have in common. The document
// owns it; its close box never destroys it but tells the session what the user wants.
#pragma once
#include <QMdiSubWindow>

#include "shell/modMain.h"

namespace morvane {

class ChildWindow : public QMdiSubWindow {
public:
    ChildWindow(clsDocument& Of, ViewType Kind, Session& In);

    // The window has come to the front.
    void Activated() { m_session.ActivateDocument(m_document, m_kind); }

protected:
    void ShowWindow(Activation How);
    void ShowCaption(const std::string& Caption);

    void showEvent(QShowEvent* Event) override;
    bool eventFilter(QObject* Watched, QEvent* Event) override;

    clsDocument& m_document;
    Session& m_session;
    const ViewType m_kind;

private:
    bool m_leavesFocus = false; // while it is being shown
};

} // namespace morvane
