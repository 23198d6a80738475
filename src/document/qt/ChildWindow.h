// A document's window inside the frame: what picture and text windows have in common. The document
// owns it; its close box never destroys it but tells the session what the user wants.
#pragma once
#include <QMdiSubWindow>

#include "shell/modMain.h"

namespace morvane {

// Of a window, with the place for the mark of changes at its end.
QString MarkableTitle(QString Name);

class ChildWindow : public QMdiSubWindow {
public:
    ChildWindow(clsDocument& Of, ViewType Kind, Session& In);

    // The window has come to the front.
    void Activated() { m_session.ActivateDocument(m_document, m_kind); }
    // Out of its icon and above the others, with the focus.
    void BringToFront() { ShowWindow(Activation::TakeFocus); }
    // As shown, without the mark.
    const QString& Caption() const { return m_caption; }
    // The frame has another size: an output view that nobody has placed stands where it suits.
    void FollowFrame();
    // Marks the caption while the document has unsaved changes.
    void MarkChanges() { setWindowModified(m_document.HasUnsavedChanges()); }

protected:
    void ShowWindow(Activation How);
    void HideWindow();
    void ShowCaption(const std::string& Caption);
    // Of the window as it is when neither maximised nor minimised.
    WindowPlace NormalPlace() const;
    void TakePlace(const WindowPlace& Place);
    // Of an output view: the default place says only that nobody has arranged the views yet.
    void TakePlaceOrFindRoom(const WindowPlace& Place);
    void FindRoom();
    // Where an output view suits best in the frame.
    virtual QRect Room(QSize WorkArea) const { return {{}, WorkArea}; }
    bool StandsWherePut() const { return m_isPlaced; }
    void TakeGeometry(const QRect& Normal);

    void showEvent(QShowEvent* Event) override;
    // Of an output view: it is hidden, and the document knows.
    void closeEvent(QCloseEvent* Event) override;
    void mousePressEvent(QMouseEvent* Event) override;
    void moveEvent(QMoveEvent* Event) override;
    void resizeEvent(QResizeEvent* Event) override;
    bool eventFilter(QObject* Watched, QEvent* Event) override;

    clsDocument& m_document;
    Session& m_session;
    const ViewType m_kind;

private:
    void NotePlace();
    void Activate();
    // Of the frame's area; places are those of an area that is not scrolled.
    QPoint Scrolled() const;

    QString m_caption;
    QRect m_normal;
    bool m_isPlaced = false;
    bool m_takesPlace = false; // while it is being placed
    bool m_leavesFocus = false; // while it is being shown
};

QList<ChildWindow*> ChildWindowsIn(const QMdiArea& Area);

} // namespace morvane
