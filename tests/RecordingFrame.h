// A main window and an answerer that record what they are asked, for tests without a screen.
#pragma once
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "RecordingDevice.h"
#include "shell/modMain.h"

namespace morvane {

// What the windows of a session have been told, in order: "Aberrations: show".
struct WindowLog {
    std::vector<std::string> Lines;

    bool Has(const std::string& Line) const
    {
        return std::find(Lines.begin(), Lines.end(), Line) != Lines.end();
    }
};

template <typename Window>
class RecordingWindow : public Window {
public:
    RecordingWindow(WindowLog& Log, std::string Name) : m_log(Log), m_name(std::move(Name)) { }
    ~RecordingWindow() override { Write("gone"); }

    void SetCaption(const std::string& Caption) override { Write("caption " + Caption); }
    void Show(Activation How) override
    {
        Write(How == Activation::TakeFocus ? "show with focus" : "show");
    }
    WindowPlace GetPlace() const override { return m_place; }
    void SetPlace(const WindowPlace& Place) override { m_place = Place; }
    bool IsPlaced() const override { return true; }
    void Hide() override { Write("hide"); }
    void Raise() override { Write("raise"); }
    void Repaint() override { Write("repaint"); }

protected:
    const std::string& Name() const { return m_name; }
    void Write(const std::string& Text) { m_log.Lines.push_back(m_name + ": " + Text); }

private:
    WindowLog& m_log;
    std::string m_name;
    WindowPlace m_place{10, 20, 300, 200};
};

// With mouse tools of its own, on a client of 400 by 300 pixels.
class RecordingImageWindow final : public RecordingWindow<ImageWindow>, public ToolsHost {
public:
    RecordingImageWindow(WindowLog& Log, clsDocument& Of, Session& In)
        : RecordingWindow(Log, "Image"), m_document(Of), m_session(In)
    {
    }
    void RefreshPicture() override { Write("picture"); }
    void RefreshContents() override
    {
        m_tools.Forget();
        Write("repaint");
    }
    void ResizeWindow() override { Write("resize"); }
    RasterSize WindowSize() const override { return {GetPlace().Width, GetPlace().Height}; }
    void SizeWindow(int Width, int Height) override
    {
        const WindowPlace place = GetPlace();
        SetPlace({place.Left, place.Top, Width, Height});
    }
    MouseTools& Tools() override { return m_tools; }
    int ZoomPercent() const override { return m_viewport.ZoomPercent(); }
    void SetZoom(int Percent) override
    {
        m_viewport.SetZoomPercent(Percent);
        m_viewport.Layout(400, 300, 1, m_document.GetImageSize());
    }

    bool IsActive() const override { return m_session.Active() == &m_document; }
    void Repaint() override { Write("repaint"); }
    void XorSelected() override { }
    void DrawClickMark(Point) override { Write("mark"); }
    void ShowPointer(PointerShape) override { }
    void ShowHint(std::string_view Hint) override
    {
        if (IsActive())
            m_session.Frame().ShowHint(std::string(Hint));
    }
    void ShowPosition(const std::string&, const std::string&) override { }
    void Scrolled() override { Write("scrolled"); }
    void ZoomTo(int Percent) override { SetZoom(Percent); }
    void ShowPopup(const FringePopup& Menu) override { m_session.Frame().ShowFringePopup(Menu); }
    void SelectOrder(int Order) override { m_session.SelectOrder(Order); }
    void MarkChanges() override { m_session.Frame().UpdateMainFrame(); }

private:
    clsDocument& m_document;
    Session& m_session;
    ImageViewport m_viewport;
    MouseTools m_tools{m_document, m_viewport, m_session.Tools, *this};
};

class RecordingTextWindow final : public RecordingWindow<TextWindow> {
public:
    using RecordingWindow::RecordingWindow;
    void SetText(const std::string& Text, const TextFont&, std::span<const int>) override
    {
        Write("text " + Text.substr(0, Text.find('\r')));
    }
    std::string TextToCopy() const override { return "copied from " + Name(); }
};

class RecordingProfileWindow final : public RecordingWindow<ProfileWindow> {
public:
    using RecordingWindow::RecordingWindow;
    void SetProfile(const ProfileData& Shown) override
    {
        Write("profile at " + std::to_string(Shown.Angle));
    }
};

// What a printer has been asked, and how it answers: the step named in FailsAt fails.
struct PrinterLog {
    std::vector<std::string> Steps;
    std::string FailsAt;
    PageRequest Request;
    std::string Path; // of a PDF
    RecordingDevice Page;
};

class RecordingPrinter final : public Printer {
public:
    explicit RecordingPrinter(PrinterLog& Log) : m_log(Log) { }

