// The main window with its session, as the program starts it, and a user who notes every message.
#pragma once
#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

#include "analysis/frmAnalyze.h"
#include "document/Dib.h"
#include "platform/File.h"
#include "shell/frmMain.h"
#include "shell/qt/Screens.h"

namespace morvane::test {

class NotingAnswerer final : public MessageAnswerer {
public:
    MessageAnswer Answer(const Message& Asked) override
    {
        Messages.push_back(Asked);
        if (Answers.empty())
            return MessageAnswer::No;
        const MessageAnswer answer = Answers.front();
        Answers.erase(Answers.begin());
        return answer;
    }
    std::vector<Message> Messages;
    std::vector<MessageAnswer> Answers; // to the next questions, in order; then No
};

class Desk {
public:
    Desk()
    {
        Session.ReadSettings(Settings, Screens(), "Mar 7, 2026");
        Frame.Attach(Session, Settings);
        Frame.resize(760, 560);
        Frame.show();
        Settle();
    }
    ~Desk() { Session.CloseAllDocuments(); }

    std::string SettingsFile() const { return Folder.filePath("settings.ini").toStdString(); }

    static void Settle() { QTest::qWait(0); }

    template <typename Widget>
    Widget& Find(const char* Name)
    {
        return *Frame.findChild<Widget*>(Name);
    }
    void Trigger(const char* Action)
    {
        Find<QAction>(Action).trigger();
        Settle();
    }

    // A file of Width by Height pixels, each with the intensity Value.
    std::string WritePicture(int Width, int Height, std::uint8_t Value = 128)
    {
        ImageBuffer image;
        image.Size = {Width, Height};
        image.Pixels.assign(static_cast<std::size_t>(Width) * Height, Value);
        std::string path = Folder.filePath(QString("%1.bmp").arg(++m_numFiles)).toStdString();
        WriteWholeFile(path, BmpFromBuffer(image));
        return path;
    }

    clsDocument& Open(int Width = 120, int Height = 100)
    {
        Session.OpenFiles({WritePicture(Width, Height)}, false);
        Settle();
        return *Session.Active();
    }

    // A document with vertical fringes a wave apart over its aperture, and its two texts.
    clsDocument& OpenAnalyzed()
    {
        clsDocument& document = Open();
        const std::array circle{Point{10, 50}, Point{60, 0}, Point{110, 50}, Point{60, 100}};
        document.Aperture.Save(ShapeKind::Circle, circle);
        document.InvalidateMask();
        for (int order = 1; order <= 8; ++order) {
            int index = document.Fringes.AddOrder(order);
            for (int y = 30; y <= 70; y += 4)
                document.Fringes.AddCenter(order, {15.0 + 10 * order, double(y)}, index);
        }
        Session.AnalyzeFringes();
        Settle();
        return document;
    }

    NotingAnswerer User;
    QTemporaryDir Folder;
    SettingsStore Settings{SettingsFile()};
    frmMain Frame;
    morvane::Session Session{User, Frame};

private:
    int m_numFiles = 0;
};

} // namespace morvane::test
