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

template <typename T>
Raised<QVariant> ValueOf(const Raised<T>& Result)
{
    if (!Result)
        return Result.Error();
    return QVariant(Result.Value());
}

template <auto Member>
Raised<QVariant> Get(const MorvaneDoc& Of)
{
    return ValueOf(Raised((Of.*Member)()));
}

template <auto Member>
Raised<bool> Set(MorvaneDoc& Of, const Variant& Value)
{
    return (Of.*Member)(Value);
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
        DocMethod{"SizeWindow", {"Width", "Height"}, 2, {{"Success", "b"}},
            [](MorvaneDoc& On, const BusArguments& Arguments) {
                return ReplyOf(On.SizeWindow(Arguments[0], Arguments[1]));
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
        DocProperty{"InputWavelength", "d", Get<&MorvaneDoc::GetInputWavelength>,
            Set<&MorvaneDoc::SetInputWavelength>},
        DocProperty{"OutputWavelength", "d", Get<&MorvaneDoc::GetOutputWavelength>,
            Set<&MorvaneDoc::SetOutputWavelength>},
        DocProperty{
            "ScaleFactor", "d", Get<&MorvaneDoc::GetScaleFactor>, Set<&MorvaneDoc::SetScaleFactor>},
        DocProperty{"InvertWavefront", "b", Get<&MorvaneDoc::GetInvertWavefront>,
            Set<&MorvaneDoc::SetInvertWavefront>},
        DocProperty{
            "TrimEdges", "b", Get<&MorvaneDoc::GetTrimEdges>, Set<&MorvaneDoc::SetTrimEdges>},
        DocProperty{
            "OrderLimit", "i", Get<&MorvaneDoc::GetOrderLimit>, Set<&MorvaneDoc::SetOrderLimit>},
        DocProperty{"Zoom", "i", Get<&MorvaneDoc::GetZoom>, Set<&MorvaneDoc::SetZoom>},
        DocProperty{"width", "i", Get<&MorvaneDoc::GetWidth>, nullptr},
        DocProperty{"height", "i", Get<&MorvaneDoc::GetHeight>, nullptr},
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
        xml += QStringLiteral("    <property name=\"%1\" type=\"%2\" access=\"%3\">\n"
                              "      <annotation name=\"%4\" value=\"false\"/>\n"
                              "    </property>\n")
                   .arg(QLatin1String(property.Name), QLatin1String(property.Type),
                       property.Set ? QStringLiteral("readwrite") : QStringLiteral("read"),
                       QStringLiteral("org.freedesktop.DBus.Property.EmitsChangedSignal"));
    return xml + QStringLiteral("  </interface>\n");
}

} // namespace morvane
