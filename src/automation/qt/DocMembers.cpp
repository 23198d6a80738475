#include "automation/qt/DocMembers.h"

#include <algorithm>
#include <array>

#include "automation/qt/BusNames.h"

namespace morvane {
namespace {

template <typename T>
BusReply ReplyOf(const Raised<T>& Result)
{
    if (!Result)
        return Result.Error();
    return QVariantList{QVariant(Result.Value())};
}

BusReply ReplyOf(const Raised<FringeCenterResult>& Result)
{
    if (!Result)
        return Result.Error();
    const FringeCenterResult& center = Result.Value();
    return QVariantList{center.Ok, center.X, center.Y};
}

// A density of no value is one that was not given, so a given one must not be taken for that.
BusReply AutoTrace(MorvaneDoc& On, const BusArguments& Arguments)
{
    if (Arguments.size() < 2)
        return ReplyOf(On.AutoTrace(Arguments[0], Variant()));
    const bool meaningless = std::holds_alternative<std::monostate>(Arguments[1]);
    return ReplyOf(On.AutoTrace(Arguments[0], meaningless ? Variant(std::string()) : Arguments[1]));
}

// Likewise a path.
BusReply Save(MorvaneDoc& On, const BusArguments& Arguments)
{
    if (Arguments.empty())
        return ReplyOf(On.Save(Variant()));
    const bool meaningless = std::holds_alternative<std::monostate>(Arguments[0]);
    return ReplyOf(On.Save(meaningless ? Variant(false) : Arguments[0]));
}

// One line of the interface: a method with the first Inputs of its arguments.
QString MethodXml(const DocMethod& Method, std::size_t Inputs)
{
    QString xml = QStringLiteral("    <method name=\"%1\">\n").arg(QLatin1String(Method.Name));
    for (std::size_t i = 0; i < Inputs; ++i)
        xml += QStringLiteral("      <arg name=\"%1\" type=\"v\" direction=\"in\"/>\n")
                   .arg(QLatin1String(Method.Inputs[i]));
    for (const auto& [name, type] : Method.Outputs)
        xml += QStringLiteral("      <arg name=\"%1\" type=\"%2\" direction=\"out\"/>\n")
                   .arg(QLatin1String(name), QLatin1String(type));
    return xml + QStringLiteral("    </method>\n");
}

} // namespace

std::span<const DocMethod> DocMethods()
{
    static const std::array methods{
        DocMethod{"Load", {"Path"}, 1, {{"Success", "b"}},
            [](MorvaneDoc& On, const BusArguments& Arguments) {
                return ReplyOf(On.Load(Arguments[0]));
            }},
        DocMethod{"Save", {"Path"}, 0, {{"Success", "b"}}, Save},
        DocMethod{"Stretch", {"Ratio"}, 1, {{"Success", "b"}},
            [](MorvaneDoc& On, const BusArguments& Arguments) {
                return ReplyOf(On.Stretch(Arguments[0]));
            }},
        DocMethod{"Grab", {}, 0, {{"Success", "b"}},
            [](MorvaneDoc& On, const BusArguments&) { return ReplyOf(On.Grab()); }},
        DocMethod{"SetAperture", {"ShapeType", "Points"}, 2, {{"Success", "b"}},
            [](MorvaneDoc& On, const BusArguments& Arguments) {
                return ReplyOf(On.SetAperture(Arguments[0], Arguments[1]));
            }},
        DocMethod{"SetObstruction", {"ShapeType", "Points"}, 2, {{"Success", "b"}},
            [](MorvaneDoc& On, const BusArguments& Arguments) {
                return ReplyOf(On.SetObstruction(Arguments[0], Arguments[1]));
            }},
        DocMethod{"AutoTrace", {"Direction", "TraceDensity"}, 1, {{"Success", "b"}}, AutoTrace},
        DocMethod{"Analyze", {}, 0, {{"Success", "b"}},
            [](MorvaneDoc& On, const BusArguments&) { return ReplyOf(On.Analyze()); }},
        DocMethod{"Aberration", {"Type"}, 1, {{"Value", "d"}},
            [](MorvaneDoc& On, const BusArguments& Arguments) {
                return ReplyOf(On.Aberration(Arguments[0]));
            }},
        DocMethod{"Zernike", {"Polynomial"}, 1, {{"Value", "d"}},
            [](MorvaneDoc& On, const BusArguments& Arguments) {
                return ReplyOf(On.Zernike(Arguments[0]));
            }},
        DocMethod{"FringeCenter", {"Order", "Fringe"}, 2,
            {{"Success", "b"}, {"X", "d"}, {"Y", "d"}},
            [](MorvaneDoc& On, const BusArguments& Arguments) {
                return ReplyOf(On.FringeCenter(Arguments[0], Arguments[1]));
            }},
        DocMethod{"ExportMap", {"FilePath"}, 1, {{"Success", "b"}},
            [](MorvaneDoc& On, const BusArguments& Arguments) {
                return ReplyOf(On.ExportMap(Arguments[0]));
            }},
        DocMethod{"GetRemove", {"Type"}, 1, {{"Removed", "b"}},
            [](MorvaneDoc& On, const BusArguments& Arguments) {
                return ReplyOf(On.GetRemove(Arguments[0]));
            }},
        DocMethod{"SetRemove", {"Type", "Removed"}, 2, {{"Success", "b"}},
            [](MorvaneDoc& On, const BusArguments& Arguments) {
                return ReplyOf(On.SetRemove(Arguments[0], Arguments[1]));
            }},
    };
    return methods;
}

std::span<const DocProperty> DocProperties()
{
    static constexpr std::array properties{
        DocProperty{"InputWavelength", "d",
            [](const MorvaneDoc& Of) { return QVariant(Of.GetInputWavelength()); },
            [](MorvaneDoc& Of, const Variant& Value) { return Of.SetInputWavelength(Value); }},
        DocProperty{"OutputWavelength", "d",
            [](const MorvaneDoc& Of) { return QVariant(Of.GetOutputWavelength()); },
            [](MorvaneDoc& Of, const Variant& Value) { return Of.SetOutputWavelength(Value); }},
        DocProperty{"ScaleFactor", "d",
            [](const MorvaneDoc& Of) { return QVariant(Of.GetScaleFactor()); },
            [](MorvaneDoc& Of, const Variant& Value) { return Of.SetScaleFactor(Value); }},
        DocProperty{"InvertWavefront", "b",
            [](const MorvaneDoc& Of) { return QVariant(Of.GetInvertWavefront()); },
            [](MorvaneDoc& Of, const Variant& Value) { return Of.SetInvertWavefront(Value); }},
        DocProperty{"TrimEdges", "b",
            [](const MorvaneDoc& Of) { return QVariant(Of.GetTrimEdges()); },
            [](MorvaneDoc& Of, const Variant& Value) { return Of.SetTrimEdges(Value); }},
        DocProperty{"OrderLimit", "i",
            [](const MorvaneDoc& Of) { return QVariant(Of.GetOrderLimit()); },
            [](MorvaneDoc& Of, const Variant& Value) { return Of.SetOrderLimit(Value); }},
    };
    return properties;
}

const DocMethod* FindDocMethod(const QString& Name)
{
    const auto methods = DocMethods();
    const auto found = std::ranges::find_if(
        methods, [&](const DocMethod& Method) { return Name == QLatin1String(Method.Name); });
    return found == methods.end() ? nullptr : &*found;
}

const DocProperty* FindDocProperty(const QString& Name)
{
    const auto properties = DocProperties();
    const auto found = std::ranges::find_if(properties,
        [&](const DocProperty& Property) { return Name == QLatin1String(Property.Name); });
    return found == properties.end() ? nullptr : &*found;
}

QString DocInterfaceXml()
{
    QString xml = QStringLiteral("  <interface name=\"%1\">\n").arg(DocInterface);
    for (const DocMethod& method : DocMethods()) {
        for (std::size_t inputs = method.Required; inputs <= method.Inputs.size(); ++inputs)
            xml += MethodXml(method, inputs);
    }
    xml += QStringLiteral("    <method name=\"%1\"/>\n").arg(ReleaseMember);
    for (const DocProperty& property : DocProperties())
        xml += QStringLiteral("    <property name=\"%1\" type=\"%2\" access=\"readwrite\">\n"
                              "      <annotation name=\"%3\" value=\"false\"/>\n"
                              "    </property>\n")
                   .arg(QLatin1String(property.Name), QLatin1String(property.Type),
                       QStringLiteral("org.freedesktop.DBus.Property.EmitsChangedSignal"));
    return xml + QStringLiteral("  </interface>\n");
}

} // namespace morvane
