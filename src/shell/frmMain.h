// The main window: menus, the tool bar, the area that holds the windows of all documents, the
// status bar, and the tool windows that float over it. Commands go to the session; what is enabled
// and checked comes from the rules of the session's state.
#pragma once
#include <QMainWindow>
#include <array>
#include <functional>

#include "shell/CommandRules.h"
#include "shell/MainWindowSettings.h"
#include "shell/modMain.h"
#include "shell/qt/ToolWindow.h"

class QActionGroup;
class QComboBox;
class QLabel;
class QMdiArea;
class QMdiSubWindow;

namespace morvane {

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
    std::unique_ptr<ProfileWindow> CreateProfileWindow(clsDocument& Of) override;
    void UpdateMainFrame() override;
    void SetHourglass(bool Shown) override;
    void ShowHint(const std::string& Hint) override;
    void ShowPosition(const std::string& Position, const std::string& Intensity) override;
    void ShowFringePopup(const FringePopup& Menu) override;
    void PutOnClipboard(const std::string& Text) override;
    std::optional<InputAnswer> AskInput(const InputRequest& Request) override;
    std::unique_ptr<Printer> AskPrinter(const PageRequest& Request) override;
    std::unique_ptr<Printer> DefaultPrinter(const PageRequest& Request) override;
    std::unique_ptr<Printer> PdfPrinter(
        const PageRequest& Request, const std::string& Path) override;
    DeviceSize ScreenSize() const override;
    std::string ProgramFolder() const override;
    std::optional<FileChoice> AskOpen(const FileRequest& Request) override;
    std::optional<FileChoice> AskSave(const FileRequest& Request) override;

protected:
    void showEvent(QShowEvent* Event) override;
    void changeEvent(QEvent* Event) override;
    void closeEvent(QCloseEvent* Event) override;
    void dragEnterEvent(QDragEnterEvent* Event) override;
    void dropEvent(QDropEvent* Event) override;

private:
    template <typename Window>
    std::unique_ptr<Window> AddWindow(std::unique_ptr<Window> Added);
    using Action = std::function<void()>;

    void ReadSettings();
    FileResult WriteSettings();
    template <typename Form>
    void AddToolWindow(Form* Window, const char* Command, const ToolWindowKeeping& Kept,
        ToolWindow::FirstPlace First);
    QRect AreaOnScreen() const;
    void TakeKeptPlace();

    QAction& Add(QMenu& To, const char* Name, const char* Caption, Action Act);
    // The rule says when it is enabled and checked.
    QAction& Add(QMenu& To, Command Rule, const char* Name, const char* Caption, Action Act);
    QAction& AddTool(Command Rule, const char* Name, const char* Caption, Action Act);
    // Does nothing without an active document.
    template <typename OnDocument>
    Action OnActive(OnDocument Act);
    Action Refuse(const char* Reason);
    void MakeFileMenu();
    void MakeRecentFiles(QMenu& In);
    void MakeEditMenu();
    void MakeViewMenu();
    void AddBars(QMenu& To);
    void AddBoxes(QMenu& To);
    void AddViews(QMenu& To);
    void MakeProcessMenu();
    void MakeWindowMenu();
    void ListWindows(QMenu& Below);
    void MakeHelpMenu();
    void ShowRecentFiles();
    void OpenQueued(std::vector<std::string> Paths);
    void ShowHelp();
    void ShowAbout();

    void MakePopup();
    void MakeTools();
    void SetShortcuts();
    void MakeToolBar();
    void MakeZoomBox();
    void MakeStatusBar();
    void UpdateCommands(const CommandState& State);
    void SetTitle();
    void SetStatusBar(const CommandState& State);
    void FocusOnDocument();

    // What the status bar, and the menu over a picture, are about.
    struct Scene {
        int Document = 0;
        std::optional<ViewType> View;
        std::optional<int> ZoomPercent;
        friend bool operator==(const Scene&, const Scene&) = default;
    };

    Session* m_session = nullptr;
    SettingsStore* m_settings = nullptr;
    MainWindowSettings m_kept; // of this window
    QString m_title = "Morvane";
    bool m_isMarked = false;
    QMdiArea* m_area;
    QToolBar* m_toolBar;
    QComboBox* m_zoomBox;
    QMenu* m_popup; // over a picture
    std::array<QLabel*, 4> m_panels; // hint, size, position, intensity
    Scene m_scene;
    QList<ToolWindow*> m_toolWindows;
    QActionGroup* m_windowList = nullptr;
    bool m_placed = false;
    bool m_isGrown = false; // its normal place is still to be given to it
    bool m_hourglass = false;
    bool m_isClosing = false;

    QList<std::pair<Command, QAction*>> m_ruled;
    std::array<QAction*, RecentFiles::MaxFiles> m_recentFiles;
    QAction* m_recentBar;
};

template <typename OnDocument>
frmMain::Action frmMain::OnActive(OnDocument Act)
{
    return [this, Act] {
        // Held, for a script may close it while a dialog is on the screen.
        if (const auto active = m_session->SharedDocument(m_session->ActiveDocument()))
            Act(*m_session, *active);
    };
}

} // namespace morvane
