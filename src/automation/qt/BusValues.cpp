#include "automation/qt/BusValues.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <limits>
#include <optional>

namespace morvane {
namespace {

std::optional<double> NumberOf(const Variant& Value)
{
    if (const auto* whole = std::get_if<std::int64_t>(&Value))
        return static_cast<double>(*whole);
    if (const auto* real = std::get_if<double>(&Value))
        return *real;
    return std::nullopt;
}

Variant FromUnsigned(qulonglong Value)
{
    if (Value > static_cast<qulonglong>(std::numeric_limits<std::int64_t>::max()))
        return static_cast<double>(Value);
    return static_cast<std::int64_t>(Value);
}

Variant FromBytes(const QByteArray& Bytes)
{
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(Bytes.size()));
    for (const char byte : Bytes)
        values.push_back(static_cast<unsigned char>(byte));
    return values;
}

Variant FromArgument(const QDBusArgument& Argument)
{
    if (Argument.currentType() != QDBusArgument::ArrayType)
        return {};
    std::vector<double> values;
    Argument.beginArray();
    while (!Argument.atEnd()) {
        const std::optional<double> number = NumberOf(FromBus(Argument.asVariant()));
        if (!number)
            return {};
        values.push_back(*number);
    }
    Argument.endArray();
    return values;
}

} // namespace

Variant FromBus(const QVariant& Value)
{
    if (Value.metaType() == QMetaType::fromType<QDBusVariant>())
        return FromBus(qvariant_cast<QDBusVariant>(Value).variant());
    if (Value.metaType() == QMetaType::fromType<QDBusArgument>())
        return FromArgument(qvariant_cast<QDBusArgument>(Value));
    switch (Value.typeId()) {
    case QMetaType::Bool:
        return Value.toBool();
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        return static_cast<std::int64_t>(Value.toLongLong());
    case QMetaType::ULongLong:
        return FromUnsigned(Value.toULongLong());
    case QMetaType::Double:
        return Value.toDouble();
    case QMetaType::QString:
        return Value.toString().toStdString();
    case QMetaType::QByteArray:
        return FromBytes(Value.toByteArray());
    default:
        return {};
    }
}

} // namespace morvane
