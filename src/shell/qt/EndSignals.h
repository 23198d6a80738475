// The system's wish that the program ends (SIGTERM, SIGHUP, SIGINT), as a signal in the event loop,
// so that the settings are written before.
#pragma once
#include <QObject>

namespace morvane {

// To be called while the program has one thread: later ones take over what is blocked.
void BlockEndSignals();

class EndSignals final : public QObject {
    Q_OBJECT

public:
    EndSignals();
    ~EndSignals() override;

signals:
    void Received();

private:
    int m_descriptor;
};

} // namespace morvane
