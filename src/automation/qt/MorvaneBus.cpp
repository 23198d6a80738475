#include "automation/qt/MorvaneBus.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>

#include "automation/qt/BusNames.h"
#include "automation/qt/DocFace.h"
#include "document/DocumentTexts.h"

namespace morvane {

MorvaneBus::MorvaneBus(Session& Over, QObject* Parent) : QObject(Parent), m_session(Over)
{
    m_clients.setConnection(QDBusConnection::sessionBus());
    m_clients.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    connect(
        &m_clients, &QDBusServiceWatcher::serviceUnregistered, this, &MorvaneBus::ReleaseClient);
}

MorvaneBus::~MorvaneBus() = default;

bool MorvaneBus::Register()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
        QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
        SIGNAL(Disconnected()));
    return bus.registerObject(BusObject, this, QDBusConnection::ExportScriptableSlots)
        && bus.registerService(BusService);
}

QDBusObjectPath MorvaneBus::CreateDoc()
{
    const QString path = QStringLiteral("%1/docs/%2").arg(BusObject).arg(++m_numCreated);
    auto* face = new DocFace(m_session, this);
    connect(face, &DocFace::Released, this, [this, path] { Release(path); });
    connection().registerVirtualObject(path, face);
    m_docs.insert(path, {message().service(), face});
    m_clients.addWatchedService(message().service());
    return QDBusObjectPath(path);
}

std::shared_ptr<clsDocument> MorvaneBus::LoadedDocument(
    const QDBusObjectPath& Path, const std::string& Wish)
{
    const auto made = m_docs.constFind(Path.path());
    if (made == m_docs.constEnd()) {
        sendErrorReply(QDBusError::UnknownObject,
            QStringLiteral("There is no document '%1'").arg(Path.path()));
        return nullptr;
    }
    std::shared_ptr<clsDocument> document = made->Face->Doc().Document();
    if (!document) {
        connection().send(ErrorReply(message(),
            {MorvaneDocErrors::ErrorNoDocument,
                "Can't " + Wish + " until an interferogram has been loaded."}));
        setDelayedReply(true);
    }
    return document;
}

QString MorvaneBus::ViewText(const QDBusObjectPath& Document, const QString& View)
{
    const bool aberrations = View == QLatin1String("Aberrations");
    if (!aberrations && View != QLatin1String("Zernikes")) {
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("There is no view '%1'").arg(View));
        return {};
    }
    const auto document =
        LoadedDocument(Document, aberrations ? "read aberrations" : "read Zernike coefficients");
    if (!document)
        return {};
    if (!aberrations)
        return QString::fromStdString(ZernikesText(*document));
    return QString::fromStdString(
        document->OutputViewsExist() ? document->ShownAberrations() : AberrationsText(*document));
}

void MorvaneBus::PrintReport(const QDBusObjectPath& Document, const QString& Pdf)
{
    const auto document = LoadedDocument(Document, "print a report");
    if (!document)
        return;
    const UnattendedScope unattended(m_session);
    if (!m_session.PrintToPdf(*document, Pdf.toStdString()))
        sendErrorReply(QDBusError::Failed, QString::fromStdString(unattended.LastText()));
}

void MorvaneBus::ReleaseClient(const QString& Client)
{
    m_clients.removeWatchedService(Client);
    QStringList paths;
    for (auto doc = m_docs.cbegin(); doc != m_docs.cend(); ++doc) {
        if (doc->Client == Client)
            paths.append(doc.key());
    }
    for (const QString& path : paths)
        Release(path);
}

// The face may be in the middle of a call, so it goes later.
void MorvaneBus::Release(const QString& Path)
{
    const ClientDoc doc = m_docs.take(Path);
    if (!doc.Face)
        return;
    QDBusConnection::sessionBus().unregisterObject(Path);
    doc.Face->deleteLater();
}

} // namespace morvane