    std::string Name() const override { return "Laser"; }
    bool Open() override { return Step("open"); }
    std::string ChangePageSettings() override
    {
        return Step("settings") ? "" : "Error changing page settings.";
    }
    bool StartDoc() override { return Step("start"); }
    bool StartPage() override { return Step("page"); }
    Device& Page() override { return m_log.Page; }
    bool EndPage() override { return Step("end page"); }
    bool EndDoc() override { return Step("end"); }

private:
    bool Step(const std::string& name)
    {
        m_log.Steps.push_back(name);
        return name != m_log.FailsAt;
    }

    PrinterLog& m_log;
};

class RecordingFrame final : public MainFrame {
public:
    WindowLog Log;
    int Updates = 0;
    bool Hourglass = false;
    bool RefuseWindows = false;
    // What the user chooses in the next dialogs, in order; none left is a cancelled dialog.
    std::vector<FileChoice> Choices;
    std::vector<FileRequest> Requests;
    std::string LastHint;
    std::string Clipboard;
    std::vector<FringePopup> Popups;
    std::vector<InputRequest> Inputs;
    std::optional<std::string> TypedText; // into every such dialog; none cancels it
    Session* Shown = nullptr;
    PrinterLog Printing;
    bool CancelPrinting = false; // in the dialog

    void UpdateMainFrame() override { ++Updates; }
    void SetHourglass(bool Shown) override { Hourglass = Shown; }
    std::optional<FileChoice> AskOpen(const FileRequest& Request) override { return Ask(Request); }
    std::optional<FileChoice> AskSave(const FileRequest& Request) override { return Ask(Request); }
    void ShowHint(const std::string& Hint) override { LastHint = Hint; }
    void ShowPosition(const std::string&, const std::string&) override { }
    void ShowFringePopup(const FringePopup& Menu) override { Popups.push_back(Menu); }
    void PutOnClipboard(const std::string& Text) override { Clipboard = Text; }
    std::optional<InputAnswer> AskInput(const InputRequest& Request) override
    {
        Inputs.push_back(Request);
        return TypedText ? std::optional(AnswerOf(Request, *TypedText)) : std::nullopt;
    }
    std::unique_ptr<Printer> AskPrinter(const PageRequest& Request) override
    {
        return CancelPrinting ? nullptr : DefaultPrinter(Request);
    }
    std::unique_ptr<Printer> DefaultPrinter(const PageRequest& Request) override
    {
        Printing.Request = Request;
        return std::make_unique<RecordingPrinter>(Printing);
    }
    std::unique_ptr<Printer> PdfPrinter(
        const PageRequest& Request, const std::string& Path) override
    {
        Printing.Path = Path;
        return DefaultPrinter(Request);
    }
    DeviceSize ScreenSize() const override { return {1024, 768}; }
    std::string ProgramFolder() const override { return "nowhere"; }
    std::unique_ptr<ImageWindow> CreateImageWindow(clsDocument& Of) override
    {
        if (RefuseWindows)
            return nullptr;
        return std::make_unique<RecordingImageWindow>(Log, Of, *Shown);
    }
    std::unique_ptr<TextWindow> CreateTextWindow(clsDocument&, ViewType Kind) override
    {
        return std::make_unique<RecordingTextWindow>(Log,
            Kind == ViewType::Aberrations    ? "Aberrations"
                : Kind == ViewType::Zernikes ? "Zernikes"
                                             : "GridResults");
    }
    std::unique_ptr<ProfileWindow> CreateProfileWindow(clsDocument&) override
    {
        return std::make_unique<RecordingProfileWindow>(Log, "LineProfile");
    }

private:
    std::optional<FileChoice> Ask(const FileRequest& Request)
    {
        Requests.push_back(Request);
        if (Choices.empty())
            return std::nullopt;
        const FileChoice choice = Choices.front();
        Choices.erase(Choices.begin());
        return choice;
    }
};

class RecordingAnswerer final : public MessageAnswerer {
public:
    std::vector<Message> Asked;
    std::vector<MessageAnswer> Answers; // to the next questions, in order; then Ok

    MessageAnswer Answer(const Message& Question) override
    {
        Asked.push_back(Question);
        if (Answers.empty())
            return MessageAnswer::Ok;
        const MessageAnswer answer = Answers.front();
        Answers.erase(Answers.begin());
        return answer;
    }
    // The text of the only message, which has been taken; empty if there were none or several.
    std::string TakeOnly()
    {
        const std::string text = Asked.size() == 1 ? Asked.front().Text : std::string();
        Asked.clear();
        return text;
    }
};

// A session without a screen. Order matters: the session goes before what it talks to.
struct SilentSession {
    RecordingAnswerer Answerer;
    RecordingFrame Frame;
    Session Main{Answerer, Frame};

    SilentSession() { Frame.Shown = &Main; }
};

} // namespace morvane
