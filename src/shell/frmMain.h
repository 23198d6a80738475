// The main window: menus, the area that holds the windows of all documents, the status bar, and the
// analysis window that floats over it. Commands go to the session; what is enabled and checked
// comes from the rules of the session's state.
#pragma once
#include <QMainWindow>
#include <QPointer>

#include "shell/CommandRules.h"
#include "shell/modMain.h"

class QActionGroup;
class QLabel;
class QMdiArea;
class QMdiSubWindow;

namespace morvane {

class frmAnalyze;

class frmMain final : public QMainWindow, public MainFrame {
    Q_OBJECT

public:
    frmMain();

    // The session whose documents are shown from now on. It ends before the window does.
    void Attach(Session& Shown);

    std::unique_ptr<ImageWindow> CreateImageWindow(clsDocument& Of) override;
    std::unique_ptr<TextWindow> CreateTextWindow(clsDocument& Of, ViewType Kind) override;
    void UpdateMainFrame() override;
    void SetHourglass(bool Shown) override;

protected:
    void showEvent(QShowEvent* Event) override;
    void closeEvent(QCloseEvent* Event) override;
    void dragEnterEvent(QDragEnterEvent* Event) override;
    void dropEvent(QDropEvent* Event) override;

private:
    void PlaceOnScreen();
    void MakeFileMenu();
    void MakeViewMenu();
    void MakeProcessMenu();
    void MakeWindowMenu();
    void ListWindows(QMenu& Below);
    void MakeHelpMenu();
    void ShowAnalysis();
    void OpenDialog();
    void CloseActive();
    void ShowAbout();
    void SetStatusBar();

    Session* m_session = nullptr;
    QMdiArea* m_area;
    QLabel* m_imageSize;
    QPointer<frmAnalyze> m_analyze;
    QActionGroup* m_windowList = nullptr;
    bool m_placed = false;
    bool m_hourglass = false;
    QString m_openFolder;

    QAction *m_close, *m_analyzeBox, *m_aberrations, *m_zernikes;
    QList<QAction*> m_traces, m_arrangements;
    QAction* m_analyzeFringes;
};

} // namespace morvane
