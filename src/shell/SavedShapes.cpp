#include "shell/SavedShapes.h"

#include <limits>
#include <vector>

#include "analysis/ModMathLib.h"

namespace morvane {
namespace {

constexpr const char* Section = "Toolbox";

// "Aperture VertexX 1"
std::string NameOfVertex(const std::string& Which, char Axis, int Number)
{
    return Which + " Vertex" + Axis + " " + std::to_string(Number);
}

double GetLength(SettingsStore& From, const std::string& Name)
{
    return From.GetSettingDouble(Section, Name, 0, std::numeric_limits<double>::max(), 0);
}

std::vector<Point> GetVertices(SettingsStore& From, const std::string& Which)
{
    const int count = From.GetSettingLong(Section, Which + " Vertices", 0, MaxVertices, 0);
    std::vector<Point> vertices;
    for (int i = 1; i <= count; ++i)
        vertices.push_back({GetLength(From, NameOfVertex(Which, 'X', i)),
            GetLength(From, NameOfVertex(Which, 'Y', i))});
    return vertices;
}

} // namespace

bool LoadSavedShape(SettingsStore& From, const std::string& Which, clsShape& Into)
{
    const auto type =
        static_cast<ShapeKind>(From.GetSettingLong(Section, Which + " Save Type", 0, 3, 0));
    if (type == ShapeKind::None)
        return false;
    if (type == ShapeKind::Polygon) {
        Into.Save(type, GetVertices(From, Which));
        return true;
    }
    Into.SetShapeType(type);
    Into.SetCenter({GetLength(From, Which + " CenterX"), GetLength(From, Which + " CenterY")});
    Into.SetRadii({GetLength(From, Which + " RadiusX"), GetLength(From, Which + " RadiusY")});
    if (type == ShapeKind::Ellipse)
        Into.SetAngle(From.GetSettingDouble(Section, Which + " Angle", -Pi / 2, Pi / 2, 0));
    return true;
}

void SaveShape(SettingsStore& Into, const std::string& Which, const clsShape& Saved)
{
    const auto save = [&](const char* name, double value) {
        Into.SaveSettingDouble(Section, Which + name, value);
    };
    Into.SaveSettingLong(
        Section, Which + " Save Type", static_cast<std::int32_t>(Saved.GetShapeType()));
    save(" RadiusX", Saved.GetRadii().X);
    save(" RadiusY", Saved.GetRadii().Y);
    save(" CenterX", Saved.GetCenter().X);
    save(" CenterY", Saved.GetCenter().Y);
    save(" Angle", Saved.GetAngle());
    Into.SaveSettingLong(Section, Which + " Vertices", Saved.GetVertices());
    for (int i = 1; i <= Saved.GetVertices(); ++i) {
        const Point vertex = Saved.GetVertex(i);
        Into.SaveSettingDouble(Section, NameOfVertex(Which, 'X', i), vertex.X);
        Into.SaveSettingDouble(Section, NameOfVertex(Which, 'Y', i), vertex.Y);
    }
}

} // namespace morvane
