#include "automation/qt/DocFace.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusVariant>
#include <new>

#include "automation/qt/BusNames.h"
#include "automation/qt/BusValues.h"
#include "automation/qt/DocMembers.h"

namespace morvane {
namespace {

constexpr QLatin1String PropertiesInterface("org.freedesktop.DBus.Properties");
constexpr QLatin1String IntrospectionInterface("org.freedesktop.DBus.Introspectable");

BusArguments ArgumentsOf(const QDBusMessage& Call)
{
    BusArguments arguments;
    for (const QVariant& argument : Call.arguments())
        arguments.push_back(FromBus(argument));
    return arguments;
}

QDBusMessage WrongArguments(const QDBusMessage& Call)
{
    return Call.createErrorReply(QDBusError::InvalidArgs,
        QStringLiteral("Wrong arguments '%1' for '%2'").arg(Call.signature(), Call.member()));
}

QDBusMessage UnknownMember(const QDBusMessage& Call)
{
    return Call.createErrorReply(QDBusError::UnknownMethod,
        QStringLiteral("There is no '%1' in '%2'").arg(Call.member(), Call.interface()));
}

QDBusMessage ReplyTo(const QDBusMessage& Call, const BusReply& Result)
{
    return Result ? Call.createReply(Result.Value()) : ErrorReply(Call, Result.Error());
}

} // namespace

QDBusMessage ErrorReply(const QDBusMessage& Call, const AutomationError& Error)
{
    const QString number = QString::number(static_cast<quint32>(Error.Number), 16).toUpper();
    return Call.createErrorReply(ErrorPrefix + QLatin1String(ErrorName(Error.Number)),
        QStringLiteral("0x%1 %2: %3")
            .arg(number, QString::fromStdString(Error.Source),
                QString::fromStdString(Error.Description)));
}

QString DocFace::introspect(const QString&) const
{
    return DocInterfaceXml();
}

bool DocFace::handleMessage(const QDBusMessage& Call, const QDBusConnection& Bus)
{
    if (Call.interface() == IntrospectionInterface && Call.member() == QLatin1String("Introspect")
        && Call.arguments().isEmpty())
        return false; // answered by Qt, with introspect()
    Bus.send(Answer(Call));
    m_session.Frame().UpdateMainFrame(); // any member may have changed what it shows
    return true;
}

QDBusMessage DocFace::Answer(const QDBusMessage& Call)
{
    try {
        const UnattendedScope unattended(m_session);
        if (Call.interface() == PropertiesInterface)
            return AccessProperties(Call);
        if (Call.interface() == DocInterface || Call.interface().isEmpty())
            return CallMember(Call);
        return UnknownMember(Call);
    } catch (const std::bad_alloc&) {
        return Call.createErrorReply(QDBusError::NoMemory, QStringLiteral("Out of memory"));
    } catch (const std::exception& error) {
        return Call.createErrorReply(QDBusError::Failed, QString::fromUtf8(error.what()));
    }
}

QDBusMessage DocFace::CallMember(const QDBusMessage& Call)
{
    if (Call.member() == ReleaseMember) {
        if (!Call.arguments().isEmpty())
            return WrongArguments(Call);
        emit Released();
        return Call.createReply();
    }
    const DocMethod* method = FindDocMethod(Call.member());
    if (!method)
        return UnknownMember(Call);
    const BusArguments arguments = ArgumentsOf(Call);
    if (arguments.size() < method->Required || arguments.size() > method->Inputs.size())
        return WrongArguments(Call);
    return ReplyTo(Call, method->Call(m_doc, arguments));
}

QDBusMessage DocFace::AccessProperties(const QDBusMessage& Call)
{
    const QVariantList arguments = Call.arguments();
    const bool all = Call.member() == QLatin1String("GetAll");
    const bool get = Call.member() == QLatin1String("Get");
    const bool set = Call.member() == QLatin1String("Set");
    if (!all && !get && !set)
        return UnknownMember(Call);
    if (Call.signature() != QLatin1String(all ? "s" : get ? "ss" : "ssv"))
        return WrongArguments(Call);

    const QString interface = arguments[0].toString();
    if (!interface.isEmpty() && interface != DocInterface)
        return Call.createErrorReply(QDBusError::UnknownInterface,
            QStringLiteral("There is no interface '%1' here").arg(interface));
    if (!all)
        return AccessProperty(Call, arguments);
    QVariantMap values;
    for (const DocProperty& property : DocProperties())
        if (const Raised<QVariant> value = property.Get(m_doc)) // those that there are at present
            values.insert(QLatin1String(property.Name), value.Value());
    return Call.createReply(values);
}

QDBusMessage DocFace::AccessProperty(const QDBusMessage& Call, const QVariantList& Arguments)
{
    const DocProperty* property = FindDocProperty(Arguments[1].toString());
    if (!property)
        return Call.createErrorReply(QDBusError::UnknownProperty,
            QStringLiteral("There is no property '%1'").arg(Arguments[1].toString()));
    if (Arguments.size() == 2) {
        const Raised<QVariant> value = property->Get(m_doc);
        return value ? Call.createReply(QVariant::fromValue(QDBusVariant(value.Value())))
                     : ErrorReply(Call, value.Error());
    }
    if (!property->Set)
        return Call.createErrorReply(QDBusError::PropertyReadOnly,
            QStringLiteral("'%1' can only be read").arg(Arguments[1].toString()));
    const Raised<bool> result = property->Set(m_doc, FromBus(Arguments[2]));
    return result ? Call.createReply() : ErrorReply(Call, result.Error());
}

} // namespace morvane
