#include "shell/qt/EndSignals.h"

#include <QSocketNotifier>
#include <csignal>

#include <sys/signalfd.h>
#include <unistd.h>

namespace morvane {
namespace {

sigset_t Wanted()
{
    sigset_t wanted;
    sigemptyset(&wanted);
    for (const int signal : {SIGTERM, SIGHUP, SIGINT})
        sigaddset(&wanted, signal);
    return wanted;
}

} // namespace

void BlockEndSignals()
{
    const sigset_t wanted = Wanted();
    sigprocmask(SIG_BLOCK, &wanted, nullptr);
}

EndSignals::EndSignals()
{
    const sigset_t wanted = Wanted();
    m_descriptor = signalfd(-1, &wanted, SFD_NONBLOCK | SFD_CLOEXEC);
    if (m_descriptor < 0) { // better ended at once than never
        sigprocmask(SIG_UNBLOCK, &wanted, nullptr);
        return;
    }
    auto* const notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        signalfd_siginfo told;
        if (read(m_descriptor, &told, sizeof told) == sizeof told)
            emit Received();
    });
}

EndSignals::~EndSignals()
{
    delete findChild<QSocketNotifier*>(); // while its descriptor is open
    if (m_descriptor >= 0)
        close(m_descriptor);
}

} // namespace morvane
