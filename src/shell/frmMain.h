// The main window: menus, the area that holds the windows of all documents, the status bar, and the
// tool windows that float over it. Commands go to the session; what is enabled and checked
// comes from the rules of the session's state.
#pragma once
#include <QMainWindow>
#include <QPointer>

#include "shell/BoxPlace.h"
#include "shell/CommandRules.h"
#include "shell/MainWindowSettings.h"
#include "shell/modMain.h"

class QActionGroup;
class QLabel;
class QMdiArea;
class QMdiSubWindow;

namespace morvane {

class frmAnalyze;
class frmToolBox;

class frmMain final : public QMainWindow, public MainFrame {
    Q_OBJECT

public:
    frmMain();

    // The session whose documents are shown from now on. It ends before the window does.
    // Settings give the window its place and boxes, and take all that is to be remembered when the
    // window closes.
    void Attach(Session& Shown, SettingsStore& Settings);

    // Ends the program where nobody is there to answer a question.
    void EndUnasked();

    std::unique_ptr<ImageWindow> CreateImageWindow(clsDocument& Of) override;
    std::unique_ptr<TextWindow> CreateTextWindow(clsDocument& Of, ViewType Kind) override;
    void UpdateMainFrame() override;
    void SetHourglass(bool Shown) override;
    void ShowHint(const std::string& Hint) override;
    void ShowPosition(const std::string& Position, const std::string& Intensity) override;
    void ShowFringePopup(const FringePopup& Menu) override;
    std::optional<InputAnswer> AskInput(const InputRequest& Request) override;
    std::optional<FileChoice> AskOpen(const FileRequest& Request) override;
    std::optional<FileChoice> AskSave(const FileRequest& Request) override;

protected:
    void showEvent(QShowEvent* Event) override;
    void changeEvent(QEvent* Event) override;
    void closeEvent(QCloseEvent* Event) override;
    void dragEnterEvent(QDragEnterEvent* Event) override;
    void dropEvent(QDropEvent* Event) override;

private:
    void ReadSettings();
    void WriteSettings();
    void MakeFileMenu();
    void MakeRecentFiles(QMenu& In);
    void MakeViewMenu();
    void MakeProcessMenu();
    void MakeWindowMenu();
    void ListWindows(QMenu& Below);
    void MakeHelpMenu();
    void ShowAnalysis();
    void ShowToolBox();
    void PlaceBox(QWidget& Box, QPoint Kept, QPoint Usual);
    void WriteBoxPlace(const PlaceKey& Key, const QWidget& Box);
    QRect AreaOnScreen() const;
    void ShowRecentFiles();
    void OpenQueued(std::vector<std::string> Paths);
    void ShowAbout();
    void SetTitle();
    void SetStatusBar();

    Session* m_session = nullptr;
    SettingsStore* m_settings = nullptr;
    // What the settings keep of this window.
    MainWindowSettings m_kept;
    QString m_title = "Morvane";
    bool m_isMarked = false;
    QMdiArea* m_area;
    QLabel* m_imageSize;
    QPointer<frmAnalyze> m_analyze;
    QPointer<frmToolBox> m_toolBox;
    QActionGroup* m_windowList = nullptr;
    bool m_placed = false;
    bool m_hourglass = false;
    bool m_isClosing = false;

    QAction *m_close, *m_save, *m_saveAs, *m_exportMap, *m_exportZernikes;
    std::array<QAction*, RecentFiles::MaxFiles> m_recentFiles;
    QAction* m_recentBar;
    QAction *m_analyzeBox, *m_aberrations, *m_zernikes, *m_adjustAspectRatio;
    QList<QAction*> m_traces, m_arrangements;
    QAction *m_grabImage, *m_grabberProps, *m_analyzeFringes;
};

} // namespace morvane
