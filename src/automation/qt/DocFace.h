// One MorvaneDoc as an object on the bus. It only translates: arguments to variants, results and
// errors to replies. Whatever a member meets, the caller gets an answer and the program goes on;
// messages for the user are answered unseen, so that no call waits for anybody.
//
// An error of the core is sent as com.ostrellabs.Morvane1.Error.<Name> with the text
// "0x80040202 MorvaneDoc: Invalid aberration type parameter."
#pragma once
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include "automation/MorvaneDoc.h"

namespace morvane {

class DocFace : public QDBusVirtualObject {
    Q_OBJECT

public:
    DocFace(Session& Over, QObject* Parent)
        : QDBusVirtualObject(Parent), m_session(Over), m_doc(Over)
    {
    }

    const MorvaneDoc& Doc() const { return m_doc; }

    QString introspect(const QString& Path) const override;
    bool handleMessage(const QDBusMessage& Call, const QDBusConnection& Bus) override;

signals:
    void Released();

private:
    QDBusMessage Answer(const QDBusMessage& Call);
    QDBusMessage CallMember(const QDBusMessage& Call);
    QDBusMessage AccessProperties(const QDBusMessage& Call);
    QDBusMessage AccessProperty(const QDBusMessage& Call, const QVariantList& Arguments);

    Session& m_session;
    MorvaneDoc m_doc;
};

QDBusMessage ErrorReply(const QDBusMessage& Call, const AutomationError& Error);

} // namespace morvane
