// morvane [FILE]: the program with its main window, and FILE opened in it.
// morvane -Embedding: the same with no document, serving scripts over the session bus.
#include <QApplication>
#include <QIcon>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <span>

#include "automation/qt/MorvaneBus.h"
#include "platform/qt/QtMessages.h"
#include "shell/CommandLine.h"
#include "shell/frmMain.h"
#include "shell/frmSplash.h"
#include "shell/qt/Appearance.h"
#include "shell/qt/EndSignals.h"
#include "shell/qt/Screens.h"

namespace {

constexpr const char* Usage =
    "Usage: morvane [FILE]\n"
    "Analyzes interferograms. FILE, a picture (jpg, bmp, rle) or a document (mvd), is opened.\n"
    "\n"
    "  -Embedding  start with no document, to serve scripts\n"
    "  --help      show this text\n"
    "  --version   show the version\n"
    "\n"
    "MORVANE_SETTINGS in the environment names a file to be used in place of the user's "
    "settings.\n";

bool HasDisplay(int Count, char** Arguments)
{
    for (const char* variable : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        if (const char* value = std::getenv(variable); value && *value)
            return true;
    for (int i = 1; i < Count; ++i)
        if (std::strcmp(Arguments[i], "-platform") == 0)
            return true;
    return false;
}

int Run(QApplication& Application, morvane::QtMessages& Messages,
    const morvane::CommandLine& CommandLine)
{
    morvane::frmSplash splash;
    if (!CommandLine.Embedding) {
        splash.show();
        QApplication::processEvents();
    }
    morvane::SettingsStore settings(morvane::SettingsPath());
    morvane::frmMain frame;
    Messages.SetMainWindow(&frame);
    morvane::Session session(Messages, frame);
    session.ReadSettings(settings, morvane::Screens(), morvane::TodayText());
    frame.Attach(session, settings);
    frame.show();
    splash.close();

    // Without a bus the program runs by hand all the same; a server without one is of no use.
    morvane::MorvaneBus bus(session);
    const bool serves = bus.Register();
    if (CommandLine.Embedding) {
        if (!serves) {
            std::fputs("morvane: there is no session bus, or another program serves it\n", stderr);
            return EXIT_FAILURE;
        }
        QObject::connect(&bus, &morvane::MorvaneBus::Disconnected, &frame, [&] {
            if (QGuiApplication::platformName() == "offscreen")
                frame.EndUnasked();
            else
                frame.close();
        });
    }
    const morvane::EndSignals end;
    QObject::connect(&end, &morvane::EndSignals::Received, &frame, &morvane::frmMain::EndUnasked);
    {
        // A server tells nobody of a grabber that is not to be had; nothing may keep it waiting.
        std::optional<morvane::UnattendedScope> alone;
        if (CommandLine.Embedding)
            alone.emplace(session);
        session.StartGrabber(QApplication::applicationDirPath().toStdString());
    }
    // In the first turn of the event loop the window is on the screen, and its size is known.
    if (!CommandLine.File.empty())
        QMetaObject::invokeMethod(
            &frame, [&] { session.OpenFiles({CommandLine.File}, false); }, Qt::QueuedConnection);
    return Application.exec();
}

} // namespace

int main(int argc, char** argv)
{
    const char* const first = argc > 1 ? argv[1] : "";
    if (std::strcmp(first, "--help") == 0) {
        std::fputs(Usage, stdout);
        return EXIT_SUCCESS;
    }
    if (std::strcmp(first, "--version") == 0) {
        std::puts("Morvane " MORVANE_VERSION);
        return EXIT_SUCCESS;
    }
    if (!HasDisplay(argc, argv)) {
        std::fputs("morvane: no display; set DISPLAY, or QT_QPA_PLATFORM=offscreen to run without "
                   "one\n",
            stderr);
        return EXIT_FAILURE;
    }

    morvane::BlockEndSignals();
    Q_INIT_RESOURCE(morvane);
    QApplication::setApplicationName("Morvane");
    QApplication::setApplicationVersion(MORVANE_VERSION);
    QApplication::setDesktopFileName("com.ostrellabs.Morvane");
    QApplication application(argc, argv);
    morvane::ApplyAppearance(application);
    QApplication::setWindowIcon(QIcon(":/icons/morvane.svg"));

    morvane::QtMessages messages;
    try {
        // What the window system's own options have left over.
        const std::span<const char* const> words(argv + 1, argc > 0 ? argc - 1 : 0);
        return Run(application, messages, morvane::ParseCommandLine(words));
    } catch (const std::exception& error) {
        messages.Answer({.Text = error.what(),
            .Flags = morvane::MessageTaskModal | morvane::MessageStopSign,
            .Title = "Error"});
        return EXIT_FAILURE;
    }
}
