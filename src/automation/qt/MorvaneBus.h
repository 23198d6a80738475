// Morvane on the session bus: the object that makes documents for scripts, and those documents,
// each until its client releases it or leaves the bus.
#pragma once
#include <QDBusContext>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>
#include <QHash>
#include <QObject>

#include "shell/modMain.h"

namespace morvane {

class DocFace;

class MorvaneBus : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.ostrellabs.Morvane1")

public:
    // The session must outlive the bus face.
    explicit MorvaneBus(Session& Over, QObject* Parent = nullptr);
    ~MorvaneBus() override;

    // False if there is no bus, or another Morvane serves it already; the program runs without.
    bool Register();

public slots:
    Q_SCRIPTABLE QDBusObjectPath CreateDoc();
    // The text of the view "Aberrations" or "Zernikes" of a document made by CreateDoc.
    Q_SCRIPTABLE QString ViewText(const QDBusObjectPath& Document, const QString& View);
    // A page with the report of such a document, into a file. Nobody is asked or told: what would
    // be a question or a message to a user is an error.
    Q_SCRIPTABLE void PrintReport(const QDBusObjectPath& Document, const QString& Pdf);

signals:
    // The bus has ended, and with it every script.
    void Disconnected();

private slots:
    void ReleaseClient(const QString& Client);

private:
    void Release(const QString& Path);
    // What the client has loaded into a document made by CreateDoc; nullptr, and the call has its
    // error, if there is no such document, or nothing in it that could be done as Wish says.
    std::shared_ptr<clsDocument> LoadedDocument(
        const QDBusObjectPath& Path, const std::string& Wish);

    struct ClientDoc {
        QString Client; // unique name on the bus
        DocFace* Face = nullptr;
    };

    Session& m_session;
    QDBusServiceWatcher m_clients;
    QHash<QString, ClientDoc> m_docs; // by path
    int m_numCreated = 0;
};

} // namespace morvane
